#pragma once

#include <array>
#include <optional>
#include <vector>

#include "aluframe/restraints/held_places.h"

namespace aluframe::restraints {

/// The moment of one element of a member in one combination, N·mm, at places of the member, mm,
/// ascending.
struct ElementMoments {
  Segment stretch;
  std::vector<std::array<double, 2>> at;  ///< place, My; empty: it has no forces
};

/// A piece of a member that buckles sideways by itself in a combination.
struct LateralSegment {
  Segment segment;
  std::array<bool, 2> compressed{};  ///< by Flange: somewhere in the piece it is
  bool is_free = false;              ///< an end of the member that nothing holds ends it
};

/// How a member buckles sideways in one combination.
struct LateralLayout {
  std::vector<LateralSegment> segments;  ///< none when no moment is above noise
  /// Places that hold a flange which this combination does not compress there.
  std::vector<double> idle;
};

/// The flange that is compressed at a place. An element's moments are known at a few places: it is
/// the one that both of its neighbours compress, or one does and the other has no moment. Nothing
/// where the moment changes its sign, or is noise.
std::optional<Flange> compressed_at(const std::vector<ElementMoments>& member, double place,
                                    double noise);

/// Parts a member at the places that brace it in a combination. The ends of the member brace it
/// where `is_held` says so, or a restraint stands there.
LateralLayout lateral_layout(const std::vector<HeldPlace>& places,
                             const std::vector<ElementMoments>& member,
                             const std::array<bool, 2>& is_held, double noise);

}  // namespace aluframe::restraints
