#include "aluframe/viewport/element_lines.h"

#include "aluframe/analysis/local_axes.h"
#include "aluframe/model/orientation.h"

namespace aluframe::viewport {

namespace {

analysis::Node node_at(const Point3& point) {
  return {.number = 0, .x = point.x, .y = point.y, .z = point.z};
}

Point3 point_of(const model::Model& model, model::Number node) {
  const model::Node& found = *model.nodes.find(node);
  return {found.x, found.y, found.z};
}

ElementLine line_of(const model::Model& model, const model::Element& element) {
  ElementLine out{
      element.number, point_of(model, element.nodes[0]), point_of(model, element.nodes[1]), {}};
  const auto geometry =
      analysis::geometry_between(node_at(out.start), node_at(out.end), element.beta,
                                 model::reference_direction(model, element));
  for (std::size_t i = 0; i < 3; ++i) {
    const auto row = static_cast<Eigen::Index>(i);
    out.axes[i] = {geometry.axes(row, 0), geometry.axes(row, 1), geometry.axes(row, 2)};
  }
  return out;
}

}  // namespace

std::vector<ElementLine> element_lines(const model::Model& model) {
  std::vector<ElementLine> out;
  out.reserve(model.elements.size());
  for (const model::Element& element : model.elements) out.push_back(line_of(model, element));
  return out;
}

std::vector<Point3> ends_of(const std::vector<ElementLine>& lines) {
  std::vector<Point3> out;
  out.reserve(2 * lines.size());
  for (const ElementLine& line : lines) {
    out.push_back(line.start);
    out.push_back(line.end);
  }
  return out;
}

}  // namespace aluframe::viewport
