#pragma once

#include "tz_alu/records/alu_dgn_data.h"
#include "tz_alu/records/alu_forces.h"

// Slenderness kl/i of a member and its limit, dimensionless (GB 50429-2007, chapters 4 and 7). The
// gross section counts. Zero areas and inertias divide as IEEE arithmetic does.

namespace alu_engine {

/// Slenderness of buckling about both axes.
struct SLENDERNESS {
  double dLambdaY;
  double dLambdaZ;  ///< of an unsymmetric section flexural-torsional, λyz ≥ λz
};

/// False when the tension limit is negative, which switches the check off, whether or not the
/// limits are the element's own.
bool IsSlendernessChecked(const ALU_PARA_DATA& para);

/// Buckling length for twist and warping, mm: 2·L of a member with an end that is free about both
/// axes, else L.
double TorsionalBucklingLength(const ALU_DGN_DATA& data);

/// i = √(I/A), mm.
double RadiusOfGyration(double inertia, double area);

/// i0 = √(iy² + iz² + e0²) about the shear centre, mm.
double PolarRadius(double iy, double iz, double e0);

/// λω = √(i0²·A/(It/25.7 + Iω/lω²)) of buckling by twist alone.
double TorsionalSlenderness(const ALU_DGN_DATA& data, double i0);

/// λ = k·L/i about both axes, of an unsymmetric section λyz about z. Not a number where rounding
/// makes the inner root of λyz negative, which needs λz and λω to agree to the last digits.
SLENDERNESS MemberSlenderness(const ALU_DGN_DATA& data);

/// Limiting slenderness: the element's own, or by member type and sign of the axial force, 0
/// without axial force. An axial force of magnitude 1e-10 counts as tension.
double SlendernessLimit(const ALU_DGN_DATA& data, const AluDgnSectForce& force);

}  // namespace alu_engine
