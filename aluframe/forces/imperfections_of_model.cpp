#include "aluframe/forces/imperfections_of_model.h"

namespace aluframe::forces {

analysis::SecondOrderOptions second_order_options(const model::Model& model) {
  const model::Imperfections& given = model.analysis.imperfections;
  analysis::SecondOrderOptions options;
  options.imperfections.sway = {given.sway_x, given.sway_y};
  options.imperfections.bow = {given.bow_y, given.bow_z};
  options.imperfections.mode = given.mode;
  if (!options.imperfections.has_bow()) return options;
  for (const model::Member& member : model.members) {
    std::vector<std::size_t>& elements = options.imperfections.members.emplace_back();
    for (const model::Number number : member.elements) {
      elements.push_back(model.elements.position(number));
    }
  }
  return options;
}

}  // namespace aluframe::forces
