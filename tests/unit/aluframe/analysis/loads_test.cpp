#include <gtest/gtest.h>

#include "frames.h"

namespace aluframe::analysis {
namespace {

using testing::DoubleNear;

/// A rafter from (0, 0, 0) rising 3:4 over 4 m along X, clamped at its foot.
Frame rafter() {
  Frame frame;
  add_node(frame, 0, 0, 0);
  add_node(frame, 4000, 0, 3000);
  add_element(frame, 0, 1);
  frame.supports.push_back({0, clamped});
  return frame;
}

LoadCase uniform(LoadAxes axes, Vector3 q) {
  LoadCase load_case;
  load_case.distributed.push_back({.element = 0, .axes = axes, .from_value = q, .to_value = q});
  return load_case;
}

TEST(MemberLoads, GlobalLoadIsPerLengthOfTheElement) {
  const CaseResult r = solved(rafter(), uniform(LoadAxes::global, {0, 0, -2}));
  EXPECT_THAT(r.reactions[0].value[dz], close_to(2 * 5000));
  // The resultant stands above the middle of the plan length.
  EXPECT_THAT(r.reactions[0].value[ry], close_to(-2 * 5000 * 2000.0));
}

TEST(MemberLoads, SnowIsPerLengthOfThePlan) {
  const CaseResult r = solved(rafter(), uniform(LoadAxes::projected, {0, 0, -2}));
  EXPECT_THAT(r.reactions[0].value[dz], close_to(2 * 4000));
}

TEST(MemberLoads, WindAlongXIsPerLengthOfTheElevation) {
  const CaseResult r = solved(rafter(), uniform(LoadAxes::projected, {2, 0, 0}));
  EXPECT_THAT(r.reactions[0].value[dx], close_to(-2 * 3000));
}

TEST(MemberLoads, LocalLoadStandsSquareToTheElement) {
  // z of the rafter is (-0.6, 0, 0.8).
  const CaseResult r = solved(rafter(), uniform(LoadAxes::local, {0, 0, -2}));
  EXPECT_THAT(r.reactions[0].value[dz], close_to(0.8 * 2 * 5000));
  EXPECT_THAT(r.reactions[0].value[dx], close_to(-0.6 * 2 * 5000));
}

TEST(MemberLoads, ProjectedPointForceIsAGlobalOne) {
  LoadCase load_case;
  load_case.points.push_back(
      {.element = 0, .axes = LoadAxes::projected, .force = {0, 0, -700}, .at = 1.0});
  EXPECT_THAT(solved(rafter(), load_case).reactions[0].value[dz], close_to(700));
}

TEST(MemberLoads, TriangleOnPartOfTheSpanHasItsForcesAtTheFivePositions) {
  // Cantilever of 4 m, load growing from 0 at 1 m to 6 N/mm at 3 m; sections at 0, 1, 2, 3, 4 m.
  Frame frame = cantilever(4000);
  LoadCase load_case;
  load_case.distributed.push_back({.element = 0, .to_value = {0, 0, -6}, .from = 0.25, .to = 0.75});
  const ElementForces f = solved(frame, load_case).forces[0];
  // By hand: resultant 6000 N at 1000 + 2/3·2000 mm; beyond 2 m a trapezoid of 3 to 6 N/mm.
  const double shear[] = {6000, 6000, 4500, 0, 0};
  const double moment[] = {-6000 * 7000.0 / 3, -6000 * 4000.0 / 3,
                           -(3000 * 500.0 + 1500 * 2000 / 3.0), 0, 0};
  for (std::size_t i = 0; i < 5; ++i) {
    EXPECT_THAT(f[i][fz], float_near(shear[i], 6000));
    EXPECT_THAT(f[i][my], float_near(moment[i], 1.4e7));
  }
}

TEST(MemberLoads, SeveralLoadsOnOneElementAddUp) {
  Frame frame = cantilever(1000);
  LoadCase load_case = uniform(LoadAxes::local, {0, 0, -3});
  load_case.points.push_back({.element = 0, .force = {0, 0, -500}, .at = 1.0});
  load_case.points.push_back({.element = 0, .force = {0, 0, -100}, .at = 0.5});
  EXPECT_THAT(solved(frame, load_case).forces[0][0][fz], float_near(3600, 3600));
}

TEST(Truss, UniformLoadGoesToItsEndsHalfEach) {
  Frame frame;
  add_node(frame, 0, 0, 0);
  add_node(frame, 4000, 0, 0);
  add_truss(frame, 0, 1);
  frame.supports = {{0, pinned}, {1, pinned}};
  const CaseResult r = solved(frame, uniform(LoadAxes::global, {0, 0, -2}));
  for (const Reaction& reaction : r.reactions) EXPECT_THAT(reaction.value[dz], close_to(4000));
  for (const SectionForces& at : r.forces[0]) EXPECT_EQ(at, SectionForces{});
}

TEST(Truss, BracketCarriesItsLoadByTwoAxialForces) {
  // Horizontal bar and 3:4:5 strut below it: tension 4/3 P, compression 5/3 P.
  Frame frame;
  add_node(frame, 0, 0, 0);
  add_node(frame, 0, 0, -3000);
  add_node(frame, 4000, 0, 0);
  add_truss(frame, 0, 2);
  add_truss(frame, 1, 2);
  frame.supports = {{0, pinned}, {1, pinned}, {2, {false, true}}};
  LoadCase load_case;
  load_case.nodal.push_back({2, {0, 0, -900}});
  const CaseResult r = solved(frame, load_case);
  EXPECT_THAT(r.forces[0][2][n], float_near(1200, 1200));
  EXPECT_THAT(r.forces[1][2][n], float_near(-1500, 1500));
}

TEST(Truss, HeatedBarBetweenSupportsIsCompressedAndGradientsLeaveIt) {
  Frame frame;
  add_node(frame, 0, 0, 0);
  add_node(frame, 4000, 0, 0);
  add_truss(frame, 0, 1).expansion = 2.3e-5;
  frame.supports = {{0, pinned}, {1, pinned}};
  LoadCase load_case;
  load_case.temperatures.push_back({.element = 0, .change = 10, .difference_z = 5, .depth_z = 100});
  const double expected = -70000 * 2500 * 2.3e-4;
  EXPECT_THAT(solved(frame, load_case).forces[0][0],
              testing::ElementsAre(float_near(expected, expected), 0, 0, 0, 0, 0));
}

TEST(Springs, TipOnASpringSharesItsLoadByStiffness) {
  // Cantilever 3EI/L³ beside the spring.
  Frame frame = cantilever(2000);
  frame.springs.push_back({1, {0, 0, 150}});
  LoadCase load_case;
  load_case.nodal.push_back({1, {0, 0, -1000}});
  const Stiffness s = plain_stiffness();
  const double beam = 3 * s.e * s.iyy / 8e9;
  const CaseResult r = solved(frame, load_case);
  EXPECT_THAT(r.displacements[1][dz], close_to(-1000 / (beam + 150)));
  EXPECT_THAT(r.reactions[1].value[dz], close_to(1000 * 150 / (beam + 150)));
}

TEST(Springs, BeamOnSpringsAloneTiltsByTheirStiffness) {
  // Springs of 100 and 300 N/mm under a load at the quarter towards the soft one: 750 and 250 N.
  Frame frame;
  add_node(frame, 0, 0, 0);
  add_node(frame, 4000, 0, 0);
  add_element(frame, 0, 1);
  frame.springs = {{0, {50, 50, 100, 1e9, 0, 0}}, {1, {0, 50, 300, 0, 0, 0}}};
  LoadCase load_case;
  load_case.points.push_back({.element = 0, .force = {0, 0, -1000}, .at = 0.25});
  const CaseResult r = solved(frame, load_case);
  EXPECT_THAT(r.displacements[0][dz], close_to(-7.5));
  EXPECT_THAT(r.displacements[1][dz], close_to(-250.0 / 300));
}

TEST(Cases, EachHasItsOwnResult) {
  const Frame frame = cantilever(1000);
  std::vector<LoadCase> cases(40);
  for (std::size_t i = 0; i < cases.size(); ++i) {
    cases[i].nodal.push_back({1, {static_cast<double>(i)}});
  }
  const auto result = analyse(frame, cases);
  const auto& solution = std::get<Solution>(result);
  for (std::size_t i = 0; i < cases.size(); ++i) {
    EXPECT_EQ(solution.cases[i].forces[0][0][n], static_cast<float>(i));
  }
}

TEST(Reaction, TakesALoadAtItsSupportToo) {
  LoadCase load_case;
  load_case.nodal.push_back({0, {50, 0, -70, 0, 900, 0}});
  load_case.nodal.push_back({1, {0, 0, -100}});
  // By statics, the cantilever of 1 m along X: moment of the tip about Y is +100 N times 1 m.
  const Vector6 value = solved(cantilever(1000), load_case).reactions[0].value;
  EXPECT_THAT(value[dx], close_to(-50));
  EXPECT_THAT(value[dz], close_to(170));
  EXPECT_THAT(value[ry], close_to(-900 - 100 * 1000.0));
}

TEST(Cases, CombinationIsTheFactoredSumOfLoads) {
  LoadCase a, b;
  a.nodal.push_back({1, {100}});
  a.self_weight = {0, 0, -1};
  b.points.push_back({.element = 0, .force = {7, 0, 0}, .at = 1.0});
  const std::array<FactoredCase, 2> parts{{{&a, 1.35}, {&b, -2.0}}};
  const LoadCase sum = combine(parts);
  EXPECT_EQ(sum.nodal[0].value[0], 135.0);
  EXPECT_EQ(sum.points[0].force[0], -14.0);
  EXPECT_EQ(sum.self_weight[2], -1.35);
}

TEST(Cases, CombinationTakesItsFactorToEveryNumberOfALoad) {
  LoadCase plain;
  plain.distributed.push_back({.element = 0, .from_value = {1, 2, 3}, .to_value = {4, 5, 6}});
  plain.points.push_back({.element = 0, .moment = {7, 8, 9}, .at = 0.5});
  plain.temperatures.push_back({.element = 0,
                                .change = 10,
                                .difference_y = 20,
                                .depth_y = 100,
                                .difference_z = 30,
                                .depth_z = 200});
  plain.settlements.push_back({0, dz, -5});
  const std::array<FactoredCase, 1> parts{{{&plain, -2.0}}};
  const LoadCase sum = combine(parts);
  EXPECT_EQ(sum.distributed[0].from_value, (Vector3{-2, -4, -6}));
  EXPECT_EQ(sum.distributed[0].to_value, (Vector3{-8, -10, -12}));
  EXPECT_EQ(sum.points[0].moment, (Vector3{-14, -16, -18}));
  EXPECT_EQ(sum.points[0].at, 0.5);
  EXPECT_EQ(sum.temperatures[0].change, -20);
  EXPECT_EQ(sum.temperatures[0].difference_y, -40);
  EXPECT_EQ(sum.temperatures[0].difference_z, -60);
  EXPECT_EQ(sum.temperatures[0].depth_y, 100);
  EXPECT_EQ(sum.temperatures[0].depth_z, 200);
  EXPECT_EQ(sum.settlements[0].value, 10);
}

TEST(Equilibrium, ResidualIsReportedAndTiny) {
  const CaseResult r = solved(rafter(), uniform(LoadAxes::local, {1, 2, -2}));
  // A handful of roundings of 1e-16 each.
  EXPECT_LT(r.equilibrium.nodes, 1e-12);
  EXPECT_LT(r.equilibrium.whole, 1e-12);
  EXPECT_LT(r.equilibrium.force_error, 1e-12);
}

TEST(Equilibrium, CaseThatLeavesMoreThanTheLimitFails) {
  LoadCase load_case = uniform(LoadAxes::local, {1, 2, -2});
  const Frame frame = rafter();
  const auto result = analyse(frame, {&load_case, 1}, {.residual_limit = 0.0});
  const auto* problem = std::get_if<Problem>(&result);
  ASSERT_NE(problem, nullptr);
  EXPECT_EQ(problem->kind, Problem::Kind::equilibrium);
  EXPECT_THAT(problem->text, testing::HasSubstr(" of the forces stay unbalanced, more than "));
  EXPECT_EQ(problem->load_case, 0U);
}

TEST(Equilibrium, CaseThatFailsIsToldThoughOthersAreInBalance) {
  // Without loads nothing is out of balance.
  const std::array<LoadCase, 2> cases{LoadCase(), uniform(LoadAxes::local, {1, 2, -2})};
  const Frame frame = rafter();
  const auto result = analyse(frame, cases, {.residual_limit = 0.0});
  const auto* problem = std::get_if<Problem>(&result);
  ASSERT_NE(problem, nullptr);
  EXPECT_EQ(problem->load_case, 1U);
}

TEST(Equilibrium, CaseWhoseForcesAreLessCertainThanTheLimitFails) {
  LoadCase load_case = uniform(LoadAxes::local, {1, 2, -2});
  const Frame frame = rafter();
  const auto result = analyse(frame, {&load_case, 1}, {.error_limit = 0.0});
  const auto* problem = std::get_if<Problem>(&result);
  ASSERT_NE(problem, nullptr);
  EXPECT_EQ(problem->kind, Problem::Kind::equilibrium);
  EXPECT_THAT(problem->text, testing::StartsWith("the forces are certain to "));
}

TEST(Frame, WithEveryDirectionSupportedHasForcesToo) {
  Frame frame = cantilever(1000);
  frame.supports.push_back({1, clamped});
  EXPECT_THAT(solved(frame, uniform(LoadAxes::local, {0, 0, -1})).forces[0][0][fz],
              float_near(500, 500));
}

TEST(Frame, WithoutLoadsHasNoForces) {
  const CaseResult r = solved(rafter(), {});
  EXPECT_EQ(r.forces[0], ElementForces{});
  EXPECT_EQ(r.equilibrium.nodes, 0.0);
}

}  // namespace
}  // namespace aluframe::analysis
