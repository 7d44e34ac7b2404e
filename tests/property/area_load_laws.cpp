// What area loads become adds up to pressure times area, with the moments of the area, on any
// surface, however its elements are divided and numbered.
#include <gtest/gtest.h>
#include <rapidcheck/gtest.h>

#include <algorithm>
#include <numbers>

#include "tests/unit/aluframe/area_loads/flat_frame.h"

namespace aluframe::area_loads {
namespace {

using Corner = std::array<double, 2>;
using Pairs = std::vector<std::pair<model::Number, model::Number>>;

double any_between(double low, double high) {
  return low + (high - low) * *rc::gen::inRange(0, 1'000'001) / 1e6;
}

/// A plane by its axes, turned any way in space, with its origin anywhere.
struct AnyPlane {
  Vector origin, x, y;

  Vector at(const Corner& corner) const {
    Vector out{};
    for (std::size_t i = 0; i < 3; ++i) out[i] = origin[i] + corner[0] * x[i] + corner[1] * y[i];
    return out;
  }
  Vector normal() const {
    return {x[1] * y[2] - x[2] * y[1], x[2] * y[0] - x[0] * y[2], x[0] * y[1] - x[1] * y[0]};
  }
};

AnyPlane any_plane() {
  const double a = any_between(0, 6), b = any_between(0, 6), c = any_between(0, 6);
  const double sa = std::sin(a), ca = std::cos(a), sb = std::sin(b), cb = std::cos(b);
  const double sc = std::sin(c), cc = std::cos(c);
  AnyPlane plane{{any_between(-2e4, 2e4), any_between(-2e4, 2e4), any_between(0, 2e4)},
                 {ca * cb, sa * cb, -sb},
                 {ca * sb * sc - sa * cc, sa * sb * sc + ca * cc, cb * sc}};
  return plane;
}

/// Corners on an ellipse, counterclockwise, so that the polygon is convex.
std::vector<Corner> any_convex() {
  const int count = *rc::gen::inRange(3, 9);
  const double width = any_between(500, 6000), height = any_between(500, 6000);
  std::vector<Corner> corners;
  for (int i = 0; i < count; ++i) {
    const double angle = 2.0 * std::numbers::pi * (i + any_between(0.0, 0.7)) / count;
    corners.push_back({width * std::cos(angle), height * std::sin(angle)});
  }
  return corners;
}

/// What a uniform pressure of 1 on a polygon adds up to, along a direction.
Sum exact_sum(const AnyPlane& plane, const std::vector<Corner>& corners, const Vector& direction) {
  Sum sum;
  for (std::size_t i = 2; i < corners.size(); ++i) {
    const Corner &a = corners[0], &b = corners[i - 1], &c = corners[i];
    const double area = 0.5 * ((b[0] - a[0]) * (c[1] - a[1]) - (b[1] - a[1]) * (c[0] - a[0]));
    Vector force{};
    for (std::size_t k = 0; k < 3; ++k) force[k] = area * direction[k];
    add_force(sum, plane.at({(a[0] + b[0] + c[0]) / 3.0, (a[1] + b[1] + c[1]) / 3.0}), force);
  }
  return sum;
}

double area_of(const std::vector<Corner>& corners) {
  const AnyPlane flat{{0, 0, 0}, {1, 0, 0}, {0, 1, 0}};
  return exact_sum(flat, corners, {0, 0, 1}).force[2];
}

/// 1e-12 of the force; of moments, 1e-12 of the force times the reach of the coordinates.
void require_same(const Sum& actual, const Sum& expected, double area) {
  constexpr double reach = 4e4;
  for (std::size_t i = 0; i < 3; ++i) {
    RC_ASSERT(std::abs(actual.force[i] - expected.force[i]) <= 1e-12 * area);
    RC_ASSERT(std::abs(actual.moment[i] - expected.moment[i]) <= 1e-12 * area * reach);
  }
}

/// A load of 1 with any direction, on the region of the first `corners` nodes or on all elements.
model::AreaLoad any_load(const AnyPlane& plane, std::size_t corners) {
  model::AreaLoad load;
  for (std::size_t i = 0; i < corners; ++i) {
    load.region.nodes.push_back(static_cast<model::Number>(i + 1));
  }
  load.pressure = 1.0;
  if (*rc::gen::arbitrary<bool>()) {
    const auto axis = *rc::gen::inRange<std::size_t>(0, 3);
    const bool is_seen = std::abs(plane.normal()[axis]) > 1e-3;
    const bool is_projected = is_seen && *rc::gen::arbitrary<bool>();
    load.direction = model::LoadDirection{
        is_projected ? model::LoadAxes::projected : model::LoadAxes::global, axis};
  }
  return load;
}

/// Force on an area of 1, by the definition of the directions.
Vector direction_of(const model::AreaLoad& load, Vector normal) {
  if (!load.direction) {
    if (!load.region.empty()) return normal;
    const double sign = normal[2] < 0.0 ? -1.0 : 1.0;
    for (double& component : normal) component *= sign;
    return normal;
  }
  Vector out{};
  const std::size_t axis = load.direction->axis;
  out[axis] = load.direction->axes == model::LoadAxes::projected ? std::abs(normal[axis]) : 1.0;
  return out;
}

/// Elements round the first nodes of the points, each divided into some; nodes are appended.
Pairs any_ring(std::vector<Corner>& points, std::size_t corners) {
  Pairs pairs;
  for (std::size_t i = 0; i < corners; ++i) {
    const Corner a = points[i], b = points[(i + 1) % corners];
    auto from = static_cast<model::Number>(i + 1);
    const int count = *rc::gen::inRange(1, 4);
    for (int k = 1; k < count; ++k) {
      const double part = static_cast<double>(k) / count;
      points.push_back({a[0] + part * (b[0] - a[0]), a[1] + part * (b[1] - a[1])});
      const auto to = static_cast<model::Number>(points.size());
      pairs.emplace_back(from, to);
      from = to;
    }
    pairs.emplace_back(from, static_cast<model::Number>((i + 1) % corners + 1));
  }
  for (auto& [start, end] : pairs) {
    if (*rc::gen::arbitrary<bool>()) std::swap(start, end);
  }
  return pairs;
}

model::Model in_space(const AnyPlane& plane, const std::vector<Corner>& points,
                      const Pairs& pairs) {
  std::vector<Vector> in_space;
  for (const Corner& point : points) in_space.push_back(plane.at(point));
  return frame_of(in_space, pairs);
}

/// The same loads with an element for a piece of surface: a ring round a convex polygon.
void check_ring(bool is_two_way, bool has_region) {
  const AnyPlane plane = any_plane();
  const std::vector<Corner> corners = any_convex();
  std::vector<Corner> points = corners;
  const Pairs pairs = any_ring(points, corners.size());
  const model::Model model = in_space(plane, points, pairs);
  model::AreaLoad load = any_load(plane, has_region ? corners.size() : 0);
  if (!is_two_way) load.span = plane.y;
  const Sum expected = exact_sum(plane, corners, direction_of(load, plane.normal()));
  require_same(sum_of(model, loads_of(model, load)), expected, area_of(corners));
}

RC_GTEST_PROP(AreaLoadLaws, TwoWaysHaveTheForceAndTheMomentsOfTheRegion, ()) {
  check_ring(true, true);
}

RC_GTEST_PROP(AreaLoadLaws, TwoWaysHaveThoseOfThePanelBetweenElements, ()) {
  check_ring(true, false);
}

RC_GTEST_PROP(AreaLoadLaws, OneWayHasTheForceAndTheMomentsOfTheRegion, ()) {
  check_ring(false, true);
}

RC_GTEST_PROP(AreaLoadLaws, OneWayHasThoseOfThePanelBetweenElements, ()) {
  check_ring(false, false);
}

/// Beams across a trapezoid, none parallel to another, that the surface runs over at both sides.
RC_GTEST_PROP(AreaLoadLaws, CantileveringStripsKeepForceAndMoments, ()) {
  const AnyPlane plane = any_plane();
  const double width = any_between(1000, 6000), height = any_between(1000, 6000);
  const std::vector<Corner> corners{{0, -any_between(0, 800)},
                                    {width, -any_between(0, 800)},
                                    {width, height + any_between(0, 800)},
                                    {0, height + any_between(0, 800)}};
  std::vector<Corner> points = corners;
  Pairs pairs;
  const int beams = *rc::gen::inRange(2, 5);
  for (int i = 0; i < beams; ++i) {
    const double low = height * i / beams, high = height * (i + 0.9) / beams;
    points.push_back({0, any_between(low, high)});
    points.push_back({width, any_between(low, high)});
    const auto end = static_cast<model::Number>(points.size());
    pairs.emplace_back(end - 1, end);
  }
  // What hangs over by more than ten times the next span is refused.
  for (std::size_t end : {0U, 1U}) {
    const auto beam = [&](int i) {
      return points[corners.size() + 2 * static_cast<std::size_t>(i) + end][1];
    };
    RC_PRE(beam(0) - corners[end][1] <= 10.0 * (beam(1) - beam(0)));
    RC_PRE(corners[3 - end][1] - beam(beams - 1) <= 10.0 * (beam(beams - 1) - beam(beams - 2)));
  }
  const model::Model model = in_space(plane, points, pairs);
  model::AreaLoad load = any_load(plane, corners.size());
  load.span = plane.y;
  const Sum expected = exact_sum(plane, corners, direction_of(load, plane.normal()));
  require_same(sum_of(model, loads_of(model, load)), expected, area_of(corners));
}

/// A grid of beams with members beyond the region and free ends within it.
RC_GTEST_PROP(AreaLoadLaws, PanelsOfAGridAddUpToTheRegion, (bool is_two_way)) {
  const AnyPlane plane = any_plane();
  const int columns = *rc::gen::inRange(1, 4), rows = *rc::gen::inRange(1, 4);
  std::vector<double> x{0}, y{0};
  for (int i = 0; i <= columns; ++i) x.push_back(x.back() + any_between(300, 3000));
  for (int i = 0; i < rows; ++i) y.push_back(y.back() + any_between(300, 3000));
  const double right = x[static_cast<std::size_t>(columns)];
  const std::vector<Corner> corners{{0, 0}, {right, 0}, {right, y.back()}, {0, y.back()}};
  std::vector<Corner> points = corners;
  Pairs pairs;
  const auto add = [&](Corner from, Corner to) {
    points.push_back(from);
    points.push_back(to);
    pairs.emplace_back(points.size() - 1, points.size());
  };
  // Beams right through, which cross one another without nodes, and one field more than the region.
  for (const double at : y) add({0, at}, {x.back(), at});
  for (const double at : x) add({at, 0}, {at, y.back()});
  add({0.5 * x[1], 0}, {0.5 * x[1], 0.4 * y[1]});
  const model::Model model = in_space(plane, points, pairs);
  model::AreaLoad load = any_load(plane, corners.size());
  if (!is_two_way) load.span = plane.y;
  const Sum expected = exact_sum(plane, corners, direction_of(load, plane.normal()));
  require_same(sum_of(model, loads_of(model, load)), expected, area_of(corners));
}

/// Other numbers, another order of the elements and elements in pieces give the same sums.
RC_GTEST_PROP(AreaLoadLaws, DividingAndRenumberingElementsChangesNoSum, (bool is_two_way)) {
  const AnyPlane plane = any_plane();
  const std::vector<Corner> corners = any_convex();
  model::AreaLoad load = any_load(plane, corners.size());
  if (!is_two_way) load.span = plane.y;
  std::vector<Sum> sums;
  for (int i = 0; i < 2; ++i) {
    std::vector<Corner> points = corners;
    Pairs pairs = any_ring(points, corners.size());
    const auto turn =
        *rc::gen::inRange<std::ptrdiff_t>(0, static_cast<std::ptrdiff_t>(pairs.size()));
    std::rotate(pairs.begin(), pairs.begin() + turn, pairs.end());
    const model::Model model = in_space(plane, points, pairs);
    sums.push_back(sum_of(model, loads_of(model, load)));
  }
  require_same(sums[0], sums[1], area_of(corners));
}

}  // namespace
}  // namespace aluframe::area_loads
