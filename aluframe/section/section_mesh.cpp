#include "aluframe/section/section_mesh.h"

#include <algorithm>
#include <cmath>
#include <map>
#include <numbers>
#include <utility>

#include "aluframe/elementary/functions.h"
#include "aluframe/section/shapes.h"

namespace aluframe::section {

namespace {

using model::Shape;

struct Rectangle {
  double left, right, bottom, top;
};

/// Levels that are closer than this share of the depth are one.
constexpr double same_level = 1e-9;
/// A cell is at most this much longer than its neighbour nearer to a corner.
constexpr double growth = 1.5;

std::vector<Rectangle> rectangles_of(const model::Section& section) {
  const Dimensions d = dimensions_of(section);
  const double top = d.h / 2.0;
  const double bottom = -d.h / 2.0;
  const double under_top = top - d.tf1;
  const double over_bottom = bottom + d.tf2;
  switch (section.shape) {
    case Shape::channel:
    case Shape::double_channel:
      return {{0.0, d.b1, under_top, top},
              {0.0, d.tw, over_bottom, under_top},
              {0.0, d.b2, bottom, over_bottom}};
    case Shape::h_section:
      return {{-d.b1 / 2.0, d.b1 / 2.0, under_top, top},
              {-d.tw / 2.0, d.tw / 2.0, over_bottom, under_top},
              {-d.b2 / 2.0, d.b2 / 2.0, bottom, over_bottom}};
    case Shape::tee:
      return {{-d.b1 / 2.0, d.b1 / 2.0, under_top, top},
              {-d.tw / 2.0, d.tw / 2.0, bottom, under_top}};
    case Shape::box: {
      const double inner = (d.c - d.tw) / 2.0;
      const double outer = std::min((d.c + d.tw) / 2.0, d.b1 / 2.0);
      return {{-d.b1 / 2.0, d.b1 / 2.0, under_top, top},
              {-outer, -inner, over_bottom, under_top},
              {inner, outer, over_bottom, under_top},
              {-d.b2 / 2.0, d.b2 / 2.0, bottom, over_bottom}};
    }
    default:
      return {};
  }
}

/// The ends of all rectangles along one axis, in order.
std::vector<double> levels_of(std::vector<double> ends, double depth) {
  std::ranges::sort(ends);
  std::vector<double> levels;
  for (const double end : ends) {
    if (levels.empty() || end - levels.back() > same_level * depth) levels.push_back(end);
  }
  return levels;
}

/// Cuts one interval: cells of size `smallest` at both ends, growing towards the middle.
void cut_interval(double from, double to, double smallest, std::vector<double>& cuts) {
  const double half = (to - from) / 2.0;
  std::vector<double> steps;
  double reached = 0.0;
  for (double step = smallest; reached < half; step *= growth) {
    steps.push_back(step);
    reached += step;
  }
  const double scale = half / reached;
  double at = from;
  for (const double step : steps) cuts.push_back(at += step * scale);
  std::ranges::reverse(steps);
  for (const double step : steps) cuts.push_back(at += step * scale);
  cuts.back() = to;
}

std::vector<double> cuts_of(const std::vector<double>& levels, double smallest) {
  std::vector<double> cuts{levels.front()};
  for (std::size_t i = 1; i < levels.size(); ++i) {
    cut_interval(levels[i - 1], levels[i], smallest, cuts);
  }
  return cuts;
}

/// Numbers the points of a grid of half cells as they are used.
class GridPoints {
 public:
  explicit GridPoints(SectionMesh& mesh) : mesh_(mesh) {}

  std::size_t number(std::size_t column, std::size_t row, SectionMesh::Point point) {
    const auto [entry, is_new] = numbers_.try_emplace({column, row}, mesh_.points.size());
    if (is_new) mesh_.points.push_back(point);
    return entry->second;
  }

 private:
  SectionMesh& mesh_;
  std::map<std::pair<std::size_t, std::size_t>, std::size_t> numbers_;
};

/// Place `i` of the grid of cells and their middles.
double half_cell(const std::vector<double>& cuts, std::size_t i) {
  return i % 2 == 0 ? cuts[i / 2] : (cuts[i / 2] + cuts[i / 2 + 1]) / 2.0;
}

SectionMesh mesh_of_rectangles(const std::vector<Rectangle>& rectangles, int across) {
  std::vector<double> ys;
  std::vector<double> zs;
  double thinnest = rectangles.front().right - rectangles.front().left;
  for (const Rectangle& r : rectangles) {
    ys.insert(ys.end(), {r.left, r.right});
    zs.insert(zs.end(), {r.bottom, r.top});
    thinnest = std::min({thinnest, r.right - r.left, r.top - r.bottom});
  }
  const double depth = std::ranges::max(zs) - std::ranges::min(zs);
  const double smallest = thinnest / across;
  const std::vector<double> columns = cuts_of(levels_of(ys, depth), smallest);
  const std::vector<double> rows = cuts_of(levels_of(zs, depth), smallest);
  const auto is_inside = [&](double y, double z) {
    return std::ranges::any_of(rectangles, [&](const Rectangle& r) {
      return y > r.left && y < r.right && z > r.bottom && z < r.top;
    });
  };

  SectionMesh mesh;
  GridPoints points(mesh);
  for (std::size_t i = 0; i + 1 < columns.size(); ++i) {
    for (std::size_t j = 0; j + 1 < rows.size(); ++j) {
      if (!is_inside(half_cell(columns, 2 * i + 1), half_cell(rows, 2 * j + 1))) continue;
      SectionMesh::Cell cell;
      for (std::size_t k = 0; k < cell.size(); ++k) {
        const std::size_t column = 2 * i + k % 3;
        const std::size_t row = 2 * j + k / 3;
        cell[k] = points.number(column, row, {half_cell(columns, column), half_cell(rows, row)});
      }
      mesh.cells.push_back(cell);
    }
  }
  return mesh;
}

/// A ring of cells between two radii; of a solid round the innermost cells have a side of length 0,
/// which the integration never meets.
SectionMesh mesh_of_ring(double inner, double outer, int across) {
  constexpr std::size_t around = 24;
  SectionMesh mesh;
  GridPoints points(mesh);
  const auto layers = static_cast<std::size_t>(across);
  const auto point = [&](std::size_t column, std::size_t row) {
    const double angle = std::numbers::pi * static_cast<double>(column) / around;
    const double radius =
        inner + (outer - inner) * static_cast<double>(row) / static_cast<double>(2 * layers);
    return SectionMesh::Point{radius * elementary::cosine(angle), radius * elementary::sine(angle)};
  };
  for (std::size_t i = 0; i < around; ++i) {
    for (std::size_t j = 0; j < layers; ++j) {
      SectionMesh::Cell cell;
      for (std::size_t k = 0; k < cell.size(); ++k) {
        const std::size_t row = 2 * j + k / 3;
        const bool is_centre = inner == 0.0 && row == 0;
        const std::size_t column = is_centre ? 0 : (2 * i + k % 3) % (2 * around);
        cell[k] = points.number(column, row, point(column, row));
      }
      mesh.cells.push_back(cell);
    }
  }
  return mesh;
}

}  // namespace

SectionMesh mesh_of(const model::Section& section, int across) {
  const Dimensions d = dimensions_of(section);
  if (section.shape == Shape::pipe) return mesh_of_ring(d.h / 2.0 - d.tw, d.h / 2.0, across);
  if (section.shape == Shape::solid_round) return mesh_of_ring(0.0, d.h / 2.0, across);
  return mesh_of_rectangles(rectangles_of(section), across);
}

}  // namespace aluframe::section
