#pragma once

#include <span>

#include "aluframe/section/thin_wall.h"

namespace aluframe::section {

// St-Venant torsion constant of open sections of sharp-cornered plates, mm⁴. Lengths in mm, all
// positive. Against finite elements: within 0.5 % for the profiles of the catalogue, within 3 % for
// plates from twice as long as thick (tests/property/section_meshes.cpp). Flanges that hardly stand
// out over the web are not such plates: torsion_remark (second_computation.h) finds them.

/// A rectangle, of which `free_ends` (0 to 2) of the two short sides are free, the others joined:
/// b·t³/3 − 0.105·t⁴·(1 − t⁴/(12·b⁴)) per free end, b the longer side. With two it is the exact
/// series to 0.5 % (Roark's Formulas for Stress and Strain, torsion of a rectangle); for long
/// plates b·t³/3·(1 − 0.63·t/b).
double plate_torsion_constant(double length, double thickness, int free_ends);

/// What the junction of a web with the middle of a flange adds to both plates, from web thickness
/// not above the flange's: α·D⁴ with the inscribed circle D = t + w²/(4t) and
/// α = −0.042 + 0.2204·w/t − 0.0725·(w/t)² (El Darwish and Johnston, Torsion of Structural Shapes,
/// Journal of the Structural Division, ASCE 91, 1965, without fillets). 0 for webs below a fifth of
/// the flange, where the fit of α falls below it.
double tee_junction(double flange_thickness, double web_thickness);

/// A web between, or under, flanges that it meets in their middle. The flanges are whole
/// rectangles. A web thicker than a flange runs through it to a free end of its own; what then
/// remains of the junction is that of two plates of the flange's thickness.
/// @param clear_web the web's length between the flanges' faces
/// @param free_web_ends 0 between two flanges, 1 under one
double tee_torsion_constant(Strip clear_web, std::span<const Flange> flanges, int free_web_ends);

/// A web that meets two flanges at their ends. In each corner the thicker plate runs through to a
/// free end, and the other one starts at its middle line.
/// @param clear_web the web's length between the flanges' faces
/// @param top, bottom with their full widths, from the web's back
double channel_torsion_constant(Strip clear_web, Flange top, Flange bottom);

}  // namespace aluframe::section
