#include "aluframe/analysis/extended_element.h"

#include "aluframe/analysis/element_stiffness.h"

namespace aluframe::analysis {

namespace {

using Extended3 = std::array<Extended, 3>;

Extended3 three_at(const Extended12& all, std::size_t first) {
  return {all[first], all[first + 1], all[first + 2]};
}

Extended3 rotated(const Axes& axes, const Extended3& global) {
  Extended3 local;
  for (std::size_t i = 0; i < 3; ++i) {
    for (std::size_t j = 0; j < 3; ++j) {
      local[i] += global[j] * axes(static_cast<int>(i), static_cast<int>(j));
    }
  }
  return local;
}

/// Displacements of the ends, local axes: all that an element resists.
struct EndDisplacements {
  Extended3 relative;  ///< translation of the end against the start
  Extended3 start_rotation, end_rotation;
};

EndDisplacements end_displacements(const Axes& axes, const Extended12& displacements) {
  Extended3 relative = three_at(displacements, 6);
  for (std::size_t i = 0; i < 3; ++i) relative[i] = relative[i] - displacements[i];
  return {rotated(axes, relative), rotated(axes, three_at(displacements, 3)),
          rotated(axes, three_at(displacements, 9))};
}

/// Stiffness of one bending plane against the slopes of its ends and against `across`, the
/// deflection of the end against the start.
struct PlaneStiffness {
  double start = 0.0, mixed = 0.0, end = 0.0;
  Extended across_start, across_end, across;
};

/// By statics from the stiffness against rotations, so that the rest holds to the last digit.
PlaneStiffness plane_stiffness(const PlaneDofs& dofs, const ElementStiffness& stiffness,
                               double length) {
  const auto [w1, t1, w2, t2] = dofs.dof;
  const Matrix12& k = stiffness.condensed;
  const auto rigid = [&](int dof) { return Extended(stiffness.rigid_rotation[dof]); };
  PlaneStiffness plane{k(t1, t1), k(t1, t2), k(t2, t2), {}, {}, {}};
  plane.across_start =
      (rigid(t1) * dofs.rotation_sign - exact_sum(plane.start, plane.mixed)) / length;
  plane.across_end = (rigid(t2) * dofs.rotation_sign - exact_sum(plane.mixed, plane.end)) / length;
  plane.across = (rigid(w2) - plane.across_start - plane.across_end) / length;
  return plane;
}

void add_plane(const PlaneDofs& dofs, std::size_t axis, const PlaneStiffness& k,
               const EndDisplacements& ends, Extended12& forces) {
  const auto dof = [&](std::size_t i) { return static_cast<std::size_t>(dofs.dof[i]); };
  const std::size_t axis_of_rotation = dof(1) - 3;
  const double sign = dofs.rotation_sign;
  const Extended start = ends.start_rotation[axis_of_rotation] * sign,
                 end = ends.end_rotation[axis_of_rotation] * sign;
  const Extended& across = ends.relative[axis];
  const Extended shear = k.across * across + k.across_start * start + k.across_end * end;
  forces[dof(0)] = -shear;
  forces[dof(2)] = shear;
  forces[dof(1)] = (k.across_start * across + start * k.start + end * k.mixed) * sign;
  forces[dof(3)] = (k.across_end * across + start * k.mixed + end * k.end) * sign;
}

/// Axial force or torsion: a spring between component `dof` of the start and of the end.
void add_spring(std::size_t dof, const Matrix12& k, const Extended& relative, Extended12& forces) {
  const auto end = static_cast<int>(dof) + 6;
  forces[dof + 6] = relative * k(end, end);
  forces[dof] = -forces[dof + 6];
}

}  // namespace

Extended12 extended_end_forces(const ElementStiffness& stiffness, const Geometry& geometry,
                               const Extended12& displacements) {
  const EndDisplacements ends = end_displacements(geometry.axes, displacements);
  const Matrix12& k = stiffness.condensed;
  Extended12 forces;
  add_spring(0, k, ends.relative[0], forces);
  add_spring(3, k, ends.end_rotation[0] - ends.start_rotation[0], forces);
  add_plane(dofs_y, 1, plane_stiffness(dofs_y, stiffness, geometry.length), ends, forces);
  add_plane(dofs_z, 2, plane_stiffness(dofs_z, stiffness, geometry.length), ends, forces);
  for (std::size_t i = 0; i < 12; ++i) {
    const auto at = static_cast<int>(i);
    if (k(at, at) == 0.0) forces[i] = {};
  }
  return forces;
}

Extended12 to_global(const Axes& axes, const Extended12& local) {
  Extended12 global;
  for (std::size_t first = 0; first < 12; first += 3) {
    const Extended3 three = rotated(axes.transpose(), three_at(local, first));
    for (std::size_t i = 0; i < 3; ++i) global[first + i] = three[i];
  }
  return global;
}

}  // namespace aluframe::analysis
