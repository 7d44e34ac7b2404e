#include "aluframe/explain/lateral_steps.h"

#include <fmt/format.h>

#include <cmath>
#include <string>

#include "aluframe/explain/factors.h"
#include "aluframe/explain/inputs.h"
#include "aluframe/explain/section_steps.h"
#include "aluframe/explain/slenderness_steps.h"
#include "tz_alu/engine/lateral_torsional.h"
#include "tz_alu/tolerance.h"

namespace aluframe::explain {

namespace engine = alu_engine;

namespace {

bool has_mid_support(const Derivation& d) {
  return d.in.Parameters().bMidSupport == 1;
}

bool is_restrained(const std::int32_t (&condition)[2]) {
  return condition[0] != 0 && condition[1] != 0;
}

/// Which row of the table of β1, β2, β3 it is.
std::string coefficients_text(const Derivation& d) {
  const std::string span = has_mid_support(d) ? translatable("with a support between the ends")
                                              : translatable("no support between the ends");
  switch (d.in.data.nMembType) {
    case ALU_MEMBER_COLUMN:
    case ALU_MEMBER_BRACE:
      return fmt::format(translatable("column or brace, {}"), span);
    case ALU_MEMBER_BEAM:
      return is_restrained(d.in.data.nEndCond[0]) || is_restrained(d.in.data.nEndCond[1])
                 ? fmt::format(translatable("beam, an end fixed about neither axis, {}"), span)
                 : fmt::format(translatable("beam, both ends fixed about y or z, {}"), span);
    default:
      return translatable("a truss has none, so Mcr is 0 (C9)");
  }
}

Term support_length(Derivation& d) {
  const Term L = member_length(d);
  return d.trace.define(
      {"lb", translatable("length between lateral supports"), "mm", "6.2",
       has_mid_support(d) ? translatable("another member holds it between its ends")
                          : translatable("nothing holds it between its ends")},
      engine::LateralBucklingLength(d.in.data), has_mid_support(d) ? 0.5 * L : L);
}

Term load_height(Derivation& d) {
  return d.trace.part(
      {"a", translatable("height of the load over the shear centre, with its sign"), "mm",
       translatable("appendix C"), translatable("the load is taken to act on the top fibre")},
      shear_centre(d) - top_fibre(d));
}

/// A flange in βy.
struct Flange {
  Term width;
  Term thickness;
  Term arm;
};

Term middle_of(Derivation& d, const char* symbol, const char* quantity, const Term& formula) {
  return d.trace.part({symbol, quantity, "mm", translatable("appendix C")}, formula);
}

Term top_middle(Derivation& d) {
  return middle_of(d, "h1", translatable("distance of the top flange's middle from the centroid"),
                   top_fibre(d) - dimension(d, Dimension::top_thickness) / 2.0);
}

Term bottom_middle(Derivation& d, Dimension thickness) {
  return middle_of(d, "h2",
                   translatable("distance of the bottom flange's middle from the centroid"),
                   magnitude(bottom_fibre(d)) - dimension(d, thickness) / 2.0);
}

Term cubed_width(const Flange& flange) {
  return cubed(flange.width) * flange.thickness * flange.arm;
}

Term cubed_arm(const Flange& flange) {
  return flange.width * flange.thickness * cubed(flange.arm);
}

/// What both flanges and the webs give to βy; of a tee the lower end has no flange.
Term outline_of(Derivation& d) {
  const double webs = d.shape() == ALU_SHAPE_B || d.shape() == ALU_SHAPE_2C ? 2.0 : 1.0;
  const Term t = dimension(d, Dimension::web);
  const Term web = webs == 1.0 ? t : webs * t;
  const Term I = inertia_y(d), B = dimension(d, Dimension::top_width);
  const Term tf = dimension(d, Dimension::top_thickness), h1 = top_middle(d);
  if (d.shape() == ALU_SHAPE_T) {
    const Flange top{B, tf, h1};
    const Term end = middle_of(d, "h2", translatable("distance of the lower end from the centroid"),
                               magnitude(bottom_fibre(d)));
    return cubed_width(top) / (24.0 * I) - web * (power(h1, 4) - power(end, 4)) / (8.0 * I) -
           cubed_arm(top) / (24.0 * I);
  }
  const bool is_double = d.shape() == ALU_SHAPE_2C;
  const Term other = dimension(d, Dimension::bottom_width);
  const Dimension below = is_double ? Dimension::top_thickness : Dimension::bottom_thickness;
  const Term width = is_double
                         ? d.trace.part({"Bw", translatable("whole width of both channels"), "mm"},
                                        2.0 * B + other)
                         : B;
  const Flange top{width, tf, h1};
  const Flange bottom{is_double ? width : other, dimension(d, below), bottom_middle(d, below)};
  return (cubed_width(top) - cubed_width(bottom)) / (24.0 * I) -
         web * (power(top.arm, 4) - power(bottom.arm, 4)) / (8.0 * I) -
         (cubed_arm(top) - cubed_arm(bottom)) / (24.0 * I);
}

Term monosymmetry(Derivation& d) {
  const bool is_end = d.in.force.bEndSect == 1;
  const double value = engine::Monosymmetry(d.in.Section(), is_end);
  Info info{"βy", translatable("measure of unequal flanges"), "mm", translatable("appendix C")};
  if (!engine::HasFlangedOutline(d.shape())) {
    info.why = translatable("0: pipes and solid rounds have no flanges");
    return d.given(info, value);
  }
  info.why =
      is_end
          ? translatable("at an end of the member the shear centre's distance is subtracted (S8)")
          : translatable("away from the member's ends the shear centre's distance is added (S8)");
  const Term outline = outline_of(d), e0 = shear_centre(d);
  return d.trace.define(info, value, is_end ? outline - e0 : outline + e0);
}

Term critical_moment(Derivation& d) {
  const auto [b1, b2, b3] = engine::CriticalMomentCoefficients(d.in.data);
  const std::string row = coefficients_text(d);
  const auto coefficient = [&](const char* symbol, const char* of, double value) {
    return d.given({symbol, of, "", translatable("appendix C"), row}, value);
  };
  const Term beta_1 = coefficient("β1", translatable("coefficient of the moment diagram"), b1);
  const Term beta_2 = coefficient("β2", translatable("coefficient of the height of the load"), b2);
  const Term beta_3 = coefficient("β3", translatable("coefficient of unequal flanges"), b3);
  const Term q = d.trace.part(
      {"q", translatable("length of load and flanges"), "mm", translatable("appendix C")},
      beta_2 * load_height(d) + beta_3 * monosymmetry(d));
  const Term Iw = warping_constant(d), Iz = inertia_z(d), E = elastic_modulus(d);
  const Term twist =
      d.trace.part({"w", translatable("twist beside warping"), "", translatable("appendix C")},
                   1.0 + shear_modulus(d) * torsion_constant(d) * squared(torsional_length(d)) /
                             (pi_squared() * E * Iw));
  return d.trace.define(
      {"Mcr", translatable("elastic critical moment"), "N·mm", translatable("appendix C")},
      engine::CriticalMoment(d.in),
      beta_1 * pi_squared() * E * Iz / squared(support_length(d)) *
          (q + root(squared(q) + Iw / Iz * twist)));
}

Term alpha_of(Derivation& d, const Term& lambda_b) {
  return d.trace.part(
      {"α", translatable("factor of imperfections"), "", translatable("appendix C"), d.hardening()},
      d.is_weak() ? 0.2 * (lambda_b - 0.36) : 0.25 * (lambda_b - 0.3));
}

Term computed_coefficient(Derivation& d, double value) {
  Info info{"φb", translatable("lateral-torsional stability coefficient"), "",
            translatable("6.2, appendix C")};
  const Term f = strength_f(d), W1 = top_modulus(d);
  const Term lambda_b =
      d.trace.define({"λb", translatable("relative slenderness of lateral-torsional buckling"), "",
                      translatable("appendix C"),
                      translatable("with the top fibre, whichever is compressed (S10)")},
                     engine::LateralTorsionalSlenderness(d.in, W1.own_value(), f.own_value()),
                     root(W1 * f / critical_moment(d)));
  if (engine::IsZero(lambda_b.own_value())) {
    info.why = translatable("1: λb is 0");
    return d.trace.given(info, value, {lambda_b.name()});
  }
  const Term square = squared(lambda_b);
  const Term s = d.trace.part({"s", translatable("s of φb"), "", translatable("appendix C")},
                              (1.0 + alpha_of(d, lambda_b) + square) / (2.0 * square));
  const Term formula = s - root(squared(s) - 1.0 / square);
  if (explain::value(formula) > 1.0 + engine::kTolerance) {
    info.why = translatable("at most 1");
    return d.trace.define(info, value, smaller(formula, Term::number(1.0)));
  }
  return d.trace.define(info, value, formula);
}

bool is_closed(const Derivation& d) {
  return d.shape() == ALU_SHAPE_B || d.shape() == ALU_SHAPE_P;
}

engine::BENDING_COEFFICIENTS coefficients(const Derivation& d) {
  const double f = engine::DesignStrength(d.in.data.code, d.material).dF;
  return engine::BendingCoefficients(d.in, d.section.dW1, f);
}

/// Where a coefficient is from that the checks are given.
std::string given_by(const Derivation& d) {
  return d.origins.coefficient.empty() ? translatable("the element's own") : d.origins.coefficient;
}

}  // namespace

Term lateral_coefficient(Derivation& d) {
  return d.trace.once("φb", [&] {
    const double value = coefficients(d).dPhiB;
    const bool is_given = d.in.Parameters().bUserPhi != 0;
    if (!is_given && !is_closed(d)) return computed_coefficient(d, value);
    return d.trace.given({"φb", translatable("lateral-torsional stability coefficient"), "", "6.2",
                          is_given ? given_by(d) : translatable("1: boxes and pipes do not twist")},
                         value);
  });
}

Term lateral_coefficient_z(Derivation& d) {
  const bool is_given = d.in.Parameters().bUserPhi != 0;
  return d.given(
      {"φbz", translatable("lateral-torsional coefficient of the moment about z"), "", "8.2",
       is_given ? given_by(d) : translatable("1: bending about z does not twist")},
      coefficients(d).dPhiBz);
}

}  // namespace aluframe::explain
