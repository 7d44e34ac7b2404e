#include "aluframe/restraints/held_places.h"

#include <algorithm>

namespace aluframe::restraints {

namespace {

constexpr unsigned flanges = model::top_part | model::bottom_part;

HeldPlace place_of(model::Held held, double at) {
  if (held == model::Held::compressed_flange) {
    return {.at = at, .parts = 0, .compressed_flange = true};
  }
  return {.at = at, .parts = model::parts_of(held)};
}

}  // namespace

std::vector<HeldPlace> held_places(const std::vector<model::Restraint>& restraints, double length) {
  std::vector<HeldPlace> all;
  for (const model::Restraint& restraint : restraints) {
    for (const double at : model::places_of(restraint, length)) {
      all.push_back(place_of(restraint.held, std::clamp(at, 0.0, length)));
    }
  }
  std::ranges::stable_sort(all, {}, &HeldPlace::at);
  std::vector<HeldPlace> places;
  for (const HeldPlace& place : all) {
    if (places.empty() || place.at - places.back().at > model::same_place) {
      places.push_back(place);
      continue;
    }
    places.back().parts |= place.parts;
    places.back().compressed_flange |= place.compressed_flange;
  }
  for (HeldPlace& place : places) {
    if ((place.parts & flanges) == flanges) place.parts |= model::part_about_z | model::twist_part;
  }
  return places;
}

bool braces(const HeldPlace& place, std::optional<Flange> compressed) {
  if (place.compressed_flange || (place.parts & model::twist_part) != 0) return true;
  if (!compressed) return false;
  return (place.parts & (*compressed == Flange::top ? model::top_part : model::bottom_part)) != 0;
}

bool Segment::overlaps(const Segment& other) const {
  return std::min(end, other.end) - std::max(start, other.start) > model::same_place;
}

std::vector<Segment> segments_between(const std::vector<double>& places, double length) {
  std::vector<Segment> segments;
  double start = 0.0;
  for (const double place : places) {
    if (place <= model::same_place || place >= length - model::same_place) continue;
    segments.push_back({start, place});
    start = place;
  }
  segments.push_back({start, length});
  return segments;
}

bool has_start(const std::vector<double>& places) {
  return !places.empty() && places.front() <= model::same_place;
}

bool has_end(const std::vector<double>& places, double length) {
  return !places.empty() && places.back() >= length - model::same_place;
}

}  // namespace aluframe::restraints
