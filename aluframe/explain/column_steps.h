#pragma once

#include "aluframe/explain/derivation.h"
#include "tz_alu/engine/stability_coefficients.h"

/// Axial stability coefficients and Euler-type forces.
namespace aluframe::explain {

Term axial_coefficient_y(Derivation& d);  ///< φy
Term axial_coefficient_z(Derivation& d);  ///< φz
Term euler_type_force_y(Derivation& d);   ///< N_Ey'
Term euler_type_force_z(Derivation& d);   ///< N_Ez'

Term interaction_eta(Derivation& d);   ///< η
Term interaction_eta1(Derivation& d);  ///< η1
Term interaction_eta2(Derivation& d);  ///< η2

}  // namespace aluframe::explain
