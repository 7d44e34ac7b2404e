#pragma once

#include "tz_alu/engine/design_factors.h"
#include "tz_alu/records/alu_cal.h"
#include "tz_alu/records/alu_forces.h"

// Normal stresses of a cross-section, to be compared with f (GB 50429-2007, chapters 6 to 8).
// Forces in N and N·mm, tension positive; stresses in N/mm².

namespace alu_engine {

/// What the strength formulas share.
struct STRENGTH_INPUT {
  const AluDgnSectForce& force;
  const ALU_CAL_SECTPARA& section;
  PLASTICITY gamma;
  double dFactor;     ///< k on the forces
  bool bUnsymmetric;  ///< top and bottom fibre are checked apart
};

/// Stress of the governing fibre, with the plasticity factor that belongs to it.
struct BENDING_STRESS {
  double dDemand = 0.0;
  double dGammaY = 0.0;  ///< 0 when a zero modulus left the demand at 0
};

/// Area after the strength adjustment, Aen = A·ηA, mm².
double AdjustedArea(const ALU_CAL_SECTPARA& section, const ALU_PARA_DATA& para);

/// Axial force alone: k·|N|/Aen; 0 when Aen is zero.
double AxialStress(const STRENGTH_INPUT& in, double Aen);

/// Bending alone about one or both axes; 0 when γy1·W1 or γz·Wz is zero. A symmetric section takes
/// My by its magnitude and Mz with its sign, so a positive Mz lowers the stress.
BENDING_STRESS BendingStress(const STRENGTH_INPUT& in);

/// Axial force with bending; 0 when Aen, γy1·W1 or γz·Wz is zero. Of an unsymmetric section only
/// the bottom fibre is judged.
double CombinedStress(const STRENGTH_INPUT& in, double Aen);

}  // namespace alu_engine
