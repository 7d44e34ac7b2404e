#pragma once

#include <algorithm>
#include <array>
#include <optional>

#include "aluframe/restraints/held_places.h"
#include "tz_alu/records/alu_dgn_data.h"

// Lateral-torsional buckling of a piece of a member between two places that brace it
// (GB 50429-2007, chapter 6 and appendix C). N, mm.

namespace aluframe::restraints {

/// What lateral-torsional buckling sees of a section of an alloy.
struct LateralSection {
  double e = 0.0;
  double izz = 0.0;
  double it = 0.0;
  double iw = 0.0;
  /// Measure of unequal flanges, mm, positive when compression of the larger one is the safer: with
  /// the top flange compressed; with the bottom one it is the opposite.
  double beta_y = 0.0;
  /// Height of a load on the compressed fibre over the shear centre, mm, with its sign (negative:
  /// it makes the member buckle sooner); by Flange.
  std::array<double, 2> load_height{};
  std::array<double, 2> modulus{};  ///< Iyy/z of the compressed fibre, mm³, by Flange
  double f = 0.0;                   ///< design strength, N/mm²
  bool is_weakly_hardening = true;
};

/// Measure of unequal flanges of a section that is symmetric about z, by its definition:
/// e0 − ∫z·(y² + z²)dA/(2·Iyy), mm. 0 for shapes without flanges.
double monosymmetry(const ALU_SECT_DATA& sect);

/// Elastic critical moments of a piece, N·mm, by the formula of appendix C.
struct CriticalMoments {
  double uniform = 0.0;  ///< equal moments at both ends (β1, β2, β3 = 1, 0, 1): the exact solution
  double loaded = 0.0;   ///< evenly loaded on the compressed fibre (1.132, 0.459, 0.525)

  /// The smaller one: whatever the moments of the piece are, they lie between these two.
  double smaller() const { return std::min(uniform, loaded); }
};

CriticalMoments critical_moments(const LateralSection& section, Flange compressed, double length);

/// φb of a piece and what it follows from.
struct LateralCoefficient {
  CriticalMoments moments;
  double slenderness = 0.0;  ///< λb = √(W·f/Mcr)
  double phi_b = 1.0;
};

/// @param share of its critical moments that the whole member leaves to the piece
LateralCoefficient lateral_coefficient(const LateralSection& section, Flange compressed,
                                       double length, double share = 1.0);

/// What the checks make of an element whose member nothing holds beside its frame.
struct UnrestrainedCoefficient {
  LateralSection section;
  /// The largest φb that they have for it: it depends on the position and on which plates are
  /// reduced. What is not larger betters nothing.
  double largest_phi_b = 0.0;
  bool is_halved = false;  ///< they halve the length, for a support between the member's ends
};

/// Nothing where φb is not a matter of lengths: closed sections, trusses, channels with unequal
/// flanges (which have no axis of symmetry), sections whose parameters cannot be formed, and
/// elements that have coefficients of their own.
std::optional<UnrestrainedCoefficient> unrestrained_coefficient(const ALU_DGN_DATA& data);

}  // namespace aluframe::restraints
