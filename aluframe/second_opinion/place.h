#pragma once

#include <cstdint>
#include <optional>

namespace aluframe::second_opinion {

/// Where a ratio stands.
struct Place {
  std::uint32_t element = 0;
  std::uint32_t combination = 0;
  int min_side = 0;
  /// Part of the element's length from its start; nothing: the whole member (C7).
  std::optional<double> fraction;

  friend bool operator==(const Place&, const Place&) = default;
};

}  // namespace aluframe::second_opinion
