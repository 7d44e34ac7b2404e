// Stability and slenderness.

#include <fmt/format.h>

#include <cmath>

#include "aluframe/explain/column_steps.h"
#include "aluframe/explain/factors.h"
#include "aluframe/explain/inputs.h"
#include "aluframe/explain/items.h"
#include "aluframe/explain/lateral_steps.h"
#include "aluframe/explain/moment_factor_steps.h"
#include "aluframe/explain/section_steps.h"
#include "aluframe/explain/slenderness_steps.h"
#include "tz_alu/engine/member_stability.h"
#include "tz_alu/report/aluprint.h"
#include "tz_alu/tolerance.h"

namespace aluframe::explain {

namespace engine = alu_engine;
using engine::FORCE_FACTOR;
using State = CALU_GB50429_07Print;

namespace {

Term factor(Derivation& d) {
  return force_factor(d, FORCE_FACTOR::Stability);
}

Info stress_info(const char* quantity, const char* clause, std::string why = {}) {
  return {"σ", quantity, "N/mm²", clause, std::move(why)};
}

/// The smaller coefficient of both axes.
Term governing_coefficient(Derivation& d) {
  const Term y = axial_coefficient_y(d), z = axial_coefficient_z(d);
  const engine::AXIAL_COEFFICIENTS phi{y.own_value(), z.own_value()};
  const bool y_governs = phi.dPhiY < phi.dPhiZ;
  return d.trace.define({"φ", translatable("axial stability coefficient"), "", "7.2",
                         y_governs ? translatable("the smaller one, about y")
                                   : translatable("the smaller one, about z")},
                        phi.Governing(), smaller(z, y));
}

Term axial_compression(Derivation& d) {
  const Term phi = governing_coefficient(d), k = factor(d);
  const double value = engine::AxialStabilityStress(d.in, phi.own_value(), k.own_value());
  if (engine::IsZero(phi.own_value())) {
    return d.trace.given(
        stress_info(translatable("stress of axial compression"), "7.2", translatable("0: φ is 0")),
        value, {phi.name()});
  }
  return d.trace.define(
      stress_info(translatable("stress of axial compression"), "7.2", translatable("gross area")),
      value, k * magnitude(axial_force(d)) / (gross_area(d) * phi));
}

Term lateral_torsional(Derivation& d) {
  const Term phi_b = lateral_coefficient(d), k = factor(d);
  const double value =
      engine::BendingStabilityStress(d.in, d.section, phi_b.own_value(), k.own_value());
  Info info = stress_info(translatable("stress of lateral-torsional buckling"), "6.2");
  const Term top = phi_b * top_modulus(d), bottom = phi_b * bottom_modulus(d);
  if (engine::IsZero(explain::value(top)) || engine::IsZero(explain::value(bottom))) {
    info.why = translatable("0: φb·W1 or φb·W2 is 0");
    return d.trace.given(info, value, {phi_b.name()});
  }
  const bool is_negative = d.in.My() < -engine::kTolerance;
  info.why = is_negative
                 ? translatable("My is negative: bottom fibre; a demand below 0 passes (C3)")
                 : translatable("top fibre; Mz takes no part (C4)");
  return d.trace.define(info, value, k * moment_y(d) / (is_negative ? bottom : top));
}

/// 1 - η·|N|/N_E'.
Term amplification(Derivation& d, const char* symbol, const char* quantity, const Term& eta,
                   const Term& euler) {
  Info info{symbol, quantity, "", "8.2"};
  const Term formula = 1.0 - eta * magnitude(axial_force(d)) / euler;
  if (explain::value(formula) <= 0.0) {
    info.why = translatable("not above 0: beyond the Euler load a moment lowers the demand (S2)");
  }
  return d.trace.part(info, formula);
}

Term amplification_y(Derivation& d) {
  return amplification(d, "ay", translatable("divisor of My beside the axial force"),
                       interaction_eta1(d), euler_type_force_y(d));
}

Term axial_part(Derivation& d, const Term& phi) {
  return magnitude(axial_force(d)) / (phi * gross_area(d));
}

Term symmetric_about_y(Derivation& d, double value) {
  return d.trace.define(stress_info(translatable("stress of compression with bending about y"),
                                    "8.2", translatable("symmetric section")),
                        value,
                        factor(d) * (axial_part(d, axial_coefficient_y(d)) +
                                     moment_factor_y(d) * magnitude(moment_y(d)) /
                                         (plasticity_top(d) * top_modulus(d) * amplification_y(d)) +
                                     interaction_eta(d) * magnitude(moment_z(d)) /
                                         (lateral_coefficient_z(d) * modulus_z(d))));
}

/// Rmax211.
Term compression_side(Derivation& d, const Info& info, double value) {
  return d.trace.define(
      info, value,
      factor(d) * (axial_part(d, axial_coefficient_y(d)) +
                   moment_factor_y(d) * moment_y(d) /
                       (plasticity_top(d) * top_modulus(d) * amplification_y(d))));
}

/// Rmax212.
Term tension_side(Derivation& d, double value) {
  const Term below =
      amplification(d, "a2", translatable("divisor of My beside the axial force, tension side"),
                    interaction_eta2(d), euler_type_force_y(d));
  const Term modulus = plasticity_bottom(d) * bottom_modulus(d) * below;
  const bool is_zero = engine::IsZero(explain::value(modulus));
  const Term moment = is_zero ? Term::number(0.0) : moment_y(d) / modulus;
  Info info{"Rmax212", translatable("stress of the tension side"), "N/mm²", "8.2"};
  if (is_zero) info.why = translatable("its modulus is 0, so My counts as nothing");
  return d.trace.define(info, value,
                        magnitude(factor(d) * (magnitude(axial_force(d)) / calculated_area(d) -
                                               moment_factor_y(d) * moment)));
}

Term unsymmetric_about_y(Derivation& d, const engine::IN_PLANE_STRESS& stress) {
  if (!stress.bParts) {
    return compression_side(
        d,
        stress_info(
            translatable("stress of compression with bending about y"), "8.2",
            translatable(
                "unsymmetric section, My is not positive: Rmax211 alone, My with its sign, no "
                "term of Mz (S14)")),
        stress.dDemand);
  }
  const Term first = compression_side(
      d, {"Rmax211", translatable("stress of the compression side"), "N/mm²", "8.2"}, stress.dTop);
  const Term second = tension_side(d, stress.dBottom);
  Info info = stress_info(translatable("stress of compression with bending about y"), "8.2",
                          translatable("unsymmetric section, My is positive; no term of Mz (S14)"));
  if (std::isnan(second.own_value())) {
    return d.trace.define(info, stress.dDemand, first, {second.name()});
  }
  info.why =
      first.own_value() >= second.own_value()
          ? translatable(
                "unsymmetric section, My is positive; no term of Mz (S14); the compression side "
                "governs")
          : translatable(
                "unsymmetric section, My is positive; no term of Mz (S14); the tension side "
                "governs");
  return d.trace.define(info, stress.dDemand, greater(first, second));
}

engine::BEAM_COLUMN prepared(Derivation& d) {
  return engine::PrepareBeamColumn(d.in, d.section, d.lambda, strength_f(d).own_value());
}

Term about_y(Derivation& d) {
  const engine::IN_PLANE_STRESS stress = engine::InPlaneStress(prepared(d));
  return d.is_unsymmetric ? unsymmetric_about_y(d, stress) : symmetric_about_y(d, stress.dDemand);
}

Term about_z(Derivation& d) {
  const double value = engine::OutOfPlaneStress(prepared(d));
  const Term axial = axial_part(d, axial_coefficient_z(d));
  if (d.is_unsymmetric) {
    return d.trace.define(
        stress_info(
            translatable("stress of compression with bending about z"), "8.2",
            translatable("unsymmetric section: My with its sign and W1, no term of Mz (S14)")),
        value,
        factor(d) *
            (axial + interaction_eta(d) * moment_y(d) / (lateral_coefficient(d) * top_modulus(d))));
  }
  const Term below = amplification(d, "az", translatable("divisor of Mz beside the axial force"),
                                   interaction_eta1(d), euler_type_force_z(d));
  return d.trace.define(stress_info(translatable("stress of compression with bending about z"),
                                    "8.2", translatable("symmetric section")),
                        value,
                        factor(d) * (axial +
                                     moment_factor_z(d) * magnitude(moment_z(d)) /
                                         (plasticity_z(d) * modulus_z(d) * below) +
                                     interaction_eta(d) * magnitude(moment_y(d)) /
                                         (lateral_coefficient(d) * top_modulus(d))));
}

/// The code's limit of a type of member.
struct LimitTexts {
  const char* compression;
  const char* tension;
};

LimitTexts limit_texts(std::int32_t member_type) {
  switch (member_type) {
    case ALU_MEMBER_COLUMN:
      return {translatable("in compression, column (N1)"), translatable("in tension, column (N1)")};
    case ALU_MEMBER_BEAM:
      return {translatable("in compression, beam (N1)"), translatable("in tension, beam (N1)")};
    case ALU_MEMBER_BRACE:
      return {translatable("in compression, brace (N1)"), translatable("in tension, brace (N1)")};
    case ALU_MEMBER_TRUSS:
      return {translatable("in compression, truss (N1)"), translatable("in tension, truss (N1)")};
    default:
      return {translatable("in compression,  (N1)"), translatable("in tension,  (N1)")};
  }
}

std::string limit_text(const Derivation& d) {
  const AluDgnSectForce& force = d.in.force;
  const bool compression = State::IsCompression(force);
  if (d.in.Parameters().bUserLimit != 0) {
    return compression
               ? translatable("the element's own limit in compression")
               : translatable("the element's own limit in tension, also without axial force (N3)");
  }
  if (engine::IsZero(force.dForce[ALU_FORCE_N]))
    return translatable("0: there is no limit without axial force (N2)");
  const LimitTexts texts = limit_texts(d.in.data.nMembType);
  return compression ? texts.compression : texts.tension;
}

ItemOutcome slenderness(Derivation& d, Term (*lambda)(Derivation&)) {
  if (!engine::IsSlendernessChecked(d.in.Parameters())) {
    return NotChecked{translatable("slenderness is switched off for the element")};
  }
  const Term limit =
      d.given({"limit", translatable("limiting slenderness"), "", "4.5", limit_text(d)},
              engine::SlendernessLimit(d.in.data, d.in.force), {axial_force(d).name()});
  return Checked{force_state(d), lambda(d), limit};
}

}  // namespace

ItemOutcome explain_stability(Derivation& d) {
  const AluDgnSectForce& force = d.in.force;
  if (State::IsCompressionBending(force)) {
    return Checked{translatable("compression with bending, about y"), about_y(d), strength_f(d)};
  }
  if (State::IsPureCompression(force)) {
    return Checked{translatable("axial compression"), axial_compression(d), strength_f(d)};
  }
  if (State::IsPureBending(force)) {
    return Checked{translatable("lateral-torsional buckling"), lateral_torsional(d), strength_f(d)};
  }
  return NotChecked{
      fmt::format(translatable("{}: there is no stability check (C1)"), force_state(d))};
}

ItemOutcome explain_combined_stability(Derivation& d) {
  if (State::IsCompressionBending(d.in.force)) {
    return Checked{translatable("compression with bending, about z"), about_z(d), strength_f(d)};
  }
  return NotChecked{fmt::format(
      translatable("{}: combined stability is of compression with bending"), force_state(d))};
}

ItemOutcome explain_slenderness_y(Derivation& d) {
  return slenderness(d, slenderness_y);
}

ItemOutcome explain_slenderness_z(Derivation& d) {
  return slenderness(d, slenderness_z);
}

}  // namespace aluframe::explain
