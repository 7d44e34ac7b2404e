#pragma once

#include <array>
#include <vector>

#include "aluframe/restraints/held_places.h"

namespace aluframe::restraints {

enum class Axis { y, z };

/// A piece of a member that buckles by itself about an axis.
struct AxisSegment {
  Segment segment;
  /// Effective length over the member's length: what the checks multiply with the latter.
  double k = 1.0;
  bool keeps_member = false;  ///< it is that of the member: its end moves, or nothing shortens it
};

/// The pieces between the places that hold the axis. Each counts with its own length, as between
/// hinges, but no more than the member's effective length. Where the member's ends move (its factor
/// exceeds 1), a piece that ends at one keeps the member's factor: restraints only ever make it
/// buckle later. A restraint at the end itself, or a support there, makes that end hold.
///
/// @param k the member's effective length factor about the axis
/// @param is_supported its ends, against moving when it buckles about the axis
std::vector<AxisSegment> axis_segments(const std::vector<HeldPlace>& places, Axis axis,
                                       double length, double k,
                                       const std::array<bool, 2>& is_supported = {});

/// The factor of what lies at `stretch` of the member: the largest of the pieces that it is part
/// of.
double factor_at(const std::vector<AxisSegment>& segments, const Segment& stretch);

}  // namespace aluframe::restraints
