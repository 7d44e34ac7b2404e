#pragma once

#include <gmock/gmock.h>

#include <set>
#include <string>
#include <utility>
#include <vector>

#include "aluframe/combinations/make_combinations.h"

namespace aluframe::combinations {

using model::Action;
using model::ActionKind;
using model::CombinationRule;
using model::CombinationType;

/// A model of named load cases 1, 2, 3 ... and nothing else.
inline model::Model model_of(const std::vector<std::pair<std::string, Action>>& actions) {
  model::Model model;
  model::Number number = 0;
  for (const auto& [name, action] : actions) {
    model::LoadCase load_case;
    load_case.number = ++number;
    load_case.name = name;
    load_case.action = action;
    model.load_cases.add(load_case);
  }
  return model;
}

inline std::vector<MadeCombination> made_of(const model::Model& model,
                                            const CombinationRule& rule) {
  auto made = make_combinations(model, rule);
  if (const auto* fault = std::get_if<Fault>(&made)) {
    ADD_FAILURE() << fault->place << ": " << fault->text;
    return {};
  }
  return std::get<std::vector<MadeCombination>>(std::move(made));
}

/// Names of the combinations of a type.
inline std::vector<std::string> names_of(const model::Model& model, CombinationType type,
                                         CombinationRule rule = {.rule = "GB 50068-2018"}) {
  rule.types = {type};
  std::vector<std::string> names;
  for (const MadeCombination& made : made_of(model, rule)) names.push_back(made.name);
  return names;
}

inline Fault fault_of(const model::Model& model,
                      const CombinationRule& rule = {.rule = "GB 50068-2018"}) {
  auto made = make_combinations(model, rule);
  if (const auto* fault = std::get_if<Fault>(&made)) return *fault;
  ADD_FAILURE() << "combinations were made";
  return {};
}

inline const Action dead{.kind = ActionKind::permanent};
inline const Action office{.kind = ActionKind::live, .category = "office"};
inline const Action roof{.kind = ActionKind::live, .category = "roof"};
inline const Action snow{.kind = ActionKind::snow, .category = "II"};
inline const Action wind{.kind = ActionKind::wind};
inline const Action earthquake{.kind = ActionKind::earthquake};

}  // namespace aluframe::combinations
