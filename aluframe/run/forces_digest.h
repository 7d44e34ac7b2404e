#pragma once

#include <string>

#include "aluframe/run/input.h"

namespace aluframe::run {

/// Tells the forces and length factors of a prepared input apart, to the last bit: those that are
/// computed may differ on another machine, though the model does not.
std::string forces_digest(const Input& input);

}  // namespace aluframe::run
