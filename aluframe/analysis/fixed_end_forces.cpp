#include "aluframe/analysis/fixed_end_forces.h"

namespace aluframe::analysis {

namespace {

/// Shares of a load at x that go to the start and to the end.
Eigen::Vector2d lever_shares(double x, double length) {
  return {1.0 - x / length, x / length};
}

/// Axial fixed-end forces and torques: distributed by lever from where the load acts.
void add_axial(const ElementLoads& loads, double axial_stiffness, Vector12& forces) {
  const double length = loads.length;
  for (const LocalDistributed& load : loads.distributed) {
    // Two triangles, each acting at the third that is nearer to its larger end.
    const double third = (load.to - load.from) / 3.0;
    const Eigen::Vector2d sum = 1.5 * third *
                                (load.from_value.x() * lever_shares(load.from + third, length) +
                                 load.to_value.x() * lever_shares(load.to - third, length));
    forces[0] -= sum[0];
    forces[6] -= sum[1];
  }
  for (const LocalPoint& load : loads.points) {
    const Eigen::Vector2d share = lever_shares(load.at, length);
    forces[0] -= share[0] * load.force.x();
    forces[6] -= share[1] * load.force.x();
    forces[3] -= share[0] * load.moment.x();
    forces[9] -= share[1] * load.moment.x();
  }
  forces[0] += axial_stiffness * loads.free.strain;
  forces[6] -= axial_stiffness * loads.free.strain;
}

}  // namespace

Vector4 plane_fixed_end_forces(const BendingPlane& plane, const ElementLoads& loads, int axis) {
  const PlaneDofs& dofs = axis == 1 ? dofs_y : dofs_z;
  const double curvature = axis == 1 ? loads.free.curvature_y : loads.free.curvature_z;
  Vector4 sum = fixed_end_forces_of_curvature(plane, curvature);
  for (const LocalDistributed& load : loads.distributed) {
    const double from = load.from_value[axis], to = load.to_value[axis];
    sum += fixed_end_forces_of_load(plane, {load.from, load.to, from, to});
  }
  for (const LocalPoint& load : loads.points) {
    sum += fixed_end_forces_of_force(plane, load.at, load.force[axis]);
    // Axis 1 bends about z, axis 2 about y.
    sum += fixed_end_forces_of_moment(plane, load.at, dofs.rotation_sign * load.moment[3 - axis]);
  }
  return sum;
}

Vector12 simply_supported_reactions(const ElementLoads& loads) {
  Vector12 forces = Vector12::Zero();
  const auto share = [&](double x, const Eigen::Vector3d& force) -> Vector12 {
    const Eigen::Vector2d parts = lever_shares(x, loads.length);
    Vector12 ends = Vector12::Zero();
    ends.segment<3>(0) = -parts[0] * force;
    ends.segment<3>(6) = -parts[1] * force;
    return ends;
  };
  for (const LocalDistributed& load : loads.distributed) {
    forces += integrate<Vector12>(load.from, load.to,
                                  [&](double x) { return share(x, load.value_at(x)); });
  }
  for (const LocalPoint& load : loads.points) forces += share(load.at, load.force);
  return forces;
}

Vector12 fixed_end_forces(const Element& element, const ElementLoads& loads) {
  const Stiffness& s = element.stiffness;
  if (element.kind == ElementKind::truss) {
    Vector12 forces = simply_supported_reactions(loads);
    forces[0] += s.e * s.area * loads.free.strain;
    forces[6] -= s.e * s.area * loads.free.strain;
    return forces;
  }
  Vector12 forces = Vector12::Zero();
  add_axial(loads, s.e * s.area, forces);
  add_plane(dofs_y, plane_fixed_end_forces(plane_y(s, loads.length), loads, 1), forces);
  add_plane(dofs_z, plane_fixed_end_forces(plane_z(s, loads.length), loads, 2), forces);
  return forces;
}

}  // namespace aluframe::analysis
