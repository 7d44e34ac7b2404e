#pragma once

#include "tz_alu/engine/check_input.h"

// Equivalent moment factors of members in compression with bending (GB 50429-2007, chapter 8).

namespace alu_engine {

/// Loading of a member between its ends, per axis.
enum class MOMENT_LOADING : std::int32_t {
  EndMoments = 0,       ///< end moments alone: 0.6 + 0.4·M2/M1
  PointLoad = 1,        ///< 1 − 0.36·|N|/N_E
  DistributedLoad = 2,  ///< 1 − 0.18·|N|/N_E
  MomentsAndLoads = 3,  ///< 1 − 0.36·(1 − M2/M1)·|N|/N_E
};

/// M2/M1 of the moments at a member's ends, M1 the one of larger magnitude (the end's when they are
/// equal). Both keep their signs: positive when they bend the member to one side. 1 when both are
/// zero, which is the safe side.
double EndMomentRatio(double start, double end);

/// Euler load N_E = π²·E·I/(k·L)², N. E N/mm², I mm⁴, buckling length mm; infinite for length 0.
double EulerLoad(double E, double inertia, double bucklingLength);

/// βm by the loading; 0 for a loading type that the code does not know. Not finite for N_E = 0
/// where it enters.
double ComputedMomentFactor(std::int32_t loading, double ratio, double N, double N_E);

/// Equivalent moment factors about both axes.
struct MOMENT_FACTORS {
  double dBetaY;
  double dBetaZ;
};

/// βm of both axes: the user's value where the element gives one (`nBetaMOpt` not 1); 1 where the
/// frame sways and the element has no factors of its own (`bUserBetaM` 0); else the computed value.
MOMENT_FACTORS MomentFactors(const CHECK_INPUT& in);

}  // namespace alu_engine
