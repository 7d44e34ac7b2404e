#include "aluframe/remarks/weld_strips.h"

#include <algorithm>
#include <limits>

namespace aluframe::remarks {

namespace {

// Dimensions in the order of model::dimension_names.

double of_channel(const std::array<double, 8>& d) {
  const auto [H, B1, tw, tf1, B2, tf2, r1, r2] = d;
  return std::min(std::min(B1, B2) - tw, (H - tf1 - tf2) / 2.0);
}

double of_h_section(const std::array<double, 8>& d) {
  const auto [H, B1, tw, tf1, B2, tf2, r1, r2] = d;
  return std::min((std::min(B1, B2) - tw) / 2.0, (H - tf1 - tf2) / 2.0);
}

double of_tee(const std::array<double, 8>& d) {
  const double H = d[0], B = d[1], tw = d[2], tf = d[3];
  return std::min((B - tw) / 2.0, H - tf);
}

double of_box(const std::array<double, 8>& d) {
  const double H = d[0], tw = d[2], tf1 = d[3], webs_apart = d[4], tf2 = d[5];
  return std::min((webs_apart - tw) / 2.0, (H - tf1 - tf2) / 2.0);
}

double of_double_channel(const std::array<double, 8>& d) {
  const double H = d[0], B = d[1], tw = d[2], tf = d[3];
  return std::min(B - tw, (H - 2.0 * tf) / 2.0);
}

}  // namespace

double widest_strip(const model::Section& section) {
  switch (section.shape) {
    case model::Shape::channel:
      return of_channel(section.dimensions);
    case model::Shape::h_section:
      return of_h_section(section.dimensions);
    case model::Shape::tee:
      return of_tee(section.dimensions);
    case model::Shape::box:
      return of_box(section.dimensions);
    case model::Shape::double_channel:
      return of_double_channel(section.dimensions);
    default:
      return std::numeric_limits<double>::infinity();
  }
}

}  // namespace aluframe::remarks
