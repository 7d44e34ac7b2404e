#pragma once

#include <vector>

#include "aluframe/members/member_segments.h"
#include "aluframe/restraints/member_buckling.h"

// What the frame itself does against the lateral-torsional buckling of a member.

namespace aluframe::run {

/// A node of a member, as an end of one of its elements.
struct MemberNode {
  double at = 0.0;  ///< mm from the member's start
  members::ElementEnd end;
};

/// Where a support, or beams that meet the member there and lead to supports, keep it from moving
/// sideways. That is taken to keep it from twisting too, as GB 50429-2007 wants of supports. What
/// only goes on straight from an end holds nothing, and nothing holds an end that slides or turns.
/// @param chain the member's elements
/// @param nodes from its start to its end
std::vector<restraints::LateralHold> frame_holds(const members::MemberSegments& all,
                                                 const std::vector<model::Number>& chain,
                                                 const std::vector<MemberNode>& nodes);

/// Whether a node counts as held against twisting for want of anything else: its support holds it
/// sideways, but lets it turn about the member's axis, and no beam meets it.
bool has_assumed_twist(const members::MemberSegments& all, const std::vector<model::Number>& chain,
                       const MemberNode& node);

}  // namespace aluframe::run
