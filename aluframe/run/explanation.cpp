#include "aluframe/run/explanation.h"

#include <fmt/format.h>

#include <algorithm>
#include <cmath>
#include <memory>
#include <utility>

#include "aluframe/model/plain_text.h"
#include "aluframe/run/results.h"
#include "aluframe/run/session_options.h"
#include "aluframe/services/binding.h"
#include "aluframe/services/session.h"
#include "tz_alu/manager/dgnaludatamgr.h"

namespace aluframe::run {

namespace {

/// "I", "1/4", ... as everywhere.
constexpr const char* positions[kCheckPositions] = {"I", "1/4", "1/2", "3/4", "J"};

const store::CombinationRow* row_of(const store::RunInfo& info, std::uint32_t number) {
  const auto found = std::ranges::find(info.combinations, number, &store::CombinationRow::number);
  return found == info.combinations.end() ? nullptr : &*found;
}

/// "combination 3 "wind"", of a state that of its envelope.
std::string combination_text(const store::RunInfo& info, const CheckPlace& place) {
  const store::CombinationRow* row = row_of(info, place.combination);
  if (row == nullptr) return fmt::format("combination {}", place.combination);
  std::string text = fmt::format("combination {}", row->state_of.value_or(row->number));
  // The name is read from the result file: it must not look like other lines.
  if (!row->name.empty()) {
    text += fmt::format(" \"{}\"", model::without_control_characters(row->name));
  }
  if (row->two_sides) text += place.min_side == 0 ? ", maximum side" : ", minimum side";
  return text;
}

// Where the input is from.

std::string section_text(const model::Section& section) {
  const std::string shape(model::name_of(section.shape));
  return section.name.empty() ? fmt::format("section {}, {}", section.number, shape)
                              : fmt::format("section {}, {}", section.number, section.name);
}

std::string material_text(const model::Material& material) {
  const std::string& name = material.name.empty() ? material.grade : material.name;
  return name.empty() ? fmt::format("material {}", material.number)
                      : fmt::format("material {}, {}", material.number, name);
}

const members::SegmentFactors* factors_of(const Input& input, model::Number element) {
  const auto found = std::ranges::find_if(input.length_factors, [&](const auto& of) {
    return std::ranges::find(of.elements, element) != of.elements.end();
  });
  return found == input.length_factors.end() ? nullptr : &*found;
}

std::string member_text(const members::SegmentFactors* factors, model::Number element) {
  if (factors == nullptr || !factors->member) {
    return fmt::format("element {}, which belongs to no member", element);
  }
  std::vector<model::Number> elements = factors->elements;
  std::ranges::sort(elements);
  return fmt::format("member {}, element {}", *factors->member, model::join_as_ranges(elements));
}

std::string factor_text(const model::Element& element, const members::SegmentFactors* factors,
                        members::LengthFactor members::SegmentFactors::* axis) {
  if (element.design.length_factors) {
    return std::string(members::name_of(members::FactorSource::given_element));
  }
  if (factors == nullptr) return {};
  return std::string(members::name_of((factors->*axis).source));
}

explain::Origins origins_of(const Input& input, const store::RunInfo& info, const CheckPlace& place,
                            const model::Element& element) {
  const members::SegmentFactors* factors = factors_of(input, element.number);
  return {.forces = fmt::format("{} at {} of element {}, forces: {}", combination_text(info, place),
                                positions[place.position], element.number, info.setup.analysis),
          .section = section_text(*input.model.sections.find(element.section)),
          .material = material_text(*input.model.materials.find(element.material)),
          .member = member_text(factors, element.number),
          .factor_y = factor_text(element, factors, &members::SegmentFactors::y),
          .factor_z = factor_text(element, factors, &members::SegmentFactors::z),
          .settings = "design settings"};
}

// What the module has of the check.

/// Design data and forces as the module assembles them for its checks.
struct CheckInput {
  ALU_DGN_DATA data;
  AluDgnSectForce force;
};

/// Of a host that is bound.
Result<CheckInput> assemble(model::Number element, const CheckPlace& place) {
  IAluDgnDataMgr& manager = *IAluDgnDataMgr::Instance();
  constexpr T_UNIT_INDEX design_units{0, 2};
  manager.GetDoc()->GetUnitCtrl().SetUnitIndexCurrent(design_units, 0);
  IAluDgnDataMgr::KEYS keys;
  keys.Add(element);
  IAluDgnDataMgr::LCOMBS combinations;
  manager.GetDgnLCombs(combinations);
  manager.MakeBuffData(keys, combinations);
  CheckInput input;
  if (manager.GetDgnData(element, input.data) == 0) {
    return Problem{fmt::format("element {}: its section has no checks", element)};
  }
  const T_LCOM_MAXMIN_K key = MakeLcombKey(place.combination, place.min_side);
  T_ALU_FORCE_D forces;
  if (manager.GetDgnForce(element, key, forces) == 0) {
    return Problem{fmt::format("element {}: there are no forces in combination {}", element,
                               place.combination)};
  }
  const bool is_inner = place.position != 0 && place.position != kCheckPositions - 1;
  if (is_inner && forces.bInner == 0) {
    return Problem{
        fmt::format("--position: there are no forces at {} of element {}, only at I "
                    "and J",
                    positions[place.position], element)};
  }
  AluDgnEndForce end;
  manager.GetDgnEndForce(end, element, key, forces);
  manager.GetDgnSectForce(end, forces, place.position, input.force);
  input.force.bEndSect = manager.IsEndSectCal(element, place.position);
  return input;
}

bool is_same(double a, double b) {
  return a == b || (std::isnan(a) && std::isnan(b));
}

/// What stands in the results must be what the steps end in.
std::optional<Problem> difference(const ExplanationOptions& options, const CheckPlace& place,
                                  const T_RALU_RLT& now) {
  const T_RALU_RLT stored = place.stored.value_or(T_RALU_RLT());
  if (is_same(stored.dDemand, now.dDemand) && is_same(stored.dCapacity, now.dCapacity)) {
    return std::nullopt;
  }
  return Problem{fmt::format("{}: element {} is stored with {} of {}, the checks now give {} of "
                             "{}; check the model again",
                             options.results.string(), options.wanted.element, stored.dDemand,
                             stored.dCapacity, now.dDemand, now.dCapacity),
                 Problem::Kind::failure};
}

Result<explain::Explanation> explanation_of(const ExplanationOptions& options,
                                            const CheckPlace& place, const CheckInput& input,
                                            const explain::Origins& origins,
                                            const std::string& where) {
  try {
    auto outcome = explain::explain_item(input.data, input.force, place.item, origins);
    if (const auto* none = std::get_if<explain::NotChecked>(&outcome)) {
      return Problem{fmt::format("element {} has no {} result at {} in {}: {}",
                                 options.wanted.element, item_name(place.item),
                                 positions[place.position], where, none->why)};
    }
    auto& explanation = std::get<explain::Explanation>(outcome);
    if (auto problem = difference(options, place, explanation.result)) return *std::move(problem);
    return std::move(explanation);
  } catch (const explain::StepMismatch& mismatch) {
    return Problem{fmt::format("element {}: its steps do not give what the checks have: {}",
                               options.wanted.element, mismatch.what()),
                   Problem::Kind::failure};
  }
}

Result<ExplainedCheck> explain_with(const ExplanationOptions& options, const Input& input,
                                    const store::RunInfo& info, const CheckPlace& place) {
  services::Session session(input.model, session_options(input, options.results));
  const services::Binding binding(session);
  const model::Element* element = input.model.elements.find(options.wanted.element);
  if (element == nullptr) {
    return Problem{fmt::format("--element: there is no element {}", options.wanted.element)};
  }
  auto assembled = assemble(element->number, place);
  if (auto* problem = std::get_if<Problem>(&assembled)) return std::move(*problem);
  const auto& data = std::get<CheckInput>(assembled);
  auto explained = explanation_of(options, place, data, origins_of(input, info, place, *element),
                                  combination_text(info, place));
  if (auto* problem = std::get_if<Problem>(&explained)) return std::move(*problem);
  const store::CombinationRow* row = row_of(info, place.combination);
  return ExplainedCheck{element->number,
                        data.data.nMembType,
                        place,
                        row != nullptr ? row->state_of.value_or(row->number) : place.combination,
                        row != nullptr ? row->name : "",
                        row != nullptr && row->two_sides,
                        std::get<explain::Explanation>(std::move(explained))};
}

/// What stands in the way of going by the results; nothing when they can be gone by.
std::optional<Problem> missing_results(const ExplanationOptions& options) {
  if (const auto text = left_instead_text(options.results)) return Problem{*text};
  std::error_code ignored;
  if (std::filesystem::exists(options.results, ignored)) return std::nullopt;
  return Problem{fmt::format("{}: there is no such file; check the model first: aluframe check {}",
                             options.results.string(), options.input.model.string())};
}

}  // namespace

Result<ExplainedCheck> explain_check(const ExplanationOptions& options) {
  if (auto problem = missing_results(options)) return *std::move(problem);
  const auto reader = store::ResultReader::open(options.results);
  const auto place = find_check(*reader, options.wanted);
  if (const auto* problem = std::get_if<Problem>(&place)) {
    return Problem{fmt::format("{}: {}", options.results.string(), problem->text), problem->kind};
  }
  auto prepared = prepare_like(options.results, options.input, {});
  if (auto* problem = std::get_if<Problem>(&prepared)) return std::move(*problem);
  const auto& input = std::get<Input>(prepared);
  if (input.digest != reader->info().model_digest) {
    return Problem{other_state_text(options.input.model, options.results)};
  }
  return explain_with(options, input, reader->info(), std::get<CheckPlace>(place));
}

}  // namespace aluframe::run
