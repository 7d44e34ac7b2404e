#include "aluframe/viewport/element_lines.h"

namespace aluframe::viewport {

std::vector<ElementLine> element_lines(const model::Model& model) {
  std::vector<ElementLine> out;
  out.reserve(model.elements.size());
  for (const model::Element& element : model.elements) {
    out.push_back({picture::axis_of(model, element), element.number});
  }
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
