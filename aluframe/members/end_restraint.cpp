#include "aluframe/members/end_restraint.h"

#include <limits>

#include "aluframe/members/restraining_bar.h"

namespace aluframe::members {

namespace {

/// Rotational stiffness of a bar in EI/L, by how the frame buckles and by its far end.
///
/// Source: AISC 360-16 commentary, appendix 7.2 (adjustments of beams for far ends); its 2 and 6 of
/// rigid far ends are those of single and double curvature. Without a column there that sways as
/// well nothing makes the far end turn like the near one, and the bar has no more than on a hinge.
constexpr double bar_stiffness[3][5] = {
    // column, beams, hinged, fixed, free
    {2.0, 2.0, 3.0, 4.0, 0.0},  // non-sway
    {6.0, 3.0, 3.0, 4.0, 0.0},  // sway
    {3.0, 3.0, 3.0, 4.0, 0.0},  // cantilever
};

/// The stiffness of a column that G compares with, in EI/L: that of a bar in the same curvature.
double column_stiffness(Buckling buckling) {
  return buckling == Buckling::non_sway ? 2.0 : 6.0;
}

/// What a bar at an end adds to the resistance of the joint and to the columns that load it.
struct Share {
  double resisting = 0.0, loading = 0.0;
};

double resisting(const RestrainingBar& bar, Buckling buckling) {
  return bar_stiffness[static_cast<std::size_t>(buckling)][static_cast<std::size_t>(bar.far_end)] /
         bar.flexibility;
}

Share share_of(const MemberSegments& segments, const ElementEnd& bar, bool continues,
               const Eigen::Vector3d& about, Buckling buckling) {
  Share share;
  for (const Axis axis : {Axis::y, Axis::z}) {
    if (is_released(segments, bar, axis)) continue;
    const double component = about.dot(segments.direction(bar.element, axis));
    const double part = component * component;
    if (part <= alignment * alignment) continue;
    if (continues) {
      const MemberSegments::Arm arm = segments.arm(bar);
      share.loading += part * arm.segment->stiffness[static_cast<std::size_t>(axis)] / arm.length;
    } else {
      share.resisting += part * resisting(bar_from(segments, bar, axis), buckling);
    }
  }
  return share;
}

/// What the elements at an end add together.
Share share_of_bars(const MemberSegments& segments, const ElementEnd& own,
                    const Eigen::Vector3d& about, Buckling buckling) {
  Share sum;
  visit_others(segments, own, [&](const ElementEnd& bar) {
    if (segments.model().elements[bar.element].kind == model::ElementKind::truss) return;
    const bool continues =
        buckling != Buckling::cantilever && are_collinear(segments.geometry(own.element), own.end,
                                                          segments.geometry(bar.element), bar.end);
    const Share share = share_of(segments, bar, continues, about, buckling);
    sum.resisting += share.resisting;
    sum.loading += share.loading;
  });
  return sum;
}

}  // namespace

double end_ratio(const MemberSegments& segments, const MemberSegment& segment, std::size_t end,
                 Axis axis, Buckling buckling) {
  constexpr double hinged = std::numeric_limits<double>::infinity();
  const ElementEnd& own = segment.ends[end];
  if (is_released(segments, own, axis)) return hinged;
  // What a cantilever carries at its tip turns with it.
  if (buckling == Buckling::cantilever && segments.is_cantilever_end(own)) return hinged;
  const Eigen::Vector3d about = segments.direction(segment.ends[0].element, axis);
  const model::Support* support = support_at(segments, own);
  if (fixes_rotation(support, about)) return 0.0;
  const Share bars = share_of_bars(segments, own, about, buckling);
  const double resistance = bars.resisting + spring_about(support, about);
  if (resistance <= 0.0) return hinged;
  const double own_stiffness = segment.stiffness[static_cast<std::size_t>(axis)] / segment.length;
  return column_stiffness(buckling) * (own_stiffness + bars.loading) / resistance;
}

}  // namespace aluframe::members
