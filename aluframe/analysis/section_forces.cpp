#include "aluframe/analysis/section_forces.h"

#include "aluframe/analysis/fixed_end_forces.h"

namespace aluframe::analysis {

FivePositions sections_of_loads(ElementKind kind, const ElementLoads& loads) {
  FivePositions forces = FivePositions::Zero();
  if (kind == ElementKind::truss) {
    forces.row(0).setConstant(-simply_supported_reactions(loads)[6]);
    return forces;
  }
  for (int i = 1; i < 4; ++i) {
    const Resultant before = resultant_before(loads, loads.length * i / 4.0);
    const Eigen::Vector3d& q = before.force;
    const Eigen::Vector3d& m = before.moment;
    forces.col(i) << -q.x(), q.y(), q.z(), -m.x(), m.y(), -m.z();
  }
  return forces;
}

FivePositions section_forces(ElementKind kind, const Vector12& end_forces,
                             const ElementLoads& loads) {
  Eigen::Matrix<double, 30, 1> of_ends;
  sections_of_ends(kind, loads.length, end_forces, of_ends);
  return of_ends.reshaped(6, 5) + sections_of_loads(kind, loads);
}

}  // namespace aluframe::analysis
