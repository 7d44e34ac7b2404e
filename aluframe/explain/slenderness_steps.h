#pragma once

#include "aluframe/explain/derivation.h"

/// Slenderness of the member.
namespace aluframe::explain {

Term slenderness_y(Derivation& d);  ///< λy
/// λz, of an unsymmetric section λyz.
Term slenderness_z(Derivation& d);
/// lω, the length of twist and warping.
Term torsional_length(Derivation& d);

}  // namespace aluframe::explain
