#include "aluframe/restraints/lateral_segments.h"

#include <algorithm>
#include <cmath>
#include <cstddef>

namespace aluframe::restraints {

namespace {

using Point = std::array<double, 2>;

/// What the two known places around one say: -1 bottom compressed, 1 top, 0 neither or both.
int sign_around(const ElementMoments& element, double place, double noise) {
  if (element.at.empty()) return 0;
  const auto after = std::ranges::find_if(
      element.at, [&](const Point& point) { return point[0] >= place - model::same_place; });
  const Point& right = after == element.at.end() ? element.at.back() : *after;
  const bool is_there = std::abs(right[0] - place) <= model::same_place;
  const Point& left = is_there || after == element.at.begin() ? right : *(after - 1);
  const double low = std::min(left[1], right[1]), high = std::max(left[1], right[1]);
  if (low >= -noise && high > noise) return 1;
  if (high <= noise && low < -noise) return -1;
  return 0;
}

/// Which flanges the moments compress within a piece. Between two known places the moment lies
/// between theirs, or a load bows it away from the one that is smaller.
std::array<bool, 2> compressed_within(const std::vector<ElementMoments>& member,
                                      const Segment& piece, double noise) {
  std::array<bool, 2> compressed{};
  for (const ElementMoments& element : member) {
    for (std::size_t i = 0; i + 1 < element.at.size(); ++i) {
      const Point &left = element.at[i], &right = element.at[i + 1];
      if (!piece.overlaps({left[0], right[0]})) continue;
      if (std::max(left[1], right[1]) > noise) compressed[0] = true;
      if (std::min(left[1], right[1]) < -noise) compressed[1] = true;
    }
  }
  return compressed;
}

bool is_bent(const std::vector<ElementMoments>& member, double noise) {
  return std::ranges::any_of(member, [&](const ElementMoments& element) {
    return std::ranges::any_of(element.at,
                               [&](const Point& point) { return std::abs(point[1]) > noise; });
  });
}

}  // namespace

std::optional<Flange> compressed_at(const std::vector<ElementMoments>& member, double place,
                                    double noise) {
  int sign = 0;
  for (const ElementMoments& element : member) {
    if (place < element.stretch.start - model::same_place ||
        place > element.stretch.end + model::same_place) {
      continue;
    }
    const int own = sign_around(element, place, noise);
    // At a node both elements must agree.
    if (own == 0 || (sign != 0 && own != sign)) return std::nullopt;
    sign = own;
  }
  if (sign == 0) return std::nullopt;
  return sign > 0 ? Flange::top : Flange::bottom;
}

LateralLayout lateral_layout(const std::vector<HeldPlace>& places,
                             const std::vector<ElementMoments>& member,
                             const std::array<bool, 2>& is_held, double noise) {
  LateralLayout layout;
  if (!is_bent(member, noise)) return layout;
  const double length = member.back().stretch.end;
  std::vector<double> braced;
  for (const HeldPlace& place : places) {
    // At a held end a flange has nothing more to do.
    const bool is_held_end = (is_held[0] && place.at <= model::same_place) ||
                             (is_held[1] && place.at >= length - model::same_place);
    if (braces(place, compressed_at(member, place.at, noise))) {
      braced.push_back(place.at);
    } else if (!is_held_end && (place.parts & (model::top_part | model::bottom_part)) != 0) {
      layout.idle.push_back(place.at);
    }
  }
  const bool starts_free = !is_held[0] && !has_start(braced);
  const bool ends_free = !is_held[1] && !has_end(braced, length);
  for (const Segment& piece : segments_between(braced, length)) {
    const bool is_free = (starts_free && piece.start == 0.0) || (ends_free && piece.end == length);
    layout.segments.push_back({piece, compressed_within(member, piece, noise), is_free});
  }
  return layout;
}

}  // namespace aluframe::restraints
