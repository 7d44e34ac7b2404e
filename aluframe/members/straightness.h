#pragma once

#include <cmath>

#include "aluframe/analysis/local_axes.h"
#include "aluframe/model/members.h"
#include "aluframe/model/model.h"
#include "aluframe/model/orientation.h"

namespace aluframe::members {

/// Elements off one line by less than this, rad, are collinear: coordinates rounded to a millimetre
/// turn an element of a metre by as much.
inline constexpr double collinear_limit = 1e-3;

/// Length and local axes of an element, as the analysis has them.
inline analysis::Geometry geometry_of(const model::Model& model, const model::Element& element) {
  const auto point = [&](model::Number number) {
    const model::Node& node = *model.nodes.find(number);
    return analysis::Node{node.number, node.x, node.y, node.z};
  };
  return analysis::geometry_between(point(element.nodes[0]), point(element.nodes[1]), element.beta,
                                    model::reference_direction(model, element));
}

/// Direction in which an element leaves the node at one of its ends (0 start, 1 end).
inline Eigen::Vector3d away_from(const analysis::Geometry& element, std::size_t end) {
  const Eigen::Vector3d x = element.axes.row(0).transpose();
  return end == 0 ? x : Eigen::Vector3d(-x);
}

/// Whether two elements that meet with the given ends lie on one line, on both sides of the node.
inline bool are_collinear(const analysis::Geometry& a, std::size_t end_of_a,
                          const analysis::Geometry& b, std::size_t end_of_b) {
  const Eigen::Vector3d in = away_from(a, end_of_a);
  const Eigen::Vector3d out = away_from(b, end_of_b);
  return in.dot(out) < 0.0 && in.cross(out).norm() <= collinear_limit;
}

/// Whether the axes of two sections are parallel, each to its own: turned by 180° they bend alike.
inline bool have_parallel_axes(const analysis::Geometry& a, const analysis::Geometry& b) {
  return a.axes.row(2).cross(b.axes.row(2)).norm() <= collinear_limit;
}

/// Whether an element carries a frame as a column does: one by its member type, or an inclined one
/// within 30° of the vertical, a leg. Beams only; what the checks take it for is its member type.
inline bool is_upright(const model::Model& model, const model::Element& element,
                       const analysis::Geometry& geometry) {
  constexpr double cosine_of_30_degrees = 0.8660254;
  if (element.kind != model::ElementKind::beam) return false;
  const model::MemberType type = model::member_type(model, element);
  if (type == model::MemberType::column) return true;
  return type == model::MemberType::brace && !element.member_type &&
         std::abs(geometry.axes(0, 2)) >= cosine_of_30_degrees;
}

}  // namespace aluframe::members
