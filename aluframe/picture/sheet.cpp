#include "aluframe/picture/sheet.h"

#include <algorithm>
#include <limits>

namespace aluframe::picture {

namespace {

constexpr double margin = 12.0;  ///< for labels around the frame
constexpr double largest_height = 170.0;

/// A place before its scale is known.
struct Unscaled {
  Point2 seen, paper;
};

struct Range {
  double low = std::numeric_limits<double>::infinity(), high = -low;

  void take(double value) {
    low = std::min(low, value);
    high = std::max(high, value);
  }
  double length() const { return high - low; }
};

struct Extent {
  Range x, y;
};

std::vector<Unscaled> places_of(const Scene& scene) {
  std::vector<Unscaled> out;
  const auto add = [&](const Place& place) {
    out.push_back({project(scene.view, place.at), place.paper});
  };
  for (const Shape& shape : scene.shapes) {
    for (const auto& line : shape.lines) std::ranges::for_each(line, add);
  }
  for (const Marker& marker : scene.markers) add(marker.centre);
  return out;
}

Extent extent_of(const std::vector<Unscaled>& places, double scale) {
  Extent extent;
  for (const Unscaled& place : places) {
    extent.x.take(scale * place.seen.x + place.paper.x);
    extent.y.take(scale * place.seen.y + place.paper.y);
  }
  return extent;
}

/// The largest scale at which everything stands on the sheet, symbols of fixed size included.
double largest_scale(const std::vector<Unscaled>& places) {
  constexpr double width = sheet_width - 2.0 * margin, height = largest_height - 2.0 * margin;
  Extent plain;
  for (const Unscaled& place : places) {
    plain.x.take(place.seen.x);
    plain.y.take(place.seen.y);
  }
  const double size = std::max(plain.x.length() / width, plain.y.length() / height);
  if (!(size > 0.0)) return 1.0;
  double fits = 0.0, too_large = 1.0 / size;
  constexpr int halvings = 30;
  for (int i = 0; i < halvings; ++i) {
    const double middle = 0.5 * (fits + too_large);
    const Extent extent = extent_of(places, middle);
    (extent.x.length() <= width && extent.y.length() <= height ? fits : too_large) = middle;
  }
  return too_large;
}

}  // namespace

Sheet::Sheet(const Scene& scene, double top) : view_(scene.view) {
  const std::vector<Unscaled> places = places_of(scene);
  scale_ = largest_scale(places);
  const Extent extent = extent_of(places, scale_);
  const double middle = 0.5 * (extent.x.low + extent.x.high);
  origin_ = {0.5 * sheet_width - middle, top + margin + extent.y.high};
  bottom_ = top + 2.0 * margin + extent.y.length();
}

Point2 Sheet::on_paper(const Place& place) const {
  const Point2 at = scale_ * project(view_, place.at) + place.paper;
  return {origin_.x + at.x, origin_.y - at.y};
}

}  // namespace aluframe::picture
