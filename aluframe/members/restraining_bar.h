#pragma once

#include "aluframe/members/end_support.h"

/// A bar that resists the rotation of a joint: how soft it is, and how it ends.
namespace aluframe::members {

/// What a bar that is bent from one end finds at its other one.
enum class FarEnd {
  column,  ///< a joint with a column that turns with it
  beams,   ///< a joint with other bars only, or with a spring
  hinged,  ///< nothing that resists its rotation
  fixed,   ///< a support that fixes its rotation
  free     ///< nothing at all
};

/// A bar from a joint to the next one. However many elements, members and sections it is made of,
/// it bends as one: it goes on through a node where exactly one other element bends about its axis,
/// round a corner as well (over the ridge of a gable frame), and ends
/// - at a release about its axis, a support or a spring that acts in its plane of bending,
/// - where several elements bend about its axis,
/// - where a column stands, hinged or not; a bar of columns ends where there is none above.
struct RestrainingBar {
  double flexibility = 0.0;  ///< sum of L/EI of its elements, 1/(N·mm)
  FarEnd far_end = FarEnd::free;
};

/// The bar that begins with an element's end, bent about that element's axis.
RestrainingBar bar_from(const MemberSegments& segments, const ElementEnd& at, Axis axis);

/// Calls `visit` with every element end at the node of one but that one.
template <class Visit>
void visit_others(const MemberSegments& segments, const ElementEnd& at, Visit visit) {
  const model::Table<model::Element>& elements = segments.model().elements;
  const model::Number node = node_of(segments, at);
  for (const model::Number number : segments.connectivity().elements_at(node)) {
    const std::size_t place = elements.position(number);
    if (place == at.element) continue;
    visit(ElementEnd{place, elements[place].nodes[0] == node ? std::size_t{0} : std::size_t{1}});
  }
}

/// Whether an element's end passes a moment about an axis on to its bending: a beam whose own axes,
/// as far as they are not released there, lie within 45° of it.
bool bends_about(const MemberSegments& segments, const ElementEnd& at,
                 const Eigen::Vector3d& about);

/// Whether an element's end is released about an axis of its own.
bool is_released(const MemberSegments& segments, const ElementEnd& at, Axis axis);

}  // namespace aluframe::members
