#pragma once

#include "aluframe/explain/derivation.h"

/// What a check is given: forces, dimensions and constants of the section, material, member.
namespace aluframe::explain {

Term axial_force(Derivation& d);
Term shear_force_y(Derivation& d);
Term shear_force_z(Derivation& d);
Term moment_y(Derivation& d);
Term moment_z(Derivation& d);

/// Places of `ALU_SECT_DATA::dSize`, by what an H has there.
enum class Dimension {
  depth,
  web,
  top_width,
  top_thickness,
  bottom_width,
  bottom_thickness,
  r1,
  r2
};

/// A dimension by the name that the shape has for it: B of a tee, C of a box.
Term dimension(Derivation& d, Dimension which);

Term gross_area(Derivation& d);
Term inertia_y(Derivation& d);
Term inertia_z(Derivation& d);
Term torsion_constant(Derivation& d);
Term warping_constant(Derivation& d);
Term shear_centre(Derivation& d);
Term top_fibre(Derivation& d);     ///< z1
Term bottom_fibre(Derivation& d);  ///< z3
Term outermost_y(Derivation& d);
Term outermost_z(Derivation& d);

Term elastic_modulus(Derivation& d);
Term poisson_ratio(Derivation& d);
Term shear_modulus(Derivation& d);
/// What a heat-affected strip keeps.
Term haz_factor(Derivation& d);
Term haz_width(Derivation& d);

/// ηA of the settings.
Term strength_ratio(Derivation& d);

Term member_length(Derivation& d);
Term length_factor_y(Derivation& d);
Term length_factor_z(Derivation& d);

/// π² as most rules take it.
Term pi_squared();

}  // namespace aluframe::explain
