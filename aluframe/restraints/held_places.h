#pragma once

#include <optional>
#include <vector>

#include "aluframe/model/structure.h"

/// What holds a member beside its frame, and what buckles between: lengths for buckling about both
/// axes, and lateral-torsional coefficients, segment by segment. Lengths in mm from the member's
/// start.
namespace aluframe::restraints {

/// A flange, by the section's own z: the top one lies at +z.
enum class Flange { top, bottom };

/// A place where something is held.
struct HeldPlace {
  double at = 0.0;
  unsigned parts = 0;              ///< model::HeldPart; both flanges hold twist and axis z too
  bool compressed_flange = false;  ///< held, whichever it is
};

/// All that holds a member of the length, ascending, each place once.
std::vector<HeldPlace> held_places(const std::vector<model::Restraint>& restraints, double length);

/// Whether a place keeps a bent member from buckling sideways there: it holds the twist, or the
/// flange that is compressed. One that holds the other flange does not.
/// @param compressed nothing: it is not known that a flange is compressed there
bool braces(const HeldPlace& place, std::optional<Flange> compressed);

/// A piece of a member between two places.
struct Segment {
  double start = 0.0, end = 0.0;

  double length() const { return end - start; }
  /// Whether another piece shares more than a point with it.
  bool overlaps(const Segment& other) const;

  friend bool operator==(const Segment&, const Segment&) = default;
  friend auto operator<=>(const Segment&, const Segment&) = default;
};

/// The pieces between ascending places and the ends of a member; a place at an end parts nothing.
std::vector<Segment> segments_between(const std::vector<double>& places, double length);

/// Whether one of the places is that end of the member.
bool has_start(const std::vector<double>& places);
bool has_end(const std::vector<double>& places, double length);

}  // namespace aluframe::restraints
