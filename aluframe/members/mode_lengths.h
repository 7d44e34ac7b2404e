#pragma once

#include <optional>
#include <span>
#include <vector>

#include "aluframe/members/frame_mode.h"
#include "aluframe/members/member_segments.h"

namespace aluframe::members {

/// Of a member segment, for buckling about the section's y and z; nothing where its axial force
/// does little in every mode.
struct SegmentModeLengths {
  std::optional<ModeLength> y, z;
};

/// Effective length factors of all member segments from buckling modes: the length of a bar on
/// hinges whose Euler load is the compression at which the frame buckles,
///     K = π/L·√(EI/(λ·N)),
/// with the factor λ of the mode, and N the largest compression of the segment. Of a segment that
/// changes its section K is the largest that elements with half of N or more would have.
///
/// A mode tells only of segments that buckle in it: those whose axial force does, about the axis, a
/// tenth or more of the work of the segment that does most. Others hold these, or stand by. Where
/// several modes tell of a segment, K is the largest of those with factors up to twice the
/// smallest: combinations that lie further from buckling do not decide.
std::vector<SegmentModeLengths> mode_lengths(const MemberSegments& segments,
                                             std::span<const FrameMode> modes);

}  // namespace aluframe::members
