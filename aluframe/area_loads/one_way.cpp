#include "aluframe/area_loads/one_way.h"

#include <fmt/format.h>

#include <algorithm>
#include <cmath>
#include <utility>

#include "aluframe/area_loads/fault.h"
#include "aluframe/texts/text.h"

namespace aluframe::area_loads {

namespace {

/// Positions across the strips, as shares of the extent, that rounding alone tells apart.
constexpr double same_position = 1e-10;

/// A value at both sides of a slab, linear between them.
struct Ends {
  double a = 0.0, b = 0.0;

  friend Ends operator+(Ends u, Ends v) { return {u.a + v.a, u.b + v.b}; }
  friend Ends operator-(Ends u, Ends v) { return {u.a - v.a, u.b - v.b}; }
  friend Ends operator*(double factor, Ends u) { return {factor * u.a, factor * u.b}; }
  double middle() const { return 0.5 * (a + b); }
};

/// Mean of the product of two linear values.
double mean_product(Ends u, Ends v) {
  return (2.0 * (u.a * v.a + u.b * v.b) + u.a * v.b + u.b * v.a) / 6.0;
}

/// A carrier or an edge of the surface, from left to right across the strips.
struct Line {
  double left = 0.0, right = 0.0;
  double y_left = 0.0, y_right = 0.0;
  const Carrier* carrier = nullptr;
  bool is_turned = false;  ///< whether the carrier starts at the right

  double part(double x) const { return (x - left) / (right - left); }
  double y(double x) const { return y_left + part(x) * (y_right - y_left); }
  Ends y(Ends x) const { return {y(x.a), y(x.b)}; }
};

/// Positions across the strips, those that rounding tells apart being one.
class Positions {
 public:
  Positions(std::vector<double> all, double same) : values_(std::move(all)) {
    std::ranges::sort(values_);
    const auto rest =
        std::ranges::unique(values_, [same](double u, double v) { return v - u <= same; });
    values_.erase(rest.begin(), rest.end());
  }
  double nearest(double x) const {
    const auto above = std::ranges::lower_bound(values_, x);
    if (above == values_.end()) return values_.back();
    if (above == values_.begin() || *above - x <= x - *(above - 1)) return *above;
    return *(above - 1);
  }
  const std::vector<double>& values() const { return values_; }

 private:
  std::vector<double> values_;
};

Line line_of(Point2 start, Point2 end, const Positions& positions, const Carrier* carrier) {
  const bool is_turned = start.x > end.x;
  if (is_turned) std::swap(start, end);
  return {positions.nearest(start.x), positions.nearest(end.x), start.y, end.y, carrier, is_turned};
}

Positions all_positions(const Polygon& polygon, std::span<const Carrier> carriers) {
  std::vector<double> all;
  for (const Point2 corner : polygon) all.push_back(corner.x);
  const auto [low, high] = std::ranges::minmax(all);
  const double same = same_position * (high - low);
  for (const Carrier& carrier : carriers) {
    all.push_back(carrier.start.x);
    all.push_back(carrier.end.x);
  }
  for_each_close_pair(carriers, 0.0, [&](std::size_t i, std::size_t j) {
    const auto part =
        crossing_part(carriers[i].start, carriers[i].end, carriers[j].start, carriers[j].end);
    if (part) all.push_back(carriers[i].at(*part).x);
  });
  return {std::move(all), same};
}

/// What the next carrier but one takes off per unit of width, so that a cantilever of the length
/// `overhang` beyond a span turns nothing: overhang² / (2·span) at both sides of the slab, plus
/// what makes the moments over the whole slab exact where these change along it.
Ends lever(Ends overhang, Ends span) {
  const auto at = [](double a, double l) { return l > 0.0 ? 0.5 * a * a / l : 0.0; };
  const Ends at_sides{at(overhang.a, span.a), at(overhang.b, span.b)};
  const double square = mean_product(span, span);
  if (!(square > 0.0)) return {};
  const double missing = 0.5 * mean_product(overhang, overhang) - mean_product(at_sides, span);
  return at_sides + (missing / square) * span;
}

/// How many times its span an overhang may be long: the relief of the next carrier, which grows
/// with its square over the span, would be a multiple of what lies on the strip.
constexpr double longest_overhang = 10.0;

/// A relief that differs from a line by less than this part of the span is one.
constexpr double straight_relief = 2e-3;
/// Slabs are halved so often at most to follow a relief that is no line.
constexpr int most_halvings = 5;

bool is_relief_bent(Ends overhang, Ends span) {
  const auto at = [](double a, double l) { return l > 0.0 ? 0.5 * a * a / l : 0.0; };
  const double middle = at(overhang.middle(), span.middle());
  const double line = 0.5 * (at(overhang.a, span.a) + at(overhang.b, span.b));
  return std::abs(line - middle) > straight_relief * span.middle();
}

/// Distributes the strips between two positions at which something begins, ends or crosses.
class Slab {
 public:
  Slab(Ends x, double near, const Plane& plane, std::vector<WidthPiece>& out, int halvings = 0)
      : x_(x), near_(near), plane_(plane), out_(out), halvings_(halvings) {}

