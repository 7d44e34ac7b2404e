// C7, S12: the largest forces of a member together.

#include "tests/unit/aluframe/second_opinion/elements.h"

namespace aluframe::second_opinion {
namespace {

/// The pipe at λ = 60: φ 0.583 (docs/behaviour.md, F9), N_E' = π²·70,000·2827.43/(1.2·60²)
/// = 452,167 N. Under −100 kN and 8 kNm: N/(φ·A) = 60.665 and My/W = 138.02.
constexpr double axial = 60.665, bending = 138.02;
constexpr double amplified = bending / (1.0 - 0.75 * 100e3 / 452167.0);

AluDgnSectForce largest_forces() {
  AluDgnSectForce force = force_of({.n = -100e3, .my = 8e6});
  // Of equal size and opposite sign: βm = 0.6 − 0.4 = 0.2.
  force.end.dMyI = 8e6;
  force.end.dMyJ = -8e6;
  return force;
}

SafeRatio of_member(const ALU_DGN_DATA& data, const AluDgnSectForce& force, bool has_span_moments) {
  Engine engine;
  return ElementOpinion(engine, data).of_member(force, has_span_moments);
}

TEST(MemberOpinion, EndMomentsGiveTheFactorWhereNothingGrowsInTheSpan) {
  const SafeRatio found = of_member(pipe(), largest_forces(), false);
  // About y 60.7 + 0.2·165.5, about z 60.7 + 0.7·138.0 = 157.3 (η of a pipe, φb = 1).
  ASSERT_TRUE(found.any);
  EXPECT_EQ(found.item, RALU_COMBINED_STABILITY);
  EXPECT_EQ(found.rules, RuleSet(Rule::c7));
  EXPECT_NEAR(found.safe, (axial + 0.7 * bending) / 200.0, 1e-4);
}

TEST(MemberOpinion, MomentsInTheSpanCountInFull) {
  const SafeRatio found = of_member(pipe(), largest_forces(), true);
  ASSERT_TRUE(found.any);
  EXPECT_EQ(found.item, RALU_STABILITY);
  EXPECT_EQ(found.rules, Rule::c7 | Rule::s12);
  EXPECT_NEAR(found.safe, (axial + amplified) / 200.0, 1e-4);
}

TEST(MemberOpinion, FactorsOfTheEngineersOwnStay) {
  ALU_DGN_DATA data = pipe();
  data.code.para.bUserBetaM = 1;
  data.code.para.nBetaMOpt[0] = data.code.para.nBetaMOpt[1] = 0;
  data.code.para.dBetaM[0] = data.code.para.dBetaM[1] = 0.9;
  const SafeRatio found = of_member(data, largest_forces(), true);
  ASSERT_TRUE(found.any);
  EXPECT_EQ(found.rules, RuleSet(Rule::c7));
  EXPECT_NEAR(found.safe, (axial + 0.9 * amplified) / 200.0, 1e-4);
}

TEST(MemberOpinion, AskingAboutSpansLeavesLaterQuestionsAlone) {
  Engine engine;
  ElementOpinion opinion(engine, pipe());
  const double before = opinion.of_member(largest_forces(), false).safe;
  EXPECT_GT(opinion.of_member(largest_forces(), true).safe, before);
  EXPECT_EQ(opinion.of_member(largest_forces(), false).safe, before);
}

TEST(MemberOpinion, AMemberWithoutCompressionOrBendingHasNone) {
  EXPECT_FALSE(of_member(pipe(), force_of({.n = 100e3, .my = 8e6}), true).any);
  EXPECT_FALSE(of_member(pipe(), force_of({.n = -100e3}), true).any);
  EXPECT_FALSE(of_member(pipe(), force_of({.my = 8e6}), true).any);
}

TEST(MemberOpinion, AnUnequalHWithItsSmallestMomentIsAskedUpsideDown) {
  const ALU_DGN_DATA data = element_of(stocky_h(60, 40), ALU_MEMBER_COLUMN, 2000.0);
  const ALU_DGN_DATA turned = element_of(stocky_h(40, 60), ALU_MEMBER_COLUMN, 2000.0);
  const T_RALU_SECT expected = checked(turned, {.n = -50e3, .my = 5e6});
  const SafeRatio found = of_member(data, force_of({.n = -50e3, .my = -5e6}), false);
  ASSERT_TRUE(found.any);
  EXPECT_EQ(found.rules, Rule::c7 | Rule::s14);
  EXPECT_NEAR(
      found.safe,
      std::max(ratio_of(expected, RALU_STABILITY), ratio_of(expected, RALU_COMBINED_STABILITY)),
      rounding);
}

}  // namespace
}  // namespace aluframe::second_opinion
