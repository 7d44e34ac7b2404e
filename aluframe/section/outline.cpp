#include "aluframe/section/outline.h"

#include <algorithm>

#include "aluframe/section/section_properties.h"
#include "aluframe/section/shapes.h"

namespace aluframe::section {

namespace {

using model::Shape;
using Line = std::vector<OutlineCorner>;

Line rectangle(double left, double right, double bottom, double top) {
  return {{left, bottom}, {right, bottom}, {right, top}, {left, top}};
}

/// A square whose corners are rounded until it is a circle.
Line circle(double radius) {
  return {{-radius, -radius, radius},
          {radius, -radius, radius},
          {radius, radius, radius},
          {-radius, radius, radius}};
}

Line reversed(Line line) {
  std::ranges::reverse(line);
  return line;
}

Line channel(const Dimensions& d, double web_back) {
  const double top = d.h / 2.0;
  const double under = top - d.tf1;
  const double over = d.tf2 - top;
  const double face = web_back + d.tw;
  return {{web_back, -top},       {web_back + d.b2, -top}, {web_back + d.b2, over, d.r2},
          {face, over, d.r1},     {face, under, d.r1},     {web_back + d.b1, under, d.r2},
          {web_back + d.b1, top}, {web_back, top}};
}

Line mirrored(Line line) {
  for (OutlineCorner& corner : line) corner.y = -corner.y;
  return reversed(std::move(line));
}

Line h_section(const Dimensions& d) {
  const double top = d.h / 2.0;
  const double under = top - d.tf1;
  const double over = d.tf2 - top;
  const double web = d.tw / 2.0;
  const double b1 = d.b1 / 2.0;
  const double b2 = d.b2 / 2.0;
  return {{-b2, -top},        {b2, -top},          {b2, over, d.r2},   {web, over, d.r1},
          {web, under, d.r1}, {b1, under, d.r2},   {b1, top},          {-b1, top},
          {-b1, under, d.r2}, {-web, under, d.r1}, {-web, over, d.r1}, {-b2, over, d.r2}};
}

Line tee(const Dimensions& d) {
  const double top = d.h / 2.0;
  const double under = top - d.tf1;
  const double web = d.tw / 2.0;
  const double b = d.b1 / 2.0;
  return {{-web, -top}, {web, -top}, {web, under}, {b, under},
          {b, top},     {-b, top},   {-b, under},  {-web, under}};
}

/// Material between the flanges stands where the webs are, which need not be at the edges.
Line box(const Dimensions& d) {
  const double top = d.h / 2.0;
  const double under = top - d.tf1;
  const double over = d.tf2 - top;
  const double half = d.b1 / 2.0;
  const double outer = std::min((d.c + d.tw) / 2.0, half);
  if (outer == half) return rectangle(-half, half, -top, top);
  return {{-half, -top},  {half, -top},    {half, over},   {outer, over},
          {outer, under}, {half, under},   {half, top},    {-half, top},
          {-half, under}, {-outer, under}, {-outer, over}, {-half, over}};
}

Outline from_mid_depth(const model::Section& section, const Dimensions& d) {
  switch (section.shape) {
    case Shape::channel:
      return {channel(d, 0.0)};
    case Shape::h_section:
      return {h_section(d)};
    case Shape::tee:
      return {tee(d)};
    case Shape::box: {
      const double inner = (d.c - d.tw) / 2.0;
      return {box(d), reversed(rectangle(-inner, inner, d.tf2 - d.h / 2.0, d.h / 2.0 - d.tf1))};
    }
    case Shape::pipe:
      return {circle(d.h / 2.0), reversed(circle(d.h / 2.0 - d.tw))};
    case Shape::double_channel:
      return {mirrored(channel(d, d.c / 2.0)), channel(d, d.c / 2.0)};
    case Shape::solid_round:
      return {circle(d.h / 2.0)};
    case Shape::other:
      break;
  }
  return {};
}

}  // namespace

Outline outline_of(const model::Section& section) {
  const Dimensions d = dimensions_of(section);
  Outline outline = from_mid_depth(section, d);
  if (outline.empty()) return outline;
  // The centroid, from the top edge and, of a channel, from the web's back.
  model::Section plain = section;
  plain.given = {};
  const model::SectionProperties p = properties_of(plain);
  const double z = d.h / 2.0 - p.point_z[0];
  const double y = section.shape == Shape::channel ? -p.point_y[0] : 0.0;
  for (Line& line : outline) {
    for (OutlineCorner& corner : line) {
      corner.y -= y;
      corner.z -= z;
    }
  }
  return outline;
}

}  // namespace aluframe::section
