#include "aluframe/document/views.h"

#include <algorithm>

#include "aluframe/picture/point.h"

namespace aluframe::document {

namespace {

/// A frame that is narrower than this part of its length looks like a line.
constexpr double smallest_share = 1e-3;

bool is_more_than_a_line(const model::Model& model, picture::View view) {
  double left = 0.0, right = 0.0, bottom = 0.0, top = 0.0;
  bool is_first = true;
  for (const model::Node& node : model.nodes) {
    const picture::Point2 at = picture::project(view, {node.x, node.y, node.z});
    left = is_first ? at.x : std::min(left, at.x);
    right = is_first ? at.x : std::max(right, at.x);
    bottom = is_first ? at.y : std::min(bottom, at.y);
    top = is_first ? at.y : std::max(top, at.y);
    is_first = false;
  }
  const double width = right - left, height = top - bottom;
  return std::min(width, height) > smallest_share * std::max(width, height);
}

}  // namespace

std::vector<picture::View> views_of(const model::Model& model) {
  using picture::View;
  std::vector<View> views{View::iso};
  for (const View& view : {View::xz, View::yz, View::xy}) {
    if (is_more_than_a_line(model, view)) views.push_back(view);
  }
  return views;
}

}  // namespace aluframe::document
