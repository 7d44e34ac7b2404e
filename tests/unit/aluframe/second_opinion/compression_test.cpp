// S2, S3, S14, B1, B8: compression, alone and with bending.

#include <cmath>

#include "tests/unit/aluframe/second_opinion/elements.h"

namespace aluframe::second_opinion {
namespace {

constexpr double pi2_e = 9.8696044 * 70000.0;

/// The pipe 60x3 (A 537.21) at λ = 300: N_E'/A = π²·E/(1.2·300²) = 6.3968.
ALU_DGN_DATA slender_pipe() {
  ALU_DGN_DATA data = element_of(section_of(model::Shape::pipe, {60, 3}), ALU_MEMBER_COLUMN, 0.0);
  data.dMembLength = 300.0 * std::sqrt(60.0 * 60.0 + 54.0 * 54.0) / 4.0;
  return data;
}

TEST(CompressionOpinion, BeyondTheEulerLoadAMomentHelpsNothing) {
  const Forces forces{.n = -9.0 * 537.21, .my = 74e3};
  EXPECT_LT(ratio_of(checked(slender_pipe(), forces), RALU_STABILITY), 0.0);
  expect_ratio(answer(answers_of(slender_pipe(), forces), RALU_STABILITY, Rule::s2), 9.0 / 6.3968,
               1e-4);
}

TEST(CompressionOpinion, TheEulerLoadBoundsCompressionAloneToo) {
  expect_ratio(answer(answers_of(slender_pipe(), {.n = -3.0 * 537.21}), RALU_STABILITY, Rule::s2),
               3.0 / 6.3968, 1e-4);
}

TEST(CompressionOpinion, TheEulerLoadIsThatOfTheWeakerAxis) {
  // N_E' = π²·E·Izz/(1.2·L²), Izz = 33,487·50.
  const double euler = pi2_e * 33487.0 * 50.0 / (1.2 * 4000.0 * 4000.0);
  const ALU_DGN_DATA column = h200(ALU_MEMBER_COLUMN);
  expect_ratio(answer(answers_of(column, {.n = -40e3}), RALU_STABILITY, Rule::s2), 40e3 / euler,
               1e-4);
}

TEST(CompressionOpinion, AFactorBelowOneDoesNotRaiseTheEulerLoad) {
  ALU_DGN_DATA data = slender_pipe();
  data.code.para.dGamma0 = 0.9;
  expect_ratio(answer(answers_of(data, {.n = -9.0 * 537.21}), RALU_STABILITY, Rule::s2),
               9.0 / 6.3968, 1e-4);
  data.code.para.dGamma0 = 1.1;
  expect_ratio(answer(answers_of(data, {.n = -9.0 * 537.21}), RALU_STABILITY, Rule::s2),
               1.1 * 9.0 / 6.3968, 1e-4);
}

TEST(CompressionOpinion, TensionHasNoEulerLoad) {
  EXPECT_FALSE(names(answers_of(slender_pipe(), {.n = 9.0 * 537.21, .my = 74e3}), Rule::s2));
}

/// Stocky channel 100x50, web 5, flanges 8 (45/8 = 5.6 of 6.6 at most), 2.5 m with Kz = 0.3.
ALU_DGN_DATA braced_channel() {
  ALU_DGN_DATA data = element_of(section_of(model::Shape::channel, {100, 50, 5, 8, 50, 8}),
                                 ALU_MEMBER_COLUMN, 2500.0);
  data.code.para.dKz = 0.3;
  return data;
}

constexpr double shear_centre = 31.6;

/// λ of flexure about y with twisting (chapter 7): twice λ² = s + √(s² − 4·(1 − e²/i0²)·λy²·λω²),
/// s = λy² + λω², λω² = i0²·A/(It/25.7 + Iω/L²), i0² = e² + iy² + iz².
double torsional_flexural_slenderness(const ALU_DGN_DATA& data) {
  const ALU_SECT_DATA& sect = data.code.sect;
  const double length = data.dMembLength;
  const double iy2 = sect.dIyy / sect.dArea, iz2 = sect.dIzz / sect.dArea;
  const double e2 = shear_centre * shear_centre, i02 = e2 + iy2 + iz2;
  const double y2 = length * length / iy2;
  const double w2 = i02 * sect.dArea / (sect.dIxx / 25.7 + sect.dIw / (length * length));
  const double s = y2 + w2;
  return std::sqrt((s + std::sqrt(s * s - 4.0 * (1.0 - e2 / i02) * y2 * w2)) / 2.0);
}

/// φ of the code's table, read from the check of a pipe.
double table_phi(double lambda) {
  const ALU_DGN_DATA data = pipe(lambda * std::sqrt(100.0 * 100.0 + 80.0 * 80.0) / 4.0);
  return 1e3 / (checked(data, {.n = -1e3}).aItem[RALU_STABILITY].dDemand * data.code.sect.dArea);
}

TEST(CompressionOpinion, AChannelTwistsAsItBucklesAboutY) {
  const ALU_DGN_DATA data = braced_channel();
  const double lambda = torsional_flexural_slenderness(data);
  const double area = data.code.sect.dArea;
  ASSERT_GT(lambda, 1.2 * 2500.0 / std::sqrt(data.code.sect.dIyy / area));
  const auto answers = answers_of(data, {.n = -20e3}, {.shear_centre_y = shear_centre});
  expect_ratio(answer(answers, RALU_STABILITY, Rule::s3), 20e3 / (table_phi(lambda) * area) / 200.0,
               rounding);
}

TEST(CompressionOpinion, AChannelTwistsBesideBendingToo) {
  const ALU_DGN_DATA data = braced_channel();
  const Forces forces{.n = -20e3, .my = 1e6};
  const double lambda = torsional_flexural_slenderness(data);
  const double area = data.code.sect.dArea;
  const double code_phi = table_phi(2500.0 / std::sqrt(data.code.sect.dIyy / area));
  const auto answers = answers_of(data, forces, {.shear_centre_y = shear_centre});
  const double more = 20e3 / area * (1.0 / table_phi(lambda) - 1.0 / code_phi) / 200.0;
  expect_ratio(answer(answers, RALU_STABILITY, Rule::s3),
               ratio_of(checked(data, forces), RALU_STABILITY) + more, rounding);
}

TEST(CompressionOpinion, TheSideOfTheShearCentreDoesNotMatter) {
  EXPECT_EQ(answer(answers_of(braced_channel(), {.n = -20e3}, {.shear_centre_y = -31.6}),
                   RALU_STABILITY, Rule::s3),
            answer(answers_of(braced_channel(), {.n = -20e3}, {.shear_centre_y = 31.6}),
                   RALU_STABILITY, Rule::s3));
}

/// λy = 50 and N/(φy·A) = 20,000/(0.65·1352) = 22.76 (docs/behaviour.md, W8).
constexpr Forces tee_forces{.n = -20e3, .mz = 0.5e6};

TEST(CompressionOpinion, MzBesideCompressionCountsAboutY) {
  // + 0.5e6/13,366 = 37.41; φy has two digits.
  expect_ratio(answer(answers_of(tee(), tee_forces), RALU_STABILITY, Rule::s14),
               (22.76 + 37.41) / 200.0, 3e-3);
}

TEST(CompressionOpinion, MzBesideCompressionCountsAboutZ) {
  const T_RALU_SECT code = checked(tee(), tee_forces);
  const double lambda = code.aItem[RALU_SLENDERNESS_Z].dDemand;
  const double euler = pi2_e * 1352.0 / (1.2 * lambda * lambda);
  const double side = 0.5e6 / (1.05 * 13366.5 * (1.0 - 0.75 * 20e3 / euler));
  expect_ratio(answer(answers_of(tee(), tee_forces), RALU_COMBINED_STABILITY, Rule::s14),
               ratio_of(code, RALU_COMBINED_STABILITY) + side / 200.0, 1e-5);
}

TEST(CompressionOpinion, AnMzOfNoiseAddsNothing) {
  // Noise is at most 1e-6·200·13,366 = 2.7 N·mm.
  EXPECT_FALSE(names(answers_of(tee(), {.n = -20e3, .mz = 2.0}), Rule::s14));
  EXPECT_TRUE(names(answers_of(tee(), {.n = -20e3, .mz = 4.0}), Rule::s14));
}

TEST(CompressionOpinion, ANegativeMyOfAnUnequalHIsAskedUpsideDown) {
  const ALU_DGN_DATA data = element_of(stocky_h(60, 40), ALU_MEMBER_COLUMN, 2000.0);
  const ALU_DGN_DATA turned = element_of(stocky_h(40, 60), ALU_MEMBER_COLUMN, 2000.0);
  const T_RALU_SECT expected = checked(turned, {.n = -50e3, .my = 5e6});
  const auto answers = answers_of(data, {.n = -50e3, .my = -5e6});
  for (const RALU_ITEM_TYPE item : {RALU_STABILITY, RALU_COMBINED_STABILITY}) {
    expect_ratio(answer(answers, item, Rule::s14), ratio_of(expected, item), rounding);
  }
}

TEST(CompressionOpinion, SymmetricSectionsHaveBothMomentsInTheChecks) {
  EXPECT_FALSE(names(answers_of(pipe(), {.n = -50e3, .my = -5e6, .mz = 2e6}), Rule::s14));
}

/// The mullion of 3 m under 20 kN: 67.3 of 90 without a moment, 47.4 with one (docs/behaviour.md,
/// B1).
TEST(CompressionOpinion, AMomentOfNoiseLeavesTheReducedSection) {
  const auto answers = answers_of(mullion(), {.n = -20e3, .my = 1.0});
  expect_ratio(answer(answers, RALU_COMBINED_STABILITY, Rule::b1 | Rule::c2), 67.3 / 90.0,
               three_digits);
}

TEST(CompressionOpinion, AMomentLeavesTheAxialCoefficientsOfTheReducedSection) {
  const Forces forces{.n = -20e3, .my = 0.5e6};
  const double code = ratio_of(checked(mullion(), forces), RALU_COMBINED_STABILITY);
  const auto found = answer(answers_of(mullion(), forces), RALU_COMBINED_STABILITY, Rule::b1);
  ASSERT_TRUE(found.has_value());
  EXPECT_NEAR(*found - code, (67.3 - 47.4) / 90.0, 0.1 / 90.0);
}

TEST(CompressionOpinion, AStockySectionHasTheSameCoefficientsBesideAMoment) {
  EXPECT_FALSE(names(answers_of(pipe(), {.n = -20e3, .my = 1.0}), Rule::b1));
}

/// H 200, web 8, 2 m, with flanges of these widths, 6 thick (docs/behaviour.md, B8).
ALU_DGN_DATA with_flanges(double top, double bottom) {
  return element_of(section_of(model::Shape::h_section, {200, top, 8, 6, bottom, 6}),
                    ALU_MEMBER_COLUMN, 2000.0);
}

TEST(CompressionOpinion, ASlenderTopFlangeIsReducedLikeABottomFlange) {
  const double code = ratio_of(checked(with_flanges(140, 46), {.n = -40e3}), RALU_STABILITY);
  const double turned = ratio_of(checked(with_flanges(46, 140), {.n = -40e3}), RALU_STABILITY);
  ASSERT_GT(turned, 1.3 * code);  // 127.9 against 97.4
  expect_ratio(answer(answers_of(with_flanges(140, 46), {.n = -40e3}), RALU_STABILITY, Rule::b8),
               turned, rounding);
}

}  // namespace
}  // namespace aluframe::second_opinion
