#pragma once

#include "aluframe/analysis/element_loads.h"
#include "aluframe/analysis/results.h"

namespace aluframe::analysis {

/// Forces at the five positions, in double precision: N, Fy, Fz, Mx, My, Mz in columns.
using FivePositions = Eigen::Matrix<double, 6, 5>;

/// From the end forces acting ON the element and the loads between them, by equilibrium. The loads
/// of a truss are on its nodes, so it has one axial force.
FivePositions section_forces(ElementKind kind, const Vector12& end_forces,
                             const ElementLoads& loads);

}  // namespace aluframe::analysis
