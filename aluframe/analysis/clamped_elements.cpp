#include "aluframe/analysis/clamped_elements.h"

#include <algorithm>

#include "aluframe/analysis/releases.h"

namespace aluframe::analysis {

namespace {

bool has_release(const Element& element) {
  return element.released != std::array<bool, 12>{};
}

bool is_loaded(std::size_t element, std::span<const LoadsByElement> loads) {
  return std::ranges::any_of(
      loads, [&](const LoadsByElement& of_case) { return of_case.is_loaded(element); });
}

void clamp_rigidly_joined(const Frame& frame, std::size_t place,
                          std::span<const LoadsByElement> loads,
                          std::span<ClampedElements> clamped) {
  for (std::size_t c = 0; c < loads.size(); ++c) {
    if (!loads[c].is_loaded(place)) continue;
    clamped[c].add_rigidly_joined(place, clamped_forces(frame.elements[place], loads[c].of(place)));
  }
}

void clamp_released(const Frame& frame, std::size_t place, std::span<const LoadsByElement> loads,
                    std::span<ClampedElements> clamped) {
  if (!is_loaded(place, loads)) return;
  const Element& element = frame.elements[place];
  Matrix12 k = elastic_stiffness(element, loads.front().of(place).length);
  const auto releases = Releases::condense(element.released, k);
  for (std::size_t c = 0; c < loads.size(); ++c) {
    if (!loads[c].is_loaded(place)) continue;
    ClampedEnds ends;
    ends.unreleased = clamped_forces(element, loads[c].of(place));
    ends.condensed = ends.unreleased;
    if (releases) releases->condense_forces(ends.condensed);
    clamped[c].add(place, ends);
  }
}

}  // namespace

void ClampedElements::add(std::size_t element, const ClampedEnds& ends) {
  places_[element] = {next_place(), next_place() + 1};
  ends_.push_back(ends.condensed);
  ends_.push_back(ends.unreleased);
}

void ClampedElements::add_rigidly_joined(std::size_t element, const Vector12& ends) {
  places_[element] = {next_place(), next_place()};
  ends_.push_back(ends);
}

std::vector<ClampedElements> clamp_elements(const Frame& frame,
                                            std::span<const LoadsByElement> loads) {
  std::vector<ClampedElements> clamped(loads.size(), ClampedElements(frame.elements.size()));
  for (std::size_t i = 0; i < frame.elements.size(); ++i) {
    if (has_release(frame.elements[i])) {
      clamp_released(frame, i, loads, clamped);
    } else {
      clamp_rigidly_joined(frame, i, loads, clamped);
    }
  }
  return clamped;
}

}  // namespace aluframe::analysis
