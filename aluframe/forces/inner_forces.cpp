#include "aluframe/forces/inner_forces.h"

#include <algorithm>

#include "aluframe/forces/frame_of_model.h"
#include "aluframe/forces/peak_finder.h"

namespace aluframe::forces {

namespace {

using CaseFactors = std::span<const model::CombinationPlan::CaseFactor>;

/// Changes of all cases in ascending order; few, so that inserting is fast.
void gather(const SpanChanges& changes, std::size_t element, CaseFactors cases,
            std::vector<FactoredChange>& out) {
  out.clear();
  for (const auto& entry : cases) {
    if (entry.factor == 0.0) continue;
    for (const SpanChange& change : changes.of(element, entry.load_case)) {
      const auto place = std::ranges::upper_bound(
          out, change.x, {}, [](const FactoredChange& known) { return known.change->x; });
      out.insert(place, {&change, entry.factor});
    }
  }
}

PeakFinder& finder_of_thread() {
  thread_local PeakFinder finder;
  return finder;
}

}  // namespace

InnerForces::InnerForces(const model::Model& model)
    : model_(model), plans_(model::compile_combinations(model)), changes_(model, frame_of(model)) {}

bool InnerForces::is_known(std::size_t element, CaseFactors cases) const {
  const auto unknown = changes_.unknown();
  return unknown.empty() || std::ranges::none_of(cases, [&](const auto& entry) {
           const SpanChanges::Pair pair{element, entry.load_case};
           return std::ranges::binary_search(unknown, pair);
         });
}

void InnerForces::peaks(std::size_t element, CaseFactors cases, const model::CaseForces& five,
                        std::span<const Weights> weights, std::vector<PlaceForces>& out) const {
  if (!changes_.any(element) || !five.inner || model_.analysis.second_order) return;
  PeakFinder& finder = finder_of_thread();
  gather(changes_, element, cases, finder.changes);
  if (finder.changes.empty() || !is_known(element, cases)) return;
  finder.find(changes_.length_of(element), five, weights, out);
}

void InnerForces::peaks(std::size_t element, model::Number combination, model::Side side,
                        const model::CaseForces& five, std::span<const Weights> weights,
                        std::vector<PlaceForces>& out) const {
  if (!changes_.any(element) || !five.inner || model_.analysis.second_order) return;
  const model::CombinationPlan& plan = plans_[model_.combinations.position(combination)];
  if (plan.two_sides) {
    if (!is_known(element, plan.cases)) return;
    envelope_peaks(element, plan, side, weights, out);
  } else {
    peaks(element, plan.cases, five, weights, out);
  }
}

std::array<double, 6> InnerForces::forces_at(std::size_t element, CaseFactors cases,
                                             const model::CaseForces& five, double x,
                                             PlaceSide side) const {
  std::vector<FactoredChange> changes;
  gather(changes_, element, cases, changes);
  SectionLine line = SectionLine::from(five.at[0]);
  double at = 0.0;
  for (const auto& [change, factor] : changes) {
    if (change->x > x || (change->x == x && side == PlaceSide::towards_start)) break;
    line.advance(change->x - at);
    at = change->x;
    line.add(*change, factor);
  }
  return line.forces_after(x - at);
}

}  // namespace aluframe::forces
