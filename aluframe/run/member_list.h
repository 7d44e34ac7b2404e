#pragma once

#include <string>
#include <vector>

#include "aluframe/members/length_factors.h"
#include "aluframe/run/input.h"

namespace aluframe::run {

/// The members of a model, and elements that belong to none, with their effective length factors.
struct MemberList {
  Input input;
  std::vector<members::SegmentFactors> factors;  ///< with what buckling modes tell of them
  std::string unknown;  ///< why no mode is known, or not of all combinations; empty: they are
};

/// Lists the members of a model also when its forces cannot be computed: then no mode is known.
Result<MemberList> list_members(const InputOptions& options, const Selection& selection);

}  // namespace aluframe::run
