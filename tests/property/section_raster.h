#pragma once

#include <algorithm>
#include <array>
#include <functional>
#include <vector>

#include "aluframe/model/section.h"

namespace aluframe::section {

// A section cut into thousands of strips that are summed one by one. Nothing here knows a formula
// of the library: the shapes are drawn from the meaning of their dimensions.

/// A rectangle by its edges, y to the right and z up.
struct Rectangle {
  double left, right, bottom, top;
};

/// Plates of a section from its lower edge and, left to right, from its axis (channel: web's back).
struct Drawing {
  std::vector<Rectangle> flanges;
  std::vector<Rectangle> webs;
};

inline Drawing draw(model::Shape shape, const std::array<double, 8>& d) {
  const double h = d[0], b1 = d[1], tw = d[2], tf1 = d[3];
  switch (shape) {
    case model::Shape::channel:
      return {{{0, b1, h - tf1, h}, {0, d[4], 0, d[5]}}, {{0, tw, d[5], h - tf1}}};
    case model::Shape::h_section:
      return {{{-b1 / 2, b1 / 2, h - tf1, h}, {-d[4] / 2, d[4] / 2, 0, d[5]}},
              {{-tw / 2, tw / 2, d[5], h - tf1}}};
    case model::Shape::tee:
      return {{{-b1 / 2, b1 / 2, h - tf1, h}}, {{-tw / 2, tw / 2, 0, h - tf1}}};
    case model::Shape::box:
      return {{{-b1 / 2, b1 / 2, h - tf1, h}, {-b1 / 2, b1 / 2, 0, d[5]}},
              {{-(d[4] + tw) / 2, -(d[4] - tw) / 2, d[5], h - tf1},
               {(d[4] - tw) / 2, (d[4] + tw) / 2, d[5], h - tf1}}};
    default: {  // two channels
      const double in = d[4] / 2, out = d[4] / 2 + b1;
      return {
          {{in, out, h - tf1, h}, {-out, -in, h - tf1, h}, {in, out, 0, tf1}, {-out, -in, 0, tf1}},
          {{in, in + tw, tf1, h - tf1}, {-in - tw, -in, tf1, h - tf1}}};
    }
  }
}

/// A strip of a raster: where its middle lies, its area, and the width of material at its middle.
struct RasterStrip {
  double middle;
  double area;
  double width;
};

using Raster = std::vector<RasterStrip>;

/// Strips between two levels, each made by `strip(low, high)`.
inline Raster raster(double low, double high,
                     const std::function<RasterStrip(double, double)>& strip) {
  constexpr int count = 4000;
  const double thickness = (high - low) / count;
  Raster strips;
  for (int i = 0; i < count; ++i) {
    strips.push_back(strip(low + i * thickness, low + (i + 1) * thickness));
  }
  return strips;
}

/// What one plate, of this length along the strip and between these levels, adds to a strip.
inline void add_plate(RasterStrip& strip, double length, double from, double to, double low,
                      double high) {
  strip.area += length * std::max(0.0, std::min(high, to) - std::max(low, from));
  if (from <= strip.middle && strip.middle < to) strip.width += length;
}

/// Horizontal strips of plates.
inline Raster across_depth(const std::vector<Rectangle>& plates, double low, double high) {
  return raster(low, high, [&plates](double bottom, double top) {
    RasterStrip strip{(bottom + top) / 2, 0, 0};
    for (const Rectangle& plate : plates) {
      add_plate(strip, plate.right - plate.left, plate.bottom, plate.top, bottom, top);
    }
    return strip;
  });
}

/// Vertical strips of plates.
inline Raster across_width(const std::vector<Rectangle>& plates, double low, double high) {
  return raster(low, high, [&plates](double left, double right) {
    RasterStrip strip{(left + right) / 2, 0, 0};
    for (const Rectangle& plate : plates) {
      add_plate(strip, plate.top - plate.bottom, plate.left, plate.right, left, right);
    }
    return strip;
  });
}

struct RasterSums {
  double area = 0, centre = 0, inertia = 0;
};

inline RasterSums sums_of(const Raster& strips) {
  RasterSums sums;
  for (const RasterStrip& strip : strips) {
    sums.area += strip.area;
    sums.centre += strip.area * strip.middle;
  }
  sums.centre /= sums.area;
  for (const RasterStrip& strip : strips) {
    const double arm = strip.middle - sums.centre;
    sums.inertia += strip.area * arm * arm;
  }
  return sums;
}

/// Largest first moment about `centre` of what lies beyond a cut, over the width of the cut.
inline double largest_moment_over_width(const Raster& strips, double centre) {
  double largest = 0;
  double beyond = 0;
  for (auto strip = strips.rbegin(); strip != strips.rend(); ++strip) {
    const double moment = strip->area * (strip->middle - centre);
    // Cut through the middle of the strip: half of it lies beyond.
    if (strip->width > 0) largest = std::max(largest, (beyond + moment / 2) / strip->width);
    beyond += moment;
  }
  return largest;
}

}  // namespace aluframe::section
