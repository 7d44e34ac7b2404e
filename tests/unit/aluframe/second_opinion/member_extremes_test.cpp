#include "aluframe/second_opinion/member_extremes.h"

#include "tests/unit/aluframe/model/models.h"

namespace aluframe::second_opinion {
namespace {

using model::Side;

constexpr std::size_t n = 0, my = 4, mz = 5;

/// Two elements in line, 1 and 2, under combination 1 = load case 1. Sums are those of one case, so
/// that every expected force is written in the test.
class Extremes : public testing::Test {
 protected:
  Extremes() {
    for (const model::Number number : {1U, 2U}) {
      model_.elements.add(beam(number, 1, 1));
    }
    model_.load_cases.add(model::load_case(1));
    model_.combinations.add(model::linear(1, {model::of_case(1)}));
    model_.forces.resize(2, 1);
  }

  static model::Element beam(model::Number number, model::Number section, model::Number material) {
    model::Element out = model::element(number, number, number + 1);
    out.section = section;
    out.material = material;
    return out;
  }
  /// Linear between the ends, with this N and these moments about y.
  static model::CaseForces straight(float axial, float start, float end) {
    model::CaseForces forces;
    forces.inner = true;
    for (std::size_t i = 0; i < 5; ++i) {
      forces.at[i][n] = axial;
      forces.at[i][my] = start + (end - start) * static_cast<float>(i) / 4.0F;
    }
    return forces;
  }

  LargestForces of(std::size_t element) {
    const model::CombinationEvaluator evaluator(model_);
    MemberExtremes extremes(model_, evaluator, parted_);
    return extremes.of(chain_, element, 1, Side::maximum,
                       evaluator.evaluate(element, 1, Side::maximum).value());
  }
  static LargestForces alone(const model::CaseForces& forces) {
    model::Model model;
    model.elements.add(beam(1, 1, 1));
    const model::CombinationEvaluator evaluator(model);
    const PartedElements parted;
    MemberExtremes extremes(model, evaluator, parted);
    return extremes.of({.elements = {0}, .reversed = {false}}, 0, 1, Side::maximum, forces);
  }

