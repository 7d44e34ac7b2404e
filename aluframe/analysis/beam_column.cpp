#include "aluframe/analysis/beam_column.h"

#include "aluframe/analysis/beam_column_stiffness.h"
#include "aluframe/analysis/linear_recovery.h"

namespace aluframe::analysis {

/// Replaces the bending parts of the fixed-end forces, which the axial force changes.
void BeamColumn::set_bending(const ElementLoads& loads) {
  const LocalPoint at_start = point_load_at_start(loads);
  Vector12& fixed_end = fixed_end_.unreleased;
  for (const PlaneDofs* dofs : {&dofs_y, &dofs_z}) {
    for (const int dof : dofs->dof) fixed_end[dof] = 0.0;
  }
  add_plane(dofs_y, plane_y_->fixed_end(), fixed_end);
  add_plane(dofs_z, plane_z_->fixed_end(), fixed_end);
  fixed_end.segment<2>(1) -= at_start.force.tail<2>();
  fixed_end.segment<2>(4) -= at_start.moment.tail<2>();
}

/// The axial force of a truss along the chord that it has before it is loaded.
void BeamColumn::set_lean(const InitialSlopes& initial) {
  for (const int end : {0, 6}) {
    for (const int dof : {1, 2}) {
      fixed_end_.unreleased[end + dof] +=
          stiffness_.rigid_rotation[end + dof] * initial[static_cast<std::size_t>(dof - 1)].mean();
    }
  }
}

std::optional<BeamColumn> BeamColumn::of(const Element& element, const ElementLoads& loads,
                                         std::optional<double> axial_force,
                                         const InitialSlopes& initial) {
  BeamColumn column;
  const double length = loads.length;
  column.fixed_end_.unreleased = fixed_end_forces(element, loads);
  if (element.kind == ElementKind::truss) {
    const double force = axial_force.value_or(0.0);
    set_truss(element, length, force, column.stiffness_);
    column.buckles_ = -force > truss_buckling_load(element, length);
    column.set_lean(initial);
    column.fixed_end_.condensed = column.fixed_end_.unreleased;
    return column;
  }
  const Stiffness& s = element.stiffness;
  const std::vector<ElementSpan> spans = spans_of(loads, axial_force);
  column.plane_y_.emplace(plane_y(s, length), spans, 1, loads.free.curvature_y, initial[0]);
  column.plane_z_.emplace(plane_z(s, length), spans, 2, loads.free.curvature_z, initial[1]);
  if (!column.plane_y_->is_carried() || !column.plane_z_->is_carried()) return std::nullopt;
  set_beam_column(element, length, *column.plane_y_, *column.plane_z_, column.stiffness_);
  column.set_bending(loads);
  column.fixed_end_.condensed = column.fixed_end_.unreleased;
  int negative_pivots = column.plane_y_->negative_pivots() + column.plane_z_->negative_pivots();
  column.releases_ =
      Releases::condense(element.released, column.stiffness_.condensed, &negative_pivots);
  if (!column.releases_) return std::nullopt;
  column.releases_->condense_forces(column.fixed_end_.condensed);
  column.releases_->condense_forces(column.stiffness_.rigid_rotation);
  column.buckles_ = negative_pivots > 0;
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

std::array<std::vector<double>, 2> BeamColumn::deflections(double length,
                                                           const Vector12& displacements,
                                                           std::span<const double> places) const {
  Vector12 own = displacements;
  if (plane_y_ && plane_z_ && releases_) {
    releases_->restore(fixed_end_.unreleased, own);
    return {plane_y_->deflections(plane_part(dofs_y, own), places),
            plane_z_->deflections(plane_part(dofs_z, own), places)};
  }
  std::array<std::vector<double>, 2> chord;
  for (const double place : places) {
    for (std::size_t i = 0; i < 2; ++i) {
      const auto dof = static_cast<int>(i) + 1;
      chord[i].push_back(own[dof] + (own[dof + 6] - own[dof]) * place / length);
    }
  }
  return chord;
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

double axial_force_at_start(ElementKind kind, const Vector12& end_forces,
                            const ElementLoads& loads) {
  if (kind == ElementKind::beam) return -end_forces[0];
  return end_forces[6] - simply_supported_reactions(loads)[6];
}

}  // namespace aluframe::analysis
