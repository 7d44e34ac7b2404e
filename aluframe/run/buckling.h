#pragma once

#include <functional>
#include <optional>
#include <string>
#include <vector>

#include "aluframe/forces/frame_buckling.h"
#include "aluframe/run/input.h"

// How far the whole frame is from buckling, in every combination.

namespace aluframe::run {

/// One factor of the loads of a combination or a load case at which the frame buckles.
struct BucklingFactor {
  model::Number subject = 0;     ///< number of the combination or the load case
  std::optional<double> factor;  ///< nothing: nothing is compressed, or `unknown` says why
  std::string mode = {};         ///< "nodes 2-3 move along X"
  /// Elements whose axial force does a tenth of the work in the mode, or more.
  std::vector<model::Number> elements = {};
  std::string unknown = {};  ///< why no factor is known, of all or of some states; empty: it is
};

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

/// The smallest factor of every combination of a run, by number; of an envelope that of its states.
/// States in which forces are given have none.
/// @param goes_on asked before every combination; what is left when it says no is not worked out
std::vector<BucklingFactor> buckling_of_combinations(const Input& input,
                                                     const std::function<bool(int, int)>& goes_on);

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

/// Whether the buckling of the frame is looked at.
enum class FrameBuckling { on, off };

/// Notes in what a run goes by that it does not look at the buckling of the frame.
void leave_out_buckling(store::RunSetup& setup);
FrameBuckling buckling_of(const store::RunSetup& setup);

}  // namespace aluframe::run
