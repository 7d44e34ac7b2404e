#include "aluframe/explain/moment_factor_steps.h"

#include <fmt/format.h>

#include <cmath>
#include <string>

#include "aluframe/explain/inputs.h"
#include "tz_alu/engine/constants.h"
#include "tz_alu/engine/equivalent_moment.h"
#include "tz_alu/tolerance.h"

namespace aluframe::explain {

namespace engine = alu_engine;
using engine::MOMENT_LOADING;

namespace {

/// One axis of the member.
struct Axis {
  std::size_t index;  ///< 0 y, 1 z
  const char* name;
  double start;
  double end;
};

Term end_moment(Derivation& d, const Axis& axis, bool start) {
  return d.given(
      {fmt::format("M{}{}", axis.name, start ? "I" : "J"),
       start ? fmt::format(translatable("moment about {} at the member's start"), axis.name)
             : fmt::format(translatable("moment about {} at the member's end"), axis.name),
       "N·mm", "", d.origins.forces},
      start ? axis.start : axis.end);
}

/// M2/M1.
Term moment_ratio(Derivation& d, const Axis& axis) {
  const bool start_is_larger = std::fabs(axis.start) > std::fabs(axis.end);
  const Term start = end_moment(d, axis, true), end = end_moment(d, axis, false);
  const Term& M1 = start_is_larger ? start : end;
  const Term& M2 = start_is_larger ? end : start;
  Info info{fmt::format("r{}", axis.name),
            fmt::format(translatable("M2/M1 of the member's end moments about {}"), axis.name), "",
            "8.2"};
  const double value = engine::EndMomentRatio(axis.start, axis.end);
  if (engine::IsZero(M1.own_value())) {
    info.why = translatable("1: both end moments are 0");
    return d.trace.given(info, value, {start.name(), end.name()});
  }
  info.why = fmt::format(translatable("{} is the larger one, M1"), M1.name());
  return d.trace.define(info, value, M2 / M1);
}

Term euler_load(Derivation& d, const Axis& axis) {
  const bool y = axis.index == 0;
  const Term I = y ? inertia_y(d) : inertia_z(d);
  const Term K = y ? length_factor_y(d) : length_factor_z(d);
  const Term L = member_length(d);
  return d.trace.define(
      {fmt::format("N_E{}", axis.name), fmt::format(translatable("Euler load about {}"), axis.name),
       "N", "8.2"},
      engine::EulerLoad(d.in.E(), I.own_value(), K.own_value() * L.own_value()),
      Term::constant("π²", engine::kPi * engine::kPi) * elastic_modulus(d) * I / squared(K * L));
}

Term computed_factor(Derivation& d, const Axis& axis, Info info, double value) {
  const std::int32_t loading = d.in.Parameters().nBetaMOpt2[axis.index];
  const auto part_of_load = [&](const Term& factor) {
    return 1.0 - factor * magnitude(axial_force(d)) / euler_load(d, axis);
  };
  switch (static_cast<MOMENT_LOADING>(loading)) {
    case MOMENT_LOADING::EndMoments:
      info.why = translatable("loading 0: end moments alone (S12)");
      return d.trace.define(info, value, 0.6 + 0.4 * moment_ratio(d, axis));
    case MOMENT_LOADING::PointLoad:
      info.why = translatable("loading 1: a point load");
      return d.trace.define(info, value, part_of_load(Term::number(0.36)));
    case MOMENT_LOADING::DistributedLoad:
      info.why = translatable("loading 2: a distributed load");
      return d.trace.define(info, value, part_of_load(Term::number(0.18)));
    case MOMENT_LOADING::MomentsAndLoads:
      info.why = translatable("loading 3: end moments and loads");
      return d.trace.define(info, value, part_of_load(0.36 * (1.0 - moment_ratio(d, axis))));
  }
  info.why = fmt::format(translatable("0: the code knows no loading {}"), loading);
  return d.trace.given(info, value);
}

Term moment_factor(Derivation& d, const Axis& axis, double value) {
  const ALU_PARA_DATA& para = d.in.Parameters();
  Info info{fmt::format("βm{}", axis.name),
            fmt::format(translatable("equivalent moment factor about {}"), axis.name), "", "8.2"};
  if (para.nBetaMOpt[axis.index] != 1) {
    info.why = translatable("the element's own");
    return d.trace.given(info, value);
  }
  if (para.bUserBetaM == 0 && para.bSway[axis.index] != 0) {
    info.why = translatable("1: the frame sways (S13)");
    return d.trace.given(info, value);
  }
  return computed_factor(d, axis, info, value);
}

}  // namespace

Term moment_factor_y(Derivation& d) {
  const AluDgnEndForce& ends = d.in.force.end;
  return moment_factor(d, {0, "y", ends.dMyI, ends.dMyJ}, engine::MomentFactors(d.in).dBetaY);
}

Term moment_factor_z(Derivation& d) {
  const AluDgnEndForce& ends = d.in.force.end;
  return moment_factor(d, {1, "z", ends.dMzI, ends.dMzJ}, engine::MomentFactors(d.in).dBetaZ);
}

}  // namespace aluframe::explain
