#pragma once

#include <optional>
#include <string>
#include <variant>
#include <vector>

#include "aluframe/combinations/fault.h"
#include "aluframe/combinations/patterns.h"
#include "aluframe/model/model.h"

/// Load combinations made by the rule of a design code from what the load cases say of their
/// actions (docs/combinations.md).
///
///     const auto made = combinations::make_combinations(model, {.rule = "GB 50068-2018"});
///     if (const auto* fault = std::get_if<combinations::Fault>(&made)) ...
namespace aluframe::combinations {

/// A load case of a combination.
struct MadeTerm {
  model::Number load_case = 0;
  double sign = 1.0;
  Factor factor;

  double value() const { return sign * factor.value(); }
};

struct MadeCombination {
  model::Number number = 0;
  /// Its type; serviceability combinations of the same sum are one.
  std::vector<model::CombinationType> types;
  std::string name;  ///< "1.3G+1.5W+0.7·1.5S"
  std::vector<MadeTerm> terms;

  bool is_ultimate() const { return types.front() <= model::CombinationType::accidental; }
  bool is_seismic() const { return types.front() == model::CombinationType::seismic; }
};

/// All combinations of the rule, by type. Within a type no two are the same sum and none is a
/// weighted mean of others, so each governs under some effects of the cases and nothing that could
/// govern is missing. They hang on numbers and names of the cases, not on the order of the table.
///
/// Numbers tell the type: fundamental from 1001, seismic from 2001, accidental, characteristic,
/// frequent and quasi-permanent from 6001; all of them 10000 higher, and again, where the model has
/// combinations of its own above 1000.
std::variant<std::vector<MadeCombination>, Fault> make_combinations(
    const model::Model& model, const model::CombinationRule& rule);

/// The combination as the model has it: ultimate ones are for design, seismic ones marked so.
model::Combination combination_of(const MadeCombination& made);

/// Appends the combinations of the model's rule, if it has one.
std::optional<Fault> complete(model::Model& model);

}  // namespace aluframe::combinations
