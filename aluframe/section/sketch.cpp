#include "aluframe/section/sketch.h"

#include <fmt/format.h>

#include <algorithm>
#include <cmath>

#include "aluframe/section/outline.h"
#include "aluframe/section/section_properties.h"

namespace aluframe::section {

namespace {

/// Free space around the material, as a share of the larger size.
constexpr double margin_share = 0.15;
/// Width of a letter, of which few are wider, as a share of the font's size.
constexpr double letter_width = 0.7;

struct Direction {
  double y, z, length;
};

Direction direction(const OutlineCorner& from, const OutlineCorner& to) {
  const double y = to.y - from.y;
  const double z = to.z - from.z;
  const double length = std::hypot(y, z);
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

struct Frame {
  double left, right, bottom, top;
};

Frame frame_of(const Outline& outline, double shear_y, double shear_z) {
  Frame frame{shear_y, shear_y, shear_z, shear_z};
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

std::string escaped(const std::string& text) {
  std::string out;
  for (const char c : text) {
    if (c == '&')
      out += "&amp;";
    else if (c == '<')
      out += "&lt;";
    else if (c == '>')
      out += "&gt;";
    else
      out += c;
  }
  return out;
}

}  // namespace

std::string sketch_of(const model::Section& section) {
  const Outline outline = outline_of(section);
  const model::SectionProperties properties = properties_of(section);
  const double shear_y = properties.shear_centre_y;
  const double shear_z = properties.shear_centre_z;
  const Frame f = frame_of(outline, shear_y, shear_z);
  const double size = std::max(f.right - f.left, f.top - f.bottom);
  const double margin = margin_share * size;
  const double mark = size / 40.0;
  const double width = f.right - f.left + 2.0 * margin;
  const double height = f.top - f.bottom + 3.0 * margin;
  const double letters =
      letter_width * static_cast<double>(std::max<std::size_t>(1, section.name.size()));
  const double font_size = std::min(0.5 * margin, width / letters);
  return fmt::format(
      "<svg xmlns=\"http://www.w3.org/2000/svg\" style=\"background:white\" width=\"{0:.4g}mm\" "
      "height=\"{1:.4g}mm\" "
      "viewBox=\"{2:.6g} {3:.6g} {0:.6g} {1:.6g}\">\n"
      "  <path d=\"{4}\" fill=\"#b8c4d0\" stroke=\"#203040\" stroke-width=\"{5:.4g}\" "
      "fill-rule=\"evenodd\"/>\n"
      "  <path d=\"M{6:.4g} 0 H{7:.4g} M0 {6:.4g} V{7:.4g}\" stroke=\"#c02020\" "
      "stroke-width=\"{5:.4g}\"><title>centroid</title></path>\n"
      "  <circle cx=\"{8:.4g}\" cy=\"{9:.4g}\" r=\"{7:.4g}\" fill=\"none\" stroke=\"#2060c0\" "
      "stroke-width=\"{5:.4g}\"><title>shear centre</title></circle>\n"
      "  <text x=\"{10:.4g}\" y=\"{11:.4g}\" font-family=\"sans-serif\" font-size=\"{12:.4g}\" "
      "text-anchor=\"middle\">{13}</text>\n"
      "</svg>\n",
      width, height, f.left - margin, -f.top - margin, path_text(outline), size / 250.0, -mark,
      mark, shear_y, -shear_z, (f.left + f.right) / 2.0, -f.bottom + 1.2 * margin, font_size,
      escaped(section.name));
}

}  // namespace aluframe::section
