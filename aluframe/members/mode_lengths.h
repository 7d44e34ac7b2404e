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
/// changes its section K is the largest that its elements would have, those with less than half of
/// N counting as if they had half.
///
/// A mode tells only of segments that buckle in it: those whose line (buckling_lines.h) does, by
/// its axial forces, a tenth or more of the work of the line that does most. Others hold these, or
/// stand by. Where several modes tell of a segment, K is the largest of those that press it at
/// least half as much as any does, and of the one with the smallest factor. Modes far from the
/// first of their loads count where no others tell.
std::vector<SegmentModeLengths> mode_lengths(const MemberSegments& segments,
                                             std::span<const FrameMode> modes);

}  // namespace aluframe::members
