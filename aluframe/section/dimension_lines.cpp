#include "aluframe/section/dimension_lines.h"

#include <fmt/format.h>

#include <algorithm>

#include "aluframe/section/section_properties.h"
#include "aluframe/section/shapes.h"

namespace aluframe::section {

namespace {

using model::Shape;
using Kind = DimensionLine::Kind;

/// Collects lines by the names that the shape gives its dimensions.
struct Lines {
  const Dimensions& d;
  double top = 0.0, bottom = 0.0;  ///< of the section, from the centroid
  double back = 0.0;               ///< of a channel's web
  std::vector<DimensionLine> all = {};

  void add(Kind kind, double from, double to, double level, const char* name) {
    all.push_back({kind, from, to, level, fmt::format("{} {:g}", name, to - from)});
  }
  void add_depth(double left, const char* name) { add(Kind::beside, bottom, top, left, name); }
  void add_top_flange(double tip, const char* name) {
    add(Kind::thickness, top - d.tf1, top, tip, name);
  }
  void add_bottom_flange(double tip, const char* name) {
    add(Kind::thickness, bottom, bottom + d.tf2, tip, name);
  }
  /// Of a web, high enough to leave the centroid alone.
  void add_web(double left, const char* name) {
    constexpr double part = 0.3;
    add(Kind::wall, left, left + d.tw, top - part * d.h, name);
  }
};

void add_channel(Lines& lines) {
  const Dimensions& d = lines.d;
  lines.add_depth(lines.back, "H");
  lines.add(Kind::above, lines.back, lines.back + d.b1, lines.top, "B1");
  lines.add(Kind::below, lines.back, lines.back + d.b2, lines.bottom, "B2");
  lines.add_web(lines.back, "tw");
  lines.add_top_flange(lines.back + d.b1, "tf1");
  lines.add_bottom_flange(lines.back + d.b2, "tf2");
}

void add_h_section(Lines& lines) {
  const Dimensions& d = lines.d;
  lines.add_depth(-std::max(d.b1, d.b2) / 2.0, "H");
  lines.add(Kind::above, -d.b1 / 2.0, d.b1 / 2.0, lines.top, "B1");
  lines.add(Kind::below, -d.b2 / 2.0, d.b2 / 2.0, lines.bottom, "B2");
  lines.add_web(-d.tw / 2.0, "tw");
  lines.add_top_flange(d.b1 / 2.0, "tf1");
  lines.add_bottom_flange(d.b2 / 2.0, "tf2");
}

void add_tee(Lines& lines) {
  const Dimensions& d = lines.d;
  lines.add_depth(-d.b1 / 2.0, "H");
  lines.add(Kind::above, -d.b1 / 2.0, d.b1 / 2.0, lines.top, "B");
  lines.add(Kind::below, -d.tw / 2.0, d.tw / 2.0, lines.bottom, "tw");
  lines.add_top_flange(d.b1 / 2.0, "tf");
}

void add_box(Lines& lines) {
  const Dimensions& d = lines.d;
  lines.add_depth(-d.b1 / 2.0, "H");
  lines.add(Kind::above, -d.b1 / 2.0, d.b1 / 2.0, lines.top, "B");
  lines.add(Kind::below, -d.c / 2.0, d.c / 2.0, lines.bottom, "C");
  lines.add_web(-(d.c + d.tw) / 2.0, "tw");
  lines.add_top_flange(d.b1 / 2.0, "tf1");
  lines.add_bottom_flange(d.b1 / 2.0, "tf2");
}

void add_double_channel(Lines& lines) {
  const Dimensions& d = lines.d;
  const double back = d.c / 2.0;
  lines.add_depth(-back - d.b1, "H");
  lines.add(Kind::above, back, back + d.b1, lines.top, "B");
  if (d.c > 0.0) lines.add(Kind::below, -back, back, lines.bottom, "C");
  lines.add_web(back, "tw");
  lines.add_top_flange(back + d.b1, "tf");
}

void add_round(Lines& lines) {
  const Dimensions& d = lines.d;
  lines.add(Kind::below, -d.h / 2.0, d.h / 2.0, lines.bottom, "D");
  if (d.tw > 0.0) lines.add(Kind::wall, d.h / 2.0 - d.tw, d.h / 2.0, 0.0, "t");
}

}  // namespace

std::vector<DimensionLine> dimension_lines_of(const model::Section& section) {
  const Dimensions d = dimensions_of(section);
  // Where the outline is: given properties move neither.
  model::Section plain = section;
  plain.given = {};
  const model::SectionProperties p = properties_of(plain);
  Lines lines{d, p.point_z[0], p.point_z[0] - d.h, p.point_y[0]};
  switch (section.shape) {
    case Shape::channel:
      add_channel(lines);
      break;
    case Shape::h_section:
      add_h_section(lines);
      break;
    case Shape::tee:
      add_tee(lines);
      break;
    case Shape::box:
      add_box(lines);
      break;
    case Shape::double_channel:
      add_double_channel(lines);
      break;
    case Shape::pipe:
    case Shape::solid_round:
      add_round(lines);
      break;
    case Shape::other:
      break;
  }
  return lines.all;
}

}  // namespace aluframe::section
