#include "aluframe/section/dimensions_svg.h"

#include <fmt/format.h>

#include <algorithm>

namespace aluframe::section {

namespace {

/// Parts of the larger size of the section.
constexpr double letters_share = 0.045, line_share = 0.0025;

/// Lines and letters of the dimensions. SVG counts downwards, so z changes its sign.
/// How letters run.
enum class Letters { level, upwards };

class DimensionPainter {
 public:
  DimensionPainter(const DrawnFrame& frame, double size)
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
    switch (line.kind) {
      case Kind::above:
        return add_across(line, frame_.top + row_);
      case Kind::below:
        return add_across(line, frame_.bottom - row_);
      case Kind::beside:
        return add_beside(line, frame_.left - row_);
      case Kind::thickness:
        return add_thickness(line, frame_.right + 0.5 * row_);
      case Kind::wall:
        return add_wall(line);
    }
  }

  void add_beside(const DimensionLine& line, double y) {
    add_line(line.level, line.from, y - arrow_, line.from);
    add_line(line.level, line.to, y - arrow_, line.to);
    add_line(y, line.from, y, line.to);
    add_arrow(y, line.from, 0, -1);
    add_arrow(y, line.to, 0, 1);
    add_letters(line.text, y - 0.25 * row_, 0.5 * (line.from + line.to), "middle",
                Letters::upwards);
  }

  void add_thickness(const DimensionLine& line, double y) {
    add_line(line.level, line.from, y + arrow_, line.from);
    add_line(line.level, line.to, y + arrow_, line.to);
    add_from_outside(y, line.from, 0, 1);
    add_from_outside(y, line.to, 0, -1);
    add_letters(line.text, y + 2.0 * arrow_, 0.5 * (line.from + line.to), "start");
  }

  void add_wall(const DimensionLine& line) {
    add_from_outside(line.from, line.level, 1, 0);
    add_from_outside(line.to, line.level, -1, 0);
    add_letters(line.text, line.to + 3.5 * arrow_, line.level, "start");
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
    add_letters(line.text, middle, level + above * letters_share * size_ + 0.5 * beyond, "middle");
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

  void add_letters(const std::string& text, double y, double z, const char* anchor,
                   Letters letters = Letters::level) {
    const double font_size = letters_share * size_;
    const std::string turn = letters == Letters::upwards
                                 ? fmt::format(" transform=\"rotate(-90 {:.4g} {:.4g})\"", y, -z)
                                 : "";
    const double drop = letters == Letters::upwards ? 0.0 : 0.36 * font_size;
    letters_ += fmt::format(
        "  <text x=\"{:.4g}\" y=\"{:.4g}\" font-family=\"sans-serif\" font-size=\"{:.4g}\" "
        "text-anchor=\"{}\" fill=\"#202020\"{}>{}</text>\n",
        y, -z + drop, font_size, anchor, turn, text);
  }

  DrawnFrame frame_;
  double size_, row_, arrow_;
  std::string path_, letters_;
};

}  // namespace

std::string dimensions_text(const std::vector<DimensionLine>& lines, const DrawnFrame& frame) {
  const double size = std::max(frame.right - frame.left, frame.top - frame.bottom);
  return DimensionPainter(frame, size).text_of(lines);
}

}  // namespace aluframe::section
