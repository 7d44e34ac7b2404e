#pragma once

#include "aluframe/explain/derivation.h"

/// The section that the checks use: gross, with heat-affected strips, or effective.
namespace aluframe::explain {

Term calculated_area(Derivation& d);  ///< A, Ahaz or Ae
Term top_modulus(Derivation& d);      ///< W1
Term bottom_modulus(Derivation& d);   ///< W2
Term modulus_z(Derivation& d);        ///< Wz

}  // namespace aluframe::explain
