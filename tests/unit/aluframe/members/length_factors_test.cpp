// Where factors come from, whose they are, and in which order they stand.
#include "aluframe/members/length_factors.h"

#include "frames.h"

namespace aluframe::members {
namespace {

using model::ElementDesign;
using testing::ElementsAre;

/// Columns 1 and 2 end to end, clamped at the foot: without a member two segments.
FrameBuilder mast() {
  FrameBuilder frame;
  frame.node(1, 0, 0, 0).node(2, 0, 0, 3).node(3, 0, 0, 5).beam(1, 1, 2).beam(2, 2, 3);
  return frame.fixed(1);
}

model::Member member_of(std::vector<Number> elements) {
  return {.number = 7, .name = {}, .elements = std::move(elements), .length_factors = {}};
}

TEST(LengthFactors, StandForMembersFirstThenForLoneElements) {
  FrameBuilder frame = mast();
  frame.node(4, 0, 0, 6).beam(3, 3, 4).member(member_of({2, 3}));
  const std::vector<SegmentFactors> all = length_factors(frame.model());
  ASSERT_EQ(all.size(), 2U);
  EXPECT_EQ(all[0].member, 7U);
  EXPECT_THAT(all[0].elements, ElementsAre(2, 3));
  EXPECT_DOUBLE_EQ(all[0].length, 3000.0);
  EXPECT_FALSE(all[1].member);
  EXPECT_THAT(all[1].elements, ElementsAre(1));
}

TEST(LengthFactors, OfALoneElementAreItsOwnWhenGiven) {
  FrameBuilder frame = mast();
  frame.with(1, [](model::Element& element) {
    element.design.length_factors = ElementDesign::AxisPair{0.7, 1.4};
  });
  const SegmentFactors factors = length_factors(frame.model())[0];
  EXPECT_EQ(factors.y.k, 0.7);
  EXPECT_EQ(factors.z.k, 1.4);
  EXPECT_EQ(factors.z.source, FactorSource::given_element);
}

TEST(LengthFactors, OfAMemberAreTheGivenOnesWhateverItsElementsHave) {
  FrameBuilder frame = mast();
  frame.with(1, [](model::Element& element) {
    element.design.length_factors = ElementDesign::AxisPair{0.7, 1.4};
  });
  model::Member member = member_of({1, 2});
  member.length_factors = ElementDesign::AxisPair{0.8, 0.9};
  frame.member(member);
  const SegmentFactors factors = length_factors(frame.model())[0];
  EXPECT_EQ(factors.y.k, 0.8);
  EXPECT_EQ(factors.z.k, 0.9);
  EXPECT_EQ(factors.y.source, FactorSource::given_member);
}

TEST(LengthFactors, OfAMemberWithoutGivenOnesAreComputed) {
  FrameBuilder frame = mast();
  frame.member(member_of({1, 2}));
  const SegmentFactors factors = length_factors(frame.model())[0];
  EXPECT_NEAR(factors.y.k, 2.0, 1e-9) << "clamped and free";
}

TEST(LengthFactors, OfAnEndThatSlidesAreThoseOfEndsThatMove) {
  constexpr std::size_t end_fy = 6 + 1, end_mz = 6 + 5;
  FrameBuilder frame;
  frame.node(1, 0, 0, 0).node(2, 0, 0, 3).beam(1, 1, 2).fixed(1).fixed(2);
  const auto kz = [&] { return length_factors(frame.model())[0].z.k; };
  EXPECT_NEAR(kz(), 0.5, 1e-9) << "clamped at both ends";
  frame.with(1, [](model::Element& element) { element.released[end_fy] = true; });
  EXPECT_NEAR(kz(), 1.0, 1e-9) << "clamped, and guided";
  frame.with(1, [](model::Element& element) { element.released[end_mz] = true; });
  EXPECT_NEAR(kz(), 2.0, 1e-9) << "clamped, and free";
  EXPECT_NEAR(length_factors(frame.model())[0].y.k, 0.5, 1e-9) << "across the other axis";
}

TEST(LengthFactors, AreOneWhenTheModelAsksForIt) {
  FrameBuilder frame = mast();
  frame.model().frame = model::FrameSettings{.length_factors = model::LengthFactors::one};
  const SegmentFactors factors = length_factors(frame.model())[0];
  EXPECT_EQ(factors.y.k, 1.0);
  EXPECT_EQ(factors.y.source, FactorSource::one);
}

TEST(LengthFactors, AreOneInAModelWithoutSupports) {
  FrameBuilder frame;
  frame.node(1, 0, 0, 0).node(2, 0, 0, 3).beam(1, 1, 2);
  const SegmentFactors factors = length_factors(frame.model())[0];
  EXPECT_EQ(factors.z.k, 1.0);
  EXPECT_EQ(factors.z.source, FactorSource::no_supports);
}

TEST(LengthFactors, TakeTheMemberTypeThatIsGiven) {
  FrameBuilder frame;
  frame.node(1, 0, 0, 0).node(2, 0, 0, 3).node(3, 3, 0, 3).beam(1, 1, 2).beam(2, 2, 3);
  frame.fixed(1).fixed(3);
  frame.with(1, [](model::Element& element) { element.member_type = model::MemberType::brace; });
  EXPECT_EQ(length_factors(frame.model())[0].y.source, FactorSource::non_sway);
}

TEST(LengthFactors, NameTheirSources) {
  EXPECT_EQ(name_of(FactorSource::given_element), "given (element)");
  EXPECT_EQ(name_of(FactorSource::no_supports), "no supports");
  EXPECT_EQ(name_of(FactorSource::cantilever), "cantilever");
}

}  // namespace
}  // namespace aluframe::members
