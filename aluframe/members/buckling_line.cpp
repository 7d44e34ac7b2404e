#include "aluframe/members/buckling_line.h"

#include <optional>

namespace aluframe::members {

namespace {

/// Whether an element bends about both its axes up to its end.
bool passes_moments(const model::Element& element, std::size_t end) {
  constexpr std::size_t my = 4, mz = 5;
  return element.kind == model::ElementKind::beam && !element.released[6 * end + my] &&
         !element.released[6 * end + mz];
}

/// The element that alone continues another past its end, or nothing.
std::optional<ElementEnd> continuation(const Stretches& stretches, const ElementEnd& at,
                                       const Eigen::Vector3d& about) {
  const model::Table<model::Element>& elements = stretches.model().elements;
  const model::Element& element = elements[at.element];
  const model::Number node = node_of(stretches, at);
  const std::vector<model::Number>& meeting = stretches.connectivity().elements_at(node);
  if (meeting.size() != 2 || acts_on_bending(stretches, at, about)) return std::nullopt;
  const std::size_t place =
      elements.position(meeting[0] == element.number ? meeting[1] : meeting[0]);
  const model::Element& other = elements[place];
  const ElementEnd next{place, other.nodes[0] == node ? std::size_t{0} : std::size_t{1}};
  const analysis::Geometry& here = stretches.geometry(at.element);
  const analysis::Geometry& there = stretches.geometry(place);
  const bool goes_on_stiffly = goes_on(here, at.end, there, next.end) &&
                               stands_alike(here, there) && passes_moments(element, at.end) &&
                               passes_moments(other, next.end);
  return goes_on_stiffly ? std::optional(next) : std::nullopt;
}

}  // namespace

Stretch line_of(const Stretches& stretches, const Stretch& stretch, Axis axis) {
  const Eigen::Vector3d about = stretches.direction(stretch.ends[0].element, axis);
  Stretch line = stretch;
  std::array<double, 2> sums{stretch.stiffness[0] * stretch.length,
                             stretch.stiffness[1] * stretch.length};
  for (const std::size_t end : {0U, 1U}) {
    for (auto next = continuation(stretches, line.ends[end], about); next;
         next = continuation(stretches, line.ends[end], about)) {
      const Stretch& onward = *stretches.arm(*next).stretch;
      if (&onward == &stretch) break;  // bent members that the file names may close a ring
      const std::size_t far = onward.nodes[0] == line.nodes[end] ? 1 : 0;
      line.nodes[end] = onward.nodes[far];
      line.ends[end] = onward.ends[far];
      line.length += onward.length;
      for (std::size_t i = 0; i < 2; ++i) sums[i] += onward.stiffness[i] * onward.length;
    }
  }
  for (std::size_t i = 0; i < 2; ++i) line.stiffness[i] = sums[i] / line.length;
  return line;
}

}  // namespace aluframe::members
