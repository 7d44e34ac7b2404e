#pragma once

#include "tz_alu/engine/check_input.h"
#include "tz_alu/engine/slenderness.h"
#include "tz_alu/records/alu_cal.h"

// Axial stability coefficients and what belongs to them (GB 50429-2007, chapter 7 and appendix B).
// Dimensionless unless said otherwise; lengths in mm, stresses in N/mm², forces in N.

namespace alu_engine {

/// Axial stability coefficient φ of the code's table at the whole number nearest to λ·√(fy/240),
/// halves away from zero: 1 below 0, 0.119 (weakly hardening) or 0.113 beyond 150. Not a number for
/// a λ·√(fy/240) that is not, as for a negative fy.
double ColumnCoefficient(double lambda, double fy, bool weakHardening);

/// The whole number at which the table of φ is read, before its ends are looked at.
double ColumnTableNumber(double lambda, double fy);

/// Effective-area factor X = Ae/A of a C, H or B with a slender plate, Ae the area of the
/// calculated section; else 1. Not finite without gross area.
double EffectiveAreaFactor(const ALU_SECT_DATA& sect, const ALU_CAL_SECTPARA& section);

/// Heat-affected factor Y of a symmetric section: ρhaz when it is welded (`bWelded` = 1), else 1.
double WeldFactor(const CHECK_INPUT& in);

/// Relative eccentricity e = |z1 + z3|/H of the centroid in an unsymmetric section.
double RelativeEccentricity(const ALU_SECT_DATA& sect);

/// Relative slenderness λ̄ = λ/π·√(X·fy/E) of ηe.
double RelativeSlenderness(const CHECK_INPUT& in, double lambda, double X);

/// Eccentricity factor of an unsymmetric section for buckling with the slenderness λ,
/// ηe = 1 − c·e²·λ̄²/((1 + λ̄²)·(1 + λ̄)²), e = |z1 + z3|/H, λ̄ = λ/π·√(X·fy/E). Not a number for
/// H = 0 or E = 0.
double EccentricityFactor(const CHECK_INPUT& in, double lambda, double X);

/// Axial stability coefficients that the checks use.
struct AXIAL_COEFFICIENTS {
  double dPhiY;
  double dPhiZ;

  /// The smaller of the two; φz unless φy is smaller.
  double Governing() const { return dPhiY < dPhiZ ? dPhiY : dPhiZ; }
};

/// φ of both axes: X·Y·φ(λ) of a symmetric section, X·ηe·φ(λ) of an unsymmetric one, which takes
/// λyz for z.
AXIAL_COEFFICIENTS AxialCoefficients(const CHECK_INPUT& in, const ALU_CAL_SECTPARA& section,
                                     const SLENDERNESS& lambda);

/// Euler-type force N_E' = π²·E·A/(1.2·λ²) with the gross area, N; infinite for λ = 0.
double EulerTypeForce(double E, double area, double lambda);

/// Factors of the interaction of axial force and moments.
struct INTERACTION_FACTORS {
  double dEta;   ///< η, 0.7 for closed sections (B, P), else 1
  double dEta1;  ///< η1, by the alloy's hardening class
  double dEta2;  ///< η2, likewise
};

/// By shape and hardening class.
INTERACTION_FACTORS InteractionFactors(std::int32_t nShape, bool weakHardening);

}  // namespace alu_engine
