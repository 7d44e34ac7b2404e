#pragma once

#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "aluframe/model/combination_rule.h"

/// The factors of design codes as data, one row a kind and category of action. docs/combinations.md
/// shows them; who designs by another edition gives rows of their own in the model.
namespace aluframe::combinations {

/// A code of seismic combinations: what it adds to the rows of the rule.
struct SeismicCode {
  std::string_view name;
  std::vector<model::FactorRow> rows;
};

struct Rule {
  std::string_view name;
  std::vector<model::CombinationType> types;
  std::vector<model::FactorRow> rows;
  std::vector<SeismicCode> seismic = {};   ///< the first one holds when the model names none
  bool wind_with_earthquake = false;  ///< whether wind acts in seismic combinations in any case
};

/// All rules.
std::span<const Rule> rules();
/// The rule of this name, or null.
const Rule* find_rule(std::string_view name);
/// The names of all rules, joined for messages.
std::string rule_names();

/// All rows that hold, each field from the last row that gives it: those of the rule, of its
/// seismic code, of the model. The row of a category starts from the row of the kind.
/// @param seismic empty: the rule's first code; else one of the rule's
/// @return nothing when no row is about the kind, or none about a category that is not empty
std::optional<model::FactorRow> factors_of(const Rule& rule, std::string_view seismic,
                                           std::span<const model::FactorRow> own,
                                           model::ActionKind kind, std::string_view category);

/// Categories of a kind that have rows, joined for messages.
std::string category_names(const Rule& rule, std::span<const model::FactorRow> own,
                           model::ActionKind kind);

/// γL of live loads for a design life in years: 0.9 for 5, 1.0 for 50, 1.1 for 100 (GB 50068-2018,
/// 8.2.10); nothing for another.
std::optional<double> live_factor(int design_life);

}  // namespace aluframe::combinations
