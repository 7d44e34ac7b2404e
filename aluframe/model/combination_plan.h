#pragma once

#include <cstddef>
#include <vector>

#include "aluframe/model/model.h"

namespace aluframe::model {

/// What evaluating one combination takes, worked out once. Places are those of the model's tables.
struct CombinationPlan {
  struct CaseFactor {
    std::size_t load_case;
    double factor;
  };
  struct Term {
    CombinationTerm::Source source;
    std::size_t place;
    double factor;
  };

  CombinationKind kind = CombinationKind::linear;
  /// An envelope, or a linear combination that contains one.
  bool two_sides = false;
  bool seismic = false;
  /// Cases that take part, in the order of their first use. With one side the combination is the
  /// sum of factor × case over them, nested combinations multiplied out; with two sides the
  /// factors mean nothing.
  std::vector<CaseFactor> cases;
  /// With two sides: the combination's own terms. Only an envelope has terms with factor 0.
  std::vector<Term> terms;
  /// With two sides: the combinations whose values it takes, each behind those that it contains.
  std::vector<std::size_t> needed;
};

/// True for a response-spectrum or a seismic static case.
bool is_seismic_case(const LoadCase& load_case);

/// The plans of all combinations of the model, by place. Combinations must have no problem.
std::vector<CombinationPlan> compile_combinations(const Model& model);

}  // namespace aluframe::model
