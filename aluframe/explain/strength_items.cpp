// Strength and shear.

#include <fmt/format.h>

#include "aluframe/explain/factors.h"
#include "aluframe/explain/inputs.h"
#include "aluframe/explain/items.h"
#include "aluframe/explain/section_steps.h"
#include "tz_alu/engine/section_geometry.h"
#include "tz_alu/engine/shear.h"
#include "tz_alu/engine/strength.h"
#include "tz_alu/report/aluprint.h"
#include "tz_alu/tolerance.h"

namespace aluframe::explain {

namespace engine = alu_engine;
using engine::FORCE_FACTOR;
using State = CALU_GB50429_07Print;

namespace {

engine::STRENGTH_INPUT input_of(const Derivation& d) {
  return {d.in.force, d.section, engine::PlasticityFactors(d.shape(), d.is_weak()),
          engine::ForceFactor(d.in.Parameters(), d.in.force, FORCE_FACTOR::Strength),
          d.is_unsymmetric};
}

Term factor(Derivation& d) {
  return force_factor(d, FORCE_FACTOR::Strength);
}

Term net_area(Derivation& d) {
  return d.trace.define({"Aen", translatable("net area"), "mm²", "7.1"},
                        engine::AdjustedArea(d.section, d.in.Parameters()),
                        calculated_area(d) * strength_ratio(d));
}

Term top(Derivation& d) {
  return plasticity_top(d) * top_modulus(d);
}
Term bottom(Derivation& d) {
  return plasticity_bottom(d) * bottom_modulus(d);
}
Term weak(Derivation& d) {
  return plasticity_z(d) * modulus_z(d);
}

Info stress_info(const char* quantity, const char* clause, std::string why = {}) {
  return {"σ", quantity, "N/mm²", clause, std::move(why)};
}

/// A demand that a part without area or modulus leaves at 0.
Term unformed(Derivation& d, const Info& info, double value) {
  Info of = info;
  of.why = translatable("0: an area or a modulus is 0");
  return d.trace.given(of, value);
}

Term axial_stress(Derivation& d) {
  const Info info = stress_info(translatable("stress of the axial force"), "7.1");
  const Term Aen = net_area(d);
  const double value = engine::AxialStress(input_of(d), Aen.own_value());
  if (engine::IsZero(Aen.own_value())) return unformed(d, info, value);
  return d.trace.define(info, value, factor(d) * magnitude(axial_force(d)) / Aen);
}

bool lacks_modulus(Derivation& d) {
  return engine::IsZero(value(top(d))) || engine::IsZero(value(weak(d)));
}

Term symmetric_bending(Derivation& d, double value) {
  const Term k = factor(d);
  return d.trace.define(
      stress_info(
          translatable("stress of bending"), "6.1",
          translatable("symmetric section: My by its magnitude, Mz with its sign, so a positive Mz "
                       "lowers the stress (F1)")),
      value, magnitude(k * magnitude(moment_y(d)) / top(d) - k * moment_z(d) / weak(d)));
}

Term bottom_stress(Derivation& d) {
  return d.trace.part(
      {"σ2", translatable("stress of My at the bottom fibre, without k"), "N/mm²", "6.1"},
      moment_y(d) / bottom(d));
}

Term unsymmetric_bending(Derivation& d, double value) {
  const Term k = factor(d);
  const Term a = d.trace.part({"σ1", translatable("stress of My at the top fibre"), "N/mm²", "6.1"},
                              k * moment_y(d) / top(d));
  const Term b =
      d.trace.part({"σz", translatable("stress of Mz"), "N/mm²", "6.1"}, k * moment_z(d) / weak(d));
  const Term c = bottom_stress(d);
  const Term r1 =
      d.trace.part({"rtop", translatable("larger stress of the top fibre"), "N/mm²", "6.1"},
                   greater(magnitude(a + b), magnitude(a - b)));
  const Term r2 =
      d.trace.part({"rbottom", translatable("larger stress of the bottom fibre"), "N/mm²", "6.1"},
                   greater(magnitude(k * c - b), magnitude(k * c + b)));
  const bool is_top = r1.own_value() >= r2.own_value();
  return d.trace.define(
      stress_info(translatable("stress of bending"), "6.1",
                  is_top ? translatable("unsymmetric section: the top fibre governs")
                         : translatable("unsymmetric section: the bottom fibre governs")),
      value, greater(r1, r2));
}

Term bending_stress(Derivation& d) {
  const double value = engine::BendingStress(input_of(d)).dDemand;
  if (lacks_modulus(d))
    return unformed(d, stress_info(translatable("stress of bending"), "6.1"), value);
  return d.is_unsymmetric ? unsymmetric_bending(d, value) : symmetric_bending(d, value);
}

Term unsymmetric_combined(Derivation& d, const Term& Aen, double value) {
  const Term k = factor(d), axial = axial_force(d) / Aen;
  const Term c = bottom_stress(d), z = moment_z(d) / weak(d);
  return d.trace.define(
      stress_info(
          translatable("stress of axial force and bending"), "8.1",
          translatable("unsymmetric section: the bottom fibre alone, with both signs of Mz (F2)")),
      value, greater(magnitude(k * (axial + c + z)), magnitude(k * (axial + c - z))));
}

Term combined_stress(Derivation& d) {
  const Info info = stress_info(translatable("stress of axial force and bending"), "8.1",
                                translatable("symmetric section"));
  const Term Aen = net_area(d);
  const double value = engine::CombinedStress(input_of(d), Aen.own_value());
  if (engine::IsZero(Aen.own_value()) || lacks_modulus(d)) return unformed(d, info, value);
  if (d.is_unsymmetric) return unsymmetric_combined(d, Aen, value);
  return d.trace.define(
      info, value,
      factor(d) * (magnitude(axial_force(d)) / Aen + magnitude(moment_y(d)) / top(d) +
                   magnitude(moment_z(d)) / weak(d)));
}

/// kept by the checks: shear in bending without axial force, of a beam with any.
bool is_shear_state(const Derivation& d) {
  return State::IsPureBending(d.in.force) ||
         (State::IsBending(d.in.force) && d.in.data.nMembType == ALU_MEMBER_BEAM);
}

NotChecked no_shear(const Derivation& d) {
  return {fmt::format(
      translatable(
          "{}: shear is checked in bending without axial force, of beams in bending with any (C5)"),
      force_state(d))};
}

Term first_moment(Derivation& d, const char* symbol, const char* quantity, double value) {
  return d.given({symbol, quantity, "mm²", "", d.origins.section}, value);
}

}  // namespace

std::string force_state(const Derivation& d) {
  const AluDgnSectForce& force = d.in.force;
  const bool bending = State::IsBending(force);
  if (State::IsTension(force))
    return bending ? translatable("tension with bending") : translatable("tension alone");
  if (State::IsCompression(force))
    return bending ? translatable("compression with bending") : translatable("compression alone");
  return bending ? translatable("bending alone") : translatable("no axial force and no moment");
}

ItemOutcome explain_strength(Derivation& d) {
  const AluDgnSectForce& force = d.in.force;
  const bool axial = State::IsTension(force) || State::IsCompression(force);
  if (!axial && !State::IsBending(force)) {
    return NotChecked{fmt::format(translatable("{}: there is no normal stress"), force_state(d))};
  }
  if (!State::IsBending(force)) return Checked{force_state(d), axial_stress(d), strength_f(d)};
  if (State::IsPureBending(force)) return Checked{force_state(d), bending_stress(d), strength_f(d)};
  return Checked{force_state(d), combined_stress(d), strength_f(d)};
}

ItemOutcome explain_shear_y(Derivation& d) {
  if (!is_shear_state(d)) return no_shear(d);
  const ALU_SECT_DATA& sect = d.in.Section();
  const Term k = factor(d);
  const Term Q = first_moment(
      d, "Qzb", translatable("first moment of area over the width, shear along y"), sect.dQzb);
  return Checked{force_state(d),
                 d.trace.define({"τ", translatable("shear stress along y"), "N/mm²", "6.1",
                                 translatable("gross section")},
                                engine::ShearStressY(sect, d.in.force, k.own_value()),
                                k * magnitude(shear_force_y(d)) * Q / inertia_z(d)),
                 strength_fv(d)};
}

ItemOutcome explain_shear_z(Derivation& d) {
  if (!is_shear_state(d)) return no_shear(d);
  const ALU_SECT_DATA& sect = d.in.Section();
  const Term k = factor(d);
  const Term Q = first_moment(
      d, "Qyb", translatable("first moment of area over the width, shear along z"), sect.dQyb);
  return Checked{force_state(d),
                 d.trace.define({"τ", translatable("shear stress along z"), "N/mm²", "6.1",
                                 translatable("gross section")},
                                engine::ShearStressZ(sect, d.in.force, k.own_value()),
                                k * magnitude(shear_force_z(d)) * Q / inertia_y(d)),
                 strength_fv(d)};
}

}  // namespace aluframe::explain
