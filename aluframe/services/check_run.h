#pragma once

#include <cstdint>
#include <map>
#include <optional>
#include <string>
#include <vector>

#include "aluframe/model/model.h"
#include "aluframe/services/session.h"
#include "aluframe/store/result_file.h"

namespace aluframe::services {

enum class RunOutcome {
  complete,          ///< the run went through all elements
  nothing_to_check,  ///< no element or no combination; the module has said which
  cancelled,         ///< stopped by the user; what was stored stays readable
  failed             ///< see `failure`
};

/// What a check run came to.
struct CheckSummary {
  RunOutcome outcome = RunOutcome::failed;
  std::string failure;
  std::size_t elements = 0;  ///< elements of the run
  /// Design combinations of the model; an envelope counts once, whatever it is checked by.
  std::size_t combinations = 0;
  std::size_t sides = 0;   ///< what was checked: combinations, both sides of those with two, states
  bool by_states = false;  ///< an envelope was checked by its states
  std::uint64_t checked_elements = 0;
  std::uint64_t checked_positions = 0;
  std::uint64_t positions_taken_up = 0;  ///< of these, those that an earlier run has checked
  std::uint64_t elements_over_limit = 0;
  std::uint64_t records = 0;  ///< records stored
  double seconds = 0.0;
  std::optional<WorstCheck> worst;
  std::vector<store::NotChecked> not_checked;
  std::map<std::string, std::uint64_t> assertions;
};

/// Checks a model with the design module and stores the results.
/// The host that was bound before is not restored: one run at a time.
/// @throws store::CannotTakeUp when the run is to go on with what an earlier one has left, and
/// cannot
CheckSummary run_check(const model::Model& model, SessionOptions options);

}  // namespace aluframe::services
