#include "aluframe/analysis/beam_column.h"

#include "aluframe/analysis/linear_answer.h"

namespace aluframe::analysis {

void BeamColumn::add_beam(const Element& element, const ElementLoads& loads,
                          const PieceForces& forces) {
  const Stiffness& s = element.stiffness;
  chain_y_.emplace(plane_y(s, loads.length), loads, 1, forces);
  chain_z_.emplace(plane_z(s, loads.length), loads, 2, forces);
  negative_pivots_ = chain_y_->negative_pivots() + chain_z_->negative_pivots();
  Matrix12& k = stiffness_.condensed;
  add_spring(0, s.e * s.area / loads.length, k);
  add_spring(3, s.g * s.it / loads.length, k);
  add_plane(places_y, chain_y_->stiffness(), k);
  add_plane(places_z, chain_z_->stiffness(), k);
  add_plane(places_y, chain_y_->turned(), stiffness_.turned);
  add_plane(places_z, chain_z_->turned(), stiffness_.turned);
  Vector12& held = clamped_.unreleased;
  for (const PlanePlaces* places : {&places_y, &places_z}) {
    for (const int place : places->place) held[place] = 0.0;
  }
  add_plane(places_y, chain_y_->clamped(), held);
  add_plane(places_z, chain_z_->clamped(), held);
}

void BeamColumn::add_string(const ElementLoads& loads, double force) {
  for (const int place : {1, 2}) {
    add_spring(place, force / loads.length, stiffness_.condensed);
    stiffness_.turned[place] = -force;
    stiffness_.turned[place + 6] = force;
  }
}

std::optional<BeamColumn> BeamColumn::of(const Element& element, const ElementLoads& loads,
                                         const PieceForces& forces) {
  BeamColumn column;
  const Matrix12 elastic = elastic_stiffness(element, loads.length);
  column.stiffness_.unreleased = elastic.diagonal();
  column.stiffness_.turned.setZero();
  column.clamped_.unreleased = clamped_forces(element, loads);
  if (element.kind == ElementKind::truss) {
    column.stiffness_.condensed = elastic;
    column.add_string(loads, forces[0].start);
  } else {
    column.stiffness_.condensed.setZero();
    column.add_beam(element, loads, forces);
  }
  column.clamped_.condensed = column.clamped_.unreleased;
  if (element.kind == ElementKind::truss) return column;
  column.releases_ =
      Releases::condense(element.released, column.stiffness_.condensed, &column.negative_pivots_);
  if (!column.releases_) return std::nullopt;
  column.releases_->condense_forces(column.clamped_.condensed);
  column.releases_->condense_forces(column.stiffness_.turned);
  return column;
}

void BeamColumn::add_bowing(const Vector12& displacements, FivePositions& sections) const {
  if (!chain_y_ || !chain_z_ || !releases_) return;  // a truss
  Vector12 own = displacements;
  releases_->restore(clamped_.unreleased, own);
  const auto z = chain_z_->bowing_moments(plane_part(places_z, own));
  const auto y = chain_y_->bowing_moments(plane_part(places_y, own));
  // The ends hold what the nodes exert, the axial force's part included.
  for (int i = 1; i < 4; ++i) {
    sections(4, i) += z[static_cast<std::size_t>(i)];
    sections(5, i) += y[static_cast<std::size_t>(i)];
  }
}

ElementAnswer BeamColumn::answer(const Element& element, const ElementLoads& loads,
                                 const Vector12& displacements) const {
  ElementAnswer answer;
  answer.end_forces = stiffness_.condensed * displacements + clamped_.condensed;
  const Vector12 own = stiffness_.unreleased.cwiseProduct(displacements);
  answer.magnitude =
      magnitude_of(EndSizes::of(own), EndSizes::of(clamped_.unreleased), loads.length);
  answer.sections = sections(element, loads, displacements, answer.end_forces);
  return answer;
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
    const double n = end_forces[6] - passed_to_ends(loads)[6];
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
