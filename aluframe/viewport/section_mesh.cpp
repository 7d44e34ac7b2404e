#include "aluframe/viewport/section_mesh.h"

#include <algorithm>
#include <cmath>
#include <numbers>

#include "aluframe/section/outline.h"

namespace aluframe::viewport {

namespace {

using Corner = SectionMesh::Corner;
using section::OutlineCorner;

Corner at(const OutlineCorner& corner) {
  return {corner.y, corner.z};
}

/// The arc that rounds a corner, which joins the edges from `before` and to `after`.
void add_arc(std::vector<Corner>& out, const Corner& before, const OutlineCorner& corner,
             const Corner& after, int pieces) {
  const Corner in = unit_of(at(corner) - before), on = unit_of(after - at(corner));
  const double turn = std::atan2(in.x * on.y - in.y * on.x, dot(in, on));
  const double tangent = corner.radius * std::tan(0.5 * std::abs(turn));
  const Corner start = at(corner) - tangent * in;
  const double side = turn > 0.0 ? 1.0 : -1.0;
  const Corner centre = start + side * corner.radius * picture::left_of(in);
  const Corner spoke = start - centre;
  for (int i = 0; i <= pieces; ++i) {
    const double angle = turn * i / pieces, c = std::cos(angle), s = std::sin(angle);
    out.push_back(centre + Corner{c * spoke.x - s * spoke.y, s * spoke.x + c * spoke.y});
  }
}

std::vector<Corner> flattened(const std::vector<OutlineCorner>& line, Rounding rounding) {
  std::vector<Corner> out;
  const std::size_t count = line.size();
  // A closed line of rounded corners alone is a circle, which is never drawn as a square.
  const bool is_circle =
      std::ranges::all_of(line, [](const OutlineCorner& corner) { return corner.radius > 0.0; });
  for (std::size_t i = 0; i < count; ++i) {
    const OutlineCorner& corner = line[i];
    if (corner.radius == 0.0 || (rounding == Rounding::sharp && !is_circle)) {
      out.push_back(at(corner));
    } else {
      const int pieces = rounding == Rounding::sharp ? 3 : is_circle ? 8 : 4;
      add_arc(out, at(line[(i + count - 1) % count]), corner, at(line[(i + 1) % count]), pieces);
    }
  }
  const auto is_near = [](const Corner& a, const Corner& b) { return length_of(a - b) < 1e-9; };
  out.erase(std::ranges::unique(out, is_near).begin(), out.end());
  if (out.size() > 1 && is_near(out.front(), out.back())) out.pop_back();
  return out;
}

/// Where an edge is at a level.
struct Crossing {
  double middle;       ///< at half the height of the strip
  double bottom, top;  ///< at its lower and upper end
};

/// The parts of the edges within a strip that no corner lies in, from left to right.
std::vector<Crossing> crossings(const std::vector<std::vector<Corner>>& edges, double low,
                                double high) {
  std::vector<Crossing> out;
  const double middle = 0.5 * (low + high);
  for (const auto& line : edges) {
    for (std::size_t i = 0; i < line.size(); ++i) {
      const Corner &a = line[i], &b = line[(i + 1) % line.size()];
      if ((a.y <= middle) == (b.y <= middle)) continue;
      const auto x_at = [&](double level) {
        return std::lerp(a.x, b.x, std::clamp((level - a.y) / (b.y - a.y), 0.0, 1.0));
      };
      out.push_back({x_at(middle), x_at(low), x_at(high)});
    }
  }
  std::ranges::sort(out, {}, &Crossing::middle);
  return out;
}

/// Fills closed edges strip by strip: between two levels of corners the material is trapezoids.
std::vector<std::array<Corner, 3>> filled(const std::vector<std::vector<Corner>>& edges) {
  std::vector<double> levels;
  for (const auto& line : edges) {
    for (const Corner& corner : line) levels.push_back(corner.y);
  }
  std::ranges::sort(levels);
  constexpr double same = 1e-9;
  levels.erase(std::ranges::unique(levels, [](double a, double b) { return b - a < same; }).begin(),
               levels.end());
  std::vector<std::array<Corner, 3>> out;
  for (std::size_t i = 1; i < levels.size(); ++i) {
    const double low = levels[i - 1], high = levels[i];
    const std::vector<Crossing> cuts = crossings(edges, low, high);
    for (std::size_t k = 0; k + 1 < cuts.size(); k += 2) {
      const Crossing &left = cuts[k], &right = cuts[k + 1];
      out.push_back({Corner{left.bottom, low}, {right.bottom, low}, {right.top, high}});
      out.push_back({Corner{left.bottom, low}, {right.top, high}, {left.top, high}});
    }
  }
  return out;
}

std::vector<std::vector<Corner>> rectangle_around(const model::GivenProperties& given) {
  constexpr std::array<double, 4> none{};
  const auto [left, right] = std::ranges::minmax(given.point_y.value_or(none));
  const auto [bottom, top] = std::ranges::minmax(given.point_z.value_or(none));
  return {{{left, bottom}, {right, bottom}, {right, top}, {left, top}}};
}

}  // namespace

double SectionMesh::reach() const {
  double reach = 0.0;
  for (const auto& line : edges) {
    for (const Corner& corner : line) reach = std::max(reach, length_of(corner));
  }
  return reach;
}

SectionMesh section_mesh(const model::Section& section, Rounding rounding) {
  SectionMesh out;
  if (section.shape == model::Shape::other) {
    out.edges = rectangle_around(section.given);
  } else {
    for (const auto& line : section::outline_of(section)) {
      out.edges.push_back(flattened(line, rounding));
    }
  }
  out.triangles = filled(out.edges);
  return out;
}

}  // namespace aluframe::viewport
