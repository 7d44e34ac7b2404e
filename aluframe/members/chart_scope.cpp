#include "aluframe/members/chart_scope.h"

#include <fmt/format.h>

#include <cmath>

#include "aluframe/elementary/functions.h"
#include "aluframe/members/end_support.h"
#include "aluframe/members/restraining_bar.h"
#include "aluframe/texts/text.h"

namespace aluframe::members {

namespace {

using Objection = std::optional<std::string>;

/// Sine of the angle up to which an element counts as level, or as upright.
constexpr double inclined = 0.1736482;  // 10°

/// Calls `visit` with the ends at which two elements of a segment meet, in its order.
template <class Visit>
void visit_joints(const MemberSegments& segments, const MemberSegment& segment, Visit visit) {
  for (std::size_t i = 0; i + 1 < segment.elements.size(); ++i) {
    const std::size_t a = segment.elements[i], b = segment.elements[i + 1];
    for (const std::size_t end_of_a : {0U, 1U}) {
      for (const std::size_t end_of_b : {0U, 1U}) {
        const ElementEnd at_a{a, end_of_a}, at_b{b, end_of_b};
        if (node_of(segments, at_a) == node_of(segments, at_b)) visit(at_a, at_b);
      }
    }
  }
}

Objection shape_objection(const MemberSegments& segments, const MemberSegment& segment) {
  Objection objection;
  const auto object = [&](const char* what, const ElementEnd& at) {
    if (!objection) objection = fmt::format(fmt::runtime(what), node_of(segments, at));
  };
  visit_joints(segments, segment, [&](const ElementEnd& a, const ElementEnd& b) {
    const analysis::Geometry& here = segments.geometry(a.element);
    const analysis::Geometry& there = segments.geometry(b.element);
    const model::Table<model::Element>& elements = segments.model().elements;
    if (!are_collinear(here, a.end, there, b.end))
      return object(texts::translatable("its axis bends at node {}"), a);
    if (!have_parallel_axes(here, there))
      return object(texts::translatable("its section turns at node {}"), a);
    if (elements[a.element].section != elements[b.element].section ||
        elements[a.element].material != elements[b.element].material) {
      object(texts::translatable("its section changes at node {}"), a);
    }
  });
  return objection;
}

bool is_inclined(const analysis::Geometry& geometry) {
  const double rise = std::abs(geometry.axes(0, 2));
  const double level = elementary::hypotenuse(geometry.axes(0, 0), geometry.axes(0, 1));
  return rise > inclined && level > inclined;
}

/// A spring that gives way to a segment that deflects along a direction.
Objection spring_objection(const MemberSegments& segments, const MemberSegment& segment,
                           const Eigen::Vector3d& direction) {
  const auto objection_at = [&](const ElementEnd& at) -> Objection {
    const model::Support* support = support_at(segments, at);
    if (support == nullptr || is_restrained_along(segments, at, direction)) return std::nullopt;
    if (spring_along(support, direction) <= 0.0) return std::nullopt;
    return fmt::format(texts::translatable("a spring holds node {}"), node_of(segments, at));
  };
  for (const std::size_t place : segment.elements) {
    for (const std::size_t end : {0U, 1U}) {
      if (auto objection = objection_at({place, end})) return objection;
    }
  }
  return std::nullopt;
}

/// An element at an end in which the axis goes on through a kink, or with a turned section: the two
/// buckle together. Or an inclined one that a level segment is joined to rigidly: it is a part of a
/// roof, an arch or a dome, whose elements press each other.
Objection end_objection(const MemberSegments& segments, const ElementEnd& at,
                        const Eigen::Vector3d& about) {
  Objection objection;
  if (!is_rigid(segments, at) || acts_on_bending(segments, at, about)) return objection;
  const analysis::Geometry& own = segments.geometry(at.element);
  visit_others(segments, at, [&](const ElementEnd& other) {
    const analysis::Geometry& geometry = segments.geometry(other.element);
    if (objection || !is_rigid(segments, other)) return;
    const bool is_onward = goes_on(segments, at, other);
    const bool is_straight = are_collinear(own, at.end, geometry, other.end);
    const bool is_kink = is_onward && !is_straight;
    const bool is_turn = is_onward && is_straight && !have_parallel_axes(own, geometry);
    const bool is_roof = !segments.stands_upright(at.element) && is_inclined(geometry);
    if (!is_kink && !is_turn && !is_roof) return;
    const model::Number number = segments.model().elements[other.element].number;
    objection =
        is_kink   ? fmt::format(texts::translatable("it goes on at a bend in element {}"), number)
        : is_turn ? fmt::format(texts::translatable("it goes on turned in element {}"), number)
                  : fmt::format(texts::translatable("inclined element {} frames in"), number);
  });
  return objection;
}

}  // namespace

std::optional<std::string> chart_objection(const MemberSegments& segments,
                                           const MemberSegment& segment, Axis axis) {
  if (auto objection = shape_objection(segments, segment)) return objection;
  const std::size_t first = segment.elements.front();
  if (is_inclined(segments.geometry(first))) return texts::translatable("it is inclined");
  for (const ElementEnd& end : segment.ends) {
    if (auto objection = end_objection(segments, end, segments.direction(first, axis))) {
      return objection;
    }
  }
  const Axis other = axis == Axis::y ? Axis::z : Axis::y;
  return spring_objection(segments, segment, segments.direction(first, other));
}

}  // namespace aluframe::members
