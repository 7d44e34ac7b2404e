#include "aluframe/analysis/shape_work.h"

#include <algorithm>
#include <cmath>

namespace aluframe::analysis {

namespace {

/// Parts of an element over which its slopes count as constant: enough for a sign.
constexpr std::size_t parts = 16;
/// Work below this share of what the axial forces could do on the largest displacement is rounding.
constexpr double least_share = 1e-9;

/// Work of the equivalent loads of a shape, and what it might be.
struct Work {
  double done = 0.0;
  double possible = 0.0;  ///< per displacement
  double largest = 0.0;   ///< displacement
};

void add_element(const ElementSlopes& shape, const DisplacedFrame& displaced, Work& work) {
  const Element& element = displaced.frame.elements[shape.element];
  const Geometry& geometry = displaced.geometry[shape.element];
  const double axial = displaced.axial_forces[shape.element];
  const auto spans = spans_of(displaced.loads.of(shape.element), axial);
  std::vector<double> places;
  for (std::size_t i = 0; i <= parts; ++i) {
    places.push_back(geometry.length * static_cast<double>(i) / parts);
  }
  const Vector12 ends = to_local(geometry.axes, at_ends(element, displaced.displacements));
  const auto deflections =
      displaced.columns[shape.element].deflections(geometry.length, ends, places);
  const bool is_truss = element.kind == ElementKind::truss;
  for (std::size_t i = 0; i < parts; ++i) {
    const double x = (places[i] + places[i + 1]) / 2.0;
    const double n = is_truss ? axial : axial_force_at(spans, x);
    for (std::size_t axis = 0; axis < 2; ++axis) {
      const InitialSlope& initial = shape.slopes[axis];
      const double slope = is_truss ? initial.mean() : initial.at(2.0 * x / geometry.length - 1.0);
      const double start = deflections[axis][i], end = deflections[axis][i + 1];
      work.done -= n * slope * (end - start);
      work.possible += std::abs(n * slope);
      work.largest = std::max({work.largest, std::abs(start), std::abs(end)});
    }
  }
}

double largest_translation(const NodeValues& displacements) {
  double largest = 0.0;
  for (std::size_t i = 0; i < displacements.size(); ++i) {
    if (i % 6 < 3) largest = std::max(largest, std::abs(displacements[i]));
  }
  return largest;
}

}  // namespace

double adding_sign(const InitialShape& shape, const DisplacedFrame& displaced) {
  Work work{.largest = largest_translation(displaced.displacements)};
  for (const ElementSlopes& element : shape) add_element(element, displaced, work);
  return work.done < -least_share * work.possible * work.largest ? -1.0 : 1.0;
}

}  // namespace aluframe::analysis
