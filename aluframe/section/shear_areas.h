#pragma once

#include "aluframe/model/section.h"

namespace aluframe::section {

/// Areas that shear deforms, mm²: V/(G·A) is the shear strain of the axis.
struct ShearAreas {
  double y = 0.0;  ///< for a shear force along y (the flanges'); 0: rigid
  double z = 0.0;  ///< for a shear force along z (the web's); 0: rigid
};

/// The usual approximations: the web between the flanges' middle lines along z; along y 5/6 of the
/// flanges (rectangles); half of a pipe's area, 9/10 of a solid round's (Cowper, J. Appl. Mech. 33
/// (1966), for ν = 0.3, to a few per cent). A section given by its properties alone is rigid.
/// The section must have no dimension problem.
ShearAreas shear_areas_of(const model::Section& section);

}  // namespace aluframe::section
