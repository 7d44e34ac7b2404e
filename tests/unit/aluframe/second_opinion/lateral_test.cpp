// C1, C2, C3, C4, S6: lateral-torsional buckling that the checks leave out.

#include <algorithm>
#include <cmath>

#include "tests/unit/aluframe/second_opinion/elements.h"

namespace aluframe::second_opinion {
namespace {

/// H200 as a beam of 4 m under 30 kNm, by hand: q = 0.459·(−100) = −45.9, Iw/Izz =
/// 9025, G·It·lw²/(π²·E·Iw) = 4.030, Mcr = 1.132·72,297·(q + √(q² + 9025·5.030)) = 14.08 kNm,
/// φb 0.2848: 479.8 N/mm² of 200.
constexpr double beam_ratio = 479.8 / 200.0;

TEST(LateralOpinion, TensionKeepsTheLateralProblem) {
  expect_ratio(answer(answers_of(h200(), {.n = 10.0, .my = 30e6}), RALU_STABILITY, Rule::c1),
               beam_ratio, three_digits);
}

TEST(LateralOpinion, TensionThatLeavesNoFibreCompressedEndsIt) {
  // N/A reaches My/W = 30e6/219,547 = 136.64 at 470,056 N.
  EXPECT_TRUE(names(answers_of(h200(), {.n = 469e3, .my = 30e6}), Rule::c1));
  EXPECT_FALSE(names(answers_of(h200(), {.n = 471e3, .my = 30e6}), Rule::c1));
}

TEST(LateralOpinion, ANegativeMyCompressesTheBottomFibreOfATee) {
  // 1e6·75.586/1,210,179 = 62.459 at the bottom: 84,445 N of tension relieve it; at the top
  // 1e6·24.414/1,210,179 = 20.174: 27,275 N.
  EXPECT_TRUE(names(answers_of(tee(), {.n = 84e3, .my = -1e6}), Rule::c1));
  EXPECT_FALSE(names(answers_of(tee(), {.n = 85e3, .my = -1e6}), Rule::c1));
  EXPECT_TRUE(names(answers_of(tee(), {.n = 27e3, .my = 1e6}), Rule::c1));
  EXPECT_FALSE(names(answers_of(tee(), {.n = 28e3, .my = 1e6}), Rule::c1));
}

TEST(LateralOpinion, AnAxialForceOfNoiseIsNone) {
  // Noise is below 1e-6·200·3440 = 0.688 N.
  expect_ratio(answer(answers_of(h200(), {.n = -0.5, .my = 30e6}), RALU_STABILITY, Rule::c2),
               beam_ratio, three_digits);
  expect_ratio(answer(answers_of(h200(), {.n = 0.5, .my = 30e6}), RALU_STABILITY, Rule::c2),
               beam_ratio, three_digits);
  EXPECT_FALSE(names(answers_of(h200(), {.n = -0.8, .my = 30e6}), Rule::c2));
  EXPECT_FALSE(names(answers_of(h200(), {.n = 0.8, .my = 30e6}), Rule::c2));
}

TEST(LateralOpinion, AHoggingMomentBucklesTheSymmetricSectionAsMuch) {
  expect_ratio(answer(answers_of(h200(), {.my = -30e6}), RALU_STABILITY, Rule::c3), beam_ratio,
               three_digits);
}

TEST(LateralOpinion, AnUnequalHIsAskedUpsideDown) {
  const ALU_DGN_DATA data = element_of(stocky_h(60, 40), ALU_MEMBER_BEAM, 4000.0);
  // The section as an engineer would draw it upside down, under the moment that then sags.
  const ALU_DGN_DATA turned = element_of(stocky_h(40, 60), ALU_MEMBER_BEAM, 4000.0);
  const double expected = ratio_of(checked(turned, {.my = 5e6}), RALU_STABILITY);
  // It is not merely the magnitude of what the checks have.
  ASSERT_GT(std::fabs(expected + ratio_of(checked(data, {.my = -5e6}), RALU_STABILITY)), 0.005);
  expect_ratio(answer(answers_of(data, {.my = -5e6}), RALU_STABILITY, Rule::c3), expected,
               rounding);
}

TEST(LateralOpinion, AnUnequalHIsAskedAtAnEndOfItsMemberAndInTheSpan) {
  const ALU_DGN_DATA data = element_of(stocky_h(60, 40), ALU_MEMBER_BEAM, 4000.0);
  const ALU_DGN_DATA turned = element_of(stocky_h(40, 60), ALU_MEMBER_BEAM, 4000.0);
  AluDgnSectForce hogging = force_of({.my = -5e6}), sagging = force_of({.my = 5e6});
  hogging.bEndSect = sagging.bEndSect = 1;
  const double inner = ratio_of(checked(turned, {.my = 5e6}), RALU_STABILITY);
  const double end = ratio_of(checked(turned, sagging), RALU_STABILITY);
  ASSERT_NE(inner, end);  // ends have another measure of unequal flanges
  // S8: the larger one counts at both.
  const double expected = std::max(inner, end);
  // Only where the place's own stress is the smaller one does S8 make the difference.
  const RuleSet at_the_end = end < inner ? Rule::c3 | Rule::s8 : RuleSet(Rule::c3);
  const RuleSet in_the_span = inner < end ? Rule::c3 | Rule::s8 : RuleSet(Rule::c3);
  expect_ratio(answer(answers_of(data, hogging), RALU_STABILITY, at_the_end), expected, rounding);
  hogging.bEndSect = 0;
  expect_ratio(answer(answers_of(data, hogging), RALU_STABILITY, in_the_span), expected, rounding);
}

TEST(LateralOpinion, AnUnequalChannelIsAskedUpsideDown) {
  const auto channel = [](double top, double bottom) {
    return element_of(section_of(model::Shape::channel, {120, top, 8, 12, bottom, 12}),
                      ALU_MEMBER_BEAM, 3000.0);
  };
  const double expected = ratio_of(checked(channel(40, 60), {.my = 2e6}), RALU_STABILITY);
  expect_ratio(answer(answers_of(channel(60, 40), {.my = -2e6}), RALU_STABILITY, Rule::c3),
               expected, rounding);
}

TEST(LateralOpinion, ATeeUpsideDownIsAnHWithoutATopFlange) {
  const ALU_DGN_DATA data = tee(ALU_MEMBER_BEAM, 2000.0);
  ALU_DGN_DATA turned = element_of(section_of(model::Shape::h_section, {100, 6, 6, 8, 100, 8}),
                                   ALU_MEMBER_BEAM, 2000.0);
  turned.code.para.dRibRatio = 1e12;  // the plates of a tee are not judged
  const double expected = ratio_of(checked(turned, {.my = 1e6}), RALU_STABILITY);
  // The end of the web is a plate of its own for It, Iw and the shear centre of the H: some per
  // cent.
  expect_ratio(answer(answers_of(data, {.my = -1e6}), RALU_STABILITY, Rule::c3), expected, 0.03);
}

TEST(LateralOpinion, AWeldedTeeIsTakenByTheMagnitude) {
  const ALU_DGN_DATA data = welded(tee(ALU_MEMBER_BEAM, 2000.0));
  AluDgnSectForce at_end = force_of({.my = -1e6});
  at_end.bEndSect = 1;
  const double inner = ratio_of(checked(data, {.my = -1e6}), RALU_STABILITY);
  const double end = ratio_of(checked(data, at_end), RALU_STABILITY);
  ASSERT_LT(inner, 0.0);
  const RuleSet rules = -inner < -end ? Rule::c3 | Rule::s8 : RuleSet(Rule::c3);
  expect_ratio(answer(answers_of(data, {.my = -1e6}), RALU_STABILITY, rules),
               std::max(-inner, -end), rounding);
}

TEST(LateralOpinion, BendingAboutBothAxesAddsUp) {
  ALU_DGN_DATA data = h200();
  data.code.para.bUserPhi = 1;
  data.code.para.dUserPhi[0] = 0.6;
  // 20e6/(0.6·219,547) + 3e6/(1.05·33,487) = 151.83 + 85.32 of 200.
  expect_ratio(answer(answers_of(data, {.my = 20e6, .mz = 3e6}), RALU_STABILITY, Rule::c4),
               (151.83 + 85.32) / 200.0, 1e-4);
  expect_ratio(
      answer(answers_of(data, {.my = -20e6, .mz = -3e6}), RALU_STABILITY, Rule::c3 | Rule::c4),
      (151.83 + 85.32) / 200.0, 1e-4);
}

TEST(LateralOpinion, AnMzOfNoiseIsNone) {
  // Noise is at most 1e-6·200·33,487 = 6.7 N·mm.
  EXPECT_FALSE(names(answers_of(h200(), {.my = 30e6, .mz = 6.0}), Rule::c4));
  EXPECT_TRUE(names(answers_of(h200(), {.my = 30e6, .mz = 8.0}), Rule::c4));
}

TEST(LateralOpinion, StabilityTakesItsOwnSeismicFactor) {
  ALU_DGN_DATA data = h200();
  data.code.para.bSeismicGammaRE = 1;
  data.code.para.dGammaREStrength = 0.75;
  data.code.para.dGammaREStability = 0.8;
  AluDgnSectForce force = force_of({.my = -30e6});
  force.nSesiType = 1;
  expect_ratio(answer(answers_of(data, force), RALU_STABILITY, Rule::c3), 0.8 * beam_ratio,
               three_digits);
}

/// H200 whose ends no support holds: lw is 8 m, Mcr 28.63 kNm, φb 0.5253: 260.1 N/mm².
ALU_DGN_DATA with_free_ends() {
  ALU_DGN_DATA data = h200();
  for (auto& end : data.nEndCond) end[0] = end[1] = ALU_END_FREE;
  return data;
}

TEST(LateralOpinion, JointsOfTheFrameHoldTheTwist) {
  const ElementFacts facts{.end_is_held = {true, true}};
  expect_ratio(answer(answers_of(with_free_ends(), {.my = 30e6}, facts), RALU_STABILITY, Rule::s6),
               beam_ratio, three_digits);
  EXPECT_NEAR(safe_of(with_free_ends(), {.my = 30e6}, facts).code, 260.1 / 200.0,
              three_digits * 260.1 / 200.0);
}

TEST(LateralOpinion, AnEndThatNothingHoldsStaysFree) {
  EXPECT_FALSE(names(answers_of(with_free_ends(), {.my = 30e6}), Rule::s6));
  EXPECT_FALSE(
      names(answers_of(with_free_ends(), {.my = 30e6}, {.end_is_held = {true, false}}), Rule::s6));
}

TEST(LateralOpinion, HeldEndsRaiseTheStabilityOfABentColumnToo) {
  const ALU_DGN_DATA held = element_of(stocky_h(60, 60), ALU_MEMBER_BEAM, 2000.0);
  ALU_DGN_DATA data = held;
  for (auto& end : data.nEndCond) end[0] = end[1] = ALU_END_FREE;
  const Forces forces{.n = -10e3, .my = 10e6};
  // The same member with a support at each end is one whose ends are held.
  const double expected = ratio_of(checked(held, forces), RALU_COMBINED_STABILITY);
  ASSERT_GT(expected, 1.1 * ratio_of(checked(data, forces), RALU_COMBINED_STABILITY));
  expect_ratio(answer(answers_of(data, forces, {.end_is_held = {true, true}}),
                      RALU_COMBINED_STABILITY, Rule::s6),
               expected, rounding);
}

}  // namespace
}  // namespace aluframe::second_opinion
