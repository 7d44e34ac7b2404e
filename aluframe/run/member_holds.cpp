#include "aluframe/run/member_holds.h"

#include <algorithm>
#include <cstddef>

#include "aluframe/members/end_support.h"
#include "aluframe/model/model.h"

namespace aluframe::run {

namespace {

using members::ElementEnd;
using members::MemberSegments;

bool meets_a_holding_beam(const MemberSegments& all, const std::vector<model::Number>& chain,
                          const ElementEnd& at) {
  const model::Model& model = all.model();
  const model::Number node = members::node_of(all, at);
  return std::ranges::any_of(all.connectivity().elements_at(node), [&](model::Number number) {
    const std::size_t place = model.elements.position(number);
    const model::Element& other = model.elements[place];
    if (other.kind != model::ElementKind::beam || std::ranges::find(chain, number) != chain.end()) {
      return false;
    }
    const ElementEnd near{place, other.nodes[0] == node ? 0UL : 1UL};
    const ElementEnd far{place, 1 - near.end};
    return !members::goes_on(all, at, near) && !all.is_cantilever_end(far);
  });
}

bool passes_twist_on(const MemberSegments& all, const ElementEnd& at) {
  constexpr std::size_t mx = 3;
  return !all.model().elements[at.element].released[6 * at.end + mx];
}

}  // namespace

std::vector<restraints::LateralHold> frame_holds(const MemberSegments& all,
                                                 const std::vector<model::Number>& chain,
                                                 const std::vector<MemberNode>& nodes) {
  std::vector<restraints::LateralHold> holds;
  for (const MemberNode& node : nodes) {
    const std::size_t element = node.end.element;
    const Eigen::Vector3d sideways = all.direction(element, members::Axis::y);
    const bool is_held =
        passes_twist_on(all, node.end) && !members::is_released_along(all, node.end, sideways) &&
        (members::is_restrained_along(all, node.end, sideways) ||
         (!all.is_cantilever_end(node.end) && meets_a_holding_beam(all, chain, node.end)));
    const bool is_fixed = members::fixes_rotation(members::support_at(all, node.end),
                                                  all.direction(element, members::Axis::z));
    if (!is_held && !is_fixed) continue;
    holds.push_back({.at = node.at,
                     .sideways = is_held,
                     .twist = is_held,
                     .rotation = is_fixed,
                     .top = false,
                     .bottom = false});
  }
  return holds;
}

bool has_assumed_twist(const MemberSegments& all, const std::vector<model::Number>& chain,
                       const MemberNode& node) {
  const std::size_t element = node.end.element;
  const Eigen::Vector3d along = all.geometry(element).axes.row(0).transpose();
  return passes_twist_on(all, node.end) &&
         members::is_restrained_along(all, node.end, all.direction(element, members::Axis::y)) &&
         !members::fixes_rotation(members::support_at(all, node.end), along) &&
         !meets_a_holding_beam(all, chain, node.end);
}

}  // namespace aluframe::run
