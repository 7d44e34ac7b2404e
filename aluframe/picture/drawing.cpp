#include "aluframe/picture/drawing.h"

#include <algorithm>
#include <cmath>

namespace aluframe::picture {

namespace {

SeenElement seen(const model::Model& model, const model::Element& element, const View& view) {
  SeenElement out{axis_of(model, element), &element};
  out.is_end_on = is_end_on(view, out.axes[0]);
  out.along = unit_of(project(view, out.axes[0]));
  return out;
}

double extent(const model::Model& model, const View& view) {
  Point2 low = project(view, point_of(model, model.nodes[0].number)), high = low;
  for (const model::Node& node : model.nodes) {
    const Point2 at = project(view, {node.x, node.y, node.z});
    low = {std::min(low.x, at.x), std::min(low.y, at.y)};
    high = {std::max(high.x, at.x), std::max(high.y, at.y)};
  }
  return std::max(high.x - low.x, high.y - low.y);
}

double median_length(const std::vector<SeenElement>& elements) {
  std::vector<double> lengths;
  for (const SeenElement& one : elements) {
    const Point3 span = one.end - one.start;
    lengths.push_back(std::sqrt(dot(span, span)));
  }
  const auto middle = lengths.begin() + static_cast<std::ptrdiff_t>(lengths.size() / 2);
  std::ranges::nth_element(lengths, middle);
  return *middle;
}

}  // namespace

Point3 global_axis(std::size_t axis) {
  return {axis == 0 ? 1.0 : 0.0, axis == 1 ? 1.0 : 0.0, axis == 2 ? 1.0 : 0.0};
}

Drawing drawing_of(const model::Model& model, const Content& content, Scene& scene) {
  Drawing out{model, content, scene, {}, extent(model, content.view)};
  for (const model::Element& element : model.elements) {
    out.elements.push_back(seen(model, element, content.view));
  }
  // As long as one reads it, and where elements are long no longer than neighbours leave room for.
  constexpr double least = 0.05, most = 0.12;
  out.ordinate = std::clamp(0.5 * median_length(out.elements), least * out.size, most * out.size);
  return out;
}

}  // namespace aluframe::picture
