#include "aluframe/section/text_sketch.h"

#include <algorithm>
#include <cmath>
#include <span>
#include <vector>

#include "aluframe/elementary/functions.h"
#include "aluframe/section/outline.h"
#include "aluframe/section/section_properties.h"
#include "aluframe/section/shapes.h"

namespace aluframe::section {

namespace {

constexpr double most_rows = 16.0;
constexpr double most_columns = 44.0;
/// Levels that are closer than this share of the section are one.
constexpr double same_level = 1e-9;

struct Mark {
  double y, z;
};

/// An axis cut at the edges of plates; between two cuts lie as many characters as find room, and at
/// least one, so that equal plates look equal and none is lost.
class Axis {
 public:
  Axis(std::vector<double> levels, double character) {
    std::ranges::sort(levels);
    const double same = same_level * (levels.back() - levels.front());
    for (std::size_t i = 0; i + 1 < levels.size(); ++i) {
      const double gap = levels[i + 1] - levels[i];
      if (gap <= same) continue;
      const auto count = static_cast<std::size_t>(std::max(1L, std::lround(gap / character)));
      for (std::size_t k = 0; k < count; ++k) {
        const double share = static_cast<double>(k) / static_cast<double>(count);
        begins_.push_back(levels[i] + share * gap);
      }
    }
    end_ = levels.back();
  }

  std::size_t size() const { return begins_.size(); }
  double middle(std::size_t i) const {
    return (begins_[i] + (i + 1 < size() ? begins_[i + 1] : end_)) / 2.0;
  }
  /// The character that a place lies in.
  std::size_t at(double place) const {
    const auto after = std::ranges::upper_bound(begins_, place);
    return static_cast<std::size_t>(std::max<std::ptrdiff_t>(0, after - begins_.begin() - 1));
  }

 private:
  std::vector<double> begins_;
  double end_ = 0.0;
};

/// Whether a point is inside of an odd number of lines.
bool is_material(const Outline& outline, double y, double z) {
  bool inside = false;
  for (const auto& line : outline) {
    for (std::size_t i = 0; i < line.size(); ++i) {
      const OutlineCorner& a = line[i];
      const OutlineCorner& b = line[(i + 1) % line.size()];
      if ((a.z > z) == (b.z > z)) continue;
      if (y < a.y + (z - a.z) / (b.z - a.z) * (b.y - a.y)) inside = !inside;
    }
  }
  return inside;
}

/// Lines of characters from the top down, '#' where `is_filled` says so.
template <class Filled>
std::vector<std::string> drawn(const Axis& ys, const Axis& zs, Filled is_filled) {
  std::vector<std::string> rows;
  for (std::size_t j = zs.size(); j-- > 0;) {
    std::string& row = rows.emplace_back(ys.size(), ' ');
    for (std::size_t i = 0; i < ys.size(); ++i) {
      if (is_filled(ys.middle(i), zs.middle(j))) row[i] = '#';
    }
  }
  return rows;
}

std::string marked(std::vector<std::string> rows, const Axis& ys, const Axis& zs, Mark shear) {
  const auto at = [&](Mark mark) -> char& {
    return rows[zs.size() - 1 - zs.at(mark.z)][ys.at(mark.y)];
  };
  char& centroid = at({0.0, 0.0});
  centroid = '+';
  char& centre = at(shear);
  centre = &centre == &centroid ? '*' : 'o';
  std::string text;
  for (std::string& row : rows) {
    row.erase(row.find_last_not_of(' ') + 1);
    text += row + "\n";
  }
  return text;
}

/// Size of a character along z that fits a section into the drawing.
double character_of(double width, double depth) {
  return std::max(depth / most_rows, 2.0 * width / most_columns);
}

std::string plated_sketch(const model::Section& section, Mark shear) {
  const Outline outline = outline_of(section);
  std::vector<double> y_levels{shear.y};
  std::vector<double> z_levels{shear.z};
  for (const auto& line : outline) {
    for (const OutlineCorner& corner : line) {
      y_levels.push_back(corner.y);
      z_levels.push_back(corner.z);
    }
  }
  const auto [left, right] = std::ranges::minmax(y_levels);
  const auto [bottom, top] = std::ranges::minmax(z_levels);
  const double character = character_of(right - left, top - bottom);
  // The shear centre only widens the frame: inside it must not cut a plate in two.
  y_levels.front() = std::min(left, shear.y < left ? shear.y - character / 4.0 : left);
  z_levels.front() = bottom;
  const Axis ys(std::move(y_levels), character / 2.0);
  const Axis zs(std::move(z_levels), character);
  return marked(drawn(ys, zs, [&](double y, double z) { return is_material(outline, y, z); }), ys,
                zs, shear);
}

std::string round_sketch(const Dimensions& d) {
  const double radius = d.h / 2.0;
  const double character = character_of(d.h, d.h);
  const double inner = d.tw > 0.0 ? std::min(radius - d.tw, radius - character) : -1.0;
  const Axis ys({-radius, radius}, character / 2.0);
  const Axis zs({-radius, radius}, character);
  const auto is_filled = [&](double y, double z) {
    const double distance = elementary::hypotenuse(y, z);
    return distance <= radius && distance > inner;
  };
  return marked(drawn(ys, zs, is_filled), ys, zs, {0.0, 0.0});
}

}  // namespace

std::string text_sketch_of(const model::Section& section) {
  model::Section plain = section;
  plain.given = {};
  const Dimensions d = dimensions_of(plain);
  if (plain.shape == model::Shape::pipe || plain.shape == model::Shape::solid_round) {
    return round_sketch(d);
  }
  if (d.r1 > 0.0 || d.r2 > 0.0) plain.dimensions[6] = plain.dimensions[7] = 0.0;
  const model::SectionProperties properties = properties_of(plain);
  return plated_sketch(plain, {properties.shear_centre_y, properties.shear_centre_z});
}

}  // namespace aluframe::section
