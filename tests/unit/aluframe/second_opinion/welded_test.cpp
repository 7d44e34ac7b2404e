// F4, W3: the bottom flange of sections that the checks reduce at the top only.

#include "tests/unit/aluframe/second_opinion/elements.h"

namespace aluframe::second_opinion {
namespace {

/// Welded box 100x60, webs 4, flanges 8 on top and 4, of 6063-T5 with zones of 10 mm
/// (docs/behaviour.md, F4): W1 33,523, W2 25,887.
ALU_DGN_DATA unequal_box() {
  ALU_DGN_DATA data = in_6063_t5(
      element_of(section_of(model::Shape::box, {100, 60, 4, 8, 56, 4}), ALU_MEMBER_BEAM, 1000.0));
  data.code.para.dHazWidth = 10.0;
  return welded(data);
}

TEST(WeldedOpinion, TheFartherFibreOfAnUnequalBoxIsJudged) {
  const T_RALU_SECT code = checked(unequal_box(), {.my = 1e6});
  EXPECT_NEAR(code.aItem[RALU_STRENGTH].dDemand, 29.8, three_digits * 29.8);
  const auto answers = answers_of(unequal_box(), {.my = 1e6});
  expect_ratio(answer(answers, RALU_STRENGTH, Rule::f4), 38.6 / 90.0, three_digits);
}

TEST(WeldedOpinion, ABoxWithEqualFlangesHasOneModulus) {
  ALU_DGN_DATA data = in_6063_t5(
      element_of(section_of(model::Shape::box, {100, 60, 4, 8, 56, 8}), ALU_MEMBER_BEAM, 1000.0));
  EXPECT_FALSE(names(answers_of(welded(data), {.my = 1e6}), Rule::f4));
}

TEST(WeldedOpinion, TheFartherFibreOfACompressedBoxBendsWithItsOwnModulus) {
  // Bending counts 33,523/25,887 times what the check has of it beside N/(φy·A); held about z, so
  // that compression alone is checked with φy too.
  ALU_DGN_DATA data = unequal_box();
  data.code.para.dKz = 0.1;
  const double alone = ratio_of(checked(data, {.n = -10e3}), RALU_STABILITY);
  const double both = ratio_of(checked(data, {.n = -10e3, .my = 1e6}), RALU_STABILITY);
  const double expected = alone + (both - alone) * 33523.0 / 25887.0;
  const auto answers = answers_of(data, {.n = -10e3, .my = 1e6});
  expect_ratio(answer(answers, RALU_STABILITY, Rule::f4), expected, three_digits);
}

TEST(WeldedOpinion, AnUnweldedStockyBoxTakesItsFartherFibreAlready) {
  ALU_DGN_DATA data = unequal_box();
  data.code.sect.bWelded = 0;
  EXPECT_FALSE(names(answers_of(data, {.my = 1e6}), Rule::f4));
}

/// Welded H200: W 144,397 for My > 0 and 175,132 for My < 0; A 2520 and 2860 (docs/behaviour.md,
/// W3).
TEST(WeldedOpinion, TheBottomFlangeOfASlenderHIsReducedLikeTheTop) {
  ALU_DGN_DATA data = welded(h200());
  // φb = 1, so that stability is My/W of the section.
  data.code.para.bUserPhi = 1;
  data.code.para.dUserPhi[0] = data.code.para.dUserPhi[1] = 1.0;
  const double f = checked(data, {.my = -5e6}).aItem[RALU_STRENGTH].dCapacity;
  expect_ratio(ratio_of(checked(data, {.my = -5e6}), RALU_STRENGTH), 5e6 / 175132.0 / f, 1e-5);
  expect_ratio(answer(answers_of(data, {.my = -5e6}), RALU_STABILITY, Rule::c3 | Rule::w3),
               5e6 / 144397.0 / f, 1e-5);
}

TEST(WeldedOpinion, TensionOfASlenderHTakesTheReducedArea) {
  const ALU_DGN_DATA data = welded(h200());
  const T_RALU_SECT code = checked(data, {.n = 100e3});
  EXPECT_NEAR(code.aItem[RALU_STRENGTH].dDemand, 41.1, three_digits * 41.1);
  expect_ratio(answer(answers_of(data, {.n = 100e3}), RALU_STRENGTH, Rule::w3),
               46.7 / code.aItem[RALU_STRENGTH].dCapacity, three_digits);
}

TEST(WeldedOpinion, APositiveMyIsTheChecksOwnCase) {
  EXPECT_FALSE(names(answers_of(welded(h200()), {.my = 5e6}), Rule::w3));
}

TEST(WeldedOpinion, AnUnweldedHIsReducedAtItsBottomFlange) {
  EXPECT_FALSE(names(answers_of(h200(), {.my = -5e6}), Rule::w3));
}

}  // namespace
}  // namespace aluframe::second_opinion
