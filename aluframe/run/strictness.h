#pragma once

#include "aluframe/run/told.h"

namespace aluframe::run {

/// What ends a run with the status of a failed check.
enum class Strictness {
  none,
  checks,  ///< a ratio of the checks over 1, a frame that buckles, a displacement over its limit
  /// Also a safe ratio over 1, what nothing has checked, and what is unknown: forces between the
  /// ends of a loaded element, displacements under a combination for serviceability.
  safe
};

/// Whether something of what a run tells fails that `strict` looks at.
bool fails(const Told& told, Strictness strict);

}  // namespace aluframe::run
