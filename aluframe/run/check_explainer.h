#pragma once

#include <filesystem>
#include <memory>
#include <string>
#include <vector>

#include "aluframe/explain/explain.h"
#include "aluframe/run/explained_check.h"
#include "aluframe/run/input.h"
#include "aluframe/run/problem.h"
#include "aluframe/store/result_file.h"

namespace aluframe::run {

/// A stored check with its steps.
struct ExplainedCheck {
  /// Those that it is the check of, rising: one, or several whose checks are the same.
  std::vector<model::Number> elements;
  int member_type = 0;
  CheckPlace place;
  model::Number combination = 0;      ///< of the model; of a state its envelope
  std::string combination_name = {};  ///< of the combination, or of the state
  bool has_sides = false;             ///< the combination has a maximum and a minimum side
  explain::Explanation explanation;
};

/// Explains checks of one run, one after the other, by the forces and the design data that the
/// checks take. A host is bound while it lives.
///
///     CheckExplainer explainer(input, reader->info(), results, {4, 5});
///     const auto explained = explainer.explain(4, place);
class CheckExplainer {
 public:
  /// @param input made ready as the results were, of the same digest; outlives the explainer as
  ///   `info` does
  /// @param elements that are to be explained
  CheckExplainer(const Input& input, const store::RunInfo& info, std::filesystem::path results,
                 const std::vector<model::Number>& elements);
  CheckExplainer(const CheckExplainer&) = delete;
  CheckExplainer& operator=(const CheckExplainer&) = delete;
  ~CheckExplainer();

  Result<ExplainedCheck> explain(model::Number element, const CheckPlace& place) const;
  /// Of elements that have the same `signature` there: one explanation that names them all.
  Result<ExplainedCheck> explain(std::vector<model::Number> elements,
                                 const CheckPlace& place) const;

  /// Digest of all that an explanation shows but the numbers of its elements: elements of the same
  /// signature have the same derivation, to the last bit of every value.
  Result<std::string> signature(model::Number element, const CheckPlace& place) const;

 private:
  struct Context;
  std::unique_ptr<Context> context_;
};

}  // namespace aluframe::run
