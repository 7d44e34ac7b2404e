#include "aluframe/area_loads/panels.h"

#include <algorithm>
#include <cmath>
#include <map>
#include <set>
#include <utility>

#include "aluframe/area_loads/fault.h"
#include "aluframe/area_loads/one_way.h"
#include "aluframe/texts/text.h"

namespace aluframe::area_loads {

namespace {

/// Grows from −2 to 2 as the angle of a direction does from −π to π, without an angle worked out:
/// the same digits on every machine.
double turn_of(Point2 direction) {
  const double size = std::abs(direction.x) + std::abs(direction.y);
  if (size == 0.0) return 0.0;
  const double rise = direction.y / size;
  if (direction.x >= 0.0) return rise;
  return direction.y >= 0.0 ? 2.0 - rise : -2.0 - rise;
}

/// Points, those nearer to one another than a distance being one.
class Corners {
 public:
  explicit Corners(double near) : near_(near) {}

  /// Place of the point among the corners.
  std::size_t place_of(Point2 point) {
    const Cell cell = cell_of(point);
    for (const double i : {-1.0, 0.0, 1.0}) {
      for (const double j : {-1.0, 0.0, 1.0}) {
        const auto known = known_in({cell.first + i, cell.second + j}, point);
        if (known) return *known;
      }
    }
    points_.push_back(point);
    cells_[cell].push_back(points_.size() - 1);
    return points_.size() - 1;
  }
  const std::vector<Point2>& points() const { return points_; }

 private:
  /// Column and row of a square as wide as the distance; no whole numbers are large enough for all.
  using Cell = std::pair<double, double>;

  Cell cell_of(Point2 point) const {
    return {std::floor(point.x / near_), std::floor(point.y / near_)};
  }

  std::optional<std::size_t> known_in(const Cell& cell, Point2 point) const {
    const auto found = cells_.find(cell);
    if (found == cells_.end()) return std::nullopt;
    for (const std::size_t known : found->second) {
      if (distance(points_[known], point) <= near_) return known;
    }
    return std::nullopt;
  }

  double near_;
  std::vector<Point2> points_;
  std::map<Cell, std::vector<std::size_t>> cells_;
};

/// For every carrier the parts at which others meet or cross it.
class Cuts {
 public:
  Cuts(const std::vector<Carrier>& carriers, double near)
      : carriers_(carriers), near_(near), parts_(carriers.size(), {0.0, 1.0}) {
    for_each_close_pair(carriers, near, [this](std::size_t i, std::size_t j) { cut(i, j); });
  }
  void cut_by(const Polygon& region) {
    for (std::size_t i = 0; i < parts_.size(); ++i) {
      append_crossings(carriers_[i], region, near_, parts_[i]);
    }
  }
  std::vector<double> of(std::size_t carrier) const { return rising(parts_[carrier]); }

 private:
  void cut(std::size_t i, std::size_t j) {
    const Carrier& a = carriers_[i];
    const Carrier& b = carriers_[j];
    for (const Point2 end : {b.start, b.end}) append_touching(a, end, near_, parts_[i]);
    for (const Point2 end : {a.start, a.end}) append_touching(b, end, near_, parts_[j]);
    if (const auto part = crossing_part(a.start, a.end, b.start, b.end)) {
      parts_[i].push_back(*part);
      append_touching(b, a.at(*part), near_, parts_[j]);
    }
  }

  const std::vector<Carrier>& carriers_;
  double near_;
  std::vector<std::vector<double>> parts_;
};

/// Corners and the pieces of carriers between them, as a plane graph.
class Graph {
 public:
  Graph(const std::vector<Carrier>& carriers, const std::optional<Polygon>& region, double near)
      : corners_(near) {
    Cuts cuts(carriers, near);
    if (region) cuts.cut_by(*region);
    for (const Carrier& carrier : carriers) {
      corners_.place_of(carrier.start);
      corners_.place_of(carrier.end);
    }
    for (std::size_t i = 0; i < carriers.size(); ++i) add(carriers[i], cuts.of(i), region, near);
    drop_free_ends();
    for (auto& [corner, others] : next_) sort_around(corner, others);
  }

  std::vector<Panel> panels() const {
    std::set<std::pair<std::size_t, std::size_t>> met;
    std::vector<Panel> out;
    for (const auto& [corner, others] : next_) {
      for (const std::size_t other : others) {
        if (met.contains({corner, other})) continue;
        Panel panel = trace(corner, other, met);
        if (signed_area(panel.corners) > 0.0) out.push_back(std::move(panel));
      }
    }
    return out;
  }

  std::vector<Point2> points() const {
    std::vector<Point2> out;
    for (const auto& [corner, others] : next_) out.push_back(corners_.points()[corner]);
    return out;
  }

