#pragma once

#include "aluframe/explain/derivation.h"

/// Effective sections: slender plates count with ρ·t. Only where a plate is slender.
namespace aluframe::explain {

Term effective_area(Derivation& d);     ///< Ae
Term effective_inertia(Derivation& d);  ///< Ie

}  // namespace aluframe::explain
