#include "aluframe/members/restraining_bar.h"

namespace aluframe::members {

namespace {

/// Places of bending moments among the six releases of an end.
constexpr std::size_t bending_moments = 4;

/// Share of an element's bending stiffness about an axis from which on it counts as bending about
/// it: 45° between the axes.
constexpr double least_share = 0.5 - 1e-9;

bool is_column(const MemberSegments& segments, const ElementEnd& at) {
  return segments.stands_upright(at.element);
}

/// Squared cosine between an axis and one of the element's own.
double share_of(const MemberSegments& segments, std::size_t element, Axis axis,
                const Eigen::Vector3d& about) {
  const double cosine = about.dot(segments.direction(element, axis));
  return cosine * cosine;
}

double flexibility_of(const MemberSegments& segments, std::size_t element,
                      const Eigen::Vector3d& about) {
  double stiffness = 0.0;
  for (const Axis axis : {Axis::y, Axis::z}) {
    stiffness += share_of(segments, element, axis, about) * segments.stiffness(element, axis);
  }
  return segments.geometry(element).length / stiffness;
}

/// The elements at a node that an element's end meets, by what they do about an axis.
struct Joint {
  std::vector<ElementEnd> bending;
  bool has_column = false;
};

Joint joint_at(const MemberSegments& segments, const ElementEnd& at, const Eigen::Vector3d& about) {
  Joint joint;
  visit_others(segments, at, [&](const ElementEnd& other) {
    joint.has_column = joint.has_column || is_column(segments, other);
    if (bends_about(segments, other, about)) joint.bending.push_back(other);
  });
  return joint;
}

/// The element that a bar goes on in past an end, or nothing where the bar ends.
std::optional<ElementEnd> onward(const MemberSegments& segments, const ElementEnd& at,
                                 const Eigen::Vector3d& about) {
  if (acts_on_bending(segments, at, about) || !bends_about(segments, at, about)) {
    return std::nullopt;
  }
  const Joint joint = joint_at(segments, at, about);
  if (joint.bending.size() != 1 || joint.has_column != is_column(segments, at)) {
    return std::nullopt;
  }
  const ElementEnd& next = joint.bending.front();
  return is_column(segments, next) == joint.has_column ? std::optional(next) : std::nullopt;
}

/// The last end of the bar that begins with an end, and the flexibility up to it.
struct BarTrace {
  ElementEnd last;
  double flexibility = 0.0;
};

BarTrace trace_bar(const MemberSegments& segments, const ElementEnd& first,
                   const Eigen::Vector3d& about) {
  BarTrace trace{.last = {first.element, 1 - first.end},
                 .flexibility = flexibility_of(segments, first.element, about)};
  // Elements may close a ring.
  for (auto next = onward(segments, trace.last, about); next && next->element != first.element;
       next = onward(segments, trace.last, about)) {
    trace.flexibility += flexibility_of(segments, next->element, about);
    trace.last = {next->element, 1 - next->end};
  }
  return trace;
}

/// Whether nothing restrains an end when its element bends about an axis.
bool ends_freely(const MemberSegments& segments, const ElementEnd& at,
                 const Eigen::Vector3d& about) {
  if (segments.is_cantilever_end(at)) return true;
  const Eigen::Vector3d bar = segments.geometry(at.element).axes.row(0).transpose();
  return is_free_end(segments, at, about.cross(bar).normalized());
}

FarEnd far_end(const MemberSegments& segments, const ElementEnd& at, const Eigen::Vector3d& about) {
  if (ends_freely(segments, at, about)) return FarEnd::free;
  if (!bends_about(segments, at, about)) return FarEnd::hinged;
  const model::Support* support = support_at(segments, at);
  if (fixes_rotation(support, about)) return FarEnd::fixed;
  FarEnd found = spring_about(support, about) > 0.0 ? FarEnd::beams : FarEnd::hinged;
  for (const ElementEnd& other : joint_at(segments, at, about).bending) {
    // An overhang turns along without resistance.
    if (ends_freely(segments, trace_bar(segments, other, about).last, about)) continue;
    if (is_column(segments, other)) return FarEnd::column;
    found = FarEnd::beams;
  }
  return found;
}

}  // namespace

bool bends_about(const MemberSegments& segments, const ElementEnd& at,
                 const Eigen::Vector3d& about) {
  if (segments.model().elements[at.element].kind != model::ElementKind::beam) return false;
  double share = 0.0;
  for (const Axis axis : {Axis::y, Axis::z}) {
    if (!is_released(segments, at, axis)) share += share_of(segments, at.element, axis, about);
  }
  return share >= least_share;
}

bool is_released(const MemberSegments& segments, const ElementEnd& at, Axis axis) {
  const model::Element& element = segments.model().elements[at.element];
  return element.released[6 * at.end + bending_moments + static_cast<std::size_t>(axis)];
}

RestrainingBar bar_from(const MemberSegments& segments, const ElementEnd& at, Axis axis) {
  const Eigen::Vector3d about = segments.direction(at.element, axis);
  const BarTrace trace = trace_bar(segments, at, about);
  return {.flexibility = trace.flexibility, .far_end = far_end(segments, trace.last, about)};
}

}  // namespace aluframe::members
