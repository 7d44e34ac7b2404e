#pragma once

#include <vector>

#include "aluframe/restraints/held_places.h"
#include "aluframe/restraints/lateral_segments.h"
#include "aluframe/restraints/member_buckling.h"

// Pieces of a member between restraints against the member as a whole.

namespace aluframe::run {

/// A piece that cannot have all of its critical moment, because the member buckles before.
struct BoundPiece {
  restraints::Segment segment;
  restraints::Flange compressed = restraints::Flange::top;
  double share = 1.0;  ///< of the critical moment between forks
};

/// What governs by its pieces, and buckles sooner as a whole: a free end that swings on, a flange
/// that is held while a load pushes the other one. Nothing where the pieces promise no more than
/// the member keeps, and under moments far below its buckling load.
/// @param places what restraints hold; `frame_holds` is what the frame holds
/// @param noise of My, N·mm
std::vector<BoundPiece> bound_by_member(const restraints::LateralLayout& layout,
                                        const std::vector<restraints::BucklingPart>& parts,
                                        const std::vector<restraints::HeldPlace>& places,
                                        const std::vector<restraints::LateralHold>& frame_holds,
                                        double noise);

}  // namespace aluframe::run
