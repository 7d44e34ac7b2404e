#include "aluframe/model/restraint.h"

#include <array>
#include <cstddef>

namespace aluframe::model {

namespace {

/// By Held.
constexpr std::array<unsigned, names_of_held.size()> parts{
    top_part | bottom_part,
    top_part,
    bottom_part,
    top_part | bottom_part | part_about_z | twist_part,
    part_about_y,
    part_about_z,
    twist_part};

}  // namespace

unsigned parts_of(Held held) {
  return parts.at(static_cast<std::size_t>(held));
}

std::vector<double> places_of(const Restraint& restraint, double length) {
  if (!restraint.spacing) return restraint.at;
  std::vector<double> places;
  for (std::size_t i = 1;; ++i) {
    const double place = static_cast<double>(i) * *restraint.spacing;
    if (place > length - same_place) break;
    places.push_back(place);
  }
  return places;
}

}  // namespace aluframe::model
