#include "aluframe/analysis/element_spans.h"

#include <algorithm>
#include <cmath>

namespace aluframe::analysis {

namespace {

/// Places closer than this part of the length are one.
constexpr double same_place = 1e-12;

/// Where the spans begin and end: the ends of the element and wherever a load begins, ends or acts.
std::vector<double> places_of(const ElementLoads& loads) {
  std::vector<double> places{0.0, loads.length};
  for (const LocalDistributed& load : loads.distributed) {
    places.push_back(load.from);
    places.push_back(load.to);
  }
  for (const LocalPoint& load : loads.points) places.push_back(load.at);
  std::ranges::sort(places);
  const double apart = same_place * loads.length;
  const auto repeated =
      std::ranges::unique(places, [&](double a, double b) { return b - a <= apart; });
  places.erase(repeated.begin(), repeated.end());
  places.back() = loads.length;
  return places;
}

void add_distributed(const LocalDistributed& load, ElementSpan& span) {
  const double middle = (span.from + span.to) / 2;
  if (middle < load.from || middle > load.to) return;
  span.load_start += load.value_at(span.from);
  span.load_end += load.value_at(span.to);
}

LocalPoint point_load_at(const ElementLoads& loads, double place) {
  LocalPoint sum{place, Eigen::Vector3d::Zero(), Eigen::Vector3d::Zero()};
  for (const LocalPoint& load : loads.points) {
    if (std::abs(load.at - place) > same_place * loads.length) continue;
    sum.force += load.force;
    sum.moment += load.moment;
  }
  return sum;
}

}  // namespace

double SpanAxialForce::largest_compression() const {
  double least = std::min({0.0, start, end});
  // n = start + (end - start + 4·bow)·s - 4·bow·s² is level at s.
  const double level = bow == 0.0 ? 0.0 : (end - start + 4 * bow) / (8 * bow);
  if (level > 0.0 && level < 1.0) least = std::min(least, start + 4 * bow * level * level);
  return -least;
}

LocalPoint point_load_at_start(const ElementLoads& loads) {
  return point_load_at(loads, 0.0);
}

std::vector<ElementSpan> spans_of(const ElementLoads& loads,
                                  std::optional<double> axial_force_at_start) {
  const std::vector<double> places = places_of(loads);
  double axial = axial_force_at_start.value_or(0.0) - point_load_at_start(loads).force.x();
  std::vector<ElementSpan> spans(places.size() - 1);
  for (std::size_t i = 0; i < spans.size(); ++i) {
    ElementSpan& span = spans[i];
    span.from = places[i];
    span.to = places[i + 1];
    for (const LocalDistributed& load : loads.distributed) add_distributed(load, span);
    const LocalPoint at_end = point_load_at(loads, span.to);
    span.force_at_end = at_end.force;
    span.moment_at_end = at_end.moment;
    if (!axial_force_at_start) continue;
    const double start = axial;
    axial -= (span.load_start.x() + span.load_end.x()) / 2 * span.length();
    span.axial = {start, axial, (span.load_end.x() - span.load_start.x()) / 8 * span.length()};
    axial -= span.force_at_end.x();
  }
  return spans;
}

double axial_force_at(const std::vector<ElementSpan>& spans, double x) {
  const auto behind = [&](const ElementSpan& span) { return x <= span.to; };
  const auto found = std::ranges::find_if(spans, behind);
  const ElementSpan& span = found == spans.end() ? spans.back() : *found;
  return span.axial.at((x - span.from) / span.length());
}

double largest_compression(const std::vector<ElementSpan>& spans) {
  double largest = 0.0;
  for (const ElementSpan& span : spans) {
    largest = std::max(largest, span.axial.largest_compression());
  }
  return largest;
}

}  // namespace aluframe::analysis
