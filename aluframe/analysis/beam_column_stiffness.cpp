#include "aluframe/analysis/beam_column_stiffness.h"

#include <algorithm>
#include <limits>
#include <numbers>

namespace aluframe::analysis {

void set_beam_column(const Element& element, double length, const BeamColumnPlane& y,
                     const BeamColumnPlane& z, ElementStiffness& stiffness) {
  const Stiffness& s = element.stiffness;
  stiffness.unreleased = elastic_stiffness(element, length).diagonal();
  stiffness.condensed.setZero();
  stiffness.rigid_rotation.setZero();
  add_spring(0, s.e * s.area / length, stiffness.condensed);
  add_spring(3, s.g * s.it / length, stiffness.condensed);
  add_plane(dofs_y, y.stiffness(), stiffness.condensed);
  add_plane(dofs_z, z.stiffness(), stiffness.condensed);
  add_plane(dofs_y, y.rigid_rotation(), stiffness.rigid_rotation);
  add_plane(dofs_z, z.rigid_rotation(), stiffness.rigid_rotation);
}

void set_truss(const Element& element, double length, double axial_force,
               ElementStiffness& stiffness) {
  stiffness.condensed = elastic_stiffness(element, length);
  stiffness.unreleased = stiffness.condensed.diagonal();
  stiffness.rigid_rotation.setZero();
  for (const int dof : {1, 2}) {
    add_spring(dof, axial_force / length, stiffness.condensed);
    stiffness.rigid_rotation[dof] = -axial_force;
    stiffness.rigid_rotation[dof + 6] = axial_force;
  }
}

double euler_load(const BendingPlane& plane, int half_waves) {
  const double turns = std::numbers::pi * half_waves;
  return turns * turns * plane.ei /
         (plane.length * plane.length * (1.0 + turns * turns * plane.shear / 12.0));
}

double truss_buckling_load(const Element& element, double length) {
  double least = std::numeric_limits<double>::infinity();
  for (const BendingPlane& plane :
       {plane_y(element.stiffness, length), plane_z(element.stiffness, length)}) {
    if (plane.ei > 0.0) least = std::min(least, euler_load(plane, 1));
  }
  return least;
}

}  // namespace aluframe::analysis
