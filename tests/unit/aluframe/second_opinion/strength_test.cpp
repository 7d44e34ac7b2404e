// F1, F2, C5: strength and shear where the checks take less than acts.

#include "tests/unit/aluframe/second_opinion/elements.h"

namespace aluframe::second_opinion {
namespace {

/// H200: Wz = 1,674,347/50 = 33,487, γz = 1.05.
constexpr double h200_modulus_y = 219546.67, h200_side = 1.05 * 33486.93;

TEST(StrengthOpinion, APositiveMzIsAddedToMyOfASymmetricSection) {
  const auto answers = answers_of(h200(), {.my = 20e6, .mz = 3e6});
  // 91.10 + 85.32 = 176.42 of 200, where the checks have 5.78.
  expect_ratio(answer(answers, RALU_STRENGTH, Rule::f1),
               (20e6 / h200_modulus_y + 3e6 / h200_side) / 200.0, 1e-6);
}

TEST(StrengthOpinion, APositiveMzIsAddedToANegativeMyToo) {
  const auto answers = answers_of(h200(), {.my = -20e6, .mz = 3e6});
  expect_ratio(answer(answers, RALU_STRENGTH, Rule::f1),
               (20e6 / h200_modulus_y + 3e6 / h200_side) / 200.0, 1e-6);
}

TEST(StrengthOpinion, ANegativeMzIsAddedByTheChecks) {
  EXPECT_FALSE(names(answers_of(h200(), {.my = 20e6, .mz = -3e6}), Rule::f1));
}

TEST(StrengthOpinion, MzAloneNeedsNoSum) {
  EXPECT_FALSE(names(answers_of(h200(), {.mz = 3e6}), Rule::f1));
}

TEST(StrengthOpinion, AnAxialForceMakesTheChecksAddMagnitudes) {
  EXPECT_FALSE(names(answers_of(h200(), {.n = 1e4, .my = 20e6, .mz = 3e6}), Rule::f1));
}

TEST(StrengthOpinion, TheImportanceFactorRaisesTheSum) {
  ALU_DGN_DATA data = h200();
  data.code.para.dGamma0 = 1.1;
  expect_ratio(answer(answers_of(data, {.my = 20e6, .mz = 3e6}), RALU_STRENGTH, Rule::f1),
               1.1 * (20e6 / h200_modulus_y + 3e6 / h200_side) / 200.0, 1e-6);
}

TEST(StrengthOpinion, ASeismicCombinationTakesItsFactor) {
  ALU_DGN_DATA data = h200();
  data.code.para.bSeismicGammaRE = 1;
  data.code.para.dGammaREStrength = 0.75;
  AluDgnSectForce force = force_of({.my = 20e6, .mz = 3e6});
  force.nSesiType = 1;
  expect_ratio(answer(answers_of(data, force), RALU_STRENGTH, Rule::f1),
               0.75 * (20e6 / h200_modulus_y + 3e6 / h200_side) / 200.0, 1e-6);
}

TEST(StrengthOpinion, TheTopFibreOfATeeIsJudged) {
  const auto answers = answers_of(tee(), {.n = 20e3, .my = -1e6, .mz = 0.5e6});
  // Tension and My meet at the top: 20,000/(0.85·1352) + 1e6/49,569 + 0.5e6/(1.05·13,366)
  // = 17.403 + 20.174 + 35.627 of 200.
  expect_ratio(answer(answers, RALU_STRENGTH, Rule::f2), 73.204 / 200.0, 1e-4);
}

TEST(StrengthOpinion, CompressionWithAPositiveMyMeetsAtTheTopToo) {
  const auto answers = answers_of(tee(), {.n = -20e3, .my = 1e6});
  expect_ratio(answer(answers, RALU_STRENGTH, Rule::f2), (17.403 + 20.174) / 200.0, 1e-4);
}

TEST(StrengthOpinion, SymmetricSectionsHaveBothFibresInTheChecks) {
  EXPECT_FALSE(names(answers_of(h200(), {.n = 20e3, .my = -1e6}), Rule::f2));
}

/// H200: (100·10·95 + 90·8·45)/8 = 15,925 over Iyy = 21,954,667; fv = 115.
constexpr double h200_shear_z = 15925.0 / 21954666.7 / 115.0;

TEST(ShearOpinion, ShearAtAHingedEndIsJudged) {
  expect_ratio(answer(answers_of(h200(), {.fz = 10e3}), RALU_SHEAR_Z, Rule::c5),
               10e3 * h200_shear_z, 1e-6);
}

TEST(ShearOpinion, ShearOfAColumnWithAxialForceIsJudged) {
  expect_ratio(answer(answers_of(h200(ALU_MEMBER_COLUMN), {.n = -1e4, .fz = -10e3, .my = 1e6}),
                      RALU_SHEAR_Z, Rule::c5),
               10e3 * h200_shear_z, 1e-6);
}

TEST(ShearOpinion, ShearAlongYIsJudgedWithItsOwnFirstMoment) {
  ALU_DGN_DATA data = h200();
  data.code.sect.dQzb = 1300.0;
  data.code.sect.dIzz = 1.3e6;
  // 10,000·1300/1.3e6 = 10 of 115.
  expect_ratio(answer(answers_of(data, {.fy = 10e3}), RALU_SHEAR_Y, Rule::c5), 10.0 / 115.0,
               rounding);
}

TEST(ShearOpinion, ShearThatTheChecksHaveIsNotAskedAgain) {
  EXPECT_FALSE(names(answers_of(h200(), {.fz = 10e3, .my = 1e6}), Rule::c5));
  EXPECT_FALSE(names(answers_of(h200(), {.n = -1e4, .fz = 10e3, .my = 1e6}), Rule::c5));
}

TEST(ShearOpinion, NoShearHasNoAnswer) {
  EXPECT_FALSE(names(answers_of(h200(ALU_MEMBER_COLUMN), {.n = -1e4, .my = 1e6}), Rule::c5));
}

}  // namespace
}  // namespace aluframe::second_opinion