  model::Model model_;
  PartedElements parted_;
  MemberChain chain_{.elements = {0, 1}, .reversed = {false, false}};
};

TEST_F(Extremes, AreTakenOverAllElementsOfTheMember) {
  model_.forces.set(0, 0, straight(-100e3F, 0, 6e6F));
  model_.forces.set(1, 0, straight(-60e3F, 6e6F, -8e6F));
  for (const std::size_t element : {0U, 1U}) {
    const LargestForces found = of(element);
    EXPECT_EQ(found.n, -100e3);
    EXPECT_EQ(found.my_max, 6e6);
    EXPECT_EQ(found.my_min, -8e6);
  }
}

TEST_F(Extremes, TakeTheMagnitudeAboutZ) {
  model::CaseForces forces = straight(-1e3F, 0, 0);
  forces.at[3][mz] = -2e6F;
  EXPECT_EQ(alone(forces).mz, 2e6);
}

TEST_F(Extremes, OfAMemberInTensionHaveNoCompression) {
  EXPECT_EQ(alone(straight(5e3F, 1e6F, 2e6F)).n, 0.0);
}

TEST_F(Extremes, LeaveElementsOfAnotherSectionOut) {
  model_.elements.replace(beam(2, 2, 1));
  model_.forces.set(0, 0, straight(-100e3F, 0, 6e6F));
  model_.forces.set(1, 0, straight(-200e3F, 6e6F, -8e6F));
  EXPECT_EQ(of(0).n, -100e3);
  EXPECT_EQ(of(0).my_min, 0.0);
  EXPECT_EQ(of(1).n, -200e3);
  EXPECT_EQ(of(1).my_min, -8e6);
}

TEST_F(Extremes, LeaveElementsOfAnotherMaterialOut) {
  model_.elements.replace(beam(2, 1, 2));
  model_.forces.set(0, 0, straight(-100e3F, 0, 6e6F));
  model_.forces.set(1, 0, straight(-200e3F, 6e6F, 0));
  EXPECT_EQ(of(0).n, -100e3);
}

TEST_F(Extremes, OfBothSectionsOfAMemberStayApartWhenAskedInTurn) {
  model_.elements.replace(beam(2, 2, 1));
  model_.forces.set(0, 0, straight(-100e3F, 0, 6e6F));
  model_.forces.set(1, 0, straight(-200e3F, 6e6F, 0));
  const model::CombinationEvaluator evaluator(model_);
  MemberExtremes extremes(model_, evaluator, parted_);
  const model::CaseForces own = evaluator.evaluate(0, 1, Side::maximum).value();
  EXPECT_EQ(extremes.of(chain_, 0, 1, Side::maximum, own).n, -100e3);
  EXPECT_EQ(extremes.of(chain_, 1, 1, Side::maximum, own).n, -200e3);
  EXPECT_EQ(extremes.of(chain_, 0, 1, Side::maximum, own).n, -100e3);
}

TEST_F(Extremes, AStraightDiagramHasNoSpanMoments) {
  EXPECT_FALSE(alone(straight(-1e3F, 2e6F, -1e6F)).has_span_moments);
}

TEST_F(Extremes, ACurvedDiagramHasSpanMomentsThoughItsEndsAreLarger) {
  model::CaseForces forces = straight(-1e3F, 10e6F, 10e6F);
  forces.at[2][my] = 9e6F;
  EXPECT_TRUE(alone(forces).has_span_moments);
}

TEST_F(Extremes, ADiagramCurvedByAThousandthIsStraight) {
  model::CaseForces forces = straight(-1e3F, 10e6F, 10e6F);
  forces.at[2][my] = 9.995e6F;
  EXPECT_FALSE(alone(forces).has_span_moments);
}

TEST_F(Extremes, ACurvedDiagramAboutZHasSpanMoments) {
  model::CaseForces forces = straight(-1e3F, 10e6F, 10e6F);
  forces.at[2][mz] = 1e6F;
  EXPECT_TRUE(alone(forces).has_span_moments);
}

TEST_F(Extremes, AKinkAtAQuarterHasSpanMoments) {
  // Ends 0 and 4, largest 5 at the quarter; the middle lies on the chord.
  model::CaseForces forces = straight(-1e3F, 0, 4e6F);
  forces.at[1][my] = 5e6F;
  EXPECT_TRUE(alone(forces).has_span_moments);
}

TEST_F(Extremes, AMemberKinkedBetweenStraightElementsHasSpanMoments) {
  model_.forces.set(0, 0, straight(-1e3F, 0, 6e6F));
  model_.forces.set(1, 0, straight(-1e3F, 6e6F, 1e6F));
  EXPECT_TRUE(of(0).has_span_moments);
  EXPECT_TRUE(of(1).has_span_moments);
}

TEST_F(Extremes, AStraightMemberOfTwoElementsHasNone) {
  model_.forces.set(0, 0, straight(-1e3F, 6e6F, 2e6F));
  model_.forces.set(1, 0, straight(-1e3F, 2e6F, -2e6F));
  EXPECT_FALSE(of(0).has_span_moments);
  EXPECT_FALSE(of(1).has_span_moments);
}

TEST_F(Extremes, AnElementThatRunsAgainstTheMemberGivesItsOtherEnd) {
  // Against the member the second element starts at the member's end.
  chain_.reversed = {false, true};
  model_.forces.set(0, 0, straight(-1e3F, 1e6F, 2e6F));
  model_.forces.set(1, 0, straight(-1e3F, 3e6F, 2e6F));
  EXPECT_FALSE(of(0).has_span_moments);
  // Its start would be an inner moment of 3e6 between ends of 1e6 and 2e6.
  chain_.reversed = {false, false};
  EXPECT_TRUE(of(0).has_span_moments);
}

TEST_F(Extremes, ForcesAtTheEndsAloneAreTakenThere) {
  model::CaseForces forces = straight(-1e3F, 1e6F, 3e6F);
  forces.inner = false;
  forces.at[2][my] = 9e6F;  // not known, so not read
  EXPECT_EQ(alone(forces).my_max, 3e6);
  EXPECT_FALSE(alone(forces).has_span_moments);
}

}  // namespace
}  // namespace aluframe::second_opinion
