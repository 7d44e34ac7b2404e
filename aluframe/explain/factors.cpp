#include "aluframe/explain/factors.h"

#include <fmt/format.h>

#include <cmath>
#include <string>

#include "aluframe/explain/inputs.h"
#include "aluframe/explain/number_text.h"
#include "tz_alu/engine/design_strength.h"
#include "tz_alu/engine/section_geometry.h"

namespace aluframe::explain {

using alu_engine::FORCE_FACTOR;

namespace {

constexpr double thin_limit = 10.0;

std::string grade_text(const Derivation& d) {
  std::string text;
  if (d.material.pGrade == nullptr) return text;
  for (const wchar_t letter : d.material.pGrade->grade) text += static_cast<char>(letter);
  return text;
}

/// "tw = 8 <= 10 mm".
std::string thickness_text(const Term& t) {
  return fmt::format("{} = {} {} 10 mm", t.name(), exact_text(t.own_value()),
                     t.own_value() > thin_limit ? ">" : "<=");
}

Term governing_thickness(Derivation& d) {
  return dimension(d, d.shape() == ALU_SHAPE_SR ? Dimension::depth : Dimension::web);
}

bool is_in_table(const Derivation& d) {
  return d.material.bCodeStandard && d.material.pGrade != nullptr;
}

/// Of a material that the code's table does not have.
Term thin_proof_strength(Derivation& d) {
  return d.given({"f02thin", translatable("proof strength f0.2 of parts up to 10 mm"), "N/mm²", "",
                  d.origins.material},
                 d.in.data.code.matl.dF02Thin);
}

std::string table_text(Derivation& d) {
  const std::string grade = grade_text(d), thickness = thickness_text(governing_thickness(d));
  switch (d.shape()) {
    case ALU_SHAPE_SR:
      return fmt::format(
          translatable(
              "the code's table: {}, {}; the thickness of the round decides for every plate"),
          grade, thickness);
    case ALU_SHAPE_P:
      return fmt::format(
          translatable(
              "the code's table: {}, {}; the thickness of the wall decides for every plate"),
          grade, thickness);
    default:
      return fmt::format(
          translatable(
              "the code's table: {}, {}; the thickness of the web decides for every plate"),
          grade, thickness);
  }
}

Term plasticity(Derivation& d, const char* symbol, const char* quantity,
                double alu_engine::PLASTICITY::* which) {
  const auto factors = alu_engine::PlasticityFactors(d.shape(), d.is_weak());
  return d.given(
      {symbol, quantity, "", "6.1", fmt::format(translatable("by the shape, {}"), d.hardening())},
      factors.*which);
}

}  // namespace

Term force_factor(Derivation& d, FORCE_FACTOR kind) {
  const ALU_PARA_DATA& para = d.in.Parameters();
  const double value = alu_engine::ForceFactor(para, d.in.force, kind);
  std::string why;
  if (d.in.force.nSesiType == 0) {
    why = translatable("γ0 of the safety class: the combination is not seismic");
  } else if (para.bSeismicGammaRE == 0) {
    why =
        translatable("γ0 of the safety class: the settings ask for no γRE in seismic combinations");
  } else {
    why = kind == FORCE_FACTOR::Strength
              ? translatable("γRE of strength: the combination is seismic")
              : translatable("γRE of stability: the combination is seismic");
  }
  return d.given({"k", translatable("factor on the forces"), "", "", why}, value);
}

Term plasticity_top(Derivation& d) {
  return plasticity(d, "γy1", translatable("plasticity factor with the modulus of the top fibre"),
                    &alu_engine::PLASTICITY::dGammaY1);
}
Term plasticity_bottom(Derivation& d) {
  return plasticity(d, "γy2",
                    translatable("plasticity factor with the modulus of the bottom fibre"),
                    &alu_engine::PLASTICITY::dGammaY2);
}
Term plasticity_z(Derivation& d) {
  return plasticity(d, "γz", translatable("plasticity factor with the modulus about z"),
                    &alu_engine::PLASTICITY::dGammaZ);
}

Term strength_f(Derivation& d) {
  return d.trace.once("f", [&] {
    const double f = alu_engine::DesignStrength(d.in.data.code, d.material).dF;
    Info info{"f", translatable("design strength of normal stresses"), "N/mm²", "4.3"};
    if (is_in_table(d)) {
      info.why = table_text(d);
      return d.trace.given(info, f, {governing_thickness(d).name()});
    }
    info.why =
        translatable("the code's table does not have this material: f0.2 / 1.2, of thin parts");
    return d.trace.define(info, f, thin_proof_strength(d) / 1.2);
  });
}

Term strength_fv(Derivation& d) {
  return d.trace.once("fv", [&] {
    const double fv = alu_engine::DesignStrength(d.in.data.code, d.material).dFv;
    Info info{"fv", translatable("design strength of shear stresses"), "N/mm²", "4.3"};
    if (is_in_table(d)) {
      info.why = table_text(d);
      return d.trace.given(info, fv, {governing_thickness(d).name()});
    }
    info.why = translatable("the code's table does not have this material");
    return d.trace.define(info, fv, strength_f(d) / root(Term::number(3.0)));
  });
}

Term proof_strength(Derivation& d) {
  const Term t = dimension(d, Dimension::web);
  const bool is_thick = t.own_value() > thin_limit;
  return d.given(
      {"f02", translatable("proof strength f0.2"), "N/mm²", "",
       is_thick
           ? fmt::format(translatable("of thick parts, as {}; this thickness decides for every "
                                      "plate"),
                         thickness_text(t))
           : fmt::format(translatable("of thin parts, as {}; this thickness decides for every "
                                      "plate"),
                         thickness_text(t))},
      alu_engine::ProofStrength(d.in.data.code), {t.name()});
}

}  // namespace aluframe::explain
