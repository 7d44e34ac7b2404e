#pragma once

#include "aluframe/explain/derivation.h"
#include "tz_alu/engine/design_factors.h"

/// Factor on the forces, plasticity factors and design strengths.
namespace aluframe::explain {

/// k.
Term force_factor(Derivation& d, alu_engine::FORCE_FACTOR kind);

Term plasticity_top(Derivation& d);     ///< γy1
Term plasticity_bottom(Derivation& d);  ///< γy2
Term plasticity_z(Derivation& d);       ///< γz

Term strength_f(Derivation& d);
Term strength_fv(Derivation& d);
/// f0.2 that member stability and local buckling take.
Term proof_strength(Derivation& d);

}  // namespace aluframe::explain
