#pragma once

#include <Eigen/Dense>

namespace aluframe::analysis {

/// Three forces and three moments of the start, then of the end, acting ON the element; or the
/// displacements and rotations that go with them. Local axes unless said otherwise.
using Vector12 = Eigen::Matrix<double, 12, 1>;
using Matrix12 = Eigen::Matrix<double, 12, 12>;

/// Unit vectors of the local x, y, z as rows: turns global components into local ones.
using Axes = Eigen::Matrix3d;

/// One bending plane: deflection and slope at the start, then at the end.
using Vector4 = Eigen::Vector4d;
using Matrix4 = Eigen::Matrix4d;

}  // namespace aluframe::analysis
