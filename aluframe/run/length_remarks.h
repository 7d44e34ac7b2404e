#pragma once

#include <vector>

#include "aluframe/members/length_factors.h"
#include "aluframe/run/frame_modes.h"
#include "aluframe/store/result_file.h"

namespace aluframe::run {

/// What an engineer is owed a word about, of kind "length": effective length factors that lie more
/// than a twentieth below those of a buckling mode, and factors by charts that do not hold where no
/// mode is known.
/// @param factors with what the modes tell of them
/// @param modes null: none are looked for
std::vector<store::RemarkRow> length_remarks(const std::vector<members::SegmentFactors>& factors,
                                             const FrameModes* modes);

}  // namespace aluframe::run
