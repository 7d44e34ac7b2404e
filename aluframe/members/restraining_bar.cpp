#include "aluframe/members/restraining_bar.h"

namespace aluframe::members {

namespace {

/// Places of bending moments among the six releases of an end.
constexpr std::size_t bending_moments = 4;

/// Share of an element's bending stiffness about an axis from which on it counts as bending about
/// it: 45° between the axes.
constexpr double least_share = 0.5 - 1e-9;

bool is_column(const Stretches& stretches, const ElementEnd& at) {
  return stretches.stands_upright(at.element);
}

/// Squared cosine between an axis and one of the element's own.
double share_of(const Stretches& stretches, std::size_t element, Axis axis,
                const Eigen::Vector3d& about) {
  const double cosine = about.dot(stretches.direction(element, axis));
  return cosine * cosine;
}

double flexibility_of(const Stretches& stretches, std::size_t element,
                      const Eigen::Vector3d& about) {
  double stiffness = 0.0;
  for (const Axis axis : {Axis::y, Axis::z}) {
    stiffness += share_of(stretches, element, axis, about) * stretches.stiffness(element, axis);
  }
  return stretches.geometry(element).length / stiffness;
}

/// The elements at a node that an element's end meets, by what they do about an axis.
struct Joint {
  std::vector<ElementEnd> bending;
  bool has_column = false;
};

Joint joint_at(const Stretches& stretches, const ElementEnd& at, const Eigen::Vector3d& about) {
  Joint joint;
  visit_others(stretches, at, [&](const ElementEnd& other) {
    joint.has_column = joint.has_column || is_column(stretches, other);
    if (bends_about(stretches, other, about)) joint.bending.push_back(other);
  });
  return joint;
}

/// The element that a bar goes on in past an end, or nothing where the bar ends.
std::optional<ElementEnd> onward(const Stretches& stretches, const ElementEnd& at,
                                 const Eigen::Vector3d& about) {
  if (acts_on_bending(stretches, at, about) || !bends_about(stretches, at, about)) {
    return std::nullopt;
  }
  const Joint joint = joint_at(stretches, at, about);
  if (joint.bending.size() != 1 || joint.has_column != is_column(stretches, at)) {
    return std::nullopt;
  }
  const ElementEnd& next = joint.bending.front();
  return is_column(stretches, next) == joint.has_column ? std::optional(next) : std::nullopt;
}

/// The last end of the bar that begins with an end, and the flexibility up to it.
struct Walk {
  ElementEnd last;
  double flexibility = 0.0;
};

Walk walk_from(const Stretches& stretches, const ElementEnd& first, const Eigen::Vector3d& about) {
  Walk walk{.last = {first.element, 1 - first.end},
            .flexibility = flexibility_of(stretches, first.element, about)};
  // Elements may close a ring.
  for (auto next = onward(stretches, walk.last, about); next && next->element != first.element;
       next = onward(stretches, walk.last, about)) {
    walk.flexibility += flexibility_of(stretches, next->element, about);
    walk.last = {next->element, 1 - next->end};
  }
  return walk;
}

/// Whether nothing holds an end against moving when its element bends about an axis.
bool ends_freely(const Stretches& stretches, const ElementEnd& at, const Eigen::Vector3d& about) {
  if (stretches.is_carried(at)) return true;
  const Eigen::Vector3d bar = stretches.geometry(at.element).axes.row(0).transpose();
  return is_free_end(stretches, at, about.cross(bar).normalized());
}

FarEnd far_end(const Stretches& stretches, const ElementEnd& at, const Eigen::Vector3d& about) {
  if (ends_freely(stretches, at, about)) return FarEnd::free;
  if (!bends_about(stretches, at, about)) return FarEnd::hinged;
  const model::Support* support = support_at(stretches, at);
  if (fixes_rotation(support, about)) return FarEnd::fixed;
  FarEnd found = spring_about(support, about) > 0.0 ? FarEnd::beams : FarEnd::hinged;
  for (const ElementEnd& other : joint_at(stretches, at, about).bending) {
    // An overhang turns along without resistance.
    if (ends_freely(stretches, walk_from(stretches, other, about).last, about)) continue;
    if (is_column(stretches, other)) return FarEnd::column;
    found = FarEnd::beams;
  }
  return found;
}

}  // namespace

bool bends_about(const Stretches& stretches, const ElementEnd& at, const Eigen::Vector3d& about) {
  if (stretches.model().elements[at.element].kind != model::ElementKind::beam) return false;
  double share = 0.0;
  for (const Axis axis : {Axis::y, Axis::z}) {
    if (!is_released(stretches, at, axis)) share += share_of(stretches, at.element, axis, about);
  }
  return share >= least_share;
}

bool is_released(const Stretches& stretches, const ElementEnd& at, Axis axis) {
  const model::Element& element = stretches.model().elements[at.element];
  return element.released[6 * at.end + bending_moments + static_cast<std::size_t>(axis)];
}

RestrainingBar bar_from(const Stretches& stretches, const ElementEnd& at, Axis axis) {
  const Eigen::Vector3d about = stretches.direction(at.element, axis);
  const Walk walk = walk_from(stretches, at, about);
  return {.flexibility = walk.flexibility, .far_end = far_end(stretches, walk.last, about)};
}

}  // namespace aluframe::members
