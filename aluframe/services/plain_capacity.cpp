#include "aluframe/services/plain_capacity.h"

#include <algorithm>
#include <numbers>

#include "aluframe/section/section_properties.h"

namespace aluframe::services {

namespace {

/// Resistance factor of the alloys.
constexpr double gamma_r = 1.2;

/// Shear force at which the largest stress is 1 N/mm²; 0 without Q/b.
double shear_modulus(double inertia, double q_over_b) {
  return q_over_b > 0.0 ? inertia / q_over_b : 0.0;
}

/// Torsion at which the largest stress is 1 N/mm².
double torsion_modulus(const model::Section& section, double it) {
  const auto& d = section.dimensions;
  switch (section.shape) {
    case model::Shape::channel:
    case model::Shape::h_section:
      return it / std::max({d[2], d[3], d[5]});
    case model::Shape::tee:
    case model::Shape::double_channel:
      return it / std::max(d[2], d[3]);
    case model::Shape::box: {
      const double enclosed = d[4] * (d[0] - (d[3] + d[5]) / 2.0);
      return 2.0 * enclosed * std::min({d[2], d[3], d[5]});
    }
    case model::Shape::pipe:
    case model::Shape::solid_round:
      return it / (d[0] / 2.0);
    case model::Shape::other:
      break;
  }
  return 0.0;
}

}  // namespace

PlainCapacity plain_capacity(const model::Model& model, model::Number element) {
  const model::Element* found = model.elements.find(element);
  if (found == nullptr) return {};
  const model::Section* section = model.sections.find(found->section);
  const model::Material* material = model.materials.find(found->material);
  if (section == nullptr || material == nullptr) return {};
  const model::SectionProperties properties = section::properties_of(*section);
  const double shear_strength = material->f02_thin / gamma_r / std::numbers::sqrt3;
  return {.shear_y = shear_strength * shear_modulus(properties.izz, properties.qzb),
          .shear_z = shear_strength * shear_modulus(properties.iyy, properties.qyb),
          .torsion = shear_strength * torsion_modulus(*section, properties.it)};
}

}  // namespace aluframe::services
