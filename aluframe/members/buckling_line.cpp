#include "aluframe/members/buckling_line.h"

#include <optional>

#include "aluframe/members/restraining_bar.h"

namespace aluframe::members {

namespace {

/// Whether an element bends about both its axes up to its end.
bool passes_moments(const model::Element& element, std::size_t end) {
  constexpr std::size_t my = 4, mz = 5;
  return element.kind == model::ElementKind::beam && !element.released[6 * end + my] &&
         !element.released[6 * end + mz];
}

bool continues(const Stretches& stretches, const ElementEnd& at, const ElementEnd& next) {
  const model::Table<model::Element>& elements = stretches.model().elements;
  const analysis::Geometry& here = stretches.geometry(at.element);
  const analysis::Geometry& there = stretches.geometry(next.element);
  return goes_on(here, at.end, there, next.end) && stands_alike(here, there) &&
         passes_moments(elements[at.element], at.end) &&
         passes_moments(elements[next.element], next.end);
}

/// The one element that continues another past its end, or nothing.
std::optional<ElementEnd> continuation(const Stretches& stretches, const ElementEnd& at,
                                       const Eigen::Vector3d& about, Meeting meeting) {
  if (acts_on_bending(stretches, at, about)) return std::nullopt;
  std::optional<ElementEnd> next;
  bool is_joint = false;
  visit_others(stretches, at, [&](const ElementEnd& other) {
    if (!next && continues(stretches, at, other)) {
      next = other;
    } else {
      is_joint = is_joint || meeting == Meeting::none || bends_about(stretches, other, about);
    }
  });
  return is_joint ? std::nullopt : next;
}

}  // namespace

Stretch line_of(const Stretches& stretches, const Stretch& stretch, Axis axis, Meeting meeting) {
  const Eigen::Vector3d about = stretches.direction(stretch.ends[0].element, axis);
  Stretch line = stretch;
  std::array<double, 2> sums{stretch.stiffness[0] * stretch.length,
                             stretch.stiffness[1] * stretch.length};
  for (const std::size_t end : {0U, 1U}) {
    for (auto next = continuation(stretches, line.ends[end], about, meeting); next;
         next = continuation(stretches, line.ends[end], about, meeting)) {
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
