#include <algorithm>
#include <array>
#include <string>
#include <utility>

#include "aluframe/io/failure.h"
#include "aluframe/io/model_reader.h"
#include "aluframe/io/named_values.h"
#include "aluframe/io/text_file.h"
#include "aluframe/model/combinations.h"
#include "aluframe/texts/text.h"

namespace aluframe::io {

namespace {

using Source = model::CombinationTerm::Source;

constexpr auto load_case_fields =
    std::to_array<std::string_view>({"number", "name", "kind", "self_weight", "nodal", "span",
                                     "points", "temperature", "settlements", "action", "area"});
constexpr auto combination_fields = std::to_array<std::string_view>(
    {"number", "name", "kind", "terms", "seismic", "design", "serviceability"});
constexpr auto term_fields = std::to_array<std::string_view>({"case", "combination", "factor"});
/// Bytes of a message that lists the combinations of a cycle, which may be thousands.
constexpr std::size_t longest_cycle = 200;

/// The combination that a term may name is looked up when all are read.
model::CombinationTerm read_term(const JsonValue& value, const model::Model& model) {
  const JsonObject object(value, term_fields);
  const std::optional<JsonValue> load_case = object.optional("case");
  const std::optional<JsonValue> combination = object.optional("combination");
  if (load_case && combination) combination->fail(texts::translated("not allowed beside \"case\""));
  if (!load_case && !combination)
    value.fail(texts::translated("missing field \"case\" or \"combination\""));
  model::CombinationTerm term;
  if (load_case) {
    term.number = read_reference(*load_case, model.load_cases, texts::translated("load case"));
  } else {
    term.source = Source::combination;
    term.number = combination->entity_number();
  }
  term.factor = object.number_or("factor", 1.0);
  return term;
}

model::Combination read_combination(const JsonObject& object, const model::Model& model) {
  model::Combination combination;
  object.part([&] { combination.number = object.required("number").entity_number(); });
  object.part([&] { combination.name = object.plain_text_or("name", ""); });
  object.part([&] {
    if (const auto kind = object.optional("kind"))
      combination.kind = kind->one_of<model::CombinationKind>(combination_kinds);
  });
  object.part([&] { combination.seismic = object.boolean_or("seismic", false); });
  object.part([&] { combination.design = object.boolean_or("design", true); });
  object.part([&] { combination.serviceability = object.boolean_or("serviceability", false); });
  const JsonValue terms = object.required("terms");
  read_items(terms,
             [&](const JsonValue& term) { combination.terms.push_back(read_term(term, model)); });
  if (terms.list().empty())
    terms.fail_with(texts::translated("a combination needs at least one term"));
  return combination;
}

/// All cases that others act with, now that all cases are known.
void require_existing_cases(const JsonValue& list, const model::Model& model) {
  read_items(list, [&](const JsonValue& load_case) {
    const auto action = load_case.field("action");
    const auto other = action ? action->field("together_with") : std::nullopt;
    if (other) read_reference(*other, model.load_cases, texts::translated("load case"));
  });
}

/// All terms that name combinations, now that all combinations are known.
void require_existing_combinations(const JsonValue& list, const model::Model& model) {
  read_items(list, [&](const JsonValue& combination) {
    const auto terms = combination.field("terms");
    if (!terms) return;  // its fault is told
    read_items(*terms, [&](const JsonValue& term) {
      if (const auto number = term.field("combination")) {
        read_reference(*number, model.combinations, "combination");
      }
    });
  });
}

std::string path_of(const JsonValue& list, const model::CombinationProblem& problem) {
  return list.path() + '/' + std::to_string(problem.combination) + "/terms/" +
         std::to_string(problem.term);
}

void read_written_combinations(const JsonValue& list, model::Model& model) {
  const std::string path = list.path().substr(1);
  const std::size_t faults_before = list.faults() == nullptr ? 0 : list.faults()->count();
  read_entities(list, &model.combinations, [&](const JsonValue& value) {
    const JsonObject object(value, combination_fields);
    add_entity(object, model.combinations, read_combination(object, model), path);
  });
  require_existing_combinations(list, model);
  // Cycles name combinations by their places, which need all of them.
  if (list.faults() != nullptr && list.faults()->count() != faults_before) throw FollowsFromFault{};
  if (const auto problem = model::find_combination_problem(model.combinations)) {
    throw Failure{path_of(list, *problem), shown(problem->text, longest_cycle)};
  }
}

int read_moving_load_code(const JsonValue& value) {
  const int code = value.whole(model::moving_load_codes.front(), model::moving_load_codes.back());
  if (!std::ranges::binary_search(model::moving_load_codes, code)) {
    value.fail_with(texts::translated("must be 0 to 16, 18 or 100"));
  }
  return code;
}

}  // namespace

void read_load_cases(const JsonObject& root, const Scales& scales, model::Model& model) {
  root.part([&] {
    if (const auto code = root.optional("moving_load_code"))
      model.moving_load_code = read_moving_load_code(*code);
  });
  const std::optional<JsonValue> list = root.optional("load_cases");
  if (!list) return;
  read_entities(*list, &model.load_cases, [&](const JsonValue& value) {
    const JsonObject object(value, load_case_fields);
    model::LoadCase load_case;
    object.part([&] { load_case.number = object.required("number").entity_number(); });
    object.part([&] { load_case.name = object.plain_text_or("name", ""); });
    object.part([&] {
      if (const auto kind = object.optional("kind"))
        load_case.kind = kind->one_of<model::LoadCaseKind>(load_case_kinds);
    });
    load_case.loads = read_case_loads(object, scales, model);
    object.part([&] { load_case.action = read_action(object); });
    add_entity(object, model.load_cases, std::move(load_case), "load_cases");
  });
  require_existing_cases(*list, model);
}

void read_combinations(const JsonObject& root, model::Model& model) {
  std::optional<JsonValue> list = root.optional("combinations");
  const bool has_rule = list && list->kind() == JsonValue::Kind::object;
  if (has_rule) list = read_combination_rule(*list, model);
  const bool are_sound = root.part([&] {
    if (list) read_written_combinations(*list, model);
  });
  // What a rule with a fault would make is not known.
  if (has_rule && !model.combination_rule) throw FollowsFromFault{};
  // A rule goes by all cases and by all combinations that are written beside it.
  if (are_sound && !any_lost(root.value(), &model.load_cases)) make_combinations_by_rule(model);
}

}  // namespace aluframe::io
