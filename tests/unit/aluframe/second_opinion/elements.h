#pragma once

// Elements that the tests of the second opinion share: those of the examples in docs/behaviour.md,
// and what finds one answer among the others.

#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <optional>
#include <utility>
#include <vector>

#include "aluframe/second_opinion/element_opinion.h"
#include "aluframe/section/section_properties.h"

namespace aluframe::second_opinion {

/// Numbers of docs/behaviour.md have three digits.
inline constexpr double three_digits = 2e-3;
/// The same formula in another order of operations.
inline constexpr double rounding = 1e-9;

/// A section with computed properties. Dimensions in the order of model::dimension_names.
inline ALU_SECT_DATA section_of(model::Shape shape, const std::array<double, 8>& dimensions) {
  model::Section section;
  section.shape = shape;
  section.dimensions = dimensions;
  const model::SectionProperties of = section::properties_of(section);
  ALU_SECT_DATA out;
  out.nShape = static_cast<std::int32_t>(shape);
  std::ranges::copy(dimensions, out.dSize);
  if (shape == model::Shape::solid_round) out.dSize[1] = dimensions[0];
  const bool has_plates = shape != model::Shape::solid_round && shape != model::Shape::pipe;
  if (has_plates) std::swap(out.dSize[1], out.dSize[2]);  // the checks put the web before the width
  out.dArea = of.area;
  out.dIxx = of.it;
  out.dIyy = of.iyy;
  out.dIzz = of.izz;
  out.dQyb = of.qyb;
  out.dQzb = of.qzb;
  out.dIw = of.iw;
  out.dShearCtr = of.shear_centre_z;
  std::ranges::copy(of.point_y, out.dPtY);
  std::ranges::copy(of.point_z, out.dPtZ);
  out.bWelded = 0;
  return out;
}

/// A member of 6061-T6 (f 200, fv 115, f0.2 240) on two pinned supports, K = 1, γ0 = 1, with ribs.
inline ALU_DGN_DATA element_of(const ALU_SECT_DATA& section, ALU_MEMBER_TYPE type, double length) {
  ALU_DGN_DATA data;
  data.SetCheckFlagAll(1);
  data.code.sect = section;
  data.code.matl.strStandard = L"GB50429-07(A)";
  data.code.matl.strGrade = L"6061-T6";
  data.code.matl.nElast = 70000;
  data.code.matl.dPoisson = 0.3;
  data.code.matl.dF02Thin = data.code.matl.dF02Thick = 240.0;
  data.code.para.dGamma0 = 1.0;
  data.code.para.dCoef085 = 0.85;
  data.code.para.bRib = 1;
  data.code.para.dRibRatio = 1.2;
  data.code.para.dHazWidth = 30.0;
  data.code.para.dKy = data.code.para.dKz = 1.0;
  data.nMembType = type;
  data.dMembLength = length;
  for (auto& end : data.nEndCond) end[0] = end[1] = ALU_END_PINNED;
  return data;
}

/// In 6063-T5: f 90, f0.2 110.
inline ALU_DGN_DATA in_6063_t5(ALU_DGN_DATA data) {
  data.code.matl.strGrade = L"6063-T5";
  data.code.matl.dF02Thin = data.code.matl.dF02Thick = 110.0;
  return data;
}

/// The section with the torsion constant of thin walls, a third of the sum of b·t³, which the
/// examples have.
inline ALU_SECT_DATA with_thin_walls(ALU_SECT_DATA section, double sum_of_bt3) {
  section.dIxx = sum_of_bt3 / 3.0;
  return section;
}

/// H 200x100, web 8, flanges 10: A 3440, W 219,547, Wz 33,487, of 4 m unless told.
inline ALU_DGN_DATA h200(ALU_MEMBER_TYPE type = ALU_MEMBER_BEAM, double length = 4000.0) {
  const ALU_SECT_DATA section = section_of(model::Shape::h_section, {200, 100, 8, 10, 100, 10});
  return element_of(with_thin_walls(section, 200 * 1000 + 180 * 512), type, length);
}

inline ALU_DGN_DATA welded(ALU_DGN_DATA data) {
  data.code.sect.bWelded = 1;
  return data;
}

/// The box 150x60x3 of 6063-T5, a column of 3 m: A 1224, W 45,841.
inline ALU_DGN_DATA mullion() {
  return in_6063_t5(
      element_of(section_of(model::Shape::box, {150, 60, 3, 3, 57, 3}), ALU_MEMBER_COLUMN, 3000.0));
}

/// Tee 100x100, web 6, flange 8. By hand: A 1352; centroid (800·4 + 552·54)/1352 = 24.414 below the
/// top; Iyy 1,210,179, so W1 = 49,569 at the top and W2 = 16,011; Wz = 668,323/50 = 13,366.
inline ALU_DGN_DATA tee(ALU_MEMBER_TYPE type = ALU_MEMBER_COLUMN, double length = 1495.9) {
  return element_of(section_of(model::Shape::tee, {100, 100, 6, 8}), type, length);
}

/// Pipe 100x10: A 2827.43, I 2,898,119, W 57,962. 1921 mm are 60 times i = 32.016.
inline ALU_DGN_DATA pipe(double length = 1921.0) {
  return element_of(section_of(model::Shape::pipe, {100, 10}), ALU_MEMBER_COLUMN, length);
}

/// H 200, web 8, with flanges of these widths, 16 thick. Stocky: (60 − 8)/16 = 3.3 against 6.6 at
/// most, the web 168/8 = 21 against at least 23.5.
inline ALU_SECT_DATA stocky_h(double top, double bottom) {
  return section_of(model::Shape::h_section, {200, top, 8, 16, bottom, 16});
}

inline AluDgnSectForce force_of(const Forces& of) {
  AluDgnSectForce out;
  const std::array values{of.n, of.fy, of.fz, of.mx, of.my, of.mz};
  std::ranges::copy(values, out.dForce);
  return out;
}

/// The checks' own result.
inline T_RALU_SECT checked(const ALU_DGN_DATA& data, const AluDgnSectForce& force) {
  Engine engine;
  EXPECT_TRUE(engine.ask(data, force));
  return engine.result();
}

inline T_RALU_SECT checked(const ALU_DGN_DATA& data, const Forces& forces) {
  return checked(data, force_of(forces));
}

inline double ratio_of(const T_RALU_SECT& result, RALU_ITEM_TYPE item) {
  return result.aItem[item].dDemand / result.aItem[item].dCapacity;
}

/// Every answer at a position.
inline std::vector<Answer> answers_of(const ALU_DGN_DATA& data, const AluDgnSectForce& force,
                                      const ElementFacts& facts = {}) {
  Engine engine;
  return ElementOpinion(engine, data, facts).answers(force, checked(data, force));
}

inline std::vector<Answer> answers_of(const ALU_DGN_DATA& data, const Forces& forces,
                                      const ElementFacts& facts = {}) {
  return answers_of(data, force_of(forces), facts);
}

/// The one answer for exactly these rules; none or several: nothing.
inline std::optional<double> answer(const std::vector<Answer>& answers, RALU_ITEM_TYPE item,
                                    RuleSet rules) {
  std::optional<double> found;
  for (const Answer& one : answers) {
    if (one.item != item || !(one.rules == rules)) continue;
    if (found) return std::nullopt;
    found = one.ratio;
  }
  return found;
}

/// Whether some answer names the rule.
inline bool names(const std::vector<Answer>& answers, Rule rule) {
  return std::ranges::any_of(answers, [&](const Answer& one) { return one.rules.contains(rule); });
}

/// The safe ratio of a position.
inline SafeRatio safe_of(const ALU_DGN_DATA& data, const Forces& forces,
                         const ElementFacts& facts = {}) {
  Engine engine;
  const AluDgnSectForce force = force_of(forces);
  return ElementOpinion(engine, data, facts).at(force, checked(data, force));
}

inline void expect_ratio(std::optional<double> found, double expected, double tolerance) {
  ASSERT_TRUE(found.has_value()) << "no such answer";
  EXPECT_NEAR(*found, expected, tolerance * expected);
}

}  // namespace aluframe::second_opinion
