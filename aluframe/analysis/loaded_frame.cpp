#include "aluframe/analysis/loaded_frame.h"

#include <algorithm>
#include <cmath>
#include <numeric>

#include "aluframe/analysis/load_vector.h"

namespace aluframe::analysis {

LoadedFrame::LoadedFrame(const Frame& frame, std::span<const Geometry> geometry,
                         const Equations& equations, const LoadCase& loads,
                         std::span<const double> axial_forces)
    : frame_(frame), geometry_(geometry), equations_(equations) {
  const LoadsByElement by_element(frame, geometry, loads);
  elements_.reserve(frame.elements.size());
  for (std::size_t i = 0; i < frame.elements.size(); ++i) {
    elements_.emplace_back(frame.elements[i], by_element.of(i), axial_forces[i]);
  }
}

bool LoadedFrame::is_compressed() const {
  return std::ranges::any_of(
      elements_, [](const LoadedElement& element) { return element.largest_compression() > 0.0; });
}

std::vector<double> LoadedFrame::compression() const {
  std::vector<double> compression;
  compression.reserve(elements_.size());
  for (const LoadedElement& element : elements_) {
    compression.push_back(element.largest_compression());
  }
  return compression;
}

/// Elements whose lower bound lies above a factor that is found already are not looked at.
OwnFactor LoadedFrame::smallest_own_factor(double largest) const {
  std::vector<double> bounds;
  for (const LoadedElement& element : elements_) bounds.push_back(element.lower_bound());
  std::vector<std::size_t> order(elements_.size());
  std::iota(order.begin(), order.end(), std::size_t{0});
  std::ranges::sort(order, {}, [&](std::size_t i) { return std::pair(bounds[i], i); });
  OwnFactor smallest;
  for (const std::size_t i : order) {
    if (bounds[i] >= smallest.factor) break;
    // One look is enough for most: a search takes many. Equal factors are those of the first.
    constexpr double clearly = 1.0 - 1e-8;
    const bool is_first = !std::isfinite(smallest.factor);
    if (!is_first && !elements_[i].has_own_below(smallest.factor * clearly)) continue;
    const double factor = elements_[i].smallest_own_factor(largest);
    if (factor < smallest.factor) smallest = {factor, i};
  }
  return smallest;
}

std::vector<std::size_t> LoadedFrame::elements_with_own_factor(double low, double high) const {
  std::vector<std::size_t> found;
  ElementStiffness k;
  for (std::size_t i = 0; i < elements_.size(); ++i) {
    const auto below = elements_[i].stiffness_at(low, k),
               above = elements_[i].stiffness_at(high, k);
    if (!below || !above) continue;
    found.insert(found.end(), static_cast<std::size_t>(std::max(0, *above - *below)), i);
  }
  return found;
}

double LoadedFrame::largest_carried_factor() const {
  double least = std::numeric_limits<double>::infinity();
  for (const LoadedElement& element : elements_) {
    least = std::min(least, element.largest_carried_factor());
  }
  return least;
}

std::optional<LoadedEquations> LoadedFrame::at(double factor) const {
  LoadedEquations result;
  bool is_certain = true;
  const StiffnessSource source = [&](std::size_t place, ElementStiffness& k) {
    const auto own = elements_[place].stiffness_at(factor, k);
    is_certain = is_certain && own;
    result.own_factors += own.value_or(0);
  };
  result.scaled = assemble(frame_, geometry_, equations_, source);
  if (!is_certain) return std::nullopt;
  return result;
}

std::vector<AxialWork> LoadedFrame::work(double factor,
                                         std::span<const double> displacements) const {
  const NodeValues values(displacements.begin(), displacements.end());
  std::vector<AxialWork> work;
  work.reserve(elements_.size());
  for (std::size_t i = 0; i < elements_.size(); ++i) {
    const Vector12 u = to_local(geometry_[i].axes, at_ends(frame_.elements[i], values));
    work.push_back(elements_[i].work(factor, u));
  }
  return work;
}

}  // namespace aluframe::analysis
