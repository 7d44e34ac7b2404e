#pragma once

#include "tz_alu/engine/check_input.h"

// Width-to-thickness ratios of a section's plates and their limits (GB 50429-2007, chapter 5).
// Lengths in mm, stresses in N/mm², N tension positive. Divisions are IEEE divisions: a plate
// without thickness has an infinite ratio, one without width and thickness an undefined one.

namespace alu_engine {

/// Kinds of plate in a section.
enum class PLATE {
  Web,
  Flange,
};

/// Stress ratio ψ of a plate: stress of the less compressed edge over that of the other. A flange
/// is stressed uniformly, 1. A web takes its edge stresses from −N/An and ±My, with An = A·ηA; 0
/// when z1, z3, Iyy, An or the stress divided by is zero.
double StressRatio(const CHECK_INPUT& in, PLATE plate);

/// Buckling coefficient k(ψ) of a plate under a stress gradient: of an internal element when ribs
/// stiffen the plates (`bRib` = 1), else of an outstand element.
double GradientCoefficient(double psi, bool ribs);

/// Factor κ on a limit for the stress gradient: k(ψ)/4 with ribs, k(ψ)/0.425 without; 1 unless My
/// is at least 1e-10, so also for every negative My.
double GradientFactor(const CHECK_INPUT& in, PLATE plate);

/// What √(240/f0.2)·√(η·κ) is multiplied by in a plate's limit; of a pipe what is divided by f0.2.
/// 0 where there is no limit.
double PlateLimitFactor(const CHECK_INPUT& in, PLATE plate);

/// Limit of a plate's width-to-thickness ratio, or of the diameter-to-thickness ratio of a pipe
/// (whatever the plate), by shape, alloy class and welds. 0 where there is no limit: the web of a
/// channel, and tees, double channels and solid rounds altogether. A limit is also 0 for a rib
/// ratio of 0, infinite for f0.2 = 0, and not a number for a negative one of them.
double PlateLimit(const CHECK_INPUT& in, PLATE plate);

/// Plate slenderness: width-to-thickness ratio over its limit. 0 where a plate is not judged, also
/// for a limit of 0: the ratio is then not formed.
struct PLATE_RATIOS {
  double dTop = 0.0;        ///< R1, top flange
  double dBottom = 0.0;     ///< R2, bottom flange
  double dWeb = 0.0;        ///< Rw
  double dGoverning = 0.0;  ///< R; that of a pipe is its diameter over wall
};

/// The ratios of C, H, B and P; all 0 for other shapes. R ≤ 1: every plate is fully effective. R is
/// not a number when the top flange's (a pipe's) ratio is not, as for a section of a shape unknown
/// to the checks, which arrives as a channel without dimensions.
PLATE_RATIOS PlateRatios(const CHECK_INPUT& in);

}  // namespace alu_engine
