#pragma once

#include "tz_alu/engine/design_factors.h"
#include "tz_alu/engine/equivalent_moment.h"
#include "tz_alu/engine/lateral_torsional.h"
#include "tz_alu/engine/stability_coefficients.h"
#include "tz_alu/records/alu_cal.h"

// Design stresses of member stability, to be compared with f (GB 50429-2007, chapters 7 and 8).
// Forces in N and N·mm, compression negative; stresses in N/mm². Demands keep the sign that the
// formulas give; apart from the guards named here divisions are IEEE divisions.

namespace alu_engine {

/// Axial compression: k·|N|/(A·φ) with the gross area; 0 when φ is zero.
double AxialStabilityStress(const CHECK_INPUT& in, double phi, double k);

/// Bending: k·My/(φb·W1), for My < −1e-10 k·My/(φb·W2), so negative for a negative My; 0 when φb·W1
/// or φb·W2 is zero. Mz takes no part.
double BendingStabilityStress(const CHECK_INPUT& in, const ALU_CAL_SECTPARA& section, double phi_b,
                              double k);

/// Everything that the checks of compression with bending share.
struct BEAM_COLUMN {
  const CHECK_INPUT& in;
  const ALU_CAL_SECTPARA& section;
  bool bUnsymmetric;
  double dFactor;  ///< k on the forces
  PLASTICITY gamma;
  AXIAL_COEFFICIENTS phi;
  BENDING_COEFFICIENTS phi_b;
  MOMENT_FACTORS beta;
  INTERACTION_FACTORS eta;
  double dNEy;  ///< N_Ey', N
  double dNEz;  ///< N_Ez', N
};

/// Forms them, each once for both checks.
BEAM_COLUMN PrepareBeamColumn(const CHECK_INPUT& in, const ALU_CAL_SECTPARA& section,
                              const SLENDERNESS& lambda, double f);

/// Stress of the check about y with its parts.
struct IN_PLANE_STRESS {
  double dDemand = 0.0;
  bool bParts = false;  ///< the demand is the larger of the two parts
  double dTop = 0.0;    ///< Rmax211 as a stress, compression side of an unsymmetric section
  double dBottom =
      0.0;  ///< Rmax212 as a stress, tension side; one that is no number does not count
};

/// Compression with bending, stability in the plane of My. An unsymmetric section takes My by its
/// sign and leaves Mz out; with My > 1e-10 the larger of compression and tension side counts.
IN_PLANE_STRESS InPlaneStress(const BEAM_COLUMN& column);

/// Compression with bending, stability about z. An unsymmetric section takes My by its sign and
/// leaves Mz out.
double OutOfPlaneStress(const BEAM_COLUMN& column);

}  // namespace alu_engine
