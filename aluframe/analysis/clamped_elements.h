#pragma once

#include <cstdint>

#include "aluframe/analysis/clamped_forces.h"

namespace aluframe::analysis {

/// Clamped ends of the elements that a case loads. They are formed once and kept, because both the
/// right side of the equations and the forces of the elements are made of them.
class ClampedElements {
 public:
  explicit ClampedElements(std::size_t elements) : places_(elements) {}

  bool is_loaded(std::size_t element) const { return places_[element].condensed != none; }
  /// End forces of a loaded element: with its releases, and as if nothing were released.
  const Vector12& condensed(std::size_t element) const { return ends_[places_[element].condensed]; }
  const Vector12& unreleased(std::size_t element) const {
    return ends_[places_[element].unreleased];
  }

  void add(std::size_t element, const ClampedEnds& ends);
  /// Of an element without releases, whose ends are kept in half the room.
  void add_rigidly_joined(std::size_t element, const Vector12& ends);

 private:
  static constexpr std::uint32_t none = ~std::uint32_t{0};
  struct Places {
    std::uint32_t condensed = none, unreleased = none;
  };

  std::uint32_t next_place() const { return static_cast<std::uint32_t>(ends_.size()); }

  std::vector<Places> places_;  // per element, in ends_
  std::vector<Vector12> ends_;
};

/// Clamped ends in each of several cases, in their order.
std::vector<ClampedElements> clamp_elements(const Frame& frame,
                                            std::span<const LoadsByElement> loads);

}  // namespace aluframe::analysis
