#include "aluframe/run/check_origins.h"

#include <fmt/format.h>

#include <algorithm>

#include "aluframe/model/plain_text.h"
#include "aluframe/store/check_names.h"
#include "aluframe/texts/text.h"

namespace aluframe::run {

namespace {

using texts::translatable;

/// "1.3G "wind", maximum side": a combination by its number, and what else tells it from others.
std::string named_combination(const store::CombinationRow& row, int min_side) {
  const model::Number number = row.state_of.value_or(row.number);
  // The name is read from the result file: it must not look like other lines.
  const std::string name = model::without_control_characters(row.name);
  if (!row.two_sides) {
    return row.name.empty() ? fmt::format(translatable("combination {}"), number)
                            : fmt::format(translatable("combination {} \"{}\""), number, name);
  }
  if (row.name.empty()) {
    return min_side == 0 ? fmt::format(translatable("combination {}, maximum side"), number)
                         : fmt::format(translatable("combination {}, minimum side"), number);
  }
  return min_side == 0
             ? fmt::format(translatable("combination {} \"{}\", maximum side"), number, name)
             : fmt::format(translatable("combination {} \"{}\", minimum side"), number, name);
}

std::string section_text(const model::Section& section) {
  const std::string shape(model::name_of(section.shape));
  return fmt::format(translatable("section {}, {:s}"), section.number,
                     section.name.empty() ? shape : section.name);
}

std::string material_text(const model::Material& material) {
  const std::string& name = material.name.empty() ? material.grade : material.name;
  return name.empty() ? fmt::format(translatable("material {}"), material.number)
                      : fmt::format(translatable("material {}, {:s}"), material.number, name);
}

std::string forces_text(const std::vector<model::Number>& elements, const std::string& combination,
                        int position, const std::string& analysis) {
  const char* at = position_text(position);
  const std::string numbers = model::join_as_ranges(elements);
  return elements.size() == 1 ? fmt::format(translatable("{} at {} of element {}, forces: {}"),
                                            combination, at, numbers, analysis)
                              : fmt::format(translatable("{} at {} of elements {}, forces: {}"),
                                            combination, at, numbers, analysis);
}

/// Of what an element has by the restraints of its member.
constexpr const char* by_restraints = translatable("the restraints of the member");

std::string factor_text(const model::Element& element, const members::SegmentFactors* factors,
                        const services::RestrainedValues* restrained,
                        members::LengthFactor members::SegmentFactors::* axis,
                        double model::ElementDesign::AxisPair::* own) {
  if (element.design.length_factors) {
    return std::string(members::name_of(members::FactorSource::given_element));
  }
  const bool is_restrained = restrained != nullptr && restrained->length_factors;
  if (is_restrained &&
      (factors == nullptr || (*restrained->length_factors).*own != (factors->*axis).k)) {
    return by_restraints;
  }
  if (factors == nullptr) return {};
  return std::string(members::name_of((factors->*axis).source));
}

}  // namespace

const store::CombinationRow* row_of(const store::RunInfo& info, std::uint32_t number) {
  const auto found = std::ranges::find(info.combinations, number, &store::CombinationRow::number);
  return found == info.combinations.end() ? nullptr : &*found;
}

std::string combination_text(const store::RunInfo& info, const CheckPlace& place) {
  const store::CombinationRow* row = row_of(info, place.combination);
  if (row == nullptr) return fmt::format(translatable("combination {}"), place.combination);
  return named_combination(*row, place.min_side);
}

const char* position_text(int position) {
  return store::position_names.at(static_cast<std::size_t>(position));
}

CheckOrigins::CheckOrigins(const Input& input, const store::RunInfo& info)
    : input_(input), info_(info) {
  for (const members::SegmentFactors& of : input.length_factors) {
    for (const model::Number element : of.elements) factors_.try_emplace(element, &of);
  }
}

explain::Origins CheckOrigins::of(const std::vector<model::Number>& elements,
                                  const CheckPlace& place) const {
  const model::Element& element = *input_.model.elements.find(elements.front());
  const members::SegmentFactors* factors = factors_of(element.number);
  const services::RestrainedValues* restrained = restrained_of(element.number);
  const bool has_own = element.design.stability_coefficients.has_value();
  return {
      .forces = forces_text(elements, combination_text(info_, place), place.position,
                            info_.setup.analysis),
      .section = section_text(*input_.model.sections.find(element.section)),
      .material = material_text(*input_.model.materials.find(element.material)),
      .member = member_text(elements),
      .factor_y = factor_text(element, factors, restrained, &members::SegmentFactors::y,
                              &model::ElementDesign::AxisPair::y),
      .factor_z = factor_text(element, factors, restrained, &members::SegmentFactors::z,
                              &model::ElementDesign::AxisPair::z),
      .coefficient = !has_own && restrained != nullptr && restrained->phi_b ? by_restraints : "",
      .settings = translatable("design settings")};
}

const members::SegmentFactors* CheckOrigins::factors_of(model::Number element) const {
  const auto found = factors_.find(element);
  return found == factors_.end() ? nullptr : found->second;
}

const services::RestrainedValues* CheckOrigins::restrained_of(model::Number element) const {
  const auto& restrained = input_.restrained.elements;
  const auto found = restrained.find(element);
  return found == restrained.end() ? nullptr : &found->second;
}

bool CheckOrigins::has_member(model::Number element) const {
  const members::SegmentFactors* factors = factors_of(element);
  return factors != nullptr && factors->member;
}

std::string CheckOrigins::member_text(const std::vector<model::Number>& elements) const {
  const members::SegmentFactors* first = factors_of(elements.front());
  const std::string numbers = model::join_as_ranges(elements);
  if (first == nullptr || !first->member) {
    return elements.size() == 1
               ? fmt::format(translatable("element {}, which belongs to no member"), numbers)
               : fmt::format(translatable("elements {}, which belong to no member"), numbers);
  }
  const bool is_one = std::ranges::all_of(
      elements, [&](model::Number element) { return factors_of(element) == first; });
  if (!is_one) return fmt::format(translatable("the members of elements {}"), numbers);
  std::vector<model::Number> whole = first->elements;
  std::ranges::sort(whole);
  return fmt::format(translatable("member {}, element {}"), *first->member,
                     model::join_as_ranges(whole));
}

}  // namespace aluframe::run
