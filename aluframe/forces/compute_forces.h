#pragma once

#include <memory>
#include <string>
#include <vector>

#include "aluframe/analysis/analyse.h"
#include "aluframe/forces/computed_pairs.h"
#include "aluframe/forces/given_positions.h"
#include "aluframe/model/model.h"

namespace aluframe::forces {

/// A combination whose displacements are, or may be, too large for second order.
struct Growing {
  model::Number combination = 0;
  double share = 0.0;  ///< of its displacements, that large ones have more
  std::string moves;   ///< "node 5 moves along Z", in the growth where that is noticeable
};

/// Displacements of the nodes by load case of the model; empty for one without loads.
using CaseDisplacements = std::vector<std::vector<analysis::Vector6>>;

/// What computing forces took, for the user to see.
struct Summary {
  std::size_t load_cases = 0;  ///< with loads; 0: there was nothing to analyse
  int equations = 0;           ///< of the first-order analysis
  /// Largest unbalanced part of the forces in any analysis.
  double residual = 0.0;
  /// Largest estimated error of the forces in any analysis, as a share of the largest force.
  double force_error = 0.0;
  std::size_t second_order_analyses = 0;
  bool large_displacements = false;  ///< that these followed
  int iterations = 0;                ///< the most that one of them took
  std::vector<Growing> growing;
  /// Given forces at the two ends of elements that are loaded between them: in a combination with
  /// these, nothing is known between the ends.
  std::vector<ElementCase> without_inner;
  ComputedPairs computed;  ///< by the first-order analysis
  /// Of the first-order analysis, in a model with combinations for serviceability, so that nobody
  /// has to analyse it again for these; null: there was none, or nobody needs them.
  std::shared_ptr<const CaseDisplacements> displacements;
};

/// Load cases that carry loads: those that an analysis gives forces for.
bool has_loads(const model::LoadCase& load_case);

/// True when every element has forces in every load case that carries loads: then nothing is left
/// to analyse in first order.
bool has_all_forces(const model::Model& model);

/// Analyses the model under its load cases, all of them in their order; those without loads answer
/// with zeros. @return the analysis's answer, or what stands in its way
analysis::Result<analysis::Solution> analyse_model(const model::Model& model);

/// Gives the model the forces of its load cases with loads, at five positions; forces that it has
/// already, of another program, stay, and when they are complete nothing is analysed. Those that it
/// has for two ends get the other positions where combinations need them (`complete_positions`).
/// With `analysis.second_order` it is the design combinations that get forces, each analysed on its
/// own, and the load cases get none.
/// @return what stands in the way of the analysis; the model is then unchanged
analysis::Result<Summary> compute_forces(model::Model& model);

}  // namespace aluframe::forces
