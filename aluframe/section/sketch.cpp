#include "aluframe/section/sketch.h"

#include <fmt/format.h>

#include <algorithm>
#include <cmath>

#include "aluframe/model/xml_text.h"
#include "aluframe/section/dimension_lines.h"
#include "aluframe/section/outline.h"
#include "aluframe/section/section_properties.h"

namespace aluframe::section {

namespace {

/// Parts of the larger size of the section.
constexpr double letters_share = 0.045, row_share = 0.09, side_share = 0.26, line_share = 0.0025;
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

/// The rectangle around a section and its shear centre, z up.
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

/// Lines and letters of the dimensions. SVG counts downwards, so z changes its sign.
class DimensionPainter {
 public:
  DimensionPainter(const Frame& frame, double size)
      : frame_(frame), size_(size), row_(row_share * size), arrow_(0.02 * size) {}

  std::string text_of(const std::vector<DimensionLine>& lines) {
    for (const DimensionLine& line : lines) add(line);
    return fmt::format(
               "  <path d=\"{}\" fill=\"none\" stroke=\"#404040\" stroke-width=\"{:.4g}\"/>\n",
               path_, line_share * size_) +
           letters_;
  }

 private:
  void add(const DimensionLine& line) {
    using Kind = DimensionLine::Kind;
    const double middle = 0.5 * (line.from + line.to);
    switch (line.kind) {
      case Kind::above:
        return add_across(line, frame_.top + row_);
      case Kind::below:
        return add_across(line, frame_.bottom - row_);
      case Kind::beside: {
        const double y = frame_.left - row_;
        add_line(line.level, line.from, y - arrow_, line.from);
        add_line(line.level, line.to, y - arrow_, line.to);
        add_line(y, line.from, y, line.to);
        add_arrow(y, line.from, 0, -1);
        add_arrow(y, line.to, 0, 1);
        return add_letters(line.text, y - 0.25 * row_, middle, "middle", true);
      }
      case Kind::thickness: {
        const double y = frame_.right + 0.5 * row_;
        add_line(line.level, line.from, y + arrow_, line.from);
        add_line(line.level, line.to, y + arrow_, line.to);
        add_from_outside(y, line.from, 0, 1);
        add_from_outside(y, line.to, 0, -1);
        return add_letters(line.text, y + 2.0 * arrow_, middle, "start", false);
      }
      case Kind::wall:
        add_from_outside(line.from, line.level, 1, 0);
        add_from_outside(line.to, line.level, -1, 0);
        return add_letters(line.text, line.to + 3.5 * arrow_, line.level, "start", false);
    }
  }

  /// A dimension along y at a level, with extension lines from the section.
  void add_across(const DimensionLine& line, double level) {
    const double beyond = level > line.level ? arrow_ : -arrow_;
    add_line(line.from, line.level, line.from, level + beyond);
    add_line(line.to, line.level, line.to, level + beyond);
    const double middle = 0.5 * (line.from + line.to);
    if (line.to - line.from > 5.0 * arrow_) {
      add_line(line.from, level, line.to, level);
      add_arrow(line.from, level, -1, 0);
      add_arrow(line.to, level, 1, 0);
    } else {
      add_from_outside(line.from, level, 1, 0);
      add_from_outside(line.to, level, -1, 0);
    }
    const double above = level > line.level ? 0.6 : -0.6;
    add_letters(line.text, middle, level + above * letters_share * size_ + 0.5 * beyond, "middle",
                false);
  }

  /// An arrow from outside to a face, for what is too thin for arrows within.
  void add_from_outside(double y, double z, double towards_y, double towards_z) {
    add_line(y - 3.0 * arrow_ * towards_y, z - 3.0 * arrow_ * towards_z, y, z);
    add_arrow(y, z, towards_y, towards_z);
  }

  void add_line(double from_y, double from_z, double to_y, double to_z) {
    path_ += fmt::format("M{:.4g} {:.4g} L{:.4g} {:.4g} ", from_y, -from_z, to_y, -to_z);
  }

  void add_arrow(double y, double z, double towards_y, double towards_z) {
    const double back_y = y - arrow_ * towards_y, back_z = z - arrow_ * towards_z;
    constexpr double half_width = 0.3;
    for (const double side : {-half_width, half_width}) {
      add_line(y, z, back_y - side * arrow_ * towards_z, back_z + side * arrow_ * towards_y);
    }
  }

  void add_letters(const std::string& text, double y, double z, const char* anchor, bool upwards) {
    const double font_size = letters_share * size_;
    const std::string turn =
        upwards ? fmt::format(" transform=\"rotate(-90 {:.4g} {:.4g})\"", y, -z) : "";
    const double drop = upwards ? 0.0 : 0.36 * font_size;
    letters_ += fmt::format(
        "  <text x=\"{:.4g}\" y=\"{:.4g}\" font-family=\"sans-serif\" font-size=\"{:.4g}\" "
        "text-anchor=\"{}\" fill=\"#202020\"{}>{}</text>\n",
        y, -z + drop, font_size, anchor, turn, text);
  }

  Frame frame_;
  double size_, row_, arrow_;
  std::string path_, letters_;
};

}  // namespace

std::string sketch_of(const model::Section& section) {
  const Outline outline = outline_of(section);
  const model::SectionProperties properties = properties_of(section);
  const double shear_y = properties.shear_centre_y;
  const double shear_z = properties.shear_centre_z;
  const Frame f = frame_of(outline, shear_y, shear_z);
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
         DimensionPainter(f, size).text_of(dimension_lines_of(section)) +
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
