#pragma once

#include "aluframe/explain/derivation.h"

/// Equivalent moment factors.
namespace aluframe::explain {

Term moment_factor_y(Derivation& d);  ///< βmy
Term moment_factor_z(Derivation& d);  ///< βmz

}  // namespace aluframe::explain
