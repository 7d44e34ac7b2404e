#pragma once

#include <cstdint>
#include <functional>
#include <optional>
#include <vector>

#include "aluframe/model/number_ranges.h"
#include "aluframe/run/check.h"
#include "aluframe/store/result_file.h"

// What a run tells beside the ratios of its checks, at its end and whenever its results are shown.

namespace aluframe::run {

struct Told {
  SecondOpinion second_opinion = SecondOpinion::on;
  std::optional<SafeSummary> safe;        ///< nothing without a second opinion
  std::vector<store::SafeRow> safe_rows;  ///< of stored results, behind `safe`
  std::vector<store::RemarkRow> remarks;
  std::vector<store::NotChecked> not_checked;
  FrameBuckling buckling = FrameBuckling::on;
  std::vector<store::BucklingRow> buckling_factors;
  std::vector<store::DisplacementRow> displacements = {};
  std::optional<services::WorstCheck> worst = {};  ///< of the checks
  std::uint64_t over = 0;                          ///< elements of which a check fails
};

/// The elements that a remark is about.
class ConcernedElements {
 public:
  explicit ConcernedElements(const store::RemarkRow& remark);

  /// True for every element where the remark names none.
  bool contains(model::Number element) const;

 private:
  std::vector<model::NumberRange> rising_;
  bool are_all_ = false;
};

Told told_by(const CheckResult& result);
/// By stored results, of some elements; a remark is told whole when it is about one of them.
/// @param elements rising
Told told_by(store::ResultReader& results, const std::vector<model::Number>& elements);

/// The combination of the model that a number stands for: of a state its envelope.
using ModelCombination = std::function<model::Number(model::Number)>;
/// The same rows for the user, who knows no numbers of states.
std::vector<store::RemarkRow> with_envelopes(std::vector<store::RemarkRow> rows,
                                             const ModelCombination& combination_of);
std::vector<store::NotChecked> with_envelopes(std::vector<store::NotChecked> rows,
                                              const ModelCombination& combination_of);

/// What of stored results is about one element.
std::vector<store::RemarkRow> remarks_about(model::Number element, store::ResultReader& results);

}  // namespace aluframe::run
