#include "aluframe/members/axes_remarks.h"

#include "aluframe/members/find_members.h"
#include "frames.h"

namespace aluframe::members {
namespace {

using testing::IsEmpty;
using testing::SizeIs;

/// A column of 3 m whose top is out of plumb by some mm along Y.
FrameBuilder column(double lean) {
  FrameBuilder frame;
  frame.node(1, 0, 0, 0).node(2, 0, lean / 1e3, 3).beam(7, 1, 2);
  return frame;
}

TEST(AxesRemarks, NamesAColumnThatCountsAsVerticalWithoutBeingSo) {
  FrameBuilder frame = column(0.003);
  const std::vector<AxesRemark> remarks = axes_remarks(frame.model());
  ASSERT_THAT(remarks, SizeIs(1));
  EXPECT_EQ(remarks[0].element, 7U);
  EXPECT_EQ(
      remarks[0].text,
      "its axis leaves the vertical by 0.003 mm in 3000 mm, less than 0.001 of its length: it "
      "counts as vertical, with y along global Y");
}

TEST(AxesRemarks, IsSilentForAPlumbColumnAndForOneThatIsNotVertical) {
  for (const double lean : {0.0, 1e-9, 3.1, 3000.0}) {
    FrameBuilder frame = column(lean);
    EXPECT_THAT(axes_remarks(frame.model()), IsEmpty()) << lean;
  }
}

TEST(AxesRemarks, IsSilentWhereTheLimitDecidesNothing) {
  FrameBuilder oriented = column(0.003);
  oriented.with(7, [](model::Element& e) { e.orientation = std::array{1.0, 0.0, 0.0}; });
  EXPECT_THAT(axes_remarks(oriented.model()), IsEmpty());
  FrameBuilder truss = column(0.003);
  truss.with(7, [](model::Element& e) { e.kind = model::ElementKind::truss; });
  EXPECT_THAT(axes_remarks(truss.model()), IsEmpty());
}

/// turned_by of the plumb column, whose z is −X and whose y is Y without beta.
double turned_column(model::Orientation orientation, double beta) {
  FrameBuilder frame = column(0);
  frame.with(7, [&](model::Element& e) {
    e.orientation = orientation;
    e.beta = beta;
  });
  return turned_by(frame.model(), *frame.model().elements.find(7));
}

TEST(TurnedBy, IsBetaWithoutAnOrientation) {
  FrameBuilder frame = column(0);
  frame.with(7, [](model::Element& e) { e.beta = 450.0; });
  EXPECT_EQ(turned_by(frame.model(), *frame.model().elements.find(7)), 450.0);
}

TEST(TurnedBy, IsTheBetaThatStandsForAnOrientation) {
  // Beta turns z from −X towards −Y: right-handed about Z, from z to −y.
  EXPECT_NEAR(turned_column(std::array{-2.0, 0.0, 9.0}, 0), 0.0, 1e-12);
  EXPECT_NEAR(turned_column(std::array{0.0, -1.0, 0.0}, 0), 90.0, 1e-12);
  EXPECT_NEAR(turned_column(std::array{0.0, 1.0, 0.0}, 0), -90.0, 1e-12);
  EXPECT_NEAR(turned_column(std::array{0.0, -1.0, 0.0}, 30), 120.0, 1e-12);
}

TEST(FindMembers, JoinsElementsHoweverTheyStand) {
  // Upright, z along −X by the rule for columns, and by a vector; then along Y.
  const auto chains = [](std::array<double, 3> vector) {
    FrameBuilder frame;
    frame.node(1, 0, 0, 0).node(2, 0, 0, 3).node(3, 0, 0, 6).beam(1, 1, 2).beam(2, 2, 3);
    frame.with(2, [&](model::Element& e) { e.orientation = vector; });
    return find_members(frame.model());
  };
  EXPECT_THAT(chains({-1.0, 0.0, 0.4}), SizeIs(1));
  EXPECT_THAT(chains({0.0, 1.0, 0.0}), SizeIs(1));
}

}  // namespace
}  // namespace aluframe::members
