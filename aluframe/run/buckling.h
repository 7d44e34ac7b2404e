#pragma once

#include <optional>
#include <string>
#include <vector>

#include "aluframe/run/frame_modes.h"
#include "aluframe/run/input.h"
#include "aluframe/run/limit_factors.h"

// How far the whole frame is from buckling, in every combination.

namespace aluframe::run {

/// What is to be looked at: combinations for design, or without any the load cases with loads; but
/// what the user names goes first.
struct BucklingOptions {
  model::NumberRanges cases;
  model::NumberRanges combinations;
  int modes = 1;          ///< at least 1
  bool reversed = false;  ///< also what all loads the other way round do
};

struct BucklingAnalysis {
  bool of_combinations = false;         ///< else of load cases
  std::vector<BucklingFactor> factors;  ///< by subject, ascending; one at least of each
  /// Of each subject, the smallest factor when all its loads act the other way round, if that is
  /// asked for.
  std::vector<BucklingFactor> reversed;
};

/// Finds the smallest buckling factors of the model under its combinations or load cases, by the
/// axial forces of first order.
Result<BucklingAnalysis> find_buckling(const Input& input, const BucklingOptions& options);

struct LimitAnalysis {
  bool of_combinations = false;  ///< else of load cases
  std::vector<LimitFactor> factors;
};

/// Finds the limit loads of the subjects of `options`, up to a largest factor.
Result<LimitAnalysis> find_limit_loads(const Input& input, const BucklingOptions& options,
                                       double largest_factor);

/// Of all combinations of the run the smallest factor, and what an engineer is owed a word about.
struct RunBuckling {
  std::vector<store::BucklingRow> rows;
  std::vector<store::RemarkRow> remarks;
};

/// Goes by the modes of the input where it has them.
RunBuckling buckling_of_run(const Input& input, const GoesOn& goes_on);

/// The rows of the result file.
std::vector<store::BucklingRow> buckling_rows(const std::vector<BucklingFactor>& factors,
                                              const model::Model& model);

/// The factor below which a combination has a remark.
double buckling_limit(const model::Model& model);

/// What an engineer is owed a word about, of kind "buckling": combinations that buckle the frame,
/// and those below the limit, with the remedy.
std::vector<store::RemarkRow> buckling_remarks(const std::vector<store::BucklingRow>& rows,
                                               const model::Model& model);

/// The row with the smallest factor; null without any.
const store::BucklingRow* smallest_factor(const std::vector<store::BucklingRow>& rows);

/// Whether a combination buckles the frame: it fails, whatever the ratios of its checks are.
bool buckles(const store::BucklingRow& row);

/// Whether a remark is one of `buckling_remarks`.
bool is_about_buckling(const store::RemarkRow& remark);

/// Notes in what a run goes by that it does not look at the buckling of the frame.
void leave_out_buckling(store::RunSetup& setup);
FrameBuckling buckling_of(const store::RunSetup& setup);

}  // namespace aluframe::run