  /// @param edges where strips begin and end, by twos
  void distribute(std::vector<const Line*> edges, const std::vector<const Line*>& carriers,
                  const std::vector<const Line*>& nearly) {
    sort(edges);
    for (std::size_t i = 0; i + 1 < edges.size(); i += 2) {
      const Ends begin = edges[i]->y(x_);
      const Ends end = edges[i + 1]->y(x_);
      auto groups = between(begin, end, carriers);
      // Carriers that end within the joining distance of these strips.
      if (groups.size() < 2) groups = between(begin, end, nearly);
      if (groups.size() < 2) fail(0.5 * (begin + end), groups.size());
      carry(*edges[i], *edges[i + 1], groups);
    }
  }

 private:
  using Group = std::vector<const Line*>;  ///< carriers that stand on one line

  void sort(std::vector<const Line*>& lines) const {
    const double middle = x_.middle();
    std::ranges::sort(lines, {}, [middle](const Line* line) { return line->y(middle); });
  }

  /// The carriers of strips from their begin to their end.
  std::vector<Group> between(Ends begin, Ends end, std::vector<const Line*> lines) const {
    std::erase_if(lines, [&](const Line* line) {
      const double y = line->y(x_.middle());
      return y < begin.middle() - near_ || y > end.middle() + near_;
    });
    sort(lines);
    std::vector<Group> groups;
    for (const Line* line : lines) {
      if (groups.empty() || !is_same(*groups.back().front(), *line)) groups.emplace_back();
      groups.back().push_back(line);
    }
    return groups;
  }

  bool is_same(const Line& one, const Line& other) const {
    const Ends gap = other.y(x_) - one.y(x_);
    return std::abs(gap.a) <= near_ && std::abs(gap.b) <= near_;
  }

  void carry(const Line& begins, const Line& ends, const std::vector<Group>& groups) {
    const Ends begin = begins.y(x_), end = ends.y(x_);
    std::vector<Ends> y;
    for (const Group& group : groups) y.push_back(group.front()->y(x_));
    std::vector<Ends> widths(y.size());
    const std::size_t last = y.size() - 1;
    const bool is_bent = is_relief_bent(y[0] - begin, y[1] - y[0]) ||
                         is_relief_bent(end - y[last], y[last] - y[last - 1]);
    if (is_bent && halvings_ < most_halvings) {
      for (const Ends half : {Ends{x_.a, x_.middle()}, Ends{x_.middle(), x_.b}}) {
        Slab(half, near_, plane_, out_, halvings_ + 1).carry(begins, ends, groups);
      }
      return;
    }
    for (std::size_t i = 0; i < last; ++i) {
      const Ends half = 0.5 * (y[i + 1] - y[i]);
      widths[i] = widths[i] + half;
      widths[i + 1] = widths[i + 1] + half;
    }
    require_span(y[0] - begin, y[1] - y[0], y[0]);
    require_span(end - y[last], y[last] - y[last - 1], y[last]);
    cantilever(y[0] - begin, y[1] - y[0], widths[0], widths[1]);
    cantilever(end - y[last], y[last] - y[last - 1], widths[last], widths[last - 1]);
    for (std::size_t i = 0; i < groups.size(); ++i) add(groups[i], widths[i]);
  }

