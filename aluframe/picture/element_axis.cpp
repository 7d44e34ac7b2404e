#include "aluframe/picture/element_axis.h"

#include "aluframe/analysis/local_axes.h"
#include "aluframe/model/orientation.h"

namespace aluframe::picture {

namespace {

analysis::Node node_at(const Point3& point) {
  return {.number = 0, .x = point.x, .y = point.y, .z = point.z};
}

}  // namespace

Point3 point_of(const model::Model& model, model::Number node) {
  const model::Node& found = *model.nodes.find(node);
  return {found.x, found.y, found.z};
}

ElementAxis axis_of(const model::Model& model, const model::Element& element) {
  ElementAxis out{point_of(model, element.nodes[0]), point_of(model, element.nodes[1]), {}};
  const auto geometry =
      analysis::geometry_between(node_at(out.start), node_at(out.end), element.beta,
                                 model::reference_direction(model, element));
  for (std::size_t i = 0; i < 3; ++i) {
    const auto row = static_cast<Eigen::Index>(i);
    out.axes[i] = {geometry.axes(row, 0), geometry.axes(row, 1), geometry.axes(row, 2)};
  }
  return out;
}

}  // namespace aluframe::picture
