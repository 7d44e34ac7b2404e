#include "aluframe/members/end_restraint.h"

#include <algorithm>
#include <limits>

namespace aluframe::members {

namespace {

using model::ElementKind;
using model::Number;

/// Sine of 1°: vectors closer than that are aligned.
constexpr double alignment = 0.01745;
/// Sine of 10°: a bar steeper than that against what its support leaves free cannot move along it.
constexpr double steep = 0.1736;

/// Places of rotations among the six directions of a support, and of bending moments among the six
/// releases of an end.
constexpr std::size_t rotations = 3;
constexpr std::size_t bending_moments = 4;

enum class FarEnd { rigid, hinged, fixed, free };

/// Rotational stiffness of a bar in EI/L, by how the frame buckles and by its far end.
///
/// Source: AISC 360-16 commentary, appendix 7.2 (adjustments of beams for far ends); its 2 and 6 of
/// rigid far ends are those of single and double curvature.
constexpr double bar_stiffness[3][4] = {
    // rigid, hinged, fixed, free
    {2.0, 3.0, 4.0, 0.0},  // non-sway
    {6.0, 3.0, 4.0, 0.0},  // sway
    {3.0, 3.0, 4.0, 0.0},  // cantilever
};

/// The stiffness of a column that G compares with, in EI/L: that of a bar in the same curvature.
double column_stiffness(Buckling buckling) {
  return buckling == Buckling::non_sway ? 2.0 : 6.0;
}

bool is_released(const model::Element& element, std::size_t end, Axis axis) {
  return element.released[6 * end + bending_moments + static_cast<std::size_t>(axis)];
}

/// What a support's rigid directions, from `first` on, leave of a vector: 0 (translations) or 3
/// (rotations).
Eigen::Vector3d left_free(const model::Support& support, std::size_t first,
                          Eigen::Vector3d vector) {
  for (std::size_t i = 0; i < 3; ++i) {
    if (support.restrained[first + i]) vector[static_cast<Eigen::Index>(i)] = 0.0;
  }
  return vector;
}

bool fixes_rotation(const model::Support* support, const Eigen::Vector3d& axis) {
  return support != nullptr && left_free(*support, rotations, axis).norm() <= alignment;
}

double spring_about(const model::Support& support, const Eigen::Vector3d& axis) {
  double stiffness = 0.0;
  for (std::size_t i = 0; i < 3; ++i) {
    const double component = axis[static_cast<Eigen::Index>(i)];
    stiffness += support.springs[rotations + i] * component * component;
  }
  return stiffness;
}

/// Calls `visit` with every element end at a node but one.
template <class Visit>
void visit_others(const Stretches& stretches, Number node, std::size_t except, Visit visit) {
  const model::Table<model::Element>& elements = stretches.model().elements;
  for (const Number number : stretches.connectivity().elements_at(node)) {
    const std::size_t place = elements.position(number);
    if (place == except) continue;
    visit(ElementEnd{place, elements[place].nodes[0] == node ? std::size_t{0} : std::size_t{1}});
  }
}

bool bends(const model::Element& element, std::size_t end) {
  return element.kind == ElementKind::beam &&
         !(is_released(element, end, Axis::y) && is_released(element, end, Axis::z));
}

/// What an end of a stretch is to a bar that is bent from its other end.
FarEnd far_end(const Stretches& stretches, const Stretch& stretch, std::size_t end, Axis axis) {
  const ElementEnd& at = stretch.ends[end];
  const Axis other_axis = axis == Axis::y ? Axis::z : Axis::y;
  if (is_free_end(stretches, stretch, end, stretches.direction(at.element, other_axis))) {
    return FarEnd::free;
  }
  if (is_released(stretches.model().elements[at.element], at.end, axis)) return FarEnd::hinged;
  const Eigen::Vector3d about = stretches.direction(at.element, axis);
  const model::Support* support = stretches.connectivity().support_of(stretch.nodes[end]);
  if (fixes_rotation(support, about)) return FarEnd::fixed;
  bool is_stiff = support != nullptr && spring_about(*support, about) > 0.0;
  visit_others(stretches, stretch.nodes[end], at.element, [&](const ElementEnd& other) {
    is_stiff = is_stiff || bends(stretches.model().elements[other.element], other.end);
  });
  return is_stiff ? FarEnd::rigid : FarEnd::hinged;
}

/// What a bar at an end adds to the resistance of the joint and to the columns that load it.
struct Share {
  double resisting = 0.0, loading = 0.0;
};

Share share_of(const Stretches& stretches, const ElementEnd& bar, bool continues,
               const Eigen::Vector3d& about, Buckling buckling) {
  const model::Element& element = stretches.model().elements[bar.element];
  const Stretches::Arm arm = stretches.arm(bar);
  Share share;
  for (const Axis axis : {Axis::y, Axis::z}) {
    if (is_released(element, bar.end, axis)) continue;
    const double component = about.dot(stretches.direction(bar.element, axis));
    const double stiffness =
        component * component * arm.stretch->stiffness[static_cast<std::size_t>(axis)] / arm.length;
    if (continues) {
      share.loading += stiffness;
    } else {
      const FarEnd far = far_end(stretches, *arm.stretch, arm.far_end, axis);
      share.resisting +=
          bar_stiffness[static_cast<std::size_t>(buckling)][static_cast<std::size_t>(far)] *
          stiffness;
    }
  }
  return share;
}

/// What the elements at an end of the stretch add together.
Share share_of_bars(const Stretches& stretches, const Stretch& stretch, std::size_t end,
                    const Eigen::Vector3d& about, Buckling buckling) {
  const ElementEnd& own = stretch.ends[end];
  Share sum;
  visit_others(stretches, stretch.nodes[end], own.element, [&](const ElementEnd& bar) {
    if (stretches.model().elements[bar.element].kind == ElementKind::truss) return;
    const bool continues =
        buckling != Buckling::cantilever &&
        goes_on(stretches.geometry(own.element), own.end, stretches.geometry(bar.element), bar.end);
    const Share share = share_of(stretches, bar, continues, about, buckling);
    sum.resisting += share.resisting;
    sum.loading += share.loading;
  });
  return sum;
}

}  // namespace

bool is_held_along(const Stretches& stretches, const Stretch& stretch, std::size_t end,
                   const Eigen::Vector3d& direction) {
  const model::Support* support = stretches.connectivity().support_of(stretch.nodes[end]);
  if (support == nullptr) return false;
  Eigen::Vector3d free = left_free(*support, 0, direction);
  const Eigen::Vector3d bar = stretches.geometry(stretch.ends[end].element).axes.row(0).transpose();
  const Eigen::Vector3d along = left_free(*support, 0, bar);
  // The bar keeps its length, so its end does not move along it either.
  if (along.norm() > steep) free -= free.dot(along) / along.squaredNorm() * along;
  return free.norm() <= alignment;
}

bool is_free_end(const Stretches& stretches, const Stretch& stretch, std::size_t end,
                 const Eigen::Vector3d& direction) {
  return stretches.connectivity().elements_at(stretch.nodes[end]).size() == 1 &&
         !is_held_along(stretches, stretch, end, direction);
}

double end_ratio(const Stretches& stretches, const Stretch& stretch, std::size_t end, Axis axis,
                 Buckling buckling) {
  constexpr double hinged = std::numeric_limits<double>::infinity();
  const ElementEnd& own = stretch.ends[end];
  if (is_released(stretches.model().elements[own.element], own.end, axis)) return hinged;
  const Eigen::Vector3d about = stretches.direction(stretch.ends[0].element, axis);
  const model::Support* support = stretches.connectivity().support_of(stretch.nodes[end]);
  if (fixes_rotation(support, about)) return 0.0;
  const Share bars = share_of_bars(stretches, stretch, end, about, buckling);
  const double resisting =
      bars.resisting + (support != nullptr ? spring_about(*support, about) : 0.0);
  if (resisting <= 0.0) return hinged;
  const double own_stiffness = stretch.stiffness[static_cast<std::size_t>(axis)] / stretch.length;
  return column_stiffness(buckling) * (own_stiffness + bars.loading) / resisting;
}

}  // namespace aluframe::members
