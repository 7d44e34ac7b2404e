#include "aluframe/section/sketch.h"

#include <fmt/format.h>

#include <algorithm>
#include <cmath>

#include "aluframe/elementary/functions.h"
#include "aluframe/model/xml_text.h"
#include "aluframe/section/dimension_lines.h"
#include "aluframe/section/dimensions_svg.h"
#include "aluframe/section/outline.h"
#include "aluframe/section/section_properties.h"

namespace aluframe::section {

namespace {

/// Parts of the larger size of the section.
constexpr double side_share = 0.26;
/// Width of a letter, of which few are wider, as a share of the font's size.
constexpr double letter_width = 0.7;

struct Direction {
  double y, z, length;
};

Direction direction(const OutlineCorner& from, const OutlineCorner& to) {
  const double y = to.y - from.y;
  const double z = to.z - from.z;
  const double length = elementary::hypotenuse(y, z);
  return {y / length, z / length, length};
}

/// One corner of a path: a line to it, or a line to where its arc begins, and the arc. SVG counts
/// downwards, so z changes its sign.
std::string corner_text(const OutlineCorner& before, const OutlineCorner& corner,
                        const OutlineCorner& after, char command) {
  if (corner.radius <= 0.0) return fmt::format("{}{:.4g} {:.4g} ", command, corner.y, -corner.z);
  const Direction in = direction(before, corner);
  const Direction out = direction(corner, after);
  const bool turns_left = in.y * out.z - in.z * out.y > 0.0;
  return fmt::format("{}{:.4g} {:.4g} A{:.4g} {:.4g} 0 0 {} {:.4g} {:.4g} ", command,
                     corner.y - corner.radius * in.y, -(corner.z - corner.radius * in.z),
                     corner.radius, corner.radius, turns_left ? 0 : 1,
                     corner.y + corner.radius * out.y, -(corner.z + corner.radius * out.z));
}

std::string path_text(const Outline& outline) {
  std::string path;
  for (const auto& line : outline) {
    const std::size_t n = line.size();
    for (std::size_t i = 0; i < n; ++i) {
      path += corner_text(line[(i + n - 1) % n], line[i], line[(i + 1) % n], i == 0 ? 'M' : 'L');
    }
    path += "Z ";
  }
  return path;
}

DrawnFrame frame_of(const Outline& outline, double shear_y, double shear_z) {
  DrawnFrame frame{shear_y, shear_y, shear_z, shear_z};
  for (const auto& line : outline) {
    for (const OutlineCorner& corner : line) {
      frame.left = std::min(frame.left, corner.y);
      frame.right = std::max(frame.right, corner.y);
      frame.bottom = std::min(frame.bottom, corner.z);
      frame.top = std::max(frame.top, corner.z);
    }
  }
  return frame;
}

}  // namespace

std::string sketch_of(const model::Section& section) {
  const Outline outline = outline_of(section);
  const model::SectionProperties properties = properties_of(section);
  const double shear_y = properties.shear_centre_y;
  const double shear_z = properties.shear_centre_z;
  const DrawnFrame f = frame_of(outline, shear_y, shear_z);
  const double size = std::max(f.right - f.left, f.top - f.bottom);
  const double row = row_share * size, side = side_share * size;
  const double mark = size / 40.0;
  const double left = f.left - side, top = f.top + 1.8 * row;
  const double width = f.right - f.left + 2.0 * side;
  const double height = f.top - f.bottom + 4.8 * row;
  const double letters =
      letter_width * static_cast<double>(std::max<std::size_t>(1, section.name.size()));
  const double font_size = std::min(0.7 * row, width / letters);
  const std::string name = model::for_xml(section.name);
  return fmt::format(
             "<svg xmlns=\"http://www.w3.org/2000/svg\" width=\"{0:.4g}mm\" height=\"{1:.4g}mm\" "
             "viewBox=\"{2:.6g} {3:.6g} {0:.6g} {1:.6g}\" role=\"img\">\n"
             "  <title>{4}</title>\n"
             "  <rect x=\"{2:.6g}\" y=\"{3:.6g}\" width=\"{0:.6g}\" height=\"{1:.6g}\" "
             "fill=\"#ffffff\"/>\n"
             "  <path d=\"{5}\" fill=\"#b8c4d0\" stroke=\"#203040\" stroke-width=\"{6:.4g}\" "
             "fill-rule=\"evenodd\"/>\n",
             width, height, left, -top, name, path_text(outline), size / 250.0) +
         dimensions_text(dimension_lines_of(section), f) +
         fmt::format(
             "  <path d=\"M{0:.4g} 0 H{1:.4g} M0 {0:.4g} V{1:.4g}\" stroke=\"#c02020\" "
             "stroke-width=\"{2:.4g}\"><title>centroid</title></path>\n"
             "  <circle cx=\"{3:.4g}\" cy=\"{4:.4g}\" r=\"{1:.4g}\" fill=\"none\" "
             "stroke=\"#2060c0\" stroke-width=\"{2:.4g}\"><title>shear centre</title></circle>\n"
             "  <text x=\"{5:.4g}\" y=\"{6:.4g}\" font-family=\"sans-serif\" font-size=\"{7:.4g}\" "
             "text-anchor=\"middle\">{8}</text>\n"
             "</svg>\n",
             -mark, mark, size / 250.0, shear_y, -shear_z, left + width / 2.0,
             -top + height - 0.5 * row, font_size, name);
}

}  // namespace aluframe::section
