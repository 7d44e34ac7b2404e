#include "aluframe/explain/column_steps.h"

#include <fmt/format.h>

#include <cmath>
#include <string>

#include "aluframe/explain/factors.h"
#include "aluframe/explain/inputs.h"
#include "aluframe/explain/plates.h"
#include "aluframe/explain/section_steps.h"
#include "aluframe/explain/slenderness_steps.h"
#include "host/zel_lib/zel_lib.h"
#include "tz_alu/engine/constants.h"
#include "tz_alu/engine/effective_section.h"

namespace aluframe::explain {

namespace engine = alu_engine;

namespace {

/// One of the two axes.
struct Axis {
  const char* name;
  Term lambda;
  double phi;
};

double rounded(double value) {
  return zel::lib::MMath::Round(value, 0);
}

/// φ of the code's table.
Term table_coefficient(Derivation& d, const Axis& axis) {
  const double fy = proof_strength(d).own_value();
  const double slenderness = axis.lambda.own_value();
  const Term n = d.trace.define(
      {fmt::format("n{}", axis.name), translatable("where the table of φ is read"), "",
       translatable("appendix B"), translatable("a whole number, halves away from 0")},
      engine::ColumnTableNumber(slenderness, fy),
      Term::function("round", rounded, axis.lambda * root(proof_strength(d) / 240.0)));
  const bool is_weak = d.is_weak();
  // Read at its own numbers, where √(240/240) leaves them as they are.
  const auto table = [is_weak](double at) { return engine::ColumnCoefficient(at, 240.0, is_weak); };
  constexpr double last = 150.0;
  std::string why = d.hardening();
  if (n.own_value() > last)
    why = fmt::format(translatable("{}; beyond 150 its last value holds (S1)"), why);
  return d.trace.define(
      {fmt::format("φ0{}", axis.name), translatable("stability coefficient of the table"), "",
       translatable("appendix B"), why},
      engine::ColumnCoefficient(slenderness, fy, is_weak),
      Term::function(is_weak ? "φ_weak" : "φ_strong", table, n));
}

Term area_factor(Derivation& d) {
  const double value = engine::EffectiveAreaFactor(d.in.Section(), d.section);
  Info info{"X", translatable("effective over gross area"), "", "7.2"};
  if (is_effective(d)) {
    return d.trace.define(info, value, calculated_area(d) / gross_area(d));
  }
  if (!has_judged_plates(d) || d.shape() == ALU_SHAPE_P) {
    info.why = translatable("1: plates of this shape take nothing off");
    return d.given(info, value);
  }
  info.why = translatable("1: no plate is slender");
  return d.given(info, value, {governing_ratio(d).name()});
}

Term weld_factor(Derivation& d) {
  const Info info{"Y", translatable("factor of the heat-affected zones"), "", "7.2",
                  d.is_welded() ? translatable("welded") : translatable("1: not welded")};
  if (!d.is_welded()) return d.given(info, engine::WeldFactor(d.in));
  return d.trace.define(info, engine::WeldFactor(d.in), haz_factor(d));
}

Term relative_eccentricity(Derivation& d) {
  return d.trace.define({"e", translatable("relative eccentricity of the centroid"), "", "7.2"},
                        engine::RelativeEccentricity(d.in.Section()),
                        magnitude(top_fibre(d) + bottom_fibre(d)) / dimension(d, Dimension::depth));
}

Term eccentricity_factor(Derivation& d, const Axis& axis) {
  const Term X = area_factor(d);
  const double slenderness = axis.lambda.own_value();
  const Term relative = d.trace.define(
      {fmt::format("λ̄{}", axis.name), translatable("relative slenderness"), "", "7.2"},
      engine::RelativeSlenderness(d.in, slenderness, X.own_value()),
      axis.lambda / Term::constant("π", engine::kPi) *
          root(X * proof_strength(d) / elastic_modulus(d)));
  const double c = d.is_weak() ? 2.4 : 3.2;
  return d.trace.define({fmt::format("ηe{}", axis.name),
                         translatable("eccentricity factor of an unsymmetric section"), "", "7.2",
                         d.is_weak() ? translatable("weakly hardening alloy: 2.4")
                                     : translatable("strongly hardening alloy: 3.2")},
                        engine::EccentricityFactor(d.in, slenderness, X.own_value()),
                        1.0 - c * squared(relative_eccentricity(d)) * squared(relative) /
                                  ((1.0 + squared(relative)) * squared(1.0 + relative)));
}

Term axial_coefficient(Derivation& d, const Axis& axis) {
  const Term table = table_coefficient(d, axis);
  const Info info{fmt::format("φ{}", axis.name),
                  fmt::format(translatable("axial stability coefficient about {}"), axis.name), "",
                  "7.2"};
  const Term X = area_factor(d);
  if (d.is_unsymmetric) {
    Info of = info;
    of.why = d.is_welded() ? translatable("unsymmetric: no factor of the welds (W8)")
                           : translatable("unsymmetric section");
    return d.trace.define(of, axis.phi, X * eccentricity_factor(d, axis) * table);
  }
  return d.trace.define(info, axis.phi, X * weld_factor(d) * table);
}

Term euler_type_force(Derivation& d, const char* symbol, const char* axis, const Term& lambda) {
  const double area = d.in.Section().dArea;
  return d.trace.define(
      {symbol, fmt::format(translatable("N_E' about {}: Euler load over 1.2, gross area"), axis),
       "N", "8.2"},
      engine::EulerTypeForce(d.in.E(), area, lambda.own_value()),
      pi_squared() * elastic_modulus(d) * gross_area(d) / (1.2 * squared(lambda)));
}

engine::INTERACTION_FACTORS interaction(const Derivation& d) {
  return engine::InteractionFactors(d.shape(), d.is_weak());
}

}  // namespace

Term axial_coefficient_y(Derivation& d) {
  return d.trace.once("φy", [&] {
    const double phi = engine::AxialCoefficients(d.in, d.section, d.lambda).dPhiY;
    return axial_coefficient(d, {"y", slenderness_y(d), phi});
  });
}

Term axial_coefficient_z(Derivation& d) {
  return d.trace.once("φz", [&] {
    const double phi = engine::AxialCoefficients(d.in, d.section, d.lambda).dPhiZ;
    return axial_coefficient(d, {"z", slenderness_z(d), phi});
  });
}

Term euler_type_force_y(Derivation& d) {
  return euler_type_force(d, "N_Ey'", "y", slenderness_y(d));
}

Term euler_type_force_z(Derivation& d) {
  return euler_type_force(d, "N_Ez'", "z", slenderness_z(d));
}

Term interaction_eta(Derivation& d) {
  const bool is_closed = d.shape() == ALU_SHAPE_B || d.shape() == ALU_SHAPE_P;
  return d.given({"η", translatable("factor of the moment about the other axis"), "", "8.2",
                  is_closed ? translatable("box or pipe") : translatable("no box and no pipe")},
                 interaction(d).dEta);
}

Term interaction_eta1(Derivation& d) {
  return d.given({"η1", translatable("factor of the axial force in the amplification"), "", "8.2",
                  d.hardening()},
                 interaction(d).dEta1);
}

Term interaction_eta2(Derivation& d) {
  return d.given(
      {"η2", translatable("factor of the axial force in the amplification, tension side"), "",
       "8.2", d.hardening()},
      interaction(d).dEta2);
}

}  // namespace aluframe::explain
