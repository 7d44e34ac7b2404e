#pragma once

namespace aluframe {

/// Exit statuses of every command.
enum ExitStatus : int {
  exit_done = 0,
  exit_input_error = 1,  ///< wrong usage or input; nothing was changed
  exit_failure = 2,      ///< a failure while running
  exit_cancelled = 3,
  exit_over_limit = 4  ///< with --strict: a ratio exceeds 1
};

}  // namespace aluframe