 private:
  using Edge = std::pair<std::size_t, std::size_t>;  ///< the smaller corner first

  void add(const Carrier& carrier, const std::vector<double>& parts,
           const std::optional<Polygon>& region, double near) {
    std::size_t from = corners_.place_of(carrier.start);
    for (std::size_t i = 0; i + 1 < parts.size(); ++i) {
      const std::size_t to = corners_.place_of(carrier.at(parts[i + 1]));
      const Point2 middle = carrier.at(0.5 * (parts[i] + parts[i + 1]));
      if (to != from && (!region || contains(*region, middle, near))) {
        Carrier piece = carrier.piece(parts[i], parts[i + 1]);
        join(from, to, piece);
      }
      from = to;
    }
  }

  /// Keeps the piece in the direction from the smaller corner to the larger one.
  void join(std::size_t from, std::size_t to, const Carrier& piece) {
    auto& pieces = pieces_[std::minmax(from, to)];
    if (pieces.empty()) {
      next_[from].push_back(to);
      next_[to].push_back(from);
    }
    pieces.push_back(from < to ? piece : piece.piece(1.0, 0.0));
  }

  void drop_free_ends() {
    std::vector<std::size_t> free;
    for (const auto& [corner, others] : next_) {
      if (others.size() == 1) free.push_back(corner);
    }
    while (!free.empty()) {
      const std::size_t corner = free.back();
      free.pop_back();
      const auto found = next_.find(corner);
      if (found == next_.end()) continue;
      for (const std::size_t other : found->second) {
        auto& back = next_.at(other);
        std::erase(back, corner);
        if (back.size() == 1) free.push_back(other);
        if (back.empty()) next_.erase(other);
      }
      next_.erase(corner);
    }
  }

  /// Counterclockwise.
  void sort_around(std::size_t corner, std::vector<std::size_t>& others) const {
    const auto& points = corners_.points();
    std::ranges::sort(others, {},
                      [&](std::size_t other) { return turn_of(points[other] - points[corner]); });
  }

  /// The corner behind `to` on the way round the panel at the left.
  std::size_t behind(std::size_t from, std::size_t to) const {
    const auto& others = next_.at(to);
    const auto back = std::ranges::find(others, from);
    return back == others.begin() ? others.back() : *(back - 1);
  }

  Panel trace(std::size_t from, std::size_t to, std::set<Edge>& met) const {
    Panel panel;
    while (met.emplace(from, to).second) {
      panel.corners.push_back(corners_.points()[from]);
      panel.edges.push_back(along(from, to));
      from = std::exchange(to, behind(from, to));
    }
    return panel;
  }

  std::vector<Carrier> along(std::size_t from, std::size_t to) const {
    std::vector<Carrier> pieces = pieces_.at(std::minmax(from, to));
    for (Carrier& piece : pieces) {
      if (from > to) piece = piece.piece(1.0, 0.0);
      // Joined ends are where the corner is.
      piece.start = corners_.points()[from];
      piece.end = corners_.points()[to];
    }
    return pieces;
  }

  Corners corners_;
  std::map<std::size_t, std::vector<std::size_t>> next_;
  std::map<Edge, std::vector<Carrier>> pieces_;
};

/// Whether a point lies within a panel, off its edges.
bool is_within(const Panel& panel, Point2 point, double near) {
  for (std::size_t i = 0; i < panel.corners.size(); ++i) {
    const Point2 end = panel.corners[(i + 1) % panel.corners.size()];
    if (distance_from(point, panel.corners[i], end) <= near) return false;
  }
  return contains(panel.corners, point, 0.0);
}

/// Throws Fault when a corner of one panel lies within another.
void require_none_within(const std::vector<Panel>& panels, const std::vector<Point2>& points,
                         double near, const Plane& plane) {
  for (const Panel& panel : panels) {
    const auto [left, right] = std::ranges::minmax(panel.corners, {}, &Point2::x);
    const auto [low, high] = std::ranges::minmax(panel.corners, {}, &Point2::y);
    for (const Point2 point : points) {
      if (point.x < left.x || point.x > right.x || point.y < low.y || point.y > high.y) continue;
      if (!is_within(panel, point, near)) continue;
      throw Fault{"/elements",
                  texts::translated("the elements at {} stand within a panel without reaching its "
                                    "edges",
                                    place_text(plane, point))};
    }
  }
}

}  // namespace

std::vector<Panel> panels_between(const std::vector<Carrier>& carriers,
                                  const std::optional<Polygon>& region, double near,
                                  const Plane& plane) {
  const Graph graph(carriers, region, near);
  std::vector<Panel> panels = graph.panels();
  require_none_within(panels, graph.points(), near, plane);
  return panels;
}

}  // namespace aluframe::area_loads
