#pragma once

#include <array>

/// A doubly symmetric I-section member and its forces, N and mm.
struct REFERENCE_MEMBER {
  double h, b, tw, tf;     ///< plate dimensions
  double length, ky, kz;   ///< member length and effective length factors
  double E, G, fy, f, fv;  ///< material
  double N, Vy, Vz, T;     ///< axial force (compression positive), shear, torsion
  double My, Mz, ratio;    ///< moments, and the ratio of the end moments
};

/// Textbook checks of one cross-section and member: section properties, plates, strength at the
/// corners and in the web, buckling about both axes, lateral-torsional buckling, interaction and
/// deflection. It is the yardstick of the engine's speed: straight-line arithmetic and square
/// roots, no tables, no texts, no choice of shape. bench/README.md tells the work of a call.
std::array<double, 13> reference_checks(const REFERENCE_MEMBER& member);
