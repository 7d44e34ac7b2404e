#include <gtest/gtest.h>

#include "frames.h"

namespace aluframe::analysis {
namespace {

using testing::ElementsAre;

constexpr double length = 3000.0;

/// Both ends clamped, so the end forces are textbook cases.
Frame fixed_beam(const Stiffness& stiffness = plain_stiffness()) {
  Frame frame = cantilever(length, stiffness);
  frame.supports.push_back({1, clamped});
  return frame;
}

LoadCase tip_load(const Vector6& value) {
  LoadCase load_case;
  load_case.nodal.push_back({1, value});
  return load_case;
}

TEST(Cantilever, TipForceAlongZGivesTheTextbookDeflection) {
  const Stiffness s = plain_stiffness();
  const CaseResult r = solved(cantilever(length), tip_load({0, 0, -1000}));
  EXPECT_THAT(r.displacements[1][dz], close_to(-1000 * std::pow(length, 3) / (3 * s.e * s.iyy)));
  EXPECT_THAT(r.displacements[1][ry], close_to(1000 * length * length / (2 * s.e * s.iyy)));
}

TEST(Cantilever, ShearAddsItsOwnDeflection) {
  const Stiffness s = shear_stiffness();
  const CaseResult r = solved(cantilever(length, s), tip_load({0, 1000, 0}));
  const double expected =
      1000 * std::pow(length, 3) / (3 * s.e * s.izz) + 1000 * length / (s.g * s.ay);
  EXPECT_THAT(r.displacements[1][dy], close_to(expected));
}

TEST(Cantilever, TorsionTwistsByTorqueOverStiffness) {
  const Stiffness s = plain_stiffness();
  const CaseResult r = solved(cantilever(length), tip_load({0, 0, 0, 5e5}));
  EXPECT_THAT(r.displacements[1][rx], close_to(5e5 * length / (s.g * s.it)));
  for (const SectionForces& at : r.forces[0]) EXPECT_THAT(at[mx], float_near(5e5, 5e5));
}

TEST(Cantilever, MomentUnderTipForceIsLinearAndTensionAtTheTop) {
  // The load pulls the tip down: My, positive for a compressed top, is -P·(L - x).
  const CaseResult r = solved(cantilever(length), tip_load({0, 0, -1000}));
  for (std::size_t i = 0; i < 5; ++i) {
    EXPECT_THAT(r.forces[0][i][my],
                float_near(-1000 * length * (1 - static_cast<double>(i) / 4), 1000 * length));
    EXPECT_THAT(r.forces[0][i][fz], float_near(1000, 1000));
  }
}

TEST(Cantilever, SidewaysTipForceCompressesTheFaceItPushesTo) {
  // Towards +y: the face at y > 0 is compressed, so Mz is P·(L - x); Fy is -P.
  const CaseResult r = solved(cantilever(length), tip_load({0, 1000, 0}));
  EXPECT_THAT(r.forces[0][0][mz], float_near(1000 * length, 1000 * length));
  EXPECT_THAT(r.forces[0][0][fy], float_near(-1000, 1000));
}

TEST(Cantilever, PullIsPositive) {
  const CaseResult r = solved(cantilever(length), tip_load({1000}));
  EXPECT_THAT(r.forces[0][2], ElementsAre(1000, 0, 0, 0, 0, 0));
}

TEST(FixedBeam, UniformLoadHasTwelfthsAtTheEndsAndATwentyFourthInTheMiddle) {
  LoadCase load_case;
  load_case.distributed.push_back({.element = 0, .from_value = {0, 0, -6}, .to_value = {0, 0, -6}});
  const double whole = 6 * length * length;
  for (const Stiffness& s : {plain_stiffness(), shear_stiffness()}) {
    const CaseResult r = solved(fixed_beam(s), load_case);
    EXPECT_THAT(r.forces[0][0][my], float_near(-whole / 12, whole));
    EXPECT_THAT(r.forces[0][2][my], float_near(whole / 24, whole));
    EXPECT_THAT(r.forces[0][4][my], float_near(-whole / 12, whole));
    EXPECT_THAT(r.forces[0][0][fz], float_near(6 * length / 2, 6 * length));
  }
}

TEST(FixedBeam, AxialLoadIsSharedByTheLeverOfItsPlace) {
  LoadCase load_case;
  load_case.points.push_back({.element = 0, .force = {4000, 0, 0}, .at = 0.3});
  const CaseResult r = solved(fixed_beam(), load_case);
  EXPECT_THAT(r.forces[0][0][n], float_near(0.7 * 4000, 4000));
  EXPECT_THAT(r.forces[0][4][n], float_near(-0.3 * 4000, 4000));
}

TEST(FixedBeam, TorqueInTheMiddleOfTheSpanIsSharedByLever) {
  LoadCase load_case;
  load_case.points.push_back({.element = 0, .moment = {8e5, 0, 0}, .at = 0.25});
  const CaseResult r = solved(fixed_beam(), load_case);
  EXPECT_THAT(r.forces[0][0][mx], float_near(0.75 * 8e5, 8e5));
  EXPECT_THAT(r.forces[0][4][mx], float_near(-0.25 * 8e5, 8e5));
  EXPECT_THAT(r.reactions[0].value[rx], close_to(-0.75 * 8e5));
}

TEST(FixedBeam, PointLoadAtASectionCountsOnTheSideTowardsTheEnd) {
  LoadCase load_case;
  load_case.points.push_back({.element = 0, .force = {0, 0, -1000}, .at = 0.5});
  const CaseResult r = solved(fixed_beam(), load_case);
  EXPECT_THAT(r.forces[0][2][fz], float_near(500, 1000));
  EXPECT_THAT(r.forces[0][3][fz], float_near(-500, 1000));
}

TEST(FixedBeam, WarmerTopIsCompressedAllAlong) {
  // My = EIyy·α·ΔT/h, and nothing else.
  Frame frame = fixed_beam();
  frame.elements[0].expansion = 2.3e-5;
  LoadCase load_case;
  load_case.temperatures.push_back({.element = 0, .difference_z = 30, .depth_z = 200});
  const CaseResult r = solved(frame, load_case);
  const Stiffness s = plain_stiffness();
  const double expected = s.e * s.iyy * 2.3e-5 * 30 / 200;
  for (const SectionForces& at : r.forces[0]) {
    EXPECT_THAT(at, ElementsAre(0, 0, 0, 0, float_near(expected, expected), 0));
  }
}

TEST(FixedBeam, WarmerFaceAtPositiveYIsCompressed) {
  Frame frame = fixed_beam();
  frame.elements[0].expansion = 2.3e-5;
  LoadCase load_case;
  load_case.temperatures.push_back({.element = 0, .difference_y = 10, .depth_y = 100});
  const CaseResult r = solved(frame, load_case);
  const Stiffness s = plain_stiffness();
  EXPECT_THAT(r.forces[0][3][mz], float_near(s.e * s.izz * 2.3e-5 * 0.1, 1e6));
}

TEST(FixedBeam, WarmthCompresses) {
  Frame frame = fixed_beam();
  frame.elements[0].expansion = 2.3e-5;
  LoadCase load_case;
  load_case.temperatures.push_back({.element = 0, .change = 40});
  const Stiffness s = plain_stiffness();
  const double expected = -s.e * s.area * 2.3e-5 * 40;
  EXPECT_THAT(solved(frame, load_case).forces[0][1][n], float_near(expected, expected));
}

TEST(Cantilever, WarmthLengthensItAndLeavesNoForce) {
  Frame frame = cantilever(length);
  frame.elements[0].expansion = 2.3e-5;
  LoadCase load_case;
  load_case.temperatures.push_back(
      {.element = 0, .change = 40, .difference_z = 30, .depth_z = 200});
  const CaseResult r = solved(frame, load_case);
  EXPECT_THAT(r.displacements[1][dx], close_to(2.3e-5 * 40 * length));
  // Curved away from the warm top: down by κL²/2.
  EXPECT_THAT(r.displacements[1][dz], close_to(-2.3e-5 * 30 / 200 * length * length / 2));
  for (const SectionForces& at : r.forces[0]) EXPECT_THAT(at, ElementsAre(0, 0, 0, 0, 0, 0));
}

TEST(FixedBeam, SettlementOfOneEndBendsItByTheClassicalMoment) {
  // 6EIΔ/L² (slope-deflection): the sinking end is held up by tension at the other end's top.
  LoadCase load_case;
  load_case.settlements.push_back({1, dz, -12.0});
  const Stiffness s = plain_stiffness();
  const double moment = 6 * s.e * s.iyy * 12 / (length * length);
  const CaseResult r = solved(fixed_beam(), load_case);
  EXPECT_THAT(r.forces[0][0][my], float_near(-moment, moment));
  EXPECT_THAT(r.forces[0][4][my], float_near(moment, moment));
  EXPECT_THAT(r.displacements[1][dz], -12.0);
}

TEST(FixedBeam, RotationOfASupportIsHeldByFourAndTwoStiffnesses) {
  LoadCase load_case;
  load_case.settlements.push_back({1, rz, 0.01});
  const Stiffness s = plain_stiffness();
  const CaseResult r = solved(fixed_beam(), load_case);
  EXPECT_THAT(r.reactions[1].value[rz], close_to(4 * s.e * s.izz / length * 0.01));
  EXPECT_THAT(r.reactions[0].value[rz], close_to(2 * s.e * s.izz / length * 0.01));
}

TEST(SelfWeight, IsDensityTimesAreaTimesGravity) {
  // 2700 kg/m³, 2500 mm², 3 m: 198.58 N.
  Frame frame = cantilever(length);
  frame.elements[0].density = 2.7e-6;
  LoadCase load_case;
  load_case.self_weight = {0, 0, -1};
  EXPECT_THAT(solved(frame, load_case).reactions[0].value[dz], testing::DoubleNear(198.58, 0.005));
}

}  // namespace
}  // namespace aluframe::analysis
