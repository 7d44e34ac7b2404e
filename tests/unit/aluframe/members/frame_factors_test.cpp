// Factors of columns and beams in frames, by what restrains their ends.
//
// Expected factors: u·tan u = s for a member segment that sways and is hinged or free at one end, s
// = R·L/EI being the stiffness of its other end; K = π/u. Roots u of s = 1, 3, 4, 6:
// 0.860334, 1.192459, 1.264592, 1.349553 (that of 1: Abramowitz and Stegun, table 4.20; the others
// by bisection, apart from this code). Five digits of K follow from six of u.
#include <cmath>
#include <limits>
#include <numbers>

#include "aluframe/members/chart_equations.h"
#include "aluframe/members/length_factors.h"
#include "frames.h"

namespace aluframe::members {
namespace {

using model::Element;

constexpr double hinge = std::numeric_limits<double>::infinity();
constexpr double rounding = 2e-5;
/// Ratios of stiffness are exact but for the rounding of a few products.
constexpr double exact = 1e-9;

/// Factors of the member or lone element that an element belongs to.
SegmentFactors factors_of(FrameBuilder& frame, Number element) {
  for (SegmentFactors& factors : length_factors(frame.model())) {
    for (const Number number : factors.elements) {
      if (number == element) return factors;
    }
  }
  throw std::out_of_range("no such element");
}

/// Columns 1 and 2 of 3 m at X = 0 and 3 m, beam 3 between their heads.
FrameBuilder portal() {
  FrameBuilder frame;
  frame.node(1, 0, 0, 0).node(2, 0, 0, 3).node(3, 3, 0, 3).node(4, 3, 0, 0);
  return frame.beam(1, 1, 2).beam(2, 4, 3).beam(3, 2, 3);
}

FrameBuilder hinged_portal() {
  FrameBuilder frame = portal();
  return frame.hinged(1).hinged(4);
}

/// One column of 3 m.
FrameBuilder column() {
  FrameBuilder frame;
  return frame.node(1, 0, 0, 0).node(2, 0, 0, 3).beam(1, 1, 2);
}

// Timoshenko and Gere, 2.4: u·tan u = 6 for a beam like the columns.
TEST(Portal, OnHingesSways) {
  FrameBuilder frame = hinged_portal();
  const LengthFactor y = factors_of(frame, 1).y;
  EXPECT_EQ(y.source, FactorSource::sway);
  EXPECT_NEAR(y.k, 2.32787, rounding);
  EXPECT_NEAR(factors_of(frame, 2).y.k, 2.32787, rounding);
}

// Chajes, chapter 4: kL = 2.72, u/tan u = −6, by bisection 2.716460.
TEST(Portal, OnClampsSways) {
  FrameBuilder frame = portal();
  frame.fixed(1).fixed(4);
  EXPECT_NEAR(factors_of(frame, 1).y.k, 1.15650, rounding);
}

// Chajes, chapter 4: 12.9·EI/L²; u²/4 + (1 − u/tan u)/2 = 0, by bisection u = 3.590881.
TEST(Portal, ThatIsBracedBucklesWithoutSway) {
  FrameBuilder frame = hinged_portal();
  frame.braced(true, false);
  const LengthFactor y = factors_of(frame, 1).y;
  EXPECT_EQ(y.source, FactorSource::non_sway);
  EXPECT_NEAR(y.k, 0.87488, rounding);
}

TEST(Portal, IsNotHeldByBracingOfTheOtherDirection) {
  FrameBuilder frame = hinged_portal();
  frame.braced(false, true);
  EXPECT_EQ(factors_of(frame, 1).y.source, FactorSource::sway);
  EXPECT_EQ(factors_of(frame, 1).z.source, FactorSource::non_sway);
}

TEST(Portal, WithColumnsTurnedByARightAngleSwaysAboutTheirOtherAxis) {
  FrameBuilder frame = hinged_portal();
  frame.with(1, [](Element& column) { column.beta = 90; });
  EXPECT_NEAR(factors_of(frame, 1).z.k, 2.32787, rounding);
  frame.braced(true, false);
  EXPECT_NEAR(factors_of(frame, 1).z.k, 0.87488, rounding);
}

// cos²45° of the beam's stiffness acts about each of the column's axes.
TEST(Portal, RestrainsAColumnTurnedByHalfARightAngleHalfAsMuch) {
  FrameBuilder frame = hinged_portal();
  frame.with(1, [](Element& column) { column.beta = 45; });
  const SegmentFactors factors = factors_of(frame, 1);
  EXPECT_NEAR(factors.y.g[1], 2.0, exact);
  EXPECT_NEAR(factors.z.g[1], 2.0, exact);
}

// A beam twice as stiff as the columns about the axis that it bends about, five times about the
// other: half of what columns have, and a fifth of it for columns that bend the other way.
TEST(Portal, IsRestrainedByTheInertiaThatItsBeamBendsWith) {
  FrameBuilder frame = hinged_portal();
  model::Section section = *frame.model().sections.find(2);
  section.given.iyy = 2 * FrameBuilder::inertia;
  section.given.izz = 5 * FrameBuilder::inertia;
  frame.model().sections.replace(section);
  frame.with(3, [](Element& beam) { beam.section = 2; });
  EXPECT_NEAR(factors_of(frame, 1).y.g[1], 0.5, exact);
  frame.with(3, [](Element& beam) { beam.beta = 90; });
  EXPECT_NEAR(factors_of(frame, 1).y.g[1], 0.2, exact);
}

TEST(Bracing, OfOneDirectionDoesNotHoldAColumnTurnedBetweenThem) {
  for (const auto& [a, b] : {std::pair{true, false}, {false, true}, {true, true}}) {
    FrameBuilder frame = hinged_portal();
    frame.with(1, [](Element& column) { column.beta = 30; }).braced(a, b);
    EXPECT_EQ(factors_of(frame, 1).y.source, a && b ? FactorSource::non_sway : FactorSource::sway);
  }
}

// The beam of one bay is as stiff as the column of its height: G = 1. AISC 360-16, appendix 7.2:
// its stiffness counts times 1/2 or 2/3 with sway, times 3/2 or 2 without, when its far end is
// hinged or fixed.
TEST(Beam, CountsByItsFarEnd) {
  struct Case {
    bool is_hinged, is_braced;
    double g;
  };
  for (const auto& [is_hinged, is_braced, g] :
       {Case{true, false, 2.0}, Case{false, false, 1.5}, Case{true, true, 2.0 / 3},
        Case{false, true, 0.5}}) {
    FrameBuilder frame = hinged_portal();
    frame.braced(is_braced, is_braced);
    if (is_hinged) {
      frame.release(3, {my_end});
    } else {
      frame.fixed(3);
    }
    EXPECT_NEAR(factors_of(frame, 1).y.g[1], g, exact) << is_hinged << is_braced;
  }
}

// With sway and a hinge at the far end R = 3·EI/L.
TEST(Beam, WithAHingeAtItsFarEndLeavesThePortalSofter) {
  FrameBuilder frame = hinged_portal();
  frame.release(3, {my_end});
  EXPECT_NEAR(factors_of(frame, 1).y.k, std::numbers::pi / 1.192459, rounding);
}

TEST(Beam, ThatIsReleasedAtTheColumnDoesNotHoldIt) {
  FrameBuilder frame = hinged_portal();
  frame.release(3, {my_start});
  EXPECT_EQ(factors_of(frame, 1).y.g[1], hinge);
  EXPECT_EQ(factors_of(frame, 1).y.k, largest_factor);
}

TEST(Beam, ThatIsFreeAtItsOtherEndDoesNotHoldAColumn) {
  FrameBuilder frame = column();
  frame.node(3, 1, 0, 3).beam(2, 2, 3).hinged(1);
  EXPECT_EQ(factors_of(frame, 1).y.g[1], hinge);
}

TEST(Beam, RunningAcrossAColumnHoldsItOnBothSides) {
  FrameBuilder frame = hinged_portal();
  // On the other side of column 1 twice the length, in a member with the first: 1/3 + 1/6 against
  // 1/3.
  frame.node(5, -6, 0, 3).beam(4, 5, 2).hinged(5);
  frame.member({.number = 1, .name = {}, .elements = {4, 3}, .length_factors = {}});
  const double resisting = 6.0 / 3 + 3.0 / 6;  // EI/m, the far end at node 5 is a hinge
  EXPECT_NEAR(factors_of(frame, 1).y.g[1], 6.0 / 3 / resisting, exact);
}

TEST(Truss, HoldsNoRotationAndHasFactorsOfOne) {
  FrameBuilder frame = hinged_portal();
  frame.node(5, 3, 0, 1).truss(4, 2, 5);
  EXPECT_NEAR(factors_of(frame, 1).y.g[1], 1.0, exact);
  EXPECT_EQ(factors_of(frame, 4).y.source, FactorSource::truss);
  EXPECT_EQ(factors_of(frame, 4).z.k, 1.0);
}

// Two storeys of 3 m: the lower joints carry two columns.
TEST(Column, SharesTheRestraintWithTheOneAbove) {
  FrameBuilder frame = hinged_portal();
  frame.node(5, 0, 0, 6).beam(4, 2, 5).node(6, 3, 0, 6).beam(5, 5, 6).beam(6, 3, 6);
  EXPECT_NEAR(factors_of(frame, 1).y.g[1], 2.0, exact);
  EXPECT_NEAR(factors_of(frame, 4).y.g[0], 2.0, exact);
  EXPECT_NEAR(factors_of(frame, 4).y.g[1], 1.0, exact) << "its own beam, no column above";
}

TEST(Column, OfSeveralElementsCountsWithItsWholeLength) {
  FrameBuilder frame = portal();
  frame.hinged(4).node(5, 0, 0, -3).hinged(5).beam(4, 5, 1);
  frame.member({.number = 1, .name = {}, .elements = {4, 1}, .length_factors = {}});
  const SegmentFactors factors = factors_of(frame, 1);
  EXPECT_NEAR(factors.length, 6000.0, exact);
  EXPECT_NEAR(factors.y.g[1], 0.5, exact) << "EI/6 m over EI/3 m";
  EXPECT_EQ(factors.y.g[0], hinge);
}

TEST(Column, ThatIsReleasedAboutAnAxisIsHingedAboutItOnly) {
  FrameBuilder frame = portal();
  frame.fixed(1).fixed(4).release(1, {my_start});
  EXPECT_EQ(factors_of(frame, 1).y.g[0], hinge);
  EXPECT_EQ(factors_of(frame, 1).z.g[0], 0.0);
}

TEST(Column, BucklesTogetherWithTheOneAboveUnlessAHingePartsThem) {
  FrameBuilder frame = column();
  frame.node(3, 0, 0, 5).beam(2, 2, 3).hinged(1);
  frame.support(3, {true, true, false, false, false, false});
  EXPECT_NEAR(factors_of(frame, 1).y.k, 5.0 / 3, exact) << "one half wave over 5 m";
  frame.release(1, {my_end});
  EXPECT_EQ(factors_of(frame, 1).y.k, largest_factor) << "nothing holds the hinge at its head";
}

TEST(Column, BetweenTwoHeldHingesDoesNotSway) {
  FrameBuilder frame = column();
  frame.hinged(1).support(2, {true, true, false, false, false, false});
  EXPECT_EQ(factors_of(frame, 1).y.source, FactorSource::non_sway);
  EXPECT_EQ(factors_of(frame, 1).y.k, 1.0);
}

TEST(Column, FixedAtBothEndsHasHalfItsLength) {
  FrameBuilder frame = column();
  frame.fixed(1).fixed(2);
  EXPECT_NEAR(factors_of(frame, 1).y.k, 0.5, exact);
}

TEST(Cantilever, HasTwiceItsLength) {
  FrameBuilder frame = column();
  frame.fixed(1).braced(true, true);
  const SegmentFactors factors = factors_of(frame, 1);
  EXPECT_EQ(factors.y.source, FactorSource::cantilever);
  EXPECT_NEAR(factors.y.k, 2.0, exact);
  EXPECT_NEAR(factors.z.k, 2.0, exact);
}

TEST(Cantilever, IsOneOnlyAboutTheAxisThatItsTipMovesAbout) {
  FrameBuilder frame = column();
  frame.fixed(1).support(2, {false, true, false, false, false, false});
  EXPECT_EQ(factors_of(frame, 1).y.source, FactorSource::cantilever);
  EXPECT_EQ(factors_of(frame, 1).z.source, FactorSource::non_sway) << "held along Y";
}

// Two elements of 3 m and 2 m, in no member together: the mast of 5 m buckles as one.
TEST(Cantilever, OfTwoSectionsBucklesAsOne) {
  FrameBuilder frame = column();
  frame.node(3, 0, 0, 5).beam(2, 2, 3).fixed(1);
  frame.with(2, [](Element& upper) { upper.section = 2; });
  EXPECT_NEAR(factors_of(frame, 1).y.k, 2.0 * 5 / 3, exact);
  EXPECT_NEAR(factors_of(frame, 2).y.k, 2.0 * 5 / 2, exact);
}

TEST(Column, BucklesAsOneInThePlaneInWhichNothingHoldsItsMiddle) {
  FrameBuilder frame = column();
  frame.node(3, 0, 0, 5).beam(2, 2, 3).hinged(1).hinged(3);
  frame.support(2, {false, true, false, false, false, false});
  EXPECT_NEAR(factors_of(frame, 1).y.k, 5.0 / 3, exact) << "along X";
  EXPECT_NEAR(factors_of(frame, 1).z.k, 1.0, exact) << "along Y";
}

// Two storeys of 3 m, clamped at the foot, with a beam along X at half height: in the plane Y-Z
// nothing holds the middle, and the column is a mast of 6 m.
TEST(Column, GoesOnPastABeamSquareToThePlaneInWhichItSways) {
  FrameBuilder frame = column();
  frame.node(3, 0, 0, 6).beam(2, 2, 3).fixed(1).node(4, 3, 0, 3).beam(3, 2, 4).hinged(4);
  EXPECT_NEAR(factors_of(frame, 1).z.k, 2.0 * 6 / 3, exact);
  EXPECT_NEAR(factors_of(frame, 2).z.k, 2.0 * 6 / 3, exact);
}

TEST(Column, IsHeldAtABeamSquareToThePlaneOfItsBracing) {
  FrameBuilder frame = column();
  frame.node(3, 0, 0, 6).beam(2, 2, 3).fixed(1).node(4, 3, 0, 3).beam(3, 2, 4).hinged(4);
  frame.support(3, {true, true, false, false, false, false}).braced(true, true);
  EXPECT_NEAR(factors_of(frame, 2).z.k, 1.0, exact) << "hinged at 3 m and at its top";
}

TEST(Column, EndsAtAHingeWithinItsLine) {
  FrameBuilder frame = column();
  frame.node(3, 0, 0, 5).beam(2, 2, 3).fixed(1).hinged(3).braced(true, true);
  frame.release(2, {my_start});
  EXPECT_EQ(factors_of(frame, 1).y.g[1], hinge);
  EXPECT_EQ(factors_of(frame, 2).y.k, 1.0);
}

TEST(Cantilever, IsOneWithASignAtItsTip) {
  FrameBuilder frame;
  frame.node(1, 0, 0, 3).node(2, 3, 0, 3).beam(1, 1, 2).fixed(1);
  // The sign: a closed square under the tip.
  frame.node(3, 3, 0, 2).node(4, 3, 1, 2).node(5, 3, 1, 3);
  frame.beam(2, 2, 3).beam(3, 3, 4).beam(4, 4, 5).beam(5, 5, 2);
  const SegmentFactors factors = factors_of(frame, 1);
  EXPECT_EQ(factors.y.source, FactorSource::cantilever);
  EXPECT_NEAR(factors.y.k, 2.0, exact);
  EXPECT_NEAR(factors.z.k, 2.0, exact);
}

TEST(Cantilever, IsNoneWhereASecondWayLeadsToASupport) {
  FrameBuilder frame;
  frame.node(1, 0, 0, 3).node(2, 3, 0, 3).beam(1, 1, 2).fixed(1);
  frame.node(3, 3, 2, 3).node(4, 3, 4, 3).beam(2, 2, 3).beam(3, 3, 4).hinged(4);
  EXPECT_EQ(factors_of(frame, 1).y.source, FactorSource::non_sway);
}

TEST(Cantilever, IsNoColumnOfABracedFrame) {
  FrameBuilder frame = column();
  frame.fixed(1).node(3, 1, 0, 3).beam(2, 2, 3);
  EXPECT_EQ(factors_of(frame, 1).y.source, FactorSource::cantilever);
  frame.braced(true, true);
  EXPECT_EQ(factors_of(frame, 1).y.source, FactorSource::non_sway);
}

// A tip that moves but does not turn: the sway mode between clamps.
TEST(Cantilever, WithAGuidedTipHasItsLength) {
  FrameBuilder frame = column();
  frame.fixed(1).support(2, {false, false, false, true, true, true});
  EXPECT_NEAR(factors_of(frame, 1).y.k, 1.0, exact);
}

// A spring of EI/L: u·tan u = 1.
TEST(Cantilever, OnASpringFollowsItsStiffness) {
  FrameBuilder frame = column();
  const double stiffness = FrameBuilder::e * FrameBuilder::inertia / 3000.0;
  frame.support(1, {true, true, true, false, false, true}, {0, 0, 0, 0, stiffness, 0});
  EXPECT_NEAR(factors_of(frame, 1).y.k, std::numbers::pi / 0.860334, rounding);
  EXPECT_EQ(factors_of(frame, 1).z.k, largest_factor) << "hinged about X";
}

// An overhang of 1 m behind a span of 3 m on two supports, which resists with 3·EI/(3 m).
TEST(Cantilever, IsHeldByTheSpanBehindIt) {
  FrameBuilder frame;
  frame.node(1, 0, 0, 3).node(2, 3, 0, 3).node(3, 4, 0, 3).beam(1, 1, 2).beam(2, 2, 3);
  frame.hinged(1).hinged(2);
  EXPECT_NEAR(factors_of(frame, 2).y.k, std::numbers::pi / 0.860334, rounding);
  EXPECT_EQ(factors_of(frame, 1).y.k, 1.0);
}

/// A trestle of 3 m on hinged feet, whose legs lean inwards by `lean` m.
FrameBuilder trestle(double lean) {
  FrameBuilder frame;
  frame.node(1, 0, 0, 0).node(2, lean, 0, 3).node(3, 5 - lean, 0, 3).node(4, 5, 0, 0);
  return frame.hinged(1).hinged(4).beam(1, 1, 2).beam(2, 4, 3).beam(3, 2, 3);
}

// 12° of lean: the beam, which turns at both ends alike, counts with 6·EI/L.
TEST(Leg, SwaysAsAColumnDoes) {
  FrameBuilder frame = trestle(0.64);
  const LengthFactor y = factors_of(frame, 1).y;
  EXPECT_EQ(y.source, FactorSource::sway);
  EXPECT_NEAR(y.g[1], (5 - 2 * 0.64) / std::hypot(0.64, 3), exact);
}

TEST(Leg, IsHeldByBracing) {
  FrameBuilder frame = trestle(0.64);
  frame.braced(true, true);
  EXPECT_EQ(factors_of(frame, 1).y.source, FactorSource::non_sway);
}

TEST(Leg, ThatLeansByMoreThanThirtyDegreesIsHeld) {
  FrameBuilder frame = trestle(1.8);
  EXPECT_EQ(factors_of(frame, 1).y.source, FactorSource::non_sway);
}

TEST(Leg, IsNoneWhenItIsADiagonalOnHinges) {
  FrameBuilder frame = trestle(0.64);
  frame.release(1, {my_start, my_end});
  EXPECT_EQ(factors_of(frame, 1).y.k, 1.0);
}

TEST(Leg, IsNoneWhenTheModelCallsItABrace) {
  FrameBuilder frame = trestle(0.64);
  frame.with(1, [](Element& leg) { leg.member_type = model::MemberType::brace; });
  EXPECT_EQ(factors_of(frame, 1).y.source, FactorSource::non_sway);
}

// The roller leaves the beam's end free along X, but there the beam would have to change its
// length.
TEST(SlopingBeam, IsHeldByARollerAtItsEnd) {
  FrameBuilder frame;
  frame.node(1, 0, 0, 0).node(2, 4, 0, 2).beam(1, 1, 2);
  frame.hinged(1).support(2, {false, true, true, false, false, false});
  EXPECT_EQ(factors_of(frame, 1).y.source, FactorSource::non_sway);
}

}  // namespace
}  // namespace aluframe::members
