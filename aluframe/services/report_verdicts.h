#pragma once

#include <cstdint>
#include <vector>

#include "aluframe/services/report_file.h"
#include "aluframe/store/result_file.h"

namespace aluframe::services {

/// Failing checks of the elements of a report that the report does not call "Not Acceptable!".
struct UnprintedFailures {
  /// Those whose block has no verdict, such as slenderness where no axial force acts, or one that
  /// passes: that of a ratio which is no number may.
  std::vector<store::GoverningRow> checks;
  /// Elements that fail and have no line at all that says so.
  std::vector<std::uint32_t> elements;
  /// Elements that fail and have other blocks in the report than stored checks, so that nobody can
  /// tell which block is whose.
  std::vector<std::uint32_t> unclear;
};

/// @param governing all stored governing checks, by element and item
UnprintedFailures unprinted_failures(const std::vector<store::GoverningRow>& governing,
                                     const ReportedElements& reported);

}  // namespace aluframe::services
