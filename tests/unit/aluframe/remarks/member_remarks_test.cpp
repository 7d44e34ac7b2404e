// Remarks on what holds members: length factors at their bound, frames without supports, ends that
// count as free.

#include "aluframe/remarks/concerned.h"
#include "remark_frames.h"

namespace aluframe::remarks {
namespace {

using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::SizeIs;

constexpr std::array<bool, 6> hinge{true, true, true, false, false, false};

/// Releases My and Mz at the end of an element.
void hinge_at_end(model::Element& element) {
  element.released[10] = element.released[11] = true;
}

// A column on hinges at both ends that may sway has no finite factor.
TEST(FactorAtBound, IsThatOfAColumnOnHingesThatMaySway) {
  Frame frame;
  frame.node(1, 0, 0).node(2, 0, 3).node(3, 5, 3).node(4, 5, 0);
  frame.beam(1, 1, 2).beam(2, 2, 3).beam(3, 3, 4).support(1, hinge).fixed(4);
  frame.with(1, hinge_at_end);
  const auto remarks = frame.remarks("S15");
  ASSERT_THAT(remarks, SizeIs(1));
  EXPECT_THAT(remarks[0].elements, ElementsAre(1));
  EXPECT_THAT(remarks[0].text, HasSubstr("bound of 10"));
  EXPECT_EQ(remarks[0].value, 10.0);
  frame.model().frame = model::FrameSettings{.braced_a = true, .braced_b = true};
  EXPECT_THAT(frame.remarks("S15"), IsEmpty());
}

TEST(FactorAtBound, IsNotThatOfAnOrdinaryPortal) {
  EXPECT_THAT(portal().remarks("S15"), IsEmpty());
}

TEST(FactorWithoutSupports, IsNamedForColumnsOnly) {
  Frame frame;
  frame.node(1, 0, 0).node(2, 0, 3).node(3, 5, 3).beam(1, 1, 2).beam(2, 2, 3);
  const auto remarks = frame.remarks("S15");
  ASSERT_THAT(remarks, SizeIs(1));
  EXPECT_THAT(remarks[0].elements, ElementsAre(1));
  EXPECT_THAT(remarks[0].text, HasSubstr("no supports"));
  frame.with(1, [](model::Element& element) {
    element.design.length_factors = model::ElementDesign::AxisPair{2.0, 2.0};
  });
  EXPECT_THAT(frame.remarks("S15"), IsEmpty());
}

TEST(FreeEnds, AreThoseWithinAFrameOfOpenSections) {
  const auto remarks = portal().remarks("S6");
  ASSERT_THAT(remarks, SizeIs(1));
  EXPECT_THAT(remarks[0].elements, ElementsAre(1, 2, 3));
}

TEST(FreeEnds, DoNotMatterToABox) {
  EXPECT_THAT(portal(Shape::box, box_20).remarks("S6"), IsEmpty());
}

TEST(FreeEnds, AreNoneBetweenSupports) {
  EXPECT_THAT(simple_beam().remarks("S6"), IsEmpty());
}

// A bare tip is free: the checks are right.
TEST(FreeEnds, AreNotThoseOfACantilever) {
  Frame frame;
  frame.node(1, 0, 0).node(2, 2, 0).beam(1, 1, 2).fixed(1);
  EXPECT_THAT(frame.remarks("S6"), IsEmpty());
}

// A support that holds rotations only leaves the node free; one that holds Dz holds the end.
TEST(FreeEnds, AreHeldBySupportsAgainstMovingOnly) {
  Frame frame;
  frame.node(1, 0, 0).node(2, 4, 0).node(3, 4, 3).beam(1, 1, 2).beam(2, 2, 3).fixed(1).fixed(3);
  Frame turning = frame;
  EXPECT_THAT(turning.support(2, {false, false, false, true, true, true}).remarks("S6"), SizeIs(1));
  Frame lying = frame;
  EXPECT_THAT(lying.support(2, {false, false, true, false, false, false}).remarks("S6"), IsEmpty());
}

TEST(FreeEnds, OfAMemberAreThoseOfItsChain) {
  Frame frame;
  frame.node(1, 0, 0).node(2, 2, 0).node(3, 4, 0).beam(1, 1, 2).beam(2, 2, 3).fixed(1).fixed(3);
  EXPECT_THAT(frame.remarks("S6"), SizeIs(1)) << "two elements, each ends at node 2";
  frame.model().members.add({.number = 9, .name = {}, .elements = {1, 2}, .length_factors = {}});
  EXPECT_THAT(frame.remarks("S6"), IsEmpty()) << "one member between supports";
}

TEST(FreeEnds, DoNotMatterWhereTheCoefficientIsGiven) {
  Frame frame = portal();
  for (const Number number : {1U, 2U, 3U}) {
    frame.with(number, [](model::Element& element) {
      element.design.stability_coefficients = model::ElementDesign::AxisPair{0.6, 0.9};
    });
  }
  EXPECT_THAT(frame.remarks("S6"), IsEmpty());
}

TEST(Concerned, NamesRangesAndCutsLongLists) {
  Concerned concerned;
  const auto add = [&](model::Number number) {
    model::Element element;
    element.number = number;
    concerned.add(element);
  };
  for (const model::Number number : {11, 1, 2, 5, 9, 7, 13}) add(number);
  EXPECT_EQ(concerned.named(), "elements 1-2, 5, 7, 9, 11, 13");
  add(15);
  add(16);
  EXPECT_EQ(concerned.named(), "elements 1-2, 5, 7, 9, 11, 13 and 2 more");
}

}  // namespace
}  // namespace aluframe::remarks
