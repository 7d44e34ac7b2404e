#include "aluframe/members/end_support.h"

#include <algorithm>
#include <array>
#include <cmath>

namespace aluframe::members {

namespace {

/// Sine of 10°: a bar steeper than that against what its support leaves free cannot move along it.
constexpr double steep = 0.1736;

/// Places of rotations among the six directions of a support.
constexpr std::size_t rotations = 3;

/// What a support's rigid directions, from `first` on, leave of a vector: 0 (translations) or 3
/// (rotations).
Eigen::Vector3d left_free(const model::Support& support, std::size_t first,
                          Eigen::Vector3d vector) {
  for (std::size_t i = 0; i < 3; ++i) {
    if (support.restrained[first + i]) vector[static_cast<Eigen::Index>(i)] = 0.0;
  }
  return vector;
}

/// Stiffness of a support's springs along a direction, from `first` on: 0 or 3, as above.
double spring_stiffness(const model::Support& support, std::size_t first,
                        const Eigen::Vector3d& direction) {
  double stiffness = 0.0;
  for (std::size_t i = 0; i < 3; ++i) {
    const double component = direction[static_cast<Eigen::Index>(i)];
    stiffness += support.springs[first + i] * component * component;
  }
  return stiffness;
}

}  // namespace

model::Number node_of(const MemberSegments& segments, const ElementEnd& at) {
  return segments.model().elements[at.element].nodes[at.end];
}

const model::Support* support_at(const MemberSegments& segments, const ElementEnd& at) {
  return segments.connectivity().support_of(node_of(segments, at));
}

bool fixes_rotation(const model::Support* support, const Eigen::Vector3d& axis) {
  return support != nullptr && left_free(*support, rotations, axis).norm() <= alignment;
}

double spring_about(const model::Support* support, const Eigen::Vector3d& axis) {
  return support == nullptr ? 0.0 : spring_stiffness(*support, rotations, axis);
}

double spring_along(const model::Support* support, const Eigen::Vector3d& direction) {
  return support == nullptr ? 0.0 : spring_stiffness(*support, 0, direction);
}

bool is_released_along(const MemberSegments& segments, const ElementEnd& at,
                       const Eigen::Vector3d& direction) {
  constexpr std::array<std::size_t, 2> shear_forces{1, 2};
  const model::Element& element = segments.model().elements[at.element];
  return std::ranges::any_of(shear_forces, [&](std::size_t force) {
    const auto axis = segments.geometry(at.element).axes.row(static_cast<Eigen::Index>(force));
    return element.released[6 * at.end + force] && std::abs(axis.dot(direction)) > alignment;
  });
}

bool is_restrained_along(const MemberSegments& segments, const ElementEnd& at,
                         const Eigen::Vector3d& direction) {
  if (is_released_along(segments, at, direction)) return false;
  const model::Support* support = support_at(segments, at);
  if (support == nullptr) return false;
  Eigen::Vector3d free = left_free(*support, 0, direction);
  const Eigen::Vector3d bar = segments.geometry(at.element).axes.row(0).transpose();
  const Eigen::Vector3d along = left_free(*support, 0, bar);
  // The bar keeps its length, so its end does not move along it either.
  if (along.norm() > steep) free -= free.dot(along) / along.squaredNorm() * along;
  return free.norm() <= alignment;
}

bool is_free_end(const MemberSegments& segments, const ElementEnd& at,
                 const Eigen::Vector3d& direction) {
  return is_released_along(segments, at, direction) ||
         (segments.connectivity().elements_at(node_of(segments, at)).size() == 1 &&
          !is_restrained_along(segments, at, direction));
}

bool is_rigid(const MemberSegments& segments, const ElementEnd& at) {
  constexpr std::size_t my = 4, mz = 5;
  const model::Element& element = segments.model().elements[at.element];
  return element.kind == model::ElementKind::beam && !element.released[6 * at.end + my] &&
         !element.released[6 * at.end + mz];
}

bool goes_on(const MemberSegments& segments, const ElementEnd& at, const ElementEnd& other) {
  constexpr double cosine_of_30_degrees = 0.8660254;
  const Eigen::Vector3d in = away_from(segments.geometry(at.element), at.end);
  const Eigen::Vector3d out = away_from(segments.geometry(other.element), other.end);
  return -in.dot(out) >= cosine_of_30_degrees;
}

bool acts_on_bending(const MemberSegments& segments, const ElementEnd& at,
                     const Eigen::Vector3d& about) {
  const model::Support* support = support_at(segments, at);
  if (support == nullptr) return false;
  const Eigen::Vector3d bar = segments.geometry(at.element).axes.row(0).transpose();
  const Eigen::Vector3d across = about.cross(bar).normalized();
  return is_restrained_along(segments, at, across) || fixes_rotation(support, about) ||
         spring_about(support, about) > 0.0 || spring_along(support, across) > 0.0;
}

}  // namespace aluframe::members
