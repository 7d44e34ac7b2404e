#pragma once

#include <algorithm>
#include <cstddef>
#include <numeric>
#include <span>
#include <utility>
#include <vector>

#include "aluframe/area_loads/plane.h"
#include "aluframe/area_loads/polygon.h"
#include "aluframe/area_loads/widths.h"

namespace aluframe::area_loads {

/// A straight piece of an element, in the plane of the surface that it carries.
struct Carrier {
  std::size_t element = 0;  ///< its place in the model
  double length = 0.0;      ///< of the whole element, mm
  Point2 start, end;
  double from = 0.0, to = 1.0;  ///< places of start and end on the element, rising or falling

  Point2 at(double part) const { return start + part * (end - start); }
  double place(double part) const { return from + part * (to - from); }
  /// The piece between two parts of this one.
  Carrier piece(double part, double other) const {
    return {element, length, at(part), at(other), place(part), place(other)};
  }
};

/// A width that is linear between two rising parts of a carrier, as a piece of its element. Parts
/// outside of 0 to 1, which only joining makes, are moved inside; force stays the same.
void add_width(const Carrier& carrier, std::pair<double, double> parts,
               std::pair<double, double> widths, std::vector<WidthPiece>& out);

/// The pieces of a carrier inside of a polygon or along its edges, those shorter than `near` left
/// out.
std::vector<Carrier> inside(const Polygon& polygon, const Carrier& carrier, double near);

/// Calls `act` with the places of every two carriers that may come within `near` of one another:
/// neither of the directions x and y keeps them apart. Sorted by x, so that few are looked at.
template <class Act>
void for_each_close_pair(std::span<const Carrier> carriers, double near, Act act) {
  const auto low = [&](std::size_t i) { return std::min(carriers[i].start.x, carriers[i].end.x); };
  const auto is_apart = [near](double a, double b, double c, double d) {
    return std::max(a, b) + near < std::min(c, d) || std::max(c, d) + near < std::min(a, b);
  };
  std::vector<std::size_t> order(carriers.size());
  std::iota(order.begin(), order.end(), std::size_t{0});
  std::ranges::sort(order, {}, low);
  for (std::size_t i = 0; i < order.size(); ++i) {
    const Carrier& one = carriers[order[i]];
    const double high = std::max(one.start.x, one.end.x) + near;
    for (std::size_t j = i + 1; j < order.size() && low(order[j]) <= high; ++j) {
      const Carrier& other = carriers[order[j]];
      if (!is_apart(one.start.y, one.end.y, other.start.y, other.end.y)) act(order[i], order[j]);
    }
  }
}

/// Sorted parts of a straight piece, each once, between 0 and 1.
std::vector<double> rising(std::vector<double> parts);
/// The part of a piece next to a point that is no further from it than `near`, appended.
void append_touching(const Carrier& carrier, Point2 point, double near, std::vector<double>& parts);
/// Where edges of a polygon cross or touch a carrier, appended.
void append_crossings(const Carrier& carrier, const Polygon& polygon, double near,
                      std::vector<double>& parts);

}  // namespace aluframe::area_loads
