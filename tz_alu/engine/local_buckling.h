#pragma once

#include "tz_alu/engine/check_input.h"
#include "tz_alu/engine/plate_slenderness.h"

// Local buckling of slender plates: the plate that governs, its critical stress, and the effective
// thickness ρ·t it keeps (GB 50429-2007, chapter 5). Lengths in mm, stresses in N/mm².

namespace alu_engine {

/// Part of the section that loses thickness.
enum class REDUCED_PART {
  WholeSection,  ///< axial compression alone
  TopFlange,     ///< any other state with My > 1e-10
  BottomFlange,  ///< any other state, also tension and bending about z alone
};

/// By the force state of the position.
REDUCED_PART ReducedPart(const AluDgnSectForce& force);

/// The plate whose buckling decides.
struct GOVERNING_PLATE {
  double k = 0.0;  ///< buckling coefficient; 0: no plate governs
  double b = 0.0;  ///< width, mm
  double t = 0.0;  ///< thickness, mm
};

/// Governing plate of a C, H or B. In axial compression the web comes first, then both flanges,
/// then the bottom flange; none when only the top flange is slender. In any other state the flange
/// that My compresses, never the web.
GOVERNING_PLATE GoverningPlate(const CHECK_INPUT& in, const PLATE_RATIOS& ratios);

/// Elastic critical stress of a plate, σcr = k·E·π²/(12·(1 − ν²)·(b/t)²), N/mm²; infinite for b = 0
/// and for ν = 1, 0 for t = 0.
double CriticalStress(const GOVERNING_PLATE& plate, double E, double poisson);

/// λ = √(f0.2/σcr) of a plate.
double RelativePlateSlenderness(const CHECK_INPUT& in, const GOVERNING_PLATE& plate);

/// Whether ρ stays below 1/λ²: without ribs, and in unsymmetric sections.
bool IsEffectiveThicknessCapped(const CHECK_INPUT& in);

/// How an alloy's plates lose effective thickness: ρ = c1/λ − 0.22·c2/λ².
struct REDUCTION_COEFFICIENTS {
  double c1;
  double c2;
};

/// By alloy class, welds and ribs.
REDUCTION_COEFFICIENTS ReductionCoefficients(bool weakHardening, bool welded, bool ribs);

/// Effective-thickness factor ρ in [0, 1] (to 1e-10) of the governing plate, 1 when none governs.
/// It falls to 0 for a stocky plate (λ below about 0.2). Not a number for a critical stress that is
/// negative, not a number, or infinite (b = 0) where the cap 1/λ² does not apply.
double EffectiveThicknessFactor(const CHECK_INPUT& in, const PLATE_RATIOS& ratios);

}  // namespace alu_engine
