#include "aluframe/explain/plates.h"

#include <fmt/format.h>

#include "aluframe/explain/factors.h"
#include "aluframe/explain/inputs.h"
#include "aluframe/explain/plate_parts.h"
#include "tz_alu/engine/effective_section.h"
#include "tz_alu/engine/plate_slenderness.h"
#include "tz_alu/tolerance.h"

namespace aluframe::explain {

namespace engine = alu_engine;

namespace {

// Limits.

std::string ribs_text(const Derivation& d) {
  return d.has_ribs() ? translatable("with ribs") : translatable("without ribs");
}

/// Axial stress -N/An of the gross section less what the strength ratio takes off.
Term axial_edge_stress(Derivation& d) {
  const Term ratio = strength_ratio(d), force = axial_force(d);
  return d.trace.once("σN", [&] {
    return d.trace.part({"σN", translatable("stress from N, compression positive"), "N/mm²", "5.2"},
                        Term::number(-1.0) * force / (ratio * gross_area(d)));
  });
}

/// ψ of the web by its edge stresses.
Term web_stress_ratio(Derivation& d) {
  const double psi = engine::StressRatio(d.in, engine::PLATE::Web);
  Info info{"ψ", translatable("stress ratio of the web: the less compressed edge over the other"),
            "", "5.2"};
  const double net = d.in.Parameters().dCoef085 * d.in.Section().dArea;
  if (engine::IsZero(net) || engine::IsZero(d.in.Section().dIyy)) {
    info.why = translatable("0: An or Iyy is 0");
    return d.trace.given(info, psi);
  }
  const Term axial = axial_edge_stress(d);
  const Term top = d.trace.part(
      {"σtop", translatable("stress at the top edge of the web"), "N/mm²", "5.2",
       translatable("z1 with its sign")},
      axial + moment_y(d) * (top_fibre(d) - dimension(d, Dimension::top_thickness)) / inertia_y(d));
  const Term bottom = d.trace.part(
      {"σbottom", translatable("stress at the bottom edge of the web"), "N/mm²", "5.2"},
      axial - moment_y(d) *
                  (magnitude(bottom_fibre(d)) - dimension(d, Dimension::bottom_thickness)) /
                  inertia_y(d));
  const bool is_top = d.in.My() > engine::kTolerance;
  const Term& divisor = is_top ? top : bottom;
  if (engine::IsZero(divisor.own_value())) {
    info.why = translatable("0: the compressed edge has no stress");
    return d.trace.given(info, psi, {divisor.name()});
  }
  if (is_top) info.why = translatable("My is positive: the top edge is the compressed one");
  return d.trace.define(info, psi, (is_top ? bottom : top) / divisor);
}

Term gradient_formula(Derivation& d, const Term& psi) {
  const double ratio = psi.own_value();
  if (!d.has_ribs()) {
    return ratio > engine::kTolerance ? 0.578 / (psi + 0.34) : 1.7 - 5.0 * psi + 17.1 * psi * psi;
  }
  if (ratio < -1.0) return 5.98 * squared(1.0 - psi);
  if (ratio < -engine::kTolerance) return 7.81 - 6.29 * psi + 9.78 * psi * psi;
  return 8.2 / (psi + 1.05);
}

std::string gradient_text(const Derivation& d, double psi) {
  if (!d.has_ribs()) {
    return psi > engine::kTolerance ? translatable("outstand, ψ > 0")
                                    : translatable("outstand, ψ <= 0");
  }
  if (psi < -1.0) return translatable("internal plate, ψ < -1");
  return psi < -engine::kTolerance ? translatable("internal plate, -1 <= ψ < 0")
                                   : translatable("internal plate, ψ >= 0");
}

/// κ of a plate: for the stress gradient under a positive My.
Term gradient_factor(Derivation& d, engine::PLATE plate) {
  const bool web = plate == engine::PLATE::Web;
  const std::string symbol = web ? "κw" : "κf";
  const Info info{symbol,
                  web ? translatable("factor on the limit of the web")
                      : translatable("factor on the limit of the flanges"),
                  "", "5.2"};
  const double value = engine::GradientFactor(d.in, plate);
  if (d.in.My() < engine::kTolerance) {
    Info plain = info;
    plain.why = translatable("1: My is not positive, so plates count as in uniform compression");
    return d.trace.given(plain, value, {moment_y(d).name()});
  }
  const Term psi = web ? web_stress_ratio(d)
                       : d.given({"ψf", translatable("stress ratio of a flange"), "", "5.2",
                                  translatable("uniform over its width")},
                                 1.0);
  const double ratio = engine::StressRatio(d.in, plate);
  const Term k = d.trace.define({web ? "kw" : "kf",
                                 web ? translatable("buckling coefficient k(ψ) of the web")
                                     : translatable("buckling coefficient k(ψ) of the flanges"),
                                 "", "5.2", gradient_text(d, ratio)},
                                engine::GradientCoefficient(ratio, d.has_ribs()),
                                gradient_formula(d, psi), {});
  Info of = info;
  of.why = ribs_text(d);
  return d.trace.define(of, value, k / (d.has_ribs() ? 4.0 : 0.425));
}

std::string pipe_conditions(const Derivation& d) {
  if (d.is_weak()) {
    return d.is_welded() ? translatable("weakly hardening alloy, welded")
                         : translatable("weakly hardening alloy, not welded");
  }
  return d.is_welded() ? translatable("strongly hardening alloy, welded")
                       : translatable("strongly hardening alloy, not welded");
}

Term limit_of(Derivation& d, engine::PLATE plate) {
  const bool web = plate == engine::PLATE::Web;
  const std::string symbol = web ? "limw" : "limf";
  return d.trace.once(symbol, [&] {
    const double factor = engine::PlateLimitFactor(d.in, plate);
    const double value = engine::PlateLimit(d.in, plate);
    const Term f02 = proof_strength(d);
    if (d.shape() == ALU_SHAPE_P) {
      return d.trace.define(
          {symbol, translatable("limit of diameter over thickness"), "", "5.2", pipe_conditions(d)},
          value, factor / f02);
    }
    const Term eta = d.given({"ηr", translatable("stiffener factor of the ribs"), "", "5.2",
                              d.has_ribs() ? d.origins.settings : translatable("1: without ribs")},
                             d.has_ribs() ? d.in.Parameters().dRibRatio : 1.0);
    return d.trace.define(
        {symbol,
         web ? translatable("limit of width over thickness of the web")
             : translatable("limit of width over thickness of the flanges"),
         "", "5.2", plate_conditions(d)},
        value, Term::number(factor) * (root(240.0 / f02) * root(eta * gradient_factor(d, plate))));
  });
}

// Ratios.

Term flange_width(Derivation& d, Dimension width) {
  const Term B = dimension(d, width);
  if (is_box(d)) return B - webs(d);
  const Term r1 = dimension(d, Dimension::r1), r2 = dimension(d, Dimension::r2);
  return is_h(d) ? B - webs(d) - 2.0 * r1 - 2.0 * r2 : B - webs(d) - r1 - r2;
}

Term web_width(Derivation& d) {
  const Term between = dimension(d, Dimension::depth) - dimension(d, Dimension::top_thickness) -
                       dimension(d, Dimension::bottom_thickness);
  return is_h(d) ? between - 2.0 * dimension(d, Dimension::r1) : between;
}

/// Width over thickness over limit; 0 of a plate without a limit.
Term ratio_of(Derivation& d, const Info& info, double value, const Term& width,
              const Term& thickness, engine::PLATE plate) {
  const Term limit = limit_of(d, plate);
  if (limit.own_value() != 0.0) return d.trace.define(info, value, width / thickness / limit);
  Info none = info;
  none.why = translatable("0: the limit is 0, so the plate is not judged");
  return d.trace.given(none, value, {limit.name()});
}

Term top_ratio(Derivation& d) {
  return ratio_of(
      d, {"R1", translatable("top flange: width over thickness over its limit"), "", "5.2"},
      ratios_of(d).dTop, flange_width(d, Dimension::top_width),
      dimension(d, Dimension::top_thickness), engine::PLATE::Flange);
}

Term bottom_ratio(Derivation& d) {
  return ratio_of(d,
                  {"R2", translatable("bottom flange: width over thickness over its limit"), "",
                   "5.2", is_box(d) ? translatable("its width is the distance of the webs") : ""},
                  ratios_of(d).dBottom, flange_width(d, Dimension::bottom_width),
                  dimension(d, Dimension::bottom_thickness), engine::PLATE::Flange);
}

Term web_ratio(Derivation& d) {
  return ratio_of(d, {"Rw", translatable("web: width over thickness over its limit"), "", "5.2"},
                  ratios_of(d).dWeb, web_width(d), dimension(d, Dimension::web),
                  engine::PLATE::Web);
}

}  // namespace

bool is_box(const Derivation& d) {
  return d.shape() == ALU_SHAPE_B;
}

bool is_h(const Derivation& d) {
  return d.shape() == ALU_SHAPE_H;
}

engine::PLATE_RATIOS ratios_of(const Derivation& d) {
  return engine::PlateRatios(d.in);
}

Term webs(Derivation& d) {
  const Term tw = dimension(d, Dimension::web);
  return is_box(d) ? 2.0 * tw : tw;
}

std::string plate_conditions(const Derivation& d) {
  static constexpr const char* texts[2][2][2] = {
      {{translatable("strongly hardening alloy, not welded, without ribs"),
        translatable("strongly hardening alloy, not welded, with ribs")},
       {translatable("strongly hardening alloy, welded, without ribs"),
        translatable("strongly hardening alloy, welded, with ribs")}},
      {{translatable("weakly hardening alloy, not welded, without ribs"),
        translatable("weakly hardening alloy, not welded, with ribs")},
       {translatable("weakly hardening alloy, welded, without ribs"),
        translatable("weakly hardening alloy, welded, with ribs")}}};
  return texts[d.is_weak() ? 1 : 0][d.is_welded() ? 1 : 0][d.has_ribs() ? 1 : 0];
}

bool has_judged_plates(const Derivation& d) {
  return d.shape() == ALU_SHAPE_P || engine::HasEffectiveSection(d.shape());
}

Term governing_ratio(Derivation& d) {
  return d.trace.once("R", [&] {
    const double value = ratios_of(d).dGoverning;
    Info info{"R", translatable("governing plate: width over thickness over its limit"), "", "5.2",
              value > 1.0 ? translatable("above 1: a plate is slender")
                          : translatable("at most 1: every plate is fully effective")};
    if (d.shape() == ALU_SHAPE_P) {
      info.quantity = translatable("diameter over thickness over its limit");
      if (value > 1.0) info.why = translatable("above 1, but pipes keep their section");
      return ratio_of(d, info, value, dimension(d, Dimension::depth), dimension(d, Dimension::web),
                      engine::PLATE::Web);
    }
    const Term flanges = greater(top_ratio(d), bottom_ratio(d));
    // The web of a channel has no limit.
    if (d.shape() == ALU_SHAPE_C) return d.trace.define(info, value, flanges);
    return d.trace.define(info, value, greater(flanges, web_ratio(d)));
  });
}

bool is_effective(const Derivation& d) {
  return ratios_of(d).dGoverning > 1.0 && engine::HasEffectiveSection(d.shape());
}

}  // namespace aluframe::explain
