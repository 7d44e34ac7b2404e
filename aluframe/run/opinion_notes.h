#pragma once

#include <vector>

#include "aluframe/run/input.h"
#include "aluframe/second_opinion/run_opinion.h"
#include "aluframe/services/run_observer.h"
#include "aluframe/store/result_file.h"

namespace aluframe::run {

/// Has the second opinion of every element stored with the element, and keeps what a run says of it
/// in the end; what an earlier run has stored counts as its own.
///
///     OpinionNotes notes(input);
///     session.observer = &notes;
class OpinionNotes : public services::RunObserver {
 public:
  /// `input` must outlive the object; its forces must be computed.
  explicit OpinionNotes(const Input& input)
      : model_(input.model),
        opinion_(input.model, input.forces.computed, input.restrained.beyond_checks) {}

  void checked(std::uint32_t element, std::uint32_t combination, int min_side,
               const T_RALU_D& record) override;
  void add_notes(store::ElementNotes& notes) override;
  void take_up(const store::ElementNotes& notes) override;

  const std::vector<store::SafeRow>& safe_rows() const { return safe_rows_; }
  /// Shear and torsion without a check that are larger between two positions of an element than at
  /// any of them.
  const std::vector<store::NotChecked>& between() const { return between_; }
  /// What no check of the run is for.
  std::vector<store::RemarkRow> remarks() const;

 private:
  const model::Model& model_;
  second_opinion::RunOpinion opinion_;
  std::vector<store::SafeRow> safe_rows_;
  std::vector<store::NotChecked> between_;
};

}  // namespace aluframe::run
