#pragma once

#include "aluframe/run/input.h"

namespace aluframe::cli {

/// Reads a model, and forces from CSV when given, computes the forces of its loads, and says what
/// it holds or what is wrong with it.
/// @return the exit status
int run_validate_command(const run::InputOptions& options);

}  // namespace aluframe::cli
