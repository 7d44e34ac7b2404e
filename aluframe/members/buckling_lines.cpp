#include "aluframe/members/buckling_lines.h"

#include <numeric>
#include <optional>

#include "aluframe/members/end_support.h"
#include "aluframe/members/restraining_bar.h"

namespace aluframe::members {

namespace {

/// The one element that an end goes on in, where nothing holds it there.
std::optional<ElementEnd> continuation(const MemberSegments& segments, const ElementEnd& at,
                                       const Eigen::Vector3d& about) {
  if (!is_rigid(segments, at) || acts_on_bending(segments, at, about)) return std::nullopt;
  std::optional<ElementEnd> next;
  bool is_held = false;
  visit_others(segments, at, [&](const ElementEnd& other) {
    if (!is_rigid(segments, other)) return;
    if (!next && goes_on(segments, at, other)) {
      next = other;
    } else {
      is_held = is_held || !segments.is_cantilever_end({other.element, 1 - other.end});
    }
  });
  return is_held ? std::nullopt : next;
}

/// Numbers of sets that are joined one by one.
class JoinedSets {
 public:
  explicit JoinedSets(std::size_t count) : parent_(count) {
    std::iota(parent_.begin(), parent_.end(), std::size_t{0});
  }
  std::size_t of(std::size_t member) const {
    while (parent_[member] != member) member = parent_[member];
    return member;
  }
  void join(std::size_t a, std::size_t b) { parent_[of(a)] = of(b); }

 private:
  std::vector<std::size_t> parent_;
};

}  // namespace

std::vector<std::size_t> buckling_lines(const MemberSegments& segments, Axis axis) {
  const std::vector<MemberSegment>& all = segments.all();
  JoinedSets lines(all.size());
  for (std::size_t i = 0; i < all.size(); ++i) {
    for (const ElementEnd& end : all[i].ends) {
      const auto next = continuation(segments, end, segments.direction(end.element, axis));
      if (!next) continue;
      lines.join(i, static_cast<std::size_t>(segments.arm(*next).segment - all.data()));
    }
  }
  std::vector<std::size_t> numbers(all.size());
  for (std::size_t i = 0; i < all.size(); ++i) numbers[i] = lines.of(i);
  return numbers;
}

}  // namespace aluframe::members
