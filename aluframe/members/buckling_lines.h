#pragma once

#include <cstddef>
#include <vector>

#include "aluframe/members/member_segments.h"

namespace aluframe::members {

/// Per member segment, in their order, the number of the line that it buckles in about an axis:
/// segments that go on in each other, straight or through a kink of up to 30°, at ends where both
/// are rigid, where no support acts on their bending, and where nothing else that is more than an
/// arm is joined rigidly. The parts of a mast are a line, whatever their sections are; storeys of a
/// column are not.
std::vector<std::size_t> buckling_lines(const MemberSegments& segments, Axis axis);

}  // namespace aluframe::members
