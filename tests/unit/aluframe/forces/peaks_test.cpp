// Places between the five positions, against closed forms of statics, for every kind of load.

#include "tests/unit/aluframe/forces/peaks.h"

namespace aluframe::forces {
namespace {

using Kind = model::PointLoad::Kind;
using testing::IsEmpty;

constexpr double span = 4000.0, q = 3.0, force = 9000.0, moment = 8e6;

TEST(PeakUnderAPointForce, IsItsPlaceWithTheShearForcesOfBothSides) {
  // P·a·b/L; shear P·b/L before and -P·a/L after.
  const auto places = peaks_under(simple_beam(span), point(Kind::force, 2, -force, 0.375));
  ASSERT_EQ(places.size(), 2U);
  for (const PlaceForces& place : places) {
    EXPECT_DOUBLE_EQ(place.fraction, 0.375);
    expect_place(place, 1500, my, force * 1500 * 2500 / span);
  }
  expect_place(places[0], 1500, fz, force * 0.625);
  expect_place(places[1], 1500, fz, -force * 0.375);
}

TEST(PeakUnderAPointForce, AtAPositionIsTheSideTowardsTheEnd) {
  const auto places = peaks_under(simple_beam(span), point(Kind::force, 2, -force, 0.5));
  ASSERT_EQ(places.size(), 1U);
  expect_place(places[0], 2000, fz, -force / 2);
}

TEST(PeakUnderAPointForce, AlongTheFlangesIsOfMz) {
  const auto places = peaks_under(simple_beam(span), point(Kind::force, 1, force, 0.375));
  ASSERT_EQ(places.size(), 2U);
  expect_place(places[0], 1500, mz, -force * 1500 * 2500 / span);
  expect_place(places[1], 1500, fy, force * 0.375);
}

TEST(PeakUnderAPointForce, AlongTheAxisIsOfN) {
  // Clamped at both ends: P·b/L of tension before, P·a/L of compression after.
  const auto places = peaks_under(clamped_beam(span), point(Kind::force, 0, force, 0.3));
  ASSERT_EQ(places.size(), 2U);
  expect_place(places[0], 1200, n, force * 0.7);
  expect_place(places[1], 1200, n, -force * 0.3);
}

TEST(PeakUnderAPointMoment, IsBothSidesOfItsJump) {
  // Simple beam: -M·a/L before and M·b/L after.
  const auto places = peaks_under(simple_beam(span), point(Kind::moment, 1, moment, 0.3));
  ASSERT_EQ(places.size(), 2U);
  expect_place(places[0], 1200, my, -moment * 0.3);
  expect_place(places[1], 1200, my, moment * 0.7);
}

TEST(PeakUnderAPointMoment, AboutZHasTheSignOfMz) {
  // Mz compresses the fibres at y > 0; a moment about +z does the opposite behind it.
  const auto places = peaks_under(simple_beam(span), point(Kind::moment, 2, moment, 0.3));
  ASSERT_EQ(places.size(), 2U);
  expect_place(places[0], 1200, mz, moment * 0.3);
  expect_place(places[1], 1200, mz, -moment * 0.7);
}

TEST(PeakUnderAPointMoment, AboutTheAxisIsOfMx) {
  const auto places = peaks_under(clamped_beam(span), point(Kind::moment, 0, moment, 0.3));
  ASSERT_EQ(places.size(), 2U);
  expect_place(places[0], 1200, mx, moment * 0.7);
  expect_place(places[1], 1200, mx, -moment * 0.3);
}

TEST(PeakUnderAPointMoment, AtTheStartIsTheSideInTheElement) {
  // The support takes no moment, so the whole of it is in the beam right behind the start.
  const auto places = peaks_under(simple_beam(span), point(Kind::moment, 1, moment, 0.0));
  ASSERT_EQ(places.size(), 1U);
  expect_place(places[0], 0, my, moment);
}

TEST(PeakUnderAPointMoment, AtTheEndIsTheSideInTheElement) {
  const auto places = peaks_under(simple_beam(span), point(Kind::moment, 1, moment, 1.0));
  ASSERT_EQ(places.size(), 1U);
  expect_place(places[0], span, my, -moment);
}

TEST(PeakUnderAUniformLoad, OfASimpleBeamIsAtAPosition) {
  EXPECT_THAT(peaks_under(simple_beam(span), only(partial(2, 0, 1, -q, -q))), IsEmpty());
}

TEST(PeakUnderAUniformLoad, OfACantileverIsAtAPosition) {
  model::Model model = straight_beam(span);
  add_support(model, 20, clamped);
  EXPECT_THAT(peaks_under(model, only(partial(2, 0, 1, -q, -q))), IsEmpty());
}

TEST(PeakUnderAUniformLoad, OfAProppedBeamIsNoWorseThanItsClamp) {
  // 9·q·L²/128 at 5/8 of the span against q·L²/8 of the other sign at the clamp.
  const auto places = peaks_under(propped_beam(span), only(partial(2, 0, 1, -q, -q)));
  ASSERT_EQ(places.size(), 1U);
  expect_place(places[0], 2500, my, 9 * q * span * span / 128);
  EXPECT_NEAR(places[0].forces[fz], 0.0, 1e-6 * q * span);
}

TEST(PeakUnderAUniformLoad, WithAnEndMomentIsWhereTheShearForceVanishes) {
  // V0 = q·L/2 - M/L, the peak at V0/q.
  model::CaseLoads loads = only(partial(2, 0, 1, -q, -q));
  loads.nodal.push_back({{false, {20}}, {0, 0, 0, 0, moment / 4, 0}});
  const double shear = q * span / 2 - moment / 4 / span, at = shear / q;
  const auto places = peaks_under(simple_beam(span), loads);
  ASSERT_EQ(places.size(), 1U);
  expect_place(places[0], at, my, moment / 4 + shear * at / 2);
}

TEST(PeakUnderAPartialLoad, IsWhereTheShearForceVanishes) {
  // q from a to b: R = q·(b - a)·(L - (a + b)/2)/L, the peak R·(a + R/(2·q)) at a + R/q.
  const double a = 800, b = 1800, r = q * (b - a) * (span - (a + b) / 2) / span;
  const auto places = peaks_under(simple_beam(span), only(partial(2, 0.2, 0.45, -q, -q)));
  ASSERT_EQ(places.size(), 1U);
  expect_place(places[0], a + r / q, my, r * (a + r / (2 * q)));
}

TEST(PeakUnderATriangularLoad, IsAtTheSpanOverTheRootOfThree) {
  const auto places = peaks_under(simple_beam(span), only(partial(2, 0, 1, 0, -q)));
  ASSERT_EQ(places.size(), 1U);
  expect_place(places[0], span / std::sqrt(3.0), my, q * span * span / (9 * std::sqrt(3.0)));
}

TEST(PeakUnderAPartialLinearLoad, IsARootOfTheShearForce) {
  // From q to 4q between a = 0.1 L and a + c = 0.9 L; R from moments about the end, and
  // R = q·t + 3·q·t²/(2·c) at the peak, t from a.
  const double a = 0.1 * span, c = 0.8 * span;
  const double r = (q * c * (span - a - c / 2) + 1.5 * q * c * (span - a - 2 * c / 3)) / span;
  const double t = (-q + std::sqrt(q * q + 6 * q * r / c)) * c / (3 * q);
  const double peak = r * (a + t) - q * t * t / 2 - 3 * q * t * t * t / (6 * c);
  const auto places = peaks_under(simple_beam(span), only(partial(2, 0.1, 0.9, -q, -4 * q)));
  ASSERT_EQ(places.size(), 1U);
  expect_place(places[0], a + t, my, peak);
}

TEST(PeakOfAForceUnderDistributedLoads, IsWhereTheirSignChanges) {
  // Along the axis of a beam that is free to move at its end: q to 0.4 L, then -2q.
  model::CaseLoads loads = only(partial(0, 0, 0.4, -q, -q));
  loads.span.push_back(partial(0, 0.4, 1, 2 * q, 2 * q));
  const auto places = peaks_under(simple_beam(span), loads);
  ASSERT_EQ(places.size(), 1U);
  expect_place(places[0], 1600, n, 1.2 * q * span);
}

TEST(PeakOfAForceUnderALinearLoad, IsWhereTheLoadVanishes) {
  // From -q to 2q along the axis, zero at L/3; N there is the load behind it, 2q over 2/3·L.
  const auto places = peaks_under(simple_beam(span), only(partial(0, 0, 1, -q, 2 * q)));
  ASSERT_EQ(places.size(), 1U);
  expect_place(places[0], span / 3, n, 2 * q * span / 3);
}

TEST(PeakOfAWeightedSum, IsWhereTheGrowthOfItsPartsCancels) {
  // My = q·x·(L - x)/2, Mz from m at the start to 0: a·My + b·Mz has its extreme at
  // L/2 - b·m/(a·q·L), and a·My - b·Mz as far on the other side.
  model::CaseLoads loads = only(partial(2, 0, 1, -q, -q));
  const double m = 5e5;
  loads.nodal.push_back({{false, {20}}, {0, 0, 0, 0, 0, -m}});
  const Weights weights{.n = 1.0 / 2000, .my = 1.0 / 1e5, .mz = 1.0 / 3e4};
  const double off = weights.mz * m / (weights.my * q * span);
  const auto places = peaks_under(simple_beam(span), loads, {weights});
  ASSERT_EQ(places.size(), 2U);
  expect_place(places[0], span / 2 - off, my, q * (span * span / 4 - off * off) / 2);
  expect_place(places[0], span / 2 - off, mz, m * (0.5 + off / span));
  expect_place(places[1], span / 2 + off, mz, m * (0.5 - off / span));
}

TEST(PeakOfAWeightedSum, CountsTheAxialForceOfAnInclinedElement) {
  // A rafter of 3000 by 4000 on a pin and a roller under snow s per plan length: along the
  // element w = s·0.6 vertically, so 0.48·s... of it along the axis and the rest across.
  model::Model model = bare_model();
  add_node(model, 20, 0, 0, 0);
  add_node(model, 10, 4000, 0, 3000);
  model.elements.add(beam(5, 20, 10));
  add_support(model, 20, {true, true, true, true, false, true});
  add_support(model, 10, {false, true, true, false, false, false});
  model::CaseLoads loads;
  model::SpanLoad snow = uniform({model::LoadAxes::projected, 2}, -q);
  loads.span.push_back(snow);
  // Per length of the element 0.8·q downwards, across it 0.64·q, along it -0.48·q; both reactions
  // are vertical, 0.8·q·5000/2. N = -0.6·R + 0.48·q·x, My = 0.64·q·x·(5000 - x)/2.
  const Weights weights{.n = 1.0 / 2000, .my = 1.0 / 1e5};
  const double growth = 0.48 * q * weights.n, across = 0.64 * q;
  const double off = growth / (weights.my * across);
  const auto places = peaks_under(model, loads, {weights});
  ASSERT_EQ(places.size(), 2U);
  expect_place(places[0], 2500 - off, n, -0.48 * q * off);
  expect_place(places[0], 2500 - off, my, across * (6.25e6 - off * off) / 2);
  expect_place(places[1], 2500 + off, n, 0.48 * q * off);
}

TEST(PeaksOfCombinations, HaveTheLoadsOfAllCasesTimesTheirFactors) {
  // 1.3 times a uniform load and 1.5 times a force at 3/8, at the force the sum of both moments.
  model::Model model = simple_beam(span);
  add_case(model, only(partial(2, 0, 1, -q, -q)));
  add_case(model, point(Kind::force, 2, -force, 0.375));
  add_case(model, only(partial(1, 0, 1, 7 * q, 7 * q)));
  add_sum(model, {{1, 1.3}, {2, 1.5}});
  const auto places = peaks_of(with_forces(model));
  ASSERT_GE(places.size(), 2U);
  const double uniform = q * 1500 * 2500 / 2, at_force = force * 1500 * 2500 / span;
  for (const std::size_t i : {0U, 1U}) {
    expect_place(places[i], 1500, my, 1.3 * uniform + 1.5 * at_force);
    EXPECT_EQ(places[i].forces[mz], 0.0);
  }
}

TEST(PeaksOfCombinations, AreNoneWhereLoadsCancel) {
  model::Model model = simple_beam(span);
  add_case(model, point(Kind::force, 2, -force, 0.375));
  add_case(model, point(Kind::force, 2, 2 * force, 0.375));
  add_sum(model, {{1, 2.0}, {2, 1.0}});
  EXPECT_THAT(peaks_of(with_forces(model)), IsEmpty());
}

/// With u from the middle and A = L²/4: My = q/2·(A − u²) and |Fz| = q·u, so that (m·My)² + 3·(t +
/// s·Fz)² has its largest value where m²·q·u·(A − u²) = 6·s·(t + s·q·u). Here u = 250 at t
/// = 48.46875.
TEST(PeakOfTorsion, StandsOffThoseOfBendingAndShear) {
  constexpr double m = 1e-5, s = 1e-3, torsion = 48.46875 / moment;
  const Weights stress{.my = m, .fz = s, .mx = torsion};
  model::CaseLoads loads = point(Kind::moment, 0, moment, 1.0);
  loads.span.push_back(partial(2, 0.0, 1.0, -q, -q));
  const auto places = peaks_under(simple_beam(span), loads, {stress});
  ASSERT_EQ(places.size(), 3U);
  // Around its largest value the stress is flat: a thousandth of the length is a millionth of it.
  EXPECT_NEAR(places[0].x, 1750.0, 1e-3 * span);
  EXPECT_NEAR(places[1].x, 2250.0, 1e-3 * span);
  EXPECT_NEAR(places[0].forces[mx], moment, 1e-6 * moment);
  EXPECT_DOUBLE_EQ(places[2].fraction, 1.0);  // where the torque acts
}

TEST(StressOfTorsion, IsThatOfAllSignsTogether) {
  const Weights w{.n = 1.0, .my = 2.0, .mz = 3.0, .fy = 4.0, .fz = 5.0, .mx = 6.0};
  // σ = 1 + 2·5 + 3·6 = 29; τ = 6·4 + 5·3 = 39.
  EXPECT_NEAR(torsion_stress(w, {-1.0, 2.0, -3.0, 4.0, -5.0, 6.0}),
              std::sqrt(29.0 * 29.0 + 3.0 * 39.0 * 39.0), 1e-12);
}

TEST(StressOfTorsion, IsNoneWhereTorsionAddsLessThanAPerCent) {
  // √(1 + 3·τ²) = 1.01 at τ = 0.08185.
  const Weights w{.my = 1.0, .mx = 1.0};
  EXPECT_EQ(torsion_stress(w, {0.0, 0.0, 0.0, 0.081, 1.0, 0.0}), 0.0);
  EXPECT_GT(torsion_stress(w, {0.0, 0.0, 0.0, 0.083, 1.0, 0.0}), 1.0);
}

TEST(ElementsWithoutLoadsBetweenTheirEnds, HaveNoPeaks) {
  model::CaseLoads loads;
  loads.nodal.push_back({{false, {10}}, {0, 0, -force}});
  loads.temperature.push_back({{true, {}}, 30, 10, 20});
  model::Model model = straight_beam(span);
  add_support(model, 20, clamped);
  EXPECT_THAT(peaks_under(model, loads), IsEmpty());
}

TEST(Trusses, HaveNoPeaks) {
  model::Model model = bare_model();
  add_node(model, 20, 0, 0, 0);
  add_node(model, 10, span, 0, 0);
  model.elements.add(truss(5, 20, 10));
  add_support(model, 20, pinned);
  add_support(model, 10, {false, true, true});
  EXPECT_THAT(peaks_under(model, point(Kind::force, 0, force, 0.375)), IsEmpty());
}

}  // namespace
}  // namespace aluframe::forces
