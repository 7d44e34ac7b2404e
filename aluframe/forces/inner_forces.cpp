#include "aluframe/forces/inner_forces.h"

#include <algorithm>
#include <cmath>

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
      if (out.empty() || out.back().change->x <= change.x) {
        out.push_back({&change, entry.factor});
        continue;
      }
      const auto place = std::ranges::upper_bound(
          out, change.x, {}, [](const FactoredChange& known) { return known.change->x; });
      out.insert(place, {&change, entry.factor});
    }
  }
}

/// What a thread reuses from one element to the next.
struct Scratch {
  std::vector<FactoredChange> changes;
  PeakFinder<SectionLine> finder;
  PeakFinder<BowedLine> bowed_finder;
};

Scratch& scratch_of_thread() {
  thread_local Scratch scratch;
  return scratch;
}

/// Below this part of the element's own Euler force, times ten, moments are straight lines between
/// the five positions as far as single precision goes.
constexpr double least_bowing = 1e-6;

template <class Line>
std::array<double, 6> forces_of(Line line, std::span<const FactoredChange> changes, double x,
                                PlaceSide side) {
  double at = 0.0;
  const auto go_to = [&](double place) {
    while (at < place) {
      const double left = place - at, piece = line.longest_piece(left);
      line.advance(piece);
      at = piece < left ? at + piece : place;
    }
  };
  for (const auto& [change, factor] : changes) {
    if (change->x > x || (change->x == x && side == PlaceSide::towards_start)) break;
    go_to(change->x);
    line.add(*change, factor);
  }
  go_to(x);
  return line.forces;
}

}  // namespace

InnerForces::InnerForces(const model::Model& model, const ComputedPairs& computed)
    : InnerForces(model, frame_of(model), computed) {}

InnerForces::InnerForces(const model::Model& model, const analysis::Frame& frame,
                         const ComputedPairs& computed)
    : model_(model), plans_(model::compile_combinations(model)), changes_(model, frame, computed) {
  if (!model.analysis.second_order) return;
  for (const analysis::Element& element : frame.elements) {
    const analysis::Stiffness& s = element.stiffness;
    const bool is_beam = element.kind == analysis::ElementKind::beam;
    planes_.push_back(
        is_beam ? BowedLine::Planes{{{s.e * s.iyy, s.g * s.az}, {s.e * s.izz, s.g * s.ay}}}
                : BowedLine::Planes{});
  }
}

bool InnerForces::is_known(std::size_t element, CaseFactors cases) const {
  const auto unknown = changes_.unknown();
  return unknown.empty() || std::ranges::none_of(cases, [&](const auto& entry) {
           const SpanChanges::Pair pair{element, entry.load_case};
           return std::ranges::binary_search(unknown, pair);
         });
}

void InnerForces::peaks(std::size_t element, CaseFactors cases, const model::CaseForces& five,
                        std::span<const Weights> weights, std::vector<PlaceForces>& out) const {
  peaks_of_sum(element, cases, {}, five, weights, out);
}

void InnerForces::peaks_of_sum(std::size_t element, CaseFactors cases,
                               const model::InitialCurvatures& initial,
                               const model::CaseForces& five, std::span<const Weights> weights,
                               std::vector<PlaceForces>& out) const {
  if (!has_peaks(element) || !five.inner) return;
  Scratch& scratch = scratch_of_thread();
  gather(changes_, element, cases, scratch.changes);
  const double length = changes_.length_of(element);
  if (is_bowed(element)) {
    if (scratch.changes.empty() && is_straight(element, five)) return;
    scratch.bowed_finder.find(bowed_line(element, cases, five, scratch.changes, initial), length,
                              scratch.changes, five, weights, out);
  } else if (!scratch.changes.empty() && is_known(element, cases)) {
    scratch.finder.find(SectionLine::from(five.at[0]), length, scratch.changes, five, weights, out);
  }
}

void InnerForces::peaks(std::size_t element, model::Number combination, model::Side side,
                        const model::CaseForces& five, std::span<const Weights> weights,
                        std::vector<PlaceForces>& out) const {
  if (!has_peaks(element) || !five.inner) return;
  const std::size_t place = model_.combinations.position(combination);
  const model::CombinationPlan& plan = plans_[place];
  if (!plan.two_sides) {
    static const model::InitialCurvatures straight;
    const auto& curvatures = model_.combined_curvatures;
    peaks_of_sum(element, plan.cases, curvatures.empty() ? straight : curvatures[place], five,
                 weights, out);
  } else if (!is_bowed(element) && is_known(element, plan.cases)) {
    envelope_peaks(element, plan, side, weights, out);
  }
}

/// Whether the moments are linear for want of an axial force.
bool InnerForces::is_straight(std::size_t element, const model::CaseForces& five) const {
  const auto& [y, z] = planes_[element];
  const double length = changes_.length_of(element);
  return std::abs(double{five.at[0][0]}) * length * length < least_bowing * std::min(y.ei, z.ei);
}

BowedLine InnerForces::bowed_line(std::size_t element, CaseFactors cases,
                                  const model::CaseForces& five,
                                  std::span<const FactoredChange> changes,
                                  const model::InitialCurvatures& initial) const {
  BowedLine::Planes planes = planes_[element];
  for (const auto& entry : cases) {
    const analysis::FreeDeformation free = changes_.free_of(element, entry.load_case);
    planes[0].curvature += entry.factor * free.curvature_z;
    planes[1].curvature += entry.factor * free.curvature_y;
  }
  if (initial.terms > 0) {
    // The plane of My deflects along z.
    planes[0].initial = initial.of(element, 1);
    planes[1].initial = initial.of(element, 0);
  }
  return {planes, changes_.length_of(element), five, changes};
}

std::array<double, 6> InnerForces::forces_at(std::size_t element, CaseFactors cases,
                                             const model::CaseForces& five, double x,
                                             PlaceSide side) const {
  std::vector<FactoredChange> changes;
  gather(changes_, element, cases, changes);
  if (!is_bowed(element)) return forces_of(SectionLine::from(five.at[0]), changes, x, side);
  return forces_of(bowed_line(element, cases, five, changes, {}), changes, x, side);
}

}  // namespace aluframe::forces
