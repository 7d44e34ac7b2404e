// What holds the head of a column in portals whose beam is more than one plain bar between two
// columns.
//
// The column, 3 m, stands on a hinge and sways; all elements have the same EI. Its head is held by
// R = 6·EI/L of a bar that ends in a column which turns along, and 3·EI/L of one that does not
// (slope deflection: M = 4·EI/L·θ + 2·EI/L·θ', with θ' = θ, or with θ' such that the far moment is
// 0). So a bar of 3 m gives G = 1 and G = 2.
#include <numbers>
#include <stdexcept>

#include "aluframe/members/length_factors.h"
#include "frames.h"

namespace aluframe::members {
namespace {

constexpr double exact = 1e-9;  // ratios, but for the rounding of a few products

/// G at the head of column 1, buckling in the plane X-Z.
double head_ratio(FrameBuilder& frame) {
  for (const SegmentFactors& factors : length_factors(frame.model())) {
    if (factors.elements.front() == 1) return factors.y.g[1];
  }
  throw std::out_of_range("no element 1");
}

/// Column 1 on a hinge, its head node 2 at (0, 0, 3 m).
FrameBuilder column() {
  FrameBuilder frame;
  return frame.node(1, 0, 0, 0).node(2, 0, 0, 3).beam(1, 1, 2).hinged(1);
}

/// And column 2 at X = 3 m with the head node 4.
FrameBuilder two_columns() {
  FrameBuilder frame = column();
  return frame.node(3, 3, 0, 0).node(4, 3, 0, 3).beam(2, 3, 4).hinged(3);
}

// Nodes at 0.5 m and 2.5 m, as at haunches.
FrameBuilder portal_in_pieces() {
  FrameBuilder frame = two_columns();
  frame.node(5, 0.5, 0, 3).node(6, 2.5, 0, 3);
  return frame.beam(3, 2, 5).beam(4, 5, 6).beam(5, 6, 4);
}

TEST(RestrainingBar, OfSeveralElementsIsAsSoftAsOne) {
  FrameBuilder frame = portal_in_pieces();
  EXPECT_NEAR(head_ratio(frame), 1.0, exact);
}

// L/EI = (0.5/2 + 2 + 0.5/2)/EI for 3 m.
TEST(RestrainingBar, WithStifferEndsAddsUpItsPieces) {
  FrameBuilder frame = portal_in_pieces();
  model::Section haunch = *frame.model().sections.find(2);
  haunch.given.iyy = haunch.given.izz = 2.0 * FrameBuilder::inertia;
  frame.model().sections.replace(haunch);
  for (const Number number : {3U, 5U}) {
    frame.with(number, [](model::Element& element) { element.section = 2; });
  }
  EXPECT_NEAR(head_ratio(frame), 2.5 / 3.0, exact);
}

TEST(RestrainingBar, GoesOnPastSecondaryBeams) {
  FrameBuilder frame = portal_in_pieces();
  frame.node(7, 0.5, 4, 3).beam(6, 5, 7).fixed(7);
  EXPECT_NEAR(head_ratio(frame), 1.0, exact) << "which could only twist";
}

// As in a plane model: held along Y, and against turning out of its plane.
TEST(RestrainingBar, GoesOnPastSupportsThatHoldItSidewaysOnly) {
  FrameBuilder frame = portal_in_pieces();
  for (const Number node : {5U, 6U}) {
    frame.support(node, {false, true, false, true, false, true});
  }
  EXPECT_NEAR(head_ratio(frame), 1.0, exact);
}

TEST(RestrainingBar, EndsAtASpringInItsPlane) {
  FrameBuilder frame = portal_in_pieces();
  frame.support(5, {}, {0, 0, 100, 0, 0, 0});
  EXPECT_NEAR(head_ratio(frame), 2.0 * 0.5 / 3.0, exact) << "3·EI/L of 0.5 m";
}

TEST(RestrainingBar, EndsAtASupport) {
  FrameBuilder frame = portal_in_pieces();
  frame.support(5, {false, false, true, false, false, false});
  EXPECT_NEAR(head_ratio(frame), 2.0 * 0.5 / 3.0, exact) << "3·EI/L of 0.5 m";
}

// Rafters of 3 m. The frame sways antisymmetrically, so the ridge has no moment: R = 3·EI/(3 m) and
// u·tan u = 3, u = 1.192459 by bisection, apart from this code.
TEST(RestrainingBar, RunsOverTheRidgeOfAGableFrame) {
  FrameBuilder frame = column();
  frame.node(5, 2.4, 0, 4.8).node(4, 4.8, 0, 3).node(3, 4.8, 0, 0).hinged(3);
  frame.beam(2, 3, 4).beam(3, 2, 5).beam(4, 5, 4);
  frame.node(6, 2.4, 4, 4.8).beam(5, 5, 6).hinged(6);  // a ridge purlin changes nothing
  EXPECT_NEAR(head_ratio(frame), 2.0, exact);
  EXPECT_NEAR(length_factors(frame.model()).front().y.k, std::numbers::pi / 1.192459, 2e-5);
}

TEST(RestrainingBar, ThatAGirderCarriesAtItsFarEndIsHingedThere) {
  FrameBuilder frame = column();
  frame.node(4, 3, 0, 3).beam(2, 2, 4);
  frame.node(5, 3, -2, 3).node(6, 3, 2, 3).beam(3, 5, 4).beam(4, 4, 6).fixed(5).fixed(6);
  EXPECT_NEAR(head_ratio(frame), 2.0, exact);
}

TEST(RestrainingBar, WhoseFarColumnIsReleasedAboutItsAxisIsHingedThere) {
  FrameBuilder frame = two_columns();
  frame.beam(3, 2, 4).release(2, {my_end});
  EXPECT_NEAR(head_ratio(frame), 2.0, exact);
}

TEST(RestrainingBar, IsNotHeldByAnOverhangBehindAHingedColumn) {
  FrameBuilder frame = two_columns();
  frame.beam(3, 2, 4).release(2, {my_end, mz_end}).node(5, 4, 0, 3).beam(4, 4, 5);
  EXPECT_NEAR(head_ratio(frame), 2.0, exact);
}

// Two bays over a hinged column in the middle, by symmetry about the middle: with θ at the heads,
// -θ/2 at the middle and so 4·EI/L·θ - 2·EI/L·θ/2 = 3·EI/L·θ.
TEST(RestrainingBar, OverAHingedColumnDoesNotTurnAlong) {
  FrameBuilder frame = two_columns();
  frame.node(5, 6, 0, 3).node(6, 6, 0, 0).beam(3, 2, 4).beam(4, 4, 5).beam(5, 6, 5).hinged(6);
  frame.release(2, {my_end, mz_end});
  EXPECT_NEAR(head_ratio(frame), 2.0, exact);
}

TEST(RestrainingBar, OfAColumnEndsWhereABeamHoldsIt) {
  FrameBuilder frame = two_columns();
  frame.beam(3, 2, 4).braced(true, true);
  // Beam 3: at its start column 1 of 3 m on a hinge, 3·EI/L against 2·EI/L.
  for (const SegmentFactors& factors : length_factors(frame.model())) {
    if (factors.elements.front() == 3) {
      EXPECT_NEAR(factors.y.g[0], 2.0 / 3.0, exact);
    }
  }
}

TEST(RestrainingBar, InARingComesToAnEnd) {
  FrameBuilder frame;
  frame.node(1, 0, 0, 3).node(2, 3, 0, 3).node(3, 3, 3, 3).node(4, 0, 3, 3);
  frame.beam(1, 1, 2).beam(2, 2, 3).beam(3, 3, 4).beam(4, 4, 1);
  frame.node(5, 9, 0, 0).node(6, 9, 0, 3).beam(5, 5, 6).fixed(5);  // so that there is a support
  EXPECT_EQ(length_factors(frame.model()).size(), 5U);
}

}  // namespace
}  // namespace aluframe::members
