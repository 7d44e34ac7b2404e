#pragma once

#include <optional>
#include <string>
#include <vector>

#include "aluframe/model/table.h"

/// What combinations are made from by rule: the action that a load case stands for, and the rule
/// with the factors that the user gives in place of its own. Made from it: aluframe/combinations.
namespace aluframe::model {

enum class ActionKind {
  none,  ///< takes no part in combinations made by rule
  permanent,
  prestress,
  settlement,
  live,  ///< imposed loads and cranes, by category
  snow,
  wind,
  temperature,
  construction,
  earthquake,
  accidental
};

/// Whether an action may lessen the effect of the others.
enum class Favourable {
  also,   ///< may do either: a permanent one has both factors, a variable one acts or not
  never,  ///< always the factor of an unfavourable one; a variable one always acts
  only    ///< always the factor of a favourable one; permanent actions only
};

/// What a load case stands for among the actions on the frame.
struct Action {
  ActionKind kind = ActionKind::permanent;
  std::string category = {};   ///< the row of its kind in the rule's table, such as "office"
  std::string exclusive = {};  ///< a group of which one acts at a time; empty: none
  /// A case of the same kind with which it always acts, with the same factor.
  std::optional<Number> together_with = std::nullopt;
  Favourable favourable = Favourable::also;
  /// Acts with either sign. Not given: an earthquake does.
  std::optional<bool> reversible = std::nullopt;

  bool is_reversible() const { return reversible.value_or(kind == ActionKind::earthquake); }
  friend bool operator==(const Action&, const Action&) = default;
};

/// In the order in which combinations are listed.
enum class CombinationType {
  fundamental,
  seismic,
  accidental,
  characteristic,
  frequent,
  quasi_permanent
};

/// Factors of the actions of a kind and category; what is not given is that of the kind, of the
/// rule, or is not known.
struct FactorRow {
  ActionKind kind = ActionKind::permanent;
  std::string category = {};
  std::optional<double> gamma = std::nullopt;       ///< γ in fundamental combinations
  std::optional<double> favourable = std::nullopt;  ///< γ of a permanent action that is favourable
  /// γ of a permanent action in the combination that it governs, without variable actions.
  std::optional<double> alone = std::nullopt;
  std::optional<double> psi_c = std::nullopt;  ///< combination value
  std::optional<double> psi_f = std::nullopt;  ///< frequent value
  std::optional<double> psi_q = std::nullopt;  ///< quasi-permanent value
  /// Share that acts in seismic combinations: of a gravity load in the representative gravity load,
  /// of wind beside the earthquake, of the leading earthquake itself.
  std::optional<double> psi_e = std::nullopt;
  std::optional<double> second_e = std::nullopt;      ///< γ of an earthquake beside the leading one
  std::optional<double> gamma_e = std::nullopt;       ///< γ in seismic combinations
  std::optional<double> favourable_e = std::nullopt;  ///< the same when favourable
  std::string source = {};                            ///< where the numbers come from

  friend bool operator==(const FactorRow&, const FactorRow&) = default;
};

/// How the combinations of a model are made.
struct CombinationRule {
  std::string rule = {};     ///< "GB 50068-2018"
  std::string seismic = {};  ///< code of seismic combinations; empty: the rule's first
  std::vector<CombinationType> types = {};  ///< empty: all of the rule
  bool wind_with_earthquake = false;        ///< wind governs, and acts in seismic combinations too
  int design_life = 50;                     ///< years: 5, 50 or 100; gives γL of live loads
  std::vector<FactorRow> table = {};        ///< in place of the rule's own, field by field

  friend bool operator==(const CombinationRule&, const CombinationRule&) = default;
};

}  // namespace aluframe::model
