#pragma once

#include <cstddef>
#include <optional>
#include <vector>

#include "aluframe/combinations/patterns.h"

namespace aluframe::combinations {

/// So many combinations of one type are made at most: each costs as much time and as much of the
/// result file as one that is written by hand, and numbers stay in their hundreds.
inline constexpr std::size_t max_combinations_of_type = 999;

/// A unit with one of its choices of signs and a factor.
struct Acting {
  std::size_t unit = 0;
  std::size_t choice = 0;
  Factor factor;
};
using Candidate = std::vector<Acting>;

/// All combinations of a pattern: at most one unit leads, others accompany or are absent, and units
/// that exclude each other never act together. Left out are those that lie half-way between two
/// others, because a unit that acts with either sign is absent and could act.
/// @return nothing when there are more than `limit`
std::optional<std::vector<Candidate>> candidates_of(const Pattern& pattern,
                                                    const std::vector<ActingUnit>& units,
                                                    std::size_t limit);

}  // namespace aluframe::combinations
