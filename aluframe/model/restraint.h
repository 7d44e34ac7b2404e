#pragma once

#include <array>
#include <cstddef>
#include <optional>
#include <string_view>
#include <vector>

namespace aluframe::model {

/// What is held against moving sideways, or turning, where something is fixed to a member. Flanges
/// are those of the section's own axes: the top one lies at +z.
enum class Held {
  compressed_flange,  ///< whichever flange the moment compresses
  top_flange,
  bottom_flange,
  both_flanges,  ///< so that the section neither moves along y nor twists
  axis_y,        ///< buckling about y: the axis does not move along z
  axis_z,        ///< buckling about z: the axis does not move along y
  twist          ///< the section does not turn about the member's axis
};

/// Names in model files, by Held.
inline constexpr std::array<std::string_view, 7> names_of_held{
    "compressed", "top", "bottom", "both", "y", "z", "twist"};

constexpr std::string_view name_of(Held held) {
  return names_of_held.at(static_cast<std::size_t>(held));
}

/// What holds a member between its ends, or at them, in a way that the frame does not have:
/// purlins, transoms, glass. Lengths in mm from the member's start.
struct Restraint {
  Held held = Held::both_flanges;
  std::vector<double> at;         ///< where; empty with a spacing
  std::optional<double> spacing;  ///< at every multiple of it between the ends

  friend bool operator==(const Restraint&, const Restraint&) = default;
};

/// Places of a member that lie closer are the same place, mm: no purlin is that narrow.
inline constexpr double same_place = 1.0;

/// What of a section is held, as bits: what two restraints at one place may not share.
enum HeldPart : unsigned {
  top_part = 1,
  bottom_part = 2,
  part_about_y = 4,
  part_about_z = 8,
  twist_part = 16
};

/// The parts that a restraint holds. The compressed flange may be either.
unsigned parts_of(Held held);

/// Where a restraint holds a member of the length, from its start: as given, or every multiple of
/// the spacing that is not an end.
std::vector<double> places_of(const Restraint& restraint, double length);

}  // namespace aluframe::model
