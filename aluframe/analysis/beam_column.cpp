#include "aluframe/analysis/beam_column.h"

#include "aluframe/analysis/clamped_forces.h"
#include "aluframe/analysis/linear_answer.h"

namespace aluframe::analysis {

namespace {

/// Work of the axial force on the way from the start to each quarter point: sum of force times
/// rise.
std::array<double, 5> bowing_moments(const std::array<double, pieces + 1>& deflections,
                                     const PieceForces& forces) {
  std::array<double, 5> moments{};
  double sum = 0.0;
  for (std::size_t i = 0; i < pieces; ++i) {
    sum += forces[i] * (deflections[i + 1] - deflections[i]);
    if ((i + 1) % (pieces / 4) == 0) moments[(i + 1) / (pieces / 4)] = sum;
  }
  return moments;
}

}  // namespace

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
  Vector12& held = clamped_.unreleased;
  for (const PlanePlaces* places : {&places_y, &places_z}) {
    for (const int place : places->place) held[place] = 0.0;
  }
  add_plane(places_y, chain_y_->clamped(), held);
  add_plane(places_z, chain_z_->clamped(), held);
}

void BeamColumn::add_string(const ElementLoads& loads, double force) {
  for (const int place : {1, 2}) add_spring(place, force / loads.length, stiffness_.condensed);
}

std::optional<BeamColumn> BeamColumn::of(const Element& element, const ElementLoads& loads,
                                         const PieceForces& forces) {
  BeamColumn column;
  const Matrix12 elastic = elastic_stiffness(element, loads.length);
  column.stiffness_.unreleased = elastic.diagonal();
  column.clamped_.unreleased = clamped_forces(element, loads);
  if (element.kind == ElementKind::truss) {
    column.stiffness_.condensed = elastic;
    column.add_string(loads, forces[0]);
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
  return column;
}

void BeamColumn::add_bowing(const PieceForces& forces, const Vector12& displacements,
                            FivePositions& sections) const {
  if (!chain_y_) return;
  Vector12 own = displacements;
  releases_->restore(clamped_.unreleased, own);
  const auto z = bowing_moments(chain_z_->deflections(plane_part(places_z, own)), forces);
  const auto y = bowing_moments(chain_y_->deflections(plane_part(places_y, own)), forces);
  // The ends hold what the nodes exert, the axial force's part included.
  for (int i = 1; i < 4; ++i) {
    sections(4, i) += z[static_cast<std::size_t>(i)];
    sections(5, i) += y[static_cast<std::size_t>(i)];
  }
}

ElementAnswer BeamColumn::answer(const Element& element, const ElementLoads& loads,
                                 const PieceForces& forces, const Vector12& displacements) const {
  ElementAnswer answer;
  answer.end_forces = stiffness_.condensed * displacements + clamped_.condensed;
  answer.magnitudes = magnitudes_of(stiffness_, displacements, clamped_.unreleased, loads.length);
  answer.sections = section_forces(element.kind, answer.end_forces, loads);
  add_bowing(forces, displacements, answer.sections);
  return answer;
}

PieceForces piece_forces(ElementKind kind, const Vector12& end_forces, const ElementLoads& loads) {
  PieceForces forces{};
  if (kind == ElementKind::truss) {
    forces.fill(end_forces[6] - passed_to_ends(loads)[6]);
    return forces;
  }
  for (std::size_t i = 0; i < pieces; ++i) {
    const double middle = loads.length * (static_cast<double>(i) + 0.5) / pieces;
    forces[i] = -end_forces[0] - resultant_before(loads, middle).force.x();
  }
  return forces;
}

}  // namespace aluframe::analysis
