#include "aluframe/second_opinion/unchecked_forces.h"

#include <algorithm>
#include <cmath>

namespace aluframe::second_opinion {

namespace {

/// A force that stresses the section less is not worth a word.
constexpr double silent_ratio = 1e-6;
/// Forces at positions are in single precision.
constexpr double rounding = 1e-6;

}  // namespace

void UncheckedForces::note(const Place& place, PlaceKind where, ElementOpinion& opinion,
                           const AluDgnSectForce& force, const T_RALU_SECT& code) {
  const UnitStresses& units = opinion.units();
  if (!units.formed) return;
  const auto size = [&](model::ForceComponent i) { return std::fabs(force.dForce[i]); };
  const auto note_shear = [&](model::ForceComponent i, int item, double unit) {
    const T_RALU_RLT& check = code.aItem[static_cast<std::size_t>(item)];
    const double ratio = opinion.strength_factor(force) * size(i) * unit / units.fv;
    if (RaluIsEmpty(check.dDemand, check.dCapacity) && ratio > silent_ratio) {
      note_component(place, where, i, size(i), ratio);
    }
  };
  note_shear(model::shear_y, RALU_SHEAR_Y, units.shear_y);
  note_shear(model::shear_z, RALU_SHEAR_Z, units.shear_z);
  if (size(model::torsion) * units.torsion > silent_ratio * units.fv) {
    note_component(place, where, model::torsion, size(model::torsion),
                   opinion.torsion_ratio(force, code));
  }
  if (!is_bent(force)) return;
  const double n = force.dForce[ALU_FORCE_N];
  if (n != 0.0 && std::fabs(n) < opinion.axial_noise()) {
    note_kind(Unchecked::Kind::tiny_axial, std::fabs(n), place, std::nullopt);
  } else if (const auto ratio = opinion.lateral_ratio(force); n > 0.0 && ratio > silent_ratio) {
    note_kind(Unchecked::Kind::tension_bending, size(model::about_y), place, ratio);
  }
}

void UncheckedForces::note_component(const Place& place, PlaceKind where,
                                     model::ForceComponent component, double magnitude,
                                     std::optional<double> ratio) {
  const bool is_torsion = component == model::torsion;
  note_kind(is_torsion ? Unchecked::Kind::torsion : Unchecked::Kind::shear, magnitude, place,
            ratio);
  Largest& largest = largest_[component - model::shear_y];
  if (where == PlaceKind::position) {
    largest.at_positions = std::max(largest.at_positions, magnitude);
  } else if (magnitude > largest.between.magnitude) {
    largest.between = {component, magnitude, place};
  }
}

void UncheckedForces::note_kind(Unchecked::Kind kind, double magnitude, const Place& place,
                                std::optional<double> ratio) {
  auto found = std::ranges::find(kinds_, kind, &Unchecked::kind);
  if (found == kinds_.end()) {
    kinds_.emplace_back().kind = kind;
    found = kinds_.end() - 1;
  }
  if (found->elements.empty() || *found->elements.rbegin() != place.element) {
    found->elements.insert(place.element);
  }
  if (magnitude > found->magnitude) {
    found->magnitude = magnitude;
    found->magnitude_place = place;
  }
  if (ratio && (!found->ratio || *ratio > *found->ratio)) {
    found->ratio = ratio;
    found->ratio_place = place;
  }
}

double UncheckedForces::worst_torsion() const {
  const auto found = std::ranges::find(kinds_, Unchecked::Kind::torsion, &Unchecked::kind);
  return found == kinds_.end() ? 0.0 : found->ratio.value_or(0.0);
}

void UncheckedForces::finish_element() {
  for (Largest& largest : largest_) {
    if (largest.between.magnitude > largest.at_positions * (1.0 + rounding)) {
      between_.push_back(largest.between);
    }
    largest = Largest();
  }
}

}  // namespace aluframe::second_opinion
