#pragma once

#include <optional>
#include <string>
#include <vector>

#include "aluframe/analysis/large_displacement.h"
#include "aluframe/run/buckling_subjects.h"

namespace aluframe::run {

/// The largest factor of a combination's or a load case's loads that the frame carries, followed
/// through displacements of any size; of an envelope the smallest of its states.
struct LimitFactor {
  model::Number subject = 0;
  std::optional<analysis::LimitLoad> limit;  ///< nothing: `unknown` says why
  std::string unknown = {};                  ///< why none is known, of all or of some states
};

/// The smallest limit load of all sets of a subject, looked for up to a factor; in `unknown` what
/// is known of none.
analysis::Result<LimitFactor> smallest_limit(const Input& input, const BucklingSubject& subject,
                                             double largest);

/// Gives combinations of a run the factors of their limit loads where these are smaller than the
/// ones of buckling: those whose displacements are too large for second order, and all of a run
/// with large displacements. What is looked for goes up to the limit of the buckling factor.
void take_limits(const Input& input, const GoesOn& goes_on, std::vector<BucklingFactor>& factors);

}  // namespace aluframe::run
