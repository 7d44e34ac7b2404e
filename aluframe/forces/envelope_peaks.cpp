#include <algorithm>

#include "aluframe/forces/envelope_side.h"
#include "aluframe/forces/inner_forces.h"
#include "aluframe/forces/section_line.h"

namespace aluframe::forces {

namespace {

using model::CombinationPlan;
using CaseFactor = CombinationPlan::CaseFactor;

/// What an envelope is made of and acts together: load cases and combinations of one side.
std::vector<LoadSet> parts_of(const CombinationPlan& plan,
                              const std::vector<CombinationPlan>& plans) {
  std::vector<LoadSet> parts;
  const auto add_terms = [&](const CombinationPlan& of) {
    for (const CombinationPlan::Term& term : of.terms) {
      const bool of_case = term.source == model::CombinationTerm::Source::load_case;
      if (of_case && term.factor != 0.0) parts.push_back({CaseFactor{term.place, term.factor}});
    }
  };
  add_terms(plan);
  for (const std::size_t place : plan.needed) {
    if (plans[place].two_sides) {
      add_terms(plans[place]);
    } else {
      parts.push_back(plans[place].cases);
    }
  }
  return parts;
}

/// The five positions of load cases that act together.
model::CaseForces sum_of(const model::CaseForces* of_cases, const LoadSet& part) {
  model::CaseForces out{.inner = true};
  for (std::size_t position = 0; position < out.at.size(); ++position) {
    for (std::size_t i = 0; i < 6; ++i) {
      double sum = 0.0;
      for (const auto& entry : part) {
        sum += entry.factor * double{of_cases[entry.load_case].at[position][i]};
      }
      out.at[position][i] = static_cast<float>(sum);
    }
  }
  return out;
}

}  // namespace

/// Places of the parts by themselves, each once; with both sides where a force acts.
std::vector<InnerForces::Place> InnerForces::envelope_places(
    std::size_t element, const CombinationPlan& plan, std::span<const Weights> weights) const {
  std::vector<PlaceForces> peaks_of_parts;
  for (const LoadSet& part : parts_of(plan, plans_)) {
    const model::CaseForces five = sum_of(model_.forces.of_element(element), part);
    peaks(element, part, five, weights, peaks_of_parts);
  }
  std::vector<Place> places;
  for (const PlaceForces& peak : peaks_of_parts) {
    // The nodes are beyond the ends.
    if (peak.fraction > 0.0) places.push_back({peak.x, PlaceSide::towards_start});
    if (peak.fraction < 1.0) places.push_back({peak.x, PlaceSide::towards_end});
  }
  std::ranges::sort(places);
  const auto repeated = std::ranges::unique(places);
  places.erase(repeated.begin(), repeated.end());
  return places;
}

void InnerForces::envelope_peaks(std::size_t element, const CombinationPlan& plan, model::Side side,
                                 std::span<const Weights> weights,
                                 std::vector<PlaceForces>& out) const {
  std::vector<std::array<double, 6>> of_case(model_.load_cases.size());
  const model::CaseForces* given = model_.forces.of_element(element);
  for (const Place& place : envelope_places(element, plan, weights)) {
    for (const auto& entry : plan.cases) {
      const CaseFactor alone{entry.load_case, 1.0};
      of_case[entry.load_case] =
          forces_at(element, {&alone, 1}, given[entry.load_case], place.x, place.side);
    }
    const auto forces = side_of(plan, plans_, of_case, side);
    const bool is_repeated = !out.empty() && out.back().x == place.x && out.back().forces == forces;
    if (!is_repeated) out.push_back({place.x, place.x / changes_.length_of(element), forces});
  }
}

}  // namespace aluframe::forces