  /// Throws Fault where elements come so close, or cross, that an overhang beside them has no
  /// lever.
  void require_span(Ends overhang, Ends span, Ends at) const {
    for (const bool is_first : {true, false}) {
      const double a = is_first ? overhang.a : overhang.b, l = is_first ? span.a : span.b;
      if (a <= longest_overhang * l + near_) continue;
      const Point2 place = is_first ? Point2{x_.a, at.a} : Point2{x_.b, at.b};
      throw Fault{"",
                  texts::translated(
                      "{:.4g} mm hang over the element at {}, and the next one is {:.4g} mm away; "
                      "must be a tenth of that at least: end the surface at the outer element",
                      a, place_text(plane_, place), std::max(l, 0.0))};
    }
  }

  static void cantilever(Ends overhang, Ends span, Ends& outer, Ends& next) {
    const Ends lifted = lever(overhang, span);
    outer = outer + overhang + lifted;
    next = next - lifted;
  }

  void add(const Group& group, Ends width) {
    for (const Line* line : group) {
      const Carrier& carrier = *line->carrier;
      // Per length of the carrier in place of per length across the strips.
      const double slope = (line->right - line->left) / distance(carrier.start, carrier.end);
      const Ends own = (slope / static_cast<double>(group.size())) * width;
      const Ends part{line->part(x_.a), line->part(x_.b)};
      if (line->is_turned) {
        add_width(carrier, {1.0 - part.b, 1.0 - part.a}, {own.b, own.a}, out_);
      } else {
        add_width(carrier, {part.a, part.b}, {own.a, own.b}, out_);
      }
    }
  }

  [[noreturn]] void fail(Ends y, std::size_t found) const {
    const std::string place = place_text(plane_, {x_.middle(), y.middle()});
    throw Fault{"", found == 0
                        ? texts::translated("no element carries the strip at {}; strips along "
                                            "\"span\" need at least two",
                                            place)
                        : texts::translated("one element alone carries the strip at {}; strips "
                                            "along \"span\" need at least two",
                                            place)};
  }

  Ends x_;
  double near_;
  const Plane& plane_;
  std::vector<WidthPiece>& out_;
  int halvings_;  ///< of the slab between positions that this one is a part of
};

/// Lines by where they begin, without those along the strips.
std::vector<Line> sorted(std::vector<Line> lines) {
  std::erase_if(lines, [](const Line& line) { return !(line.left < line.right); });
  std::ranges::sort(lines, {}, &Line::left);
  return lines;
}

/// The lines over each slab, from left to right.
class Sweep {
 public:
  explicit Sweep(const std::vector<Line>& lines, double beyond = 0.0)
      : lines_(lines), beyond_(beyond) {}

  const std::vector<const Line*>& over(double middle) {
    while (next_ < lines_.size() && lines_[next_].left - beyond_ < middle) {
      active_.push_back(&lines_[next_++]);
    }
    std::erase_if(active_, [&](const Line* line) { return line->right + beyond_ < middle; });
    return active_;
  }

 private:
  const std::vector<Line>& lines_;
  double beyond_;
  std::size_t next_ = 0;
  std::vector<const Line*> active_;
};

}  // namespace

std::string place_text(const Plane& plane, Point2 point) {
  const Point3 at = plane.global(point);
  // Rounded, so that no place is "-0".
  const auto rounded = [&](std::size_t axis) { return std::round(at[axis]) + 0.0; };
  return fmt::format("X {}, Y {}, Z {} mm", rounded(0), rounded(1), rounded(2));
}

std::vector<WidthPiece> one_way_widths(const Polygon& polygon, std::span<const Carrier> carriers,
                                       double near, const Plane& plane) {
  const Positions positions = all_positions(polygon, carriers);
  std::vector<Line> edges, lines;
  for (std::size_t i = 0; i < polygon.size(); ++i) {
    edges.push_back(line_of(polygon[i], polygon[(i + 1) % polygon.size()], positions, nullptr));
  }
  for (const Carrier& carrier : carriers) {
    lines.push_back(line_of(carrier.start, carrier.end, positions, &carrier));
  }
  edges = sorted(std::move(edges));
  lines = sorted(std::move(lines));
  std::vector<WidthPiece> out;
  Sweep of_edges(edges), of_lines(lines), nearly(lines, near);
  const std::vector<double>& x = positions.values();
  for (std::size_t i = 0; i + 1 < x.size(); ++i) {
    const double middle = 0.5 * (x[i] + x[i + 1]);
    Slab({x[i], x[i + 1]}, near, plane, out)
        .distribute(of_edges.over(middle), of_lines.over(middle), nearly.over(middle));
  }
  return out;
}

}  // namespace aluframe::area_loads
