#pragma once

#include <string>
#include <vector>

#include "aluframe/forces/frame_buckling.h"
#include "aluframe/model/envelope_states.h"
#include "aluframe/run/frame_modes.h"
#include "aluframe/run/input.h"

// What buckling factors are looked for: of combinations with the states of their envelopes, and of
// load cases.

namespace aluframe::run {

/// Sets of loads whose smallest factors are those of a combination or a load case.
struct BucklingSubject {
  model::Number number = 0;
  std::vector<forces::LoadSet> sets;  ///< whose axial forces are those of the frame's analysis
  std::string unknown;                ///< why others have no factor; empty: there are none
};

/// The subjects of a model.
class BucklingSubjects {
 public:
  /// The input must outlive the object.
  explicit BucklingSubjects(const Input& input);

  BucklingSubject of_combination(model::Number number) const;
  BucklingSubject of_case(model::Number number) const;

 private:
  void add(const forces::LoadSet& set, BucklingSubject& subject) const;

  const model::Model& model_;
  std::vector<model::States> states_;
  std::vector<bool> is_given_;  ///< by load case
};

/// Design combinations as the model has them: envelopes, not their states.
std::vector<model::Number> design_combinations(const model::Model& model);

/// What a run looks at: of an envelope the states that it checks.
std::vector<BucklingSubject> subjects_of_run(const Input& input);

/// A mode, and the largest compression of every element under the set of loads that it is of.
struct SubjectMode {
  analysis::BucklingMode mode;
  std::vector<double> compression;
};

/// The smallest modes of all sets of a subject together, as many as asked for.
analysis::Result<std::vector<SubjectMode>> smallest_modes(forces::FrameBuckling& frame,
                                                          const BucklingSubject& subject,
                                                          int count);

BucklingFactor factor_of(const model::Model& model, model::Number subject,
                         const analysis::BucklingMode& mode);

}  // namespace aluframe::run
