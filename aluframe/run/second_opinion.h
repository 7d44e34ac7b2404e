#pragma once

#include <cstddef>
#include <optional>
#include <vector>

#include "aluframe/second_opinion/run_opinion.h"
#include "aluframe/store/result_file.h"

// What a second opinion says of a run, as rows of the result file and as numbers for its summary.

namespace aluframe::run {

/// Whether safe ratios are asked for beside those of the checks.
enum class SecondOpinion { on, off };

/// Notes in what a run goes by that it does without a second opinion.
void leave_out_second_opinion(store::RunSetup& setup);
/// Whether a run had one.
SecondOpinion second_opinion_of(const store::RunSetup& setup);

/// The second opinion of a whole run.
struct SafeSummary {
  std::size_t elements = 0;  ///< with a second opinion
  std::size_t over = 0;      ///< whose safe ratio fails
  std::size_t unsaid = 0;    ///< of these, whose ratios in the checks do not: nothing else says so
  std::optional<store::SafeRow> worst;
};

store::SafeRow safe_row(const second_opinion::ElementSafe& element);
SafeSummary summary_of(const std::vector<store::SafeRow>& rows);

/// Shear or torsion without a check that is larger between two positions of an element than at any
/// of them.
store::NotChecked not_checked_between(const second_opinion::UncheckedBetween& force);

/// A force of an element that no check is for, as it is stored, and back.
store::UncheckedRow unchecked_row(const second_opinion::Unchecked& item);
/// @throws std::runtime_error for a row of no kind
second_opinion::Unchecked unchecked_of(std::uint32_t element, const store::UncheckedRow& row);

/// What no check of the run is for, a remark a kind, with the worst second opinion of it.
std::vector<store::RemarkRow> unchecked_remarks(const second_opinion::RunFound& result,
                                                const model::Model& model);

}  // namespace aluframe::run
