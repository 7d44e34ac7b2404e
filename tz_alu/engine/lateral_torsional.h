#pragma once

#include "tz_alu/engine/check_input.h"

// Lateral-torsional stability of members in bending (GB 50429-2007, chapter 7 and appendix C).
// Lengths in mm, moments in N·mm, stresses in N/mm².

namespace alu_engine {

/// Coefficients of the critical moment: moment diagram, height of the load, monosymmetry.
struct CRITICAL_MOMENT_COEFFICIENTS {
  double b1;
  double b2;
  double b3;
};

/// By member type, support between the ends (`bMidSupport` = 1) and, for a beam, whether both codes
/// of an end in `nEndCond` differ from 0 (fixed). All 0 for a truss and unknown types, which makes
/// the critical moment 0.
CRITICAL_MOMENT_COEFFICIENTS CriticalMomentCoefficients(const ALU_DGN_DATA& data);

/// One flange of a section in βy: width, thickness, distance of its middle from the centroid, mm.
struct OUTLINE_FLANGE {
  double width;
  double thickness;
  double arm;
};

/// What the formula of βy sees of a shape.
struct FLANGED_OUTLINE {
  OUTLINE_FLANGE top;
  OUTLINE_FLANGE bottom;
  double webs;  ///< thickness of all webs, mm
};

/// Whether the shape has a βy: C, H, T, B and 2C.
bool HasFlangedOutline(std::int32_t nShape);

/// Only for shapes with `HasFlangedOutline`.
FLANGED_OUTLINE FlangedOutline(const ALU_SECT_DATA& sect);

/// Monosymmetry parameter βy of the section, mm. The shear centre's distance is subtracted at a
/// section of the member's end (`bEndSect` = 1) and added elsewhere. 0 for P, SR and unknown
/// shapes; not finite for Iyy = 0.
double Monosymmetry(const ALU_SECT_DATA& sect, bool endSection);

/// Length lb between lateral supports, mm: the member's, half of it with a support between its
/// ends.
double LateralBucklingLength(const ALU_DGN_DATA& data);

/// Elastic critical moment Mcr, N·mm. Not finite, or not a number, without warping stiffness
/// (Iω = 0), E, Izz or length, and not a number where the root's argument is negative.
double CriticalMoment(const CHECK_INPUT& in);

/// λb = √(W1·f/Mcr); what `CriticalMoment` says of its value holds here.
double LateralTorsionalSlenderness(const CHECK_INPUT& in, double W1, double f);

/// Lateral-torsional coefficient φb ≤ 1 (to 1e-10) of a slenderness λb = √(W1·f/Mcr). 1 for λb
/// below 1e-10, where the formula would divide by it; from there to about 1e-8 rounding leaves 0.
/// Not a number for a λb that is not, and for an infinite one.
double LateralTorsionalCoefficient(double lambda_b, bool weakHardening);

/// Lateral-torsional coefficients of both axes.
struct BENDING_COEFFICIENTS {
  double dPhiB;
  double dPhiBz;
};

/// The user's coefficients (`bUserPhi` not 0), else φbz = 1 with φb = 1 for closed sections (B, P)
/// and φb by the critical moment for all other shapes. W1: modulus of the calculated section, mm³.
BENDING_COEFFICIENTS BendingCoefficients(const CHECK_INPUT& in, double W1, double f);

}  // namespace alu_engine
