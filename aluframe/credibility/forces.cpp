#include <fmt/format.h>

#include <array>
#include <string_view>
#include <unordered_map>

#include "aluframe/credibility/kinds.h"
#include "aluframe/model/units.h"
#include "aluframe/section/section_properties.h"
#include "aluframe/texts/text.h"

namespace aluframe::credibility {

namespace {

/// What a section carries of N, Fy, Fz, My and Mz at the ultimate strength of a material, N and mm;
/// torsion is left out, for which open sections have next to nothing.
using Strengths = std::array<double, 6>;
constexpr std::array<std::string_view, 6> names{"N", "Fy", "Fz", "Mx", "My", "Mz"};
constexpr std::size_t torsion = 3;

double largest(const std::array<double, 4>& points) {
  double most = 0.0;
  for (const double point : points) most = std::max(most, std::abs(point));
  return most;
}

Strengths strengths_of(const model::Section& section, double strength) {
  const model::SectionProperties of = section::properties_of(section);
  const double axial = of.area * strength;
  return {axial,
          axial,
          axial,
          0.0,
          strength * of.iyy / largest(of.point_z),
          strength * of.izz / largest(of.point_y)};
}

struct Found {
  double times = 0.0;
  std::size_t component = 0;
  double force = 0.0;
  model::Number load_case = 0;
};

/// The force of the element that is most times its strength.
Found worst_of(const model::Model& model, std::size_t element, const Strengths& strengths) {
  Found worst;
  for (std::size_t c = 0; c < model.load_cases.size(); ++c) {
    const model::CaseForces* forces = model.forces.find(element, c);
    if (forces == nullptr) continue;
    for (const model::SectionForces& row : forces->at) {
      for (std::size_t i = 0; i < row.size(); ++i) {
        if (i == torsion) continue;
        const double force = std::abs(static_cast<double>(row[i]));
        const double times = force / strengths[i];
        if (times > worst.times) worst = {times, i, force, model.load_cases[c].number};
      }
    }
  }
  return worst;
}

}  // namespace

std::optional<Doubt> overwhelming_forces(const model::Model& model) {
  if (model.forces.given().empty()) return std::nullopt;
  Concerned concerned;
  Found worst;
  for (std::size_t e = 0; e < model.elements.size(); ++e) {
    const model::Element& element = model.elements[e];
    const Strengths strengths = strengths_of(*model.sections.find(element.section),
                                             model.materials.find(element.material)->fu);
    const Found found = worst_of(model, e, strengths);
    if (found.times <= times_the_strength) continue;
    concerned.add(element.number, found.times);
    if (found.times > worst.times) worst = found;
  }
  if (!concerned.worst) return std::nullopt;
  const double scale = worst.component < torsion ? 1e3 : 1e6;
  const std::string text = fmt::format(
      texts::translatable("/elements/{}: {} of element {} under load case {} is {:.3g} {}, {:.3g} "
                          "times what its section carries at its ultimate strength: are the loads "
                          "or forces in another unit than \"{}\"?"),
      model.elements.position(*concerned.worst), names[worst.component], *concerned.worst,
      worst.load_case, worst.force / scale, worst.component < torsion ? "kN" : "kNm", worst.times,
      model::name_of(model.units.force));
  return concerned.doubt(text);
}

}  // namespace aluframe::credibility
