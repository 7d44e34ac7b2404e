#pragma once

#include <optional>
#include <string>

#include "aluframe/members/member_segments.h"

namespace aluframe::members {

/// Why the alignment charts do not hold for a member segment that buckles about an axis, or
/// nothing. Their columns and beams are straight and prismatic, upright or level (to 10°), no
/// inclined element is joined to their beams, and what holds ends against moving does so rigidly or
/// not at all.
///
/// @return "its axis bends at node 7", "its section turns at node 7", "its section changes at node
///         7", "it is inclined", "it goes on at a bend in element 3", "it goes on turned in element
///         3", "inclined element 3 frames in", "a spring holds node 7"
std::optional<std::string> chart_objection(const MemberSegments& segments,
                                           const MemberSegment& segment, Axis axis);

}  // namespace aluframe::members
