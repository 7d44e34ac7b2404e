#include "aluframe/analysis/element_stiffness.h"

namespace aluframe::analysis {

namespace {

/// +1 for the two deflections, the plane's sign for the two rotations.
double sign_of(const PlaneDofs& dofs, std::size_t i) {
  return i % 2 == 1 ? dofs.rotation_sign : 1.0;
}

}  // namespace

BendingPlane plane_y(const Stiffness& s, double length) {
  return BendingPlane::of(s.e * s.izz, s.g * s.ay, length);
}

BendingPlane plane_z(const Stiffness& s, double length) {
  return BendingPlane::of(s.e * s.iyy, s.g * s.az, length);
}

Vector4 plane_part(const PlaneDofs& dofs, const Vector12& all) {
  Vector4 part;
  for (std::size_t i = 0; i < 4; ++i) {
    part[static_cast<int>(i)] = sign_of(dofs, i) * all[dofs.dof[i]];
  }
  return part;
}

void add_plane(const PlaneDofs& dofs, const Vector4& part, Vector12& all) {
  for (std::size_t i = 0; i < 4; ++i) {
    all[dofs.dof[i]] += sign_of(dofs, i) * part[static_cast<int>(i)];
  }
}

void add_plane(const PlaneDofs& dofs, const Matrix4& part, Matrix12& all) {
  for (std::size_t i = 0; i < 4; ++i) {
    for (std::size_t j = 0; j < 4; ++j) {
      all(dofs.dof[i], dofs.dof[j]) +=
          sign_of(dofs, i) * sign_of(dofs, j) * part(static_cast<int>(i), static_cast<int>(j));
    }
  }
}

void add_spring(int dof, double stiffness, Matrix12& all) {
  const int other = dof + 6;
  all(dof, dof) += stiffness;
  all(other, other) += stiffness;
  all(dof, other) -= stiffness;
  all(other, dof) -= stiffness;
}

Matrix12 elastic_stiffness(const Element& element, double length) {
  const Stiffness& s = element.stiffness;
  Matrix12 k = Matrix12::Zero();
  add_spring(0, s.e * s.area / length, k);
  if (element.kind == ElementKind::truss) return k;
  add_spring(3, s.g * s.it / length, k);
  add_plane(dofs_y, bending_stiffness(plane_y(s, length)), k);
  add_plane(dofs_z, bending_stiffness(plane_z(s, length)), k);
  return k;
}

}  // namespace aluframe::analysis
