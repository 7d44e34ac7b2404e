#include "aluframe/viewport/picking.h"

#include <algorithm>
#include <cmath>

namespace aluframe::viewport {

namespace {

using Line = std::array<Pixel, 2>;

/// The place of a line that is nearest to a pixel.
struct Nearest {
  double pixels = 0.0;    ///< from the pixel
  double distance = 0.0;  ///< from the eye
};

Nearest nearest_on(const Line& line, const Pixel& at) {
  const double x = line[1].x - line[0].x, y = line[1].y - line[0].y;
  const double square = x * x + y * y;
  const double along =
      square > 0.0
          ? std::clamp(((at.x - line[0].x) * x + (at.y - line[0].y) * y) / square, 0.0, 1.0)
          : 0.0;
  return {std::hypot(line[0].x + along * x - at.x, line[0].y + along * y - at.y),
          std::lerp(line[0].distance, line[1].distance, along)};
}

struct Rectangle {
  double left, right, top, bottom;

  bool contains(const Pixel& at) const {
    return at.x >= left && at.x <= right && at.y >= top && at.y <= bottom;
  }
};

/// Whether a part of a line lies in the rectangle: the line is cut off edge by edge.
bool crosses(const Rectangle& rectangle, const Line& line) {
  double from = 0.0, to = 1.0;
  const double x = line[1].x - line[0].x, y = line[1].y - line[0].y;
  const std::array<std::array<double, 2>, 4> edges{{{-x, line[0].x - rectangle.left},
                                                    {x, rectangle.right - line[0].x},
                                                    {-y, line[0].y - rectangle.top},
                                                    {y, rectangle.bottom - line[0].y}}};
  for (const auto& [outwards, room] : edges) {
    if (outwards == 0.0) {
      if (room < 0.0) return false;
      continue;
    }
    const double cut = room / outwards;
    (outwards < 0.0 ? from : to) = outwards < 0.0 ? std::max(from, cut) : std::min(to, cut);
  }
  return from <= to;
}

}  // namespace

std::optional<model::Number> pick(const Sight& sight, const Pixel& at, double reach) {
  constexpr double same = 0.5;
  std::optional<model::Number> best;
  Nearest its{reach, 0.0};
  for (const ElementLine& line : sight.lines) {
    if (!sight.is_shown(line.number)) continue;
    const auto pixels = sight.camera.pixels_of(line.start, line.end, sight.size);
    if (!pixels) continue;
    const Nearest nearest = nearest_on(*pixels, at);
    if (nearest.pixels > reach) continue;
    const bool is_same = best && std::abs(nearest.pixels - its.pixels) <= same;
    const bool is_better =
        !best || (is_same ? nearest.distance < its.distance : nearest.pixels < its.pixels);
    if (!is_better) continue;
    best = line.number;
    its = nearest;
  }
  return best;
}

std::vector<model::Number> pick_in(const Sight& sight, const Band& band, BandKind kind) {
  const Rectangle rectangle{std::min(band.from.x, band.to.x), std::max(band.from.x, band.to.x),
                            std::min(band.from.y, band.to.y), std::max(band.from.y, band.to.y)};
  std::vector<model::Number> out;
  for (const ElementLine& line : sight.lines) {
    if (!sight.is_shown(line.number)) continue;
    bool is_picked = false;
    if (kind == BandKind::window) {
      const auto start = sight.camera.pixel_of(line.start, sight.size);
      const auto end = sight.camera.pixel_of(line.end, sight.size);
      is_picked = start && end && rectangle.contains(*start) && rectangle.contains(*end);
    } else {
      const auto pixels = sight.camera.pixels_of(line.start, line.end, sight.size);
      is_picked = pixels && crosses(rectangle, *pixels);
    }
    if (is_picked) out.push_back(line.number);
  }
  return out;
}

}  // namespace aluframe::viewport
