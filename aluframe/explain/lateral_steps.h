#pragma once

#include "aluframe/explain/derivation.h"

/// Lateral-torsional coefficients.
namespace aluframe::explain {

Term lateral_coefficient(Derivation& d);    ///< φb
Term lateral_coefficient_z(Derivation& d);  ///< φbz

}  // namespace aluframe::explain
