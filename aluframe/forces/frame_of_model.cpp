#include "aluframe/forces/frame_of_model.h"

#include <algorithm>
#include <unordered_map>

#include "aluframe/model/orientation.h"
#include "aluframe/section/section_properties.h"
#include "aluframe/section/shear_areas.h"

namespace aluframe::forces {

namespace {

/// Stiffness of each pair of section and material, worked out once.
class Stiffnesses {
 public:
  explicit Stiffnesses(const model::Model& model) : model_(model) {}

  analysis::Stiffness of(const model::Element& element) {
    const model::Material& material = *model_.materials.find(element.material);
    const Constants& constants = of_section(element.section);
    return {.e = material.e,
            .g = material.e / (2.0 * (1.0 + material.poisson)),
            .area = constants.properties.area,
            .ay = constants.shear.y,
            .az = constants.shear.z,
            .it = constants.properties.it,
            .iyy = constants.properties.iyy,
            .izz = constants.properties.izz};
  }

 private:
  struct Constants {
    model::SectionProperties properties;
    section::ShearAreas shear;
  };

  const Constants& of_section(model::Number number) {
    const auto [entry, is_new] = constants_.try_emplace(number);
    if (is_new) {
      const model::Section& section = *model_.sections.find(number);
      entry->second = {section::properties_of(section), section::shear_areas_of(section)};
    }
    return entry->second;
  }

  const model::Model& model_;
  std::unordered_map<model::Number, Constants> constants_;
};

analysis::Element element_of(const model::Model& model, const model::Element& element,
                             Stiffnesses& stiffnesses) {
  const model::Material& material = *model.materials.find(element.material);
  const bool is_truss = element.kind == model::ElementKind::truss;
  return {.number = element.number,
          .start = model.nodes.position(element.nodes[0]),
          .end = model.nodes.position(element.nodes[1]),
          .stiffness = stiffnesses.of(element),
          .beta = element.beta,
          .reference = model::reference_direction(model, element),
          .kind = is_truss ? analysis::ElementKind::truss : analysis::ElementKind::beam,
          .released = element.released,
          .density = material.density,
          .expansion = material.thermal_expansion};
}

}  // namespace

analysis::Frame frame_of(const model::Model& model) {
  analysis::Frame frame;
  frame.nodes.reserve(model.nodes.size());
  for (const model::Node& node : model.nodes) {
    frame.nodes.push_back({node.number, node.x, node.y, node.z});
  }
  Stiffnesses stiffnesses(model);
  frame.elements.reserve(model.elements.size());
  for (const model::Element& element : model.elements) {
    frame.elements.push_back(element_of(model, element, stiffnesses));
  }
  for (const model::Support& support : model.supports) {
    const std::size_t node = model.nodes.position(support.node);
    frame.supports.push_back({node, support.restrained});
    const bool has_springs =
        std::ranges::any_of(support.springs, [](double k) { return k != 0.0; });
    if (has_springs) frame.springs.push_back({node, support.springs});
  }
  return frame;
}

}  // namespace aluframe::forces
