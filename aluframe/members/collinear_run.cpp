#include "aluframe/members/collinear_run.h"

#include <optional>

#include "aluframe/members/restraining_bar.h"

namespace aluframe::members {

namespace {

bool continues(const MemberSegments& segments, const ElementEnd& at, const ElementEnd& next) {
  const analysis::Geometry& here = segments.geometry(at.element);
  const analysis::Geometry& there = segments.geometry(next.element);
  return are_collinear(here, at.end, there, next.end) && have_parallel_axes(here, there) &&
         is_rigid(segments, at) && is_rigid(segments, next);
}

/// The one element that continues another past its end, or nothing.
std::optional<ElementEnd> continuation(const MemberSegments& segments, const ElementEnd& at,
                                       const Eigen::Vector3d& about, Meeting meeting) {
  if (acts_on_bending(segments, at, about)) return std::nullopt;
  std::optional<ElementEnd> next;
  bool is_joint = false;
  visit_others(segments, at, [&](const ElementEnd& other) {
    if (!next && continues(segments, at, other)) {
      next = other;
    } else {
      is_joint = is_joint || meeting == Meeting::none || bends_about(segments, other, about);
    }
  });
  return is_joint ? std::nullopt : next;
}

}  // namespace

MemberSegment collinear_run(const MemberSegments& segments, const MemberSegment& segment, Axis axis,
                            Meeting meeting) {
  const Eigen::Vector3d about = segments.direction(segment.ends[0].element, axis);
  MemberSegment run = segment;
  std::array<double, 2> sums{segment.stiffness[0] * segment.length,
                             segment.stiffness[1] * segment.length};
  for (const std::size_t end : {0U, 1U}) {
    for (auto next = continuation(segments, run.ends[end], about, meeting); next;
         next = continuation(segments, run.ends[end], about, meeting)) {
      const MemberSegment& onward = *segments.arm(*next).segment;
      if (&onward == &segment) break;  // bent members that the file names may close a ring
      const std::size_t far = onward.nodes[0] == run.nodes[end] ? 1 : 0;
      run.nodes[end] = onward.nodes[far];
      run.ends[end] = onward.ends[far];
      run.length += onward.length;
      for (std::size_t i = 0; i < 2; ++i) sums[i] += onward.stiffness[i] * onward.length;
    }
  }
  for (std::size_t i = 0; i < 2; ++i) run.stiffness[i] = sums[i] / run.length;
  return run;
}

}  // namespace aluframe::members
