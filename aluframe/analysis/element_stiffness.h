#pragma once

#include "aluframe/analysis/bending_plane.h"
#include "aluframe/analysis/frame.h"

namespace aluframe::analysis {

/// Where one bending plane stands among the twelve components of an element. The slope dw/dx is the
/// rotation about z in the plane of y, and minus the rotation about y in the plane of z.
struct PlaneDofs {
  std::array<int, 4> dof;
  double rotation_sign;
};
inline constexpr PlaneDofs dofs_y{{1, 5, 7, 11}, 1.0};   ///< Fy and Mz, bent about z
inline constexpr PlaneDofs dofs_z{{2, 4, 8, 10}, -1.0};  ///< Fz and My, bent about y

/// The two bending planes of a beam.
BendingPlane plane_y(const Stiffness& stiffness, double length);
BendingPlane plane_z(const Stiffness& stiffness, double length);

/// Parts of the twelve that belong to one plane, and the parts of a plane added to the twelve.
Vector4 plane_part(const PlaneDofs& dofs, const Vector12& all);
void add_plane(const PlaneDofs& dofs, const Vector4& part, Vector12& all);
void add_plane(const PlaneDofs& dofs, const Matrix4& part, Matrix12& all);

/// A spring between component `dof` of the start and the same one of the end: EA/L, GIt/L.
void add_spring(int dof, double stiffness, Matrix12& all);

/// Stiffness in local axes without releases. A truss has its axial part only.
Matrix12 elastic_stiffness(const Element& element, double length);

}  // namespace aluframe::analysis
