#pragma once

#include <array>
#include <cstddef>
#include <vector>

namespace aluframe::analysis {

/// What a frame is out of true by before it is loaded, for second order: its axial forces act on
/// it. Everything acts at once and in full.
struct Imperfections {
  std::array<double, 2> sway{};  ///< lean of the whole frame along X and along Y, rad
  /// Bow of every member in the middle, over its length: about its y (along z), about its z.
  std::array<double, 2> bow{};
  /// Chains of elements that are bowed as one, each by places from one end to the other; an element
  /// in none is a member of its own.
  std::vector<std::vector<std::size_t>> members = {};
  /// Largest displacement of the first buckling mode of the loads, mm.
  double mode = 0.0;

  bool has_sway() const { return sway != std::array<double, 2>{}; }
  bool has_bow() const { return bow != std::array<double, 2>{}; }
};

}  // namespace aluframe::analysis
