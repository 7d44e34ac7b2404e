#pragma once

#include <vector>

#include "aluframe/analysis/second_order.h"
#include "aluframe/model/number_ranges.h"
#include "aluframe/run/input.h"

namespace aluframe::run {

/// What is to be analysed: load cases in first order; in second order, where they do not add up,
/// combinations; but what the user names goes first.
struct AnalysisOptions {
  model::NumberRanges cases;         ///< empty: all with loads
  model::NumberRanges combinations;  ///< analysed in place of load cases when there are any
};

/// Answers to load cases, or to combinations.
struct Analysis {
  bool of_combinations = false;  ///< else of load cases
  bool second_order = false;
  std::vector<model::Number> subjects;               ///< their numbers
  std::vector<analysis::SecondOrderResult> answers;  ///< one for each subject
  /// Envelopes among the combinations: their two sides are no state of the frame.
  std::vector<model::Number> left_out;
};

/// Analyses the model under its load cases or combinations.
Result<Analysis> analyse(const Input& input, const AnalysisOptions& options);

}  // namespace aluframe::run
