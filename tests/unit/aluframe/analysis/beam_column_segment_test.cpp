#include "aluframe/analysis/beam_column_segment.h"

#include <gtest/gtest.h>

#include <cmath>

#include "aluframe/analysis/beam_column_plane.h"

namespace aluframe::analysis {
namespace {

constexpr double length = 3000.0, ei = 7.0e10;
constexpr double unit = ei / length;  // of moments per radian

BendingPlane rigid_in_shear() {
  return {length, ei, 0.0};
}

/// Constant axial force with sqrt(|N|/EI)·L of this size; negative: compression.
SpanAxialForce constant(double own_length, double sign) {
  const double n = sign * own_length * own_length * ei / (length * length);
  return {n, n, 0.0};
}

BeamColumnSegment segment_of(const BendingPlane& plane, const SegmentPiece& piece) {
  return {plane, {piece}, 0.0};
}

/// Stability functions in closed form (Livesley and Chandler 1956): s and s·c, of EI/L.
struct StabilityFunctions {
  double near = 0.0, far = 0.0;
};

StabilityFunctions compressed(double v) {
  const double d = 2.0 - 2.0 * std::cos(v) - v * std::sin(v);
  return {v * (std::sin(v) - v * std::cos(v)) / d, v * (v - std::sin(v)) / d};
}

StabilityFunctions pulled(double v) {
  const double d = 2.0 - 2.0 * std::cosh(v) + v * std::sinh(v);
  return {v * (v * std::cosh(v) - std::sinh(v)) / d, v * (std::sinh(v) - v) / d};
}

class OwnLengths : public testing::TestWithParam<double> {};

TEST_P(OwnLengths, StiffnessIsThatOfTheStabilityFunctions) {
  const double v = GetParam();
  for (const double sign : {-1.0, 1.0}) {
    const Matrix4 k =
        segment_of(rigid_in_shear(), {.length = length, .axial = constant(v, sign)}).stiffness();
    const StabilityFunctions exact = sign < 0.0 ? compressed(v) : pulled(v);
    EXPECT_NEAR(k(1, 1), exact.near * unit, 1e-9 * unit);
    EXPECT_NEAR(k(3, 3), exact.near * unit, 1e-9 * unit);
    EXPECT_NEAR(k(1, 3), exact.far * unit, 1e-9 * unit);
    // Sway: both ends turned by 1/L against the chord, and the axial force on it.
    const double across = (2.0 * (exact.near + exact.far) + sign * v * v) * unit;
    EXPECT_NEAR(k(0, 0) * length * length, across, 1e-9 * unit);
    EXPECT_NEAR(k(0, 2) * length * length, -across, 1e-9 * unit);
    EXPECT_NEAR(k(0, 1) * length, (exact.near + exact.far) * unit, 1e-9 * unit);
  }
}

TEST_P(OwnLengths, UniformLoadHoldsTheEndsByItsClosedForm) {
  // M = q·L²/v²·(1 - v/2·cot(v/2)) of a column between clamped ends (Timoshenko and Gere, Theory of
  // Elastic Stability, article 1.11).
  const double v = GetParam(), q = 2.0;
  const SegmentPiece piece{
      .length = length, .axial = constant(v, -1.0), .across_start = q, .across_end = q};
  const Vector4 held = segment_of(rigid_in_shear(), piece).fixed_end();
  const double moment = q * length * length / (v * v) * (1.0 - v / 2.0 / std::tan(v / 2.0));
  EXPECT_NEAR(held[0], -q * length / 2.0, 1e-9 * q * length);
  EXPECT_NEAR(held[1], -moment, 1e-9 * moment);
  EXPECT_NEAR(held[2], -q * length / 2.0, 1e-9 * q * length);
  EXPECT_NEAR(held[3], moment, 1e-9 * moment);
}

TEST_P(OwnLengths, ShearMakesTheColumnSofterByEngesser) {
  // With shear the slope is that of the rotation over 1 + N/GAs, so that a hinged column has the
  // deflection of one rigid in shear under N/(1 + N/GAs): the rotations of its ends under equal and
  // opposite end moments are tan(v'/2)/(v'·EI/L)·M with that force.
  const double v = GetParam(), shear_share = 0.2;
  const double n = -v * v * ei / (length * length);
  const double gas = -n / shear_share;
  const Matrix4 k =
      segment_of(BendingPlane::of(ei, gas, length), {.length = length, .axial = {n, n, 0.0}})
          .stiffness();
  const double softened = v / std::sqrt(1.0 - shear_share);
  const double per_moment = std::tan(softened / 2.0) / softened * 1.0 / unit;
  const double by_moments = 1.0 / (k(1, 1) - k(1, 3));
  EXPECT_NEAR(by_moments, per_moment, 1e-9 * std::abs(per_moment));
}

INSTANTIATE_TEST_SUITE_P(Segments, OwnLengths, testing::Values(0.3, 0.5, 1.0, 2.0, 2.9));

TEST(BeamColumnSegment, OfNoAxialForceIsTheBendingPlane) {
  for (const double gas : {0.0, 3.0e5}) {
    const BendingPlane plane = BendingPlane::of(ei, gas, length);
    const BeamColumnSegment segment =
        segment_of(plane, {.length = length, .axial = {}, .across_start = 1.0, .across_end = 1.0});
    EXPECT_TRUE(segment.stiffness().isApprox(bending_stiffness(plane), 1e-13));
    EXPECT_TRUE(segment.rigid_rotation().isZero());
    EXPECT_TRUE(segment.fixed_end().isApprox(
        fixed_end_forces_of_load(plane, {0.0, length, 1.0, 1.0}), 1e-13));
  }
}

TEST(BeamColumnSegment, OfLittleAxialForceHasTheConsistentGeometricStiffness) {
  // n/(30L)·[36 3L -36 3L; 4L² -3L -L²; ...] (Przemieniecki, equation 15.12) is its derivative.
  const double n = 1e-4 * ei / (length * length);
  const BendingPlane plane = rigid_in_shear();
  const Matrix4 more = (segment_of(plane, {.length = length, .axial = {n, n, 0.0}}).stiffness() -
                        segment_of(plane, {.length = length, .axial = {-n, -n, 0.0}}).stiffness()) /
                       (2.0 * n);
  EXPECT_NEAR(more(0, 0), 36.0 / (30.0 * length), 1e-6 / length);
  EXPECT_NEAR(more(0, 1), 3.0 / 30.0, 1e-6);
  EXPECT_NEAR(more(1, 1), 4.0 * length / 30.0, 1e-6 * length);
  EXPECT_NEAR(more(1, 3), -length / 30.0, 1e-6 * length);
}

TEST(BeamColumnSegment, RigidRotationIsWhatItsStiffnessGives) {
  const BeamColumnSegment segment =
      segment_of({length, ei, 0.3}, {.length = length, .axial = {-2.0e4, -6.0e4, 4.0e3}});
  const Vector4 rotated = segment.stiffness() * Vector4(0.0, 1.0, length, 1.0);
  EXPECT_TRUE(rotated.isApprox(segment.rigid_rotation(), 1e-9));
  EXPECT_NEAR(rotated[0] + rotated[2], 0.0, 1e-6);
}

/// Spans of a parabola of axial force, cut at parts of the length.
std::vector<ElementSpan> spans_cut_at(const std::vector<double>& cuts, const SpanAxialForce& n) {
  const auto at = [&](double s) {
    return n.start + (n.end - n.start) * s + 4.0 * n.bow * s * (1.0 - s);
  };
  std::vector<ElementSpan> spans;
  for (std::size_t i = 0; i + 1 < cuts.size(); ++i) {
    const double a = cuts[i], b = cuts[i + 1];
    ElementSpan& span = spans.emplace_back();
    span.from = a * length;
    span.to = b * length;
    span.axial = {at(a), at(b), n.bow * (b - a) * (b - a)};
    span.load_start = span.load_end = {0.0, 1.5, 0.0};
  }
  return spans;
}

TEST(BeamColumnPlane, IsTheSameInOneSpanOrInSeveral) {
  const BendingPlane plane{length, ei, 0.4};
  const SpanAxialForce n{-1.0e4, -3.0e4, 2.0e3};
  const BeamColumnPlane whole(plane, spans_cut_at({0.0, 1.0}, n), 1, 2e-6);
  const BeamColumnPlane cut(plane, spans_cut_at({0.0, 0.13, 0.5, 0.5001, 0.81, 1.0}, n), 1, 2e-6);
  EXPECT_TRUE(cut.stiffness().isApprox(whole.stiffness(), 1e-9));
  EXPECT_TRUE(cut.fixed_end().isApprox(whole.fixed_end(), 1e-9));
  EXPECT_TRUE(cut.rigid_rotation().isApprox(whole.rigid_rotation(), 1e-9));
  const Vector4 ends(1.0, 2e-4, 3.0, -1e-4);
  const auto moments = whole.bowing_moments(ends), others = cut.bowing_moments(ends);
  for (std::size_t i = 0; i < moments.size(); ++i) {
    EXPECT_NEAR(others[i], moments[i], 1e-8 * std::abs(moments[4]));
  }
}

TEST(BeamColumnPlane, MayBeCutWhereASpanEnds) {
  // sqrt(|N|/EI)·L of 4: two segments, whose joint is the end of a span, or is not.
  const SpanAxialForce n = constant(4.0, -1.0);
  const BeamColumnPlane whole(rigid_in_shear(), spans_cut_at({0.0, 1.0}, n), 1, 0.0);
  for (const double cut : {0.5, 0.5 + 1e-9, 0.4}) {
    const BeamColumnPlane in_two(rigid_in_shear(), spans_cut_at({0.0, cut, 1.0}, n), 1, 0.0);
    EXPECT_TRUE(in_two.stiffness().isApprox(whole.stiffness(), 1e-9)) << cut;
    EXPECT_TRUE(in_two.fixed_end().isApprox(whole.fixed_end(), 1e-9)) << cut;
  }
  const StabilityFunctions exact = compressed(4.0);
  EXPECT_NEAR(whole.stiffness()(1, 1), exact.near * unit, 1e-9 * unit);
}

TEST(BeamColumnPlane, CountsHowOftenItBucklesBetweenItsEnds) {
  // Between clamped ends: v = 2·π, 8.9868 (tan(v/2) = v/2), 4·π.
  const auto pivots = [](double v) {
    const SpanAxialForce n = constant(v, -1.0);
    return BeamColumnPlane(rigid_in_shear(), spans_cut_at({0.0, 1.0}, n), 1, 0.0).negative_pivots();
  };
  EXPECT_EQ(pivots(6.283), 0);
  EXPECT_EQ(pivots(6.284), 1);
  EXPECT_EQ(pivots(8.986), 1);
  EXPECT_EQ(pivots(8.988), 2);
  EXPECT_EQ(pivots(12.566), 2);
  EXPECT_EQ(pivots(12.567), 3);
}

TEST(BeamColumnPlane, IsNotCarriedBeyondItsShearStiffness) {
  const double gas = 1.0e5;
  const SpanAxialForce n{-1.01 * gas, -1.01 * gas, 0.0};
  const BeamColumnPlane plane(BendingPlane::of(ei, gas, length), spans_cut_at({0.0, 1.0}, n), 1,
                              0.0);
  EXPECT_FALSE(plane.is_carried());
}

TEST(BeamColumnPlane, HoldsAStrongTie) {
  // sqrt(N/EI)·L = 100: cosh of it is beyond all digits; the ends of a tie turn alone, with
  // sqrt(N·EI) each, but for 1/v of it.
  const double v = 100.0;
  const BeamColumnPlane tie(rigid_in_shear(), spans_cut_at({0.0, 1.0}, constant(v, 1.0)), 1, 0.0);
  EXPECT_NEAR(tie.stiffness()(1, 1), v * (v - 1.0) / (v - 2.0) * unit, 1e-9 * v * unit);
  EXPECT_NEAR(tie.stiffness()(1, 3), v / (v - 2.0) * unit, 1e-8 * v * unit);
}

}  // namespace
}  // namespace aluframe::analysis
