#include "aluframe/analysis/loaded_element.h"

#include <algorithm>
#include <cmath>
#include <limits>

#include "aluframe/analysis/beam_column_stiffness.h"
#include "aluframe/analysis/releases.h"

namespace aluframe::analysis {

namespace {

constexpr double infinite = std::numeric_limits<double>::infinity();

std::vector<ElementSpan> spans_for(const Element& element, const ElementLoads& loads,
                                   double axial_force) {
  if (element.kind == ElementKind::truss) {
    return {{.from = 0.0, .to = loads.length, .axial = {axial_force, axial_force, 0.0}}};
  }
  std::vector<ElementSpan> spans = spans_of(loads, axial_force);
  for (ElementSpan& span : spans) {
    span = {.from = span.from, .to = span.to, .axial = span.axial};
  }
  return spans;
}

/// Whether an end of the element may move across it.
bool slides(const Element& element) {
  if (element.kind == ElementKind::truss) return false;
  constexpr std::array<std::size_t, 4> across{1, 2, 7, 8};
  return std::ranges::any_of(across, [&](std::size_t i) { return element.released[i]; });
}

}  // namespace

LoadedElement::LoadedElement(const Element& element, const ElementLoads& loads,
                             double axial_force_at_start)
    : element_(&element),
      spans_(spans_for(element, loads, axial_force_at_start)),
      compression_(analysis::largest_compression(spans_)) {}

BendingPlane LoadedElement::plane(int axis) const {
  const Stiffness& s = element_->stiffness;
  return axis == 1 ? plane_y(s, length()) : plane_z(s, length());
}

int LoadedElement::truss_at(double factor, const Directions& acting, ElementStiffness& k) const {
  const double force = factor * spans_.front().axial.start;
  set_truss(*element_, length(), force, k);
  constexpr int most_half_waves = 1000;  // with shear, all of them lie below GAs
  int own = 0;
  for (const int axis : {1, 2}) {
    const BendingPlane bent = plane(axis);
    if (!(bent.ei > 0.0) || !acting[static_cast<std::size_t>(axis - 1)]) continue;
    for (int i = 1; i < most_half_waves && euler_load(bent, i) < -force; ++i) ++own;
  }
  return own;
}

std::vector<ElementSpan> LoadedElement::spans_at(double factor) const {
  std::vector<ElementSpan> spans = spans_;
  for (auto& [from, to, axial, load_start, load_end, force, moment] : spans) {
    axial = {axial.start * factor, axial.end * factor, axial.bow * factor};
  }
  return spans;
}

std::optional<int> LoadedElement::beam_at(double factor, const Directions& acting,
                                          ElementStiffness& k) const {
  const BeamColumnPlane y(plane(1), spans_at(acting[0] ? factor : 0.0), 1, 0.0);
  const BeamColumnPlane z(plane(2), spans_at(acting[1] ? factor : 0.0), 2, 0.0);
  set_beam_column(*element_, length(), y, z, k);
  int own = y.negative_pivots() + z.negative_pivots();
  const auto releases = Releases::condense(element_->released, k.condensed, &own);
  if (!releases || !y.is_carried() || !z.is_carried()) return std::nullopt;
  releases->condense_forces(k.rigid_rotation);
  return own;
}

std::optional<int> LoadedElement::stiffness_at(double factor, const Directions& acting,
                                               ElementStiffness& k) const {
  if (element_->kind == ElementKind::truss) return truss_at(factor, acting, k);
  return beam_at(factor, acting, k);
}

std::optional<int> LoadedElement::stiffness_at(double factor, ElementStiffness& k) const {
  return stiffness_at(factor, both, k);
}

AxialWork LoadedElement::work(double factor, const Vector12& ends) const {
  if (element_->kind == ElementKind::truss) {
    const double per_square = -factor * spans_.front().axial.start / length();
    const double along_y = ends[7] - ends[1], along_z = ends[8] - ends[2];
    return {.about_y = per_square * along_z * along_z, .about_z = per_square * along_y * along_y};
  }
  ElementStiffness unloaded, along_y, along_z;
  if (!stiffness_at(factor, {true, false}, along_y) ||
      !stiffness_at(factor, {false, true}, along_z) || !stiffness_at(0.0, unloaded)) {
    return {};
  }
  const auto taken = [&](const ElementStiffness& k) {
    return ends.dot((unloaded.condensed - k.condensed) * ends);
  };
  return {.about_y = taken(along_z), .about_z = taken(along_y)};
}

double LoadedElement::largest_carried_factor() const {
  double least = infinite;
  if (compression_ <= 0.0 || element_->kind == ElementKind::truss) return least;
  for (const int axis : {1, 2}) {
    least = std::min(least, carried_compression(plane(axis)) / compression_);
  }
  return least;
}

/// The ends of an element that stands still between its nodes are hinged at least, or guided.
double LoadedElement::lower_bound() const {
  if (compression_ <= 0.0) return infinite;
  double least = infinite;
  for (const int axis : {1, 2}) {
    if (!(plane(axis).ei > 0.0)) continue;
    least = std::min(least, euler_load(plane(axis), 1) / compression_);
  }
  return slides(*element_) ? least / 4.0 : least;
}

bool LoadedElement::has_own_below(double factor, const Directions& acting) const {
  ElementStiffness k;
  const auto own = stiffness_at(factor, acting, k);
  return !own || *own > 0;
}

double LoadedElement::smallest_own_factor(double largest) const {
  const double bound = lower_bound();
  if (bound == infinite || element_->kind == ElementKind::truss) return bound;
  double low = 0.0, high = bound;
  while (!has_own_below(high, both)) {
    if (high > largest) return infinite;
    low = high;
    high *= 1.5;
  }
  constexpr double certain = 1e-9;
  while (high - low > certain * high) {
    const double middle = (low + high) / 2.0;
    (has_own_below(middle, both) ? high : low) = middle;
  }
  return high;
}

int LoadedElement::own_direction(double smallest_own_factor) const {
  constexpr double just_above = 1.0 + 1e-8;
  return has_own_below(smallest_own_factor * just_above, {true, false}) ? 1 : 2;
}

}  // namespace aluframe::analysis
