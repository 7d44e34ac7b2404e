#include "aluframe/second_opinion/unchecked_forces.h"

#include <algorithm>
#include <cmath>
#include <utility>

namespace aluframe::second_opinion {

namespace {

/// A force that stresses the section less is not worth a word.
constexpr double silent_ratio = 1e-6;
/// Forces at positions are in single precision.
constexpr double rounding = 1e-6;

Unchecked& item_of(std::vector<Unchecked>& kinds, Unchecked::Kind kind) {
  const auto found = std::ranges::find(kinds, kind, &Unchecked::kind);
  if (found != kinds.end()) return *found;
  Unchecked& added = kinds.emplace_back();
  added.kind = kind;
  return added;
}

/// The first among equals stays.
void take_larger(Unchecked& item, double magnitude, const Place& place) {
  if (!(magnitude > item.magnitude)) return;
  item.magnitude = magnitude;
  item.magnitude_place = place;
}

void take_larger_ratio(Unchecked& item, const std::optional<double>& ratio, const Place& place) {
  if (!ratio || (item.ratio && !(*ratio > *item.ratio))) return;
  item.ratio = ratio;
  item.ratio_place = place;
}

double torsion_ratio(const std::vector<Unchecked>& kinds) {
  const auto found = std::ranges::find(kinds, Unchecked::Kind::torsion, &Unchecked::kind);
  return found == kinds.end() ? 0.0 : found->ratio.value_or(0.0);
}

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
  Unchecked& item = item_of(of_element_, kind);
  if (item.elements.empty()) item.elements.insert(place.element);
  take_larger(item, magnitude, place);
  take_larger_ratio(item, ratio, place);
}

double UncheckedForces::worst_torsion() const {
  return std::max(torsion_ratio(kinds_), torsion_ratio(of_element_));
}

void UncheckedForces::add(const std::vector<Unchecked>& kinds) {
  for (const Unchecked& added : kinds) {
    Unchecked& item = item_of(kinds_, added.kind);
    item.elements.insert(added.elements.begin(), added.elements.end());
    take_larger(item, added.magnitude, added.magnitude_place);
    take_larger_ratio(item, added.ratio, added.ratio_place);
  }
}

ElementUnchecked UncheckedForces::finish_element() {
  ElementUnchecked out;
  for (Largest& largest : largest_) {
    if (largest.between.magnitude > largest.at_positions * (1.0 + rounding)) {
      out.between.push_back(largest.between);
    }
    largest = Largest();
  }
  add(of_element_);
  out.kinds = std::exchange(of_element_, {});
  return out;
}

}  // namespace aluframe::second_opinion
