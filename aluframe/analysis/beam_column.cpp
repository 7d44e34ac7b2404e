#include "aluframe/analysis/beam_column.h"

#include "aluframe/analysis/linear_recovery.h"

namespace aluframe::analysis {

void BeamColumn::add_beam(const Element& element, const ElementLoads& loads,
                          const PieceForces& forces) {
  const Stiffness& s = element.stiffness;
  plane_y_.emplace(plane_y(s, loads.length), loads, 1, forces);
  plane_z_.emplace(plane_z(s, loads.length), loads, 2, forces);
  negative_pivots_ = plane_y_->negative_pivots() + plane_z_->negative_pivots();
  Matrix12& k = stiffness_.condensed;
  add_spring(0, s.e * s.area / loads.length, k);
  add_spring(3, s.g * s.it / loads.length, k);
  add_plane(dofs_y, plane_y_->stiffness(), k);
  add_plane(dofs_z, plane_z_->stiffness(), k);
  add_plane(dofs_y, plane_y_->rigid_rotation(), stiffness_.rigid_rotation);
  add_plane(dofs_z, plane_z_->rigid_rotation(), stiffness_.rigid_rotation);
  Vector12& fixed_end = fixed_end_.unreleased;
  for (const PlaneDofs* dofs : {&dofs_y, &dofs_z}) {
    for (const int dof : dofs->dof) fixed_end[dof] = 0.0;
  }
  add_plane(dofs_y, plane_y_->fixed_end(), fixed_end);
  add_plane(dofs_z, plane_z_->fixed_end(), fixed_end);
}

void BeamColumn::add_truss(const ElementLoads& loads, double force) {
  for (const int dof : {1, 2}) {
    add_spring(dof, force / loads.length, stiffness_.condensed);
    stiffness_.rigid_rotation[dof] = -force;
    stiffness_.rigid_rotation[dof + 6] = force;
  }
}

std::optional<BeamColumn> BeamColumn::of(const Element& element, const ElementLoads& loads,
                                         const PieceForces& forces) {
  BeamColumn column;
  const Matrix12 elastic = elastic_stiffness(element, loads.length);
  column.stiffness_.unreleased = elastic.diagonal();
  column.stiffness_.rigid_rotation.setZero();
  column.fixed_end_.unreleased = fixed_end_forces(element, loads);
  if (element.kind == ElementKind::truss) {
    column.stiffness_.condensed = elastic;
    column.add_truss(loads, forces[0].start);
  } else {
    column.stiffness_.condensed.setZero();
    column.add_beam(element, loads, forces);
  }
  column.fixed_end_.condensed = column.fixed_end_.unreleased;
  if (element.kind == ElementKind::truss) return column;
  column.releases_ =
      Releases::condense(element.released, column.stiffness_.condensed, &column.negative_pivots_);
  if (!column.releases_) return std::nullopt;
  column.releases_->condense_forces(column.fixed_end_.condensed);
  column.releases_->condense_forces(column.stiffness_.rigid_rotation);
  return column;
}

void BeamColumn::add_bowing(const Vector12& displacements, FivePositions& sections) const {
  if (!plane_y_ || !plane_z_ || !releases_) return;  // a truss
  Vector12 own = displacements;
  releases_->restore(fixed_end_.unreleased, own);
  const auto z = plane_z_->bowing_moments(plane_part(dofs_z, own));
  const auto y = plane_y_->bowing_moments(plane_part(dofs_y, own));
  // At the ends, what the nodes exert includes the axial force's part.
  for (int i = 1; i < 4; ++i) {
    sections(4, i) += z[static_cast<std::size_t>(i)];
    sections(5, i) += y[static_cast<std::size_t>(i)];
  }
}

ElementResponse BeamColumn::response(const Element& element, const ElementLoads& loads,
                                     const Vector12& displacements) const {
  ElementResponse response;
  response.end_forces = stiffness_.condensed * displacements + fixed_end_.condensed;
  const Vector12 own = stiffness_.unreleased.cwiseProduct(displacements);
  response.magnitude =
      magnitude_of(EndForceNorms::of(own), EndForceNorms::of(fixed_end_.unreleased), loads.length);
  response.sections = sections(element, loads, displacements, response.end_forces);
  return response;
}

FivePositions BeamColumn::sections(const Element& element, const ElementLoads& loads,
                                   const Vector12& displacements,
                                   const Vector12& end_forces) const {
  FivePositions sections = section_forces(element.kind, end_forces, loads);
  add_bowing(displacements, sections);
  return sections;
}

PieceForces piece_forces(ElementKind kind, const Vector12& end_forces, const ElementLoads& loads) {
  PieceForces forces{};
  if (kind == ElementKind::truss) {
    const double n = end_forces[6] - simply_supported_reactions(loads)[6];
    forces.fill({n, n});
    return forces;
  }
  const double length = loads.length / static_cast<double>(pieces);
  for (std::size_t i = 0; i < pieces; ++i) {
    // Through two places inside, because a point load may act at either end of the piece.
    const auto force_at = [&](double part) {
      const double x = length * (static_cast<double>(i) + part);
      return -end_forces[0] - resultant_before(loads, x).force.x();
    };
    const double first = force_at(0.25), second = force_at(0.75);
    const double middle = (first + second) / 2, rise = second - first;
    forces[i] = {middle - rise, middle + rise};
  }
  return forces;
}

}  // namespace aluframe::analysis
