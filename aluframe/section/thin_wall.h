#pragma once

namespace aluframe::section {

// Torsion and warping of thin-walled sections, worked out on the middle lines of the plates. All
// lengths in mm and positive unless said otherwise.

/// A plate: length of its middle line and thickness.
struct Strip {
  double length;
  double thickness;
};

/// Warping constant about the shear centre, and where that lies.
struct Warping {
  double constant = 0.0;        ///< Iw, mm⁶
  double shear_centre_y = 0.0;  ///< mm, see each function
  double shear_centre_z = 0.0;  ///< mm, see each function
};

/// A flange or wall across the depth: middle-line width and thickness.
using Flange = Strip;

/// I section, symmetric about z. With I1, I2 = t·b³/12 of the top and the bottom flange, h between
/// their middle lines: Iw = I1·I2/(I1 + I2)·h² (Timoshenko and Gere, Theory of Elastic Stability).
/// @return shear_centre_z upwards from the middle of h: (h/2)·(I1 − I2)/(I1 + I2)
Warping i_section_warping(Flange top, Flange bottom, double h);

/// Channel, flanges of any two sizes from the web's middle line to their tips, h between their
/// middle lines. Sectorial coordinates about the middle of the web, moved to the shear centre
/// (Vlasov); the product of inertia is taken into account. With equal flanges it is the textbook's
/// e = b²h²t/(4·Iyy), Iw = t·b³h²/12·(3bt + 2h·tw)/(6bt + h·tw).
/// @return shear_centre_y from the web's middle line, negative: away from the flanges;
/// shear_centre_z upwards from the middle of h
Warping channel_warping(Flange top, Flange bottom, double h, double web_thickness);

/// Two equal channels back to back that twist about their common axis and do not hinder each other
/// along the member: Iw = 2·(Iw1 + Iyy1·a²), a from the axis to the shear centre of one of them.
/// Without a gap this is the I section of double flanges and web. The shear centre is the centroid.
/// @param web_distance between the middle lines of the two webs, 0 or more
double double_channel_warping(Flange flange, double h, double web_thickness, double web_distance);

/// A box section's walls: two webs `c` apart, flanges that may stand out over them.
struct BoxWalls {
  Flange top;            ///< full width and thickness
  Flange bottom;         ///< full width and thickness
  double c;              ///< between the middle lines of the webs
  double h;              ///< between the middle lines of the flanges
  double web_thickness;  ///< of one web
};

/// Torsion constant of the closed cell, mm⁴, by Bredt's second formula: 4·(c·h)²/∮ds/t over the
/// middle lines. What stands out over the webs adds next to nothing and is left out.
double bredt_torsion_constant(const BoxWalls& walls);

/// Shear centre of a box, upwards from the middle of h: the point through which a shear force along
/// y does not twist the closed cell (∮q/t ds = 0). 0 for equal flanges; towards the stiffer one
/// else.
double box_shear_centre(const BoxWalls& walls);

}  // namespace aluframe::section
