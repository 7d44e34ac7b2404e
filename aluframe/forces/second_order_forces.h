#pragma once

#include <map>
#include <variant>

#include "aluframe/analysis/second_order.h"
#include "aluframe/forces/load_sets.h"
#include "aluframe/model/model.h"

namespace aluframe::forces {

/// Second-order analyses of the combinations of a model, each set of loads once.
///
///     SecondOrderAnalyses analyses(model);
///     const auto answer = analyses.answer(place_of_combination);
class SecondOrderAnalyses {
 public:
  /// The model must outlive it.
  explicit SecondOrderAnalyses(const model::Model& model);

  /// Answers to the sets of loads of the combination at `place`, in the order of `load_sets_of`;
  /// valid while the object lives.
  /// @return what stands in the way: no equilibrium under these loads, a load case without loads,
  ///         a linear combination with an envelope among its terms
  analysis::Result<std::vector<const analysis::SecondOrderResult*>> answers(std::size_t place);

  std::size_t count() const { return answers_.size(); }  ///< analyses made so far
  int most_iterations() const { return most_iterations_; }
  double largest_residual() const { return largest_residual_; }
  double largest_force_error() const { return largest_force_error_; }
  /// Of the combination at `place`, the answer whose displacements large ones would exceed by most;
  /// null when none would by a noticeable part. Valid while the object lives.
  const analysis::SecondOrderResult* growing(std::size_t place);

 private:
  /// A set of loads to look it up by.
  using Key = std::vector<std::pair<std::size_t, double>>;

  std::optional<std::string> missing_loads(const LoadSet& set) const;
  analysis::Result<analysis::SecondOrderResult> analyse(const LoadSet& set) const;
  analysis::Result<const analysis::SecondOrderResult*> answer(const LoadSet& set);

  const model::Model& model_;
  std::vector<model::CombinationPlan> plans_;
  analysis::Frame frame_;
  analysis::SecondOrderOptions options_;
  std::vector<analysis::LoadCase> loads_;  ///< by place of the load case
  std::map<Key, analysis::SecondOrderResult> answers_;
  int most_iterations_ = 0;
  double largest_residual_ = 0.0;
  double largest_force_error_ = 0.0;
};

}  // namespace aluframe::forces
