#include "aluframe/analysis/displaced_growth.h"

#include <Eigen/Geometry>

namespace aluframe::analysis {

Vector12 change_by_displacement(const Geometry& geometry, const ElementStiffness& stiffness,
                                double thermal, const Vector12& u) {
  const Vector12 local = to_local(geometry.axes, u);
  const Eigen::Vector3d apart = local.segment<3>(6) - local.segment<3>(0);
  const Eigen::Vector3d chord = Eigen::Vector3d(geometry.length, 0.0, 0.0) + apart;
  const double length = chord.norm();
  // Beyond what the nodes move along the axis.
  const double longer =
      (apart.squaredNorm() + apart.x() * (geometry.length - length)) / (length + geometry.length);
  const double slope_y = apart.y() / geometry.length, slope_z = apart.z() / geometry.length;
  // What the element feels of the displacements: it does not feel that it turns.
  Vector12 own = Vector12::Zero();
  own[6] = apart.x();
  const Eigen::Vector3d turned(0.0, -slope_z, slope_y);
  own.segment<3>(3) = local.segment<3>(3) - turned;
  own.segment<3>(9) = local.segment<3>(9) - turned;
  Vector12 there = stiffness.condensed * own, here = stiffness.condensed * local;
  for (Vector12* forces : {&there, &here}) {
    (*forces)[0] -= thermal;
    (*forces)[6] += thermal;
  }
  const Eigen::Matrix3d turn =
      Eigen::Quaterniond::FromTwoVectors(Eigen::Vector3d::UnitX(), chord).matrix();
  Vector12 change = -here;
  for (const int part : {0, 3, 6, 9}) change.segment<3>(part) += turn * there.segment<3>(part);
  // Along the undisplaced axis: across it, this would stiffen what other elements do not hold.
  change += longer * stiffness.condensed.col(6);
  // Second order knows how the axial force turns, loads along the element included.
  for (const int dof : {1, 5, 7, 11}) change[dof] += slope_y * stiffness.rigid_rotation[dof];
  for (const int dof : {2, 4, 8, 10}) change[dof] += slope_z * stiffness.rigid_rotation[dof];
  for (const int end : {0, 6}) {
    change[end + 1] -= slope_y * here[end];
    change[end + 2] -= slope_z * here[end];
  }
  return to_global(geometry.axes, change);
}

Axes turned_with_chord(const Geometry& geometry, const Eigen::Vector3d& apart) {
  const Eigen::Vector3d before = geometry.axes.row(0).transpose();
  const Eigen::Vector3d after = geometry.length * before + apart;
  const Eigen::Matrix3d turn = Eigen::Quaterniond::FromTwoVectors(before, after).matrix();
  return geometry.axes * turn.transpose();
}

double growth_share(std::span<const double> displacements, std::span<const double> growth) {
  double work = 0.0, square = 0.0;
  for (std::size_t i = 0; i < displacements.size(); ++i) {
    if (i % 6 > 2) continue;  // of translations
    work += displacements[i] * growth[i];
    square += displacements[i] * displacements[i];
  }
  return square > 0.0 ? work / square : 0.0;
}

}  // namespace aluframe::analysis
