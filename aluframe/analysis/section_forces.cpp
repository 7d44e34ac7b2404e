#include "aluframe/analysis/section_forces.h"

#include "aluframe/analysis/clamped_forces.h"

namespace aluframe::analysis {

namespace {

using Column = Eigen::Matrix<double, 6, 1>;

/// What the end exerts on the last section, in the signs of section forces.
Column at_end(const Vector12& f) {
  return {f[6], -f[7], -f[8], f[9], -f[10], f[11]};
}

/// A section holds the piece before it against the start's forces and the loads on the way.
Column at_place(const Vector12& f, const Resultant& before, double x) {
  const Eigen::Vector3d& q = before.force;
  const Eigen::Vector3d& m = before.moment;
  return {
      -f[0] - q.x(),           f[1] + q.y(), f[2] + q.z(), -f[3] - m.x(), f[4] + f[2] * x + m.y(),
      -f[5] + f[1] * x - m.z()};
}

}  // namespace

FivePositions section_forces(ElementKind kind, const Vector12& end_forces,
                             const ElementLoads& loads) {
  FivePositions forces;
  if (kind == ElementKind::truss) {
    forces.setZero();
    forces.row(0).setConstant(end_forces[6] - passed_to_ends(loads)[6]);
    return forces;
  }
  forces.col(0) = at_place(end_forces, {}, 0.0);
  for (int i = 1; i < 4; ++i) {
    const double x = loads.length * i / 4.0;
    forces.col(i) = at_place(end_forces, resultant_before(loads, x), x);
  }
  forces.col(4) = at_end(end_forces);
  return forces;
}

}  // namespace aluframe::analysis
