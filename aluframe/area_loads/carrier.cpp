#include "aluframe/area_loads/carrier.h"

#include <algorithm>
#include <cmath>
#include <optional>

namespace aluframe::area_loads {

namespace {

/// Parts that rounding alone tells apart from others, the ends first of all.
constexpr double same_part = 1e-12;

double without_rounding(double place) {
  if (std::abs(place) <= same_part) return 0.0;
  if (std::abs(place - 1.0) <= same_part) return 1.0;
  return place;
}

}  // namespace

void add_width(const Carrier& carrier, std::pair<double, double> parts,
               std::pair<double, double> widths, std::vector<WidthPiece>& out) {
  const double outside = std::min(parts.first, 0.0) + std::max(parts.second - 1.0, 0.0);
  double from = without_rounding(carrier.place(parts.first - outside));
  double to = without_rounding(carrier.place(parts.second - outside));
  if (from == to) return;
  // The element itself may be longer than its piece in the plane, by rounding or where it leans.
  const double scale =
      distance(carrier.start, carrier.end) / (std::abs(carrier.to - carrier.from) * carrier.length);
  auto [from_width, to_width] = widths;
  if (from > to) {
    std::swap(from, to);
    std::swap(from_width, to_width);
  }
  out.push_back({carrier.element, from, to, scale * from_width, scale * to_width});
}

std::vector<double> rising(std::vector<double> parts) {
  std::ranges::sort(parts);
  const auto is_same = [](double a, double b) { return b - a <= same_part; };
  const auto rest = std::ranges::unique(parts, is_same);
  parts.erase(rest.begin(), rest.end());
  return parts;
}

void append_touching(const Carrier& carrier, Point2 point, double near,
                     std::vector<double>& parts) {
  if (distance_from(point, carrier.start, carrier.end) > near) return;
  const Point2 along = carrier.end - carrier.start;
  const double part = dot(point - carrier.start, along) / dot(along, along);
  if (part > 0.0 && part < 1.0) parts.push_back(part);
}

void append_crossings(const Carrier& carrier, const Polygon& polygon, double near,
                      std::vector<double>& parts) {
  for (std::size_t i = 0; i < polygon.size(); ++i) {
    const Point2 a = polygon[i];
    const Point2 b = polygon[(i + 1) % polygon.size()];
    append_touching(carrier, a, near, parts);
    if (const auto part = crossing_part(carrier.start, carrier.end, a, b)) parts.push_back(*part);
  }
}

std::vector<Carrier> inside(const Polygon& polygon, const Carrier& carrier, double near) {
  std::vector<double> parts{0.0, 1.0};
  append_crossings(carrier, polygon, near, parts);
  parts = rising(std::move(parts));
  std::vector<std::pair<double, double>> kept;
  for (std::size_t i = 0; i + 1 < parts.size(); ++i) {
    if (!contains(polygon, carrier.at(0.5 * (parts[i] + parts[i + 1])), near)) continue;
    if (!kept.empty() && kept.back().second == parts[i]) {
      kept.back().second = parts[i + 1];
    } else {
      kept.emplace_back(parts[i], parts[i + 1]);
    }
  }
  std::vector<Carrier> out;
  for (const auto& [from, to] : kept) {
    const Carrier piece = carrier.piece(from, to);
    if (distance(piece.start, piece.end) > near) out.push_back(piece);
  }
  return out;
}

}  // namespace aluframe::area_loads
