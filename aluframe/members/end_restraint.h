#pragma once

#include "aluframe/members/member_segments.h"

namespace aluframe::members {

/// How the buckled frame looks, which decides how stiffly the bars at an end resist its rotation.
enum class Buckling {
  non_sway,   ///< bars bend in single curvature: 2·EI/L
  sway,       ///< bars bend in double curvature: 6·EI/L
  cantilever  ///< bars are bent at this end only: 3·EI/L; also the one that continues the segment
};

/// G of one end (0 start, 1 end) for buckling about an axis of the segment: c·Σ(EI/L) of the
/// segment and the one that continues it, over the rotational stiffness about the axis that is
/// there, c being 2, and 6 for sway and cantilevers.
///
/// 0 where a support fixes the rotation about the axis; infinite where the segment is released
/// about it, or nothing resists. Otherwise resist
/// - springs of the support, by their part about the axis,
/// - the bars that end or pass there (restraining_bar.h), by the part of their axes about that
/// axis.
///   A bar that is released at the node about its y (z) has none of Iy (Iz), and torsion of bars is
///   left out. By their far ends bars have, as above, 2, 6 or 3·EI/L, but 3·EI/L where they are
///   hinged (with sway also where no column turns along) and 4·EI/L where they are fixed there, and
///   nothing where that end is free.
double end_ratio(const MemberSegments& segments, const MemberSegment& segment, std::size_t end,
                 Axis axis, Buckling buckling);

}  // namespace aluframe::members
