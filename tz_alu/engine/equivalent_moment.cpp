#include "tz_alu/engine/equivalent_moment.h"

#include <cmath>

#include "tz_alu/engine/constants.h"
#include "tz_alu/tolerance.h"

namespace alu_engine {

namespace {

// One axis of a member.
struct AXIS {
  int nIndex;  // 0 y, 1 z
  double start;
  double end;
  double inertia;
  double lengthFactor;
};

double Computed(const CHECK_INPUT& in, const AXIS& axis) {
  const double N_E = EulerLoad(in.E(), axis.inertia, axis.lengthFactor * in.data.dMembLength);
  return ComputedMomentFactor(in.Parameters().nBetaMOpt2[axis.nIndex],
                              EndMomentRatio(axis.start, axis.end), in.N(), N_E);
}

double MomentFactor(const CHECK_INPUT& in, const AXIS& axis) {
  const ALU_PARA_DATA& para = in.Parameters();
  if (para.nBetaMOpt[axis.nIndex] != 1) return para.dBetaM[axis.nIndex];
  if (para.bUserBetaM == 0 && para.bSway[axis.nIndex] != 0) return 1.0;
  return Computed(in, axis);
}

}  // namespace

double EndMomentRatio(double start, double end) {
  const bool startLarger = std::fabs(start) > std::fabs(end);
  const double M1 = startLarger ? start : end;
  const double M2 = startLarger ? end : start;
  return IsZero(M1) ? 1.0 : M2 / M1;
}

double EulerLoad(double E, double inertia, double bucklingLength) {
  return kPi * kPi * E * inertia / (bucklingLength * bucklingLength);
}

double ComputedMomentFactor(std::int32_t loading, double ratio, double N, double N_E) {
  switch (static_cast<MOMENT_LOADING>(loading)) {
    case MOMENT_LOADING::EndMoments:
      return 0.6 + 0.4 * ratio;
    case MOMENT_LOADING::PointLoad:
      return 1.0 - 0.36 * std::fabs(N) / N_E;
    case MOMENT_LOADING::DistributedLoad:
      return 1.0 - 0.18 * std::fabs(N) / N_E;
    case MOMENT_LOADING::MomentsAndLoads:
      return 1.0 - 0.36 * (1.0 - ratio) * std::fabs(N) / N_E;
  }
  return 0.0;
}

MOMENT_FACTORS MomentFactors(const CHECK_INPUT& in) {
  const ALU_SECT_DATA& sect = in.Section();
  const ALU_PARA_DATA& para = in.Parameters();
  const AluDgnEndForce& ends = in.force.end;
  return {MomentFactor(in, {0, ends.dMyI, ends.dMyJ, sect.dIyy, para.dKy}),
          MomentFactor(in, {1, ends.dMzI, ends.dMzJ, sect.dIzz, para.dKz})};
}

}  // namespace alu_engine
