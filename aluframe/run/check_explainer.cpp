#include "aluframe/run/check_explainer.h"

#include <algorithm>
#include <cmath>
#include <utility>

#include "aluframe/run/check_origins.h"
#include "aluframe/run/results.h"
#include "aluframe/run/session_options.h"
#include "aluframe/services/binding.h"
#include "aluframe/services/session.h"
#include "aluframe/store/digest.h"
#include "aluframe/texts/sentence.h"
#include "aluframe/texts/text.h"
#include "tz_alu/manager/dgnaludatamgr.h"

namespace aluframe::run {

namespace {

// What the module has of the check.

/// Design data and forces as the module assembles them for its checks.
struct CheckInput {
  ALU_DGN_DATA data;
  AluDgnSectForce force;
};

/// Makes the module ready for the elements, in the units of its checks.
void make_ready(const std::vector<model::Number>& elements) {
  IAluDgnDataMgr& manager = *IAluDgnDataMgr::Instance();
  constexpr T_UNIT_INDEX design_units{0, 2};
  manager.GetDoc()->GetUnitCtrl().SetUnitIndexCurrent(design_units, 0);
  IAluDgnDataMgr::KEYS keys;
  for (const model::Number element : elements) keys.Add(element);
  IAluDgnDataMgr::LCOMBS combinations;
  manager.GetDgnLCombs(combinations);
  manager.MakeBuffData(keys, combinations);
}

Result<CheckInput> assemble(model::Number element, const CheckPlace& place) {
  IAluDgnDataMgr& manager = *IAluDgnDataMgr::Instance();
  CheckInput input;
  if (manager.GetDgnData(element, input.data) == 0) {
    return Problem{texts::translated("element {}: its section has no checks", element)};
  }
  const T_LCOM_MAXMIN_K key = MakeLcombKey(place.combination, place.min_side);
  T_ALU_FORCE_D forces;
  if (manager.GetDgnForce(element, key, forces) == 0) {
    return Problem{texts::translated("element {}: there are no forces in combination {}", element,
                                     place.combination)};
  }
  const bool is_inner = place.position != 0 && place.position != kCheckPositions - 1;
  if (is_inner && forces.bInner == 0) {
    return Problem{
        texts::translated("--position: there are no forces at {} of element {}, only at I and J",
                          position_text(place.position), element)};
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

void add_step(store::Digest& digest, const explain::Step& step) {
  for (const std::string& text : {step.info.symbol, step.info.quantity, step.info.why}) {
    digest.add_text(text);
  }
  digest.add(step.value);
  digest.add_text(step.formula ? explain::formula(*step.formula) : "");
}

}  // namespace

struct CheckExplainer::Context {
  Context(const Input& of, const store::RunInfo& run, std::filesystem::path path)
      : input(of),
        info(run),
        results(std::move(path)),
        origins(of, run),
        session(of.model, session_options(of, results)),
        binding(session) {}

  const Input& input;
  const store::RunInfo& info;
  const std::filesystem::path results;
  const CheckOrigins origins;
  services::Session session;
  const services::Binding binding;

  /// What stands in the results must be what the steps end in.
  std::optional<Problem> difference(model::Number element, const CheckPlace& place,
                                    const T_RALU_RLT& now) const {
    const T_RALU_RLT stored = place.stored.value_or(T_RALU_RLT());
    if (is_same(stored.dDemand, now.dDemand) && is_same(stored.dCapacity, now.dCapacity)) {
      return std::nullopt;
    }
    return Problem{
        texts::translated("{}: element {} is stored with {} of {}, the checks now give {} of {}; "
                          "check the model again",
                          results.string(), element, stored.dDemand, stored.dCapacity, now.dDemand,
                          now.dCapacity),
        Problem::Kind::failure};
  }

  Result<explain::Explanation> explain(model::Number element, const CheckPlace& place,
                                       const CheckInput& of, const explain::Origins& from) const {
    try {
      auto outcome = explain::explain_item(of.data, of.force, place.item, from);
      if (const auto* none = std::get_if<explain::NotChecked>(&outcome)) {
        return Problem{texts::translated("element {} has no {} result at {} in {}: {}", element,
                                         item_name(place.item), position_text(place.position),
                                         texts::sentence_in_words(combination_text(info, place)),
                                         texts::sentence_in_words(none->why))};
      }
      auto& explanation = std::get<explain::Explanation>(outcome);
      if (auto problem = difference(element, place, explanation.result)) return *std::move(problem);
      return std::move(explanation);
    } catch (const explain::StepMismatch& mismatch) {
      return Problem{texts::translated("element {}: its steps do not give what the checks have: {}",
                                       element, mismatch.what()),
                     Problem::Kind::failure};
    }
  }

  Result<ExplainedCheck> explained(std::vector<model::Number> elements, const CheckPlace& place,
                                   const CheckInput& of, const explain::Origins& from) const {
    auto explanation = explain(elements.front(), place, of, from);
    if (auto* problem = std::get_if<Problem>(&explanation)) return std::move(*problem);
    const store::CombinationRow* row = row_of(info, place.combination);
    return ExplainedCheck{std::move(elements),
                          of.data.nMembType,
                          place,
                          row != nullptr ? row->state_of.value_or(row->number) : place.combination,
                          row != nullptr ? row->name : "",
                          row != nullptr && row->two_sides,
                          std::get<explain::Explanation>(std::move(explanation))};
  }
};

CheckExplainer::CheckExplainer(const Input& input, const store::RunInfo& info,
                               std::filesystem::path results,
                               const std::vector<model::Number>& elements)
    : context_(std::make_unique<Context>(input, info, std::move(results))) {
  make_ready(elements);
}

CheckExplainer::~CheckExplainer() = default;

Result<ExplainedCheck> CheckExplainer::explain(model::Number element,
                                               const CheckPlace& place) const {
  return explain(std::vector<model::Number>{element}, place);
}

Result<ExplainedCheck> CheckExplainer::explain(std::vector<model::Number> elements,
                                               const CheckPlace& place) const {
  auto assembled = assemble(elements.front(), place);
  if (auto* problem = std::get_if<Problem>(&assembled)) return std::move(*problem);
  const explain::Origins origins = context_->origins.of(elements, place);
  return context_->explained(std::move(elements), place, std::get<CheckInput>(assembled), origins);
}

Result<std::string> CheckExplainer::signature(model::Number element,
                                              const CheckPlace& place) const {
  auto assembled = assemble(element, place);
  if (auto* problem = std::get_if<Problem>(&assembled)) return std::move(*problem);
  explain::Origins origins = context_->origins.of({element}, place);
  // What names the element is left out; whether it belongs to a member stays.
  origins.forces.clear();
  origins.member = context_->origins.has_member(element) ? "member" : "";
  auto explained = context_->explain(element, place, std::get<CheckInput>(assembled), origins);
  if (auto* problem = std::get_if<Problem>(&explained)) return std::move(*problem);
  const auto& explanation = std::get<explain::Explanation>(explained);
  store::Digest digest;
  digest.add(place.item);
  digest.add(place.combination);
  digest.add(place.min_side);
  digest.add(place.position);
  digest.add(std::get<CheckInput>(assembled).data.nMembType);
  digest.add_text(explanation.check);
  for (const explain::StepPointer& step : explain::steps_of(explanation.ratio)) {
    add_step(digest, *step);
  }
  return digest.text();
}

}  // namespace aluframe::run
