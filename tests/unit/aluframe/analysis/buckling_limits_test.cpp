// Linear buckling at its limits: equal factors, mechanisms, shear, cables, elements without
// bending.

#include <gtest/gtest.h>

#include <cmath>
#include <numbers>
#include <set>

#include "aluframe/analysis/buckling.h"
#include "tests/support/buckle.h"
#include "tests/unit/aluframe/analysis/frames.h"

namespace aluframe::analysis {
namespace {

constexpr double pi = std::numbers::pi;
constexpr std::array<bool, 6> hinged_top{true, true, false, false, false, false};
constexpr std::array<bool, 6> hinged_base{true, true, true, false, false, true};

Result<BucklingResult> find(const Frame& frame, const LoadCase& loads,
                            const std::vector<double>& axial, int modes = 1) {
  return Buckling(frame).find(loads, axial, modes);
}

/// Columns of 3 m side by side, each under 1 kN.
struct Row {
  Frame frame;
  LoadCase loads;

  Row(int count, ElementKind kind, const std::array<bool, 6>& base, const std::array<bool, 6>& top,
      const Stiffness& stiffness = plain_stiffness()) {
    for (int i = 0; i < count; ++i) {
      const auto low = add_node(frame, 1000.0 * i, 0, 0),
                 high = add_node(frame, 1000.0 * i, 0, 3000.0);
      add_element(frame, low, high, stiffness).kind = kind;
      frame.supports.push_back({low, base});
      frame.supports.push_back({high, top});
      loads.nodal.push_back({high, {0, 0, -1000}});
    }
  }
};

/// P/EI = (turns/L)² for a column of 3 m under 1 kN.
double factor_of(double turns, double inertia) {
  return turns * turns * 70000.0 * inertia / (3000.0 * 3000.0) / 1000.0;
}

TEST(BucklingLimits, ThirtyEqualStrutsHaveOneFactorEachWithoutDrift) {
  const Row row(30, ElementKind::truss, pinned, hinged_top);
  const BucklingResult found = buckle(row.frame, row.loads, 31);
  ASSERT_EQ(found.modes.size(), 31U);
  std::set<std::size_t> elements;
  const double exact = factor_of(pi, plain_stiffness().izz);
  for (std::size_t i = 0; i < 30; ++i) {
    EXPECT_NEAR(found.modes[i].factor, exact, 1e-6 * exact) << i;
    ASSERT_TRUE(found.modes[i].element.has_value()) << i;
    elements.insert(*found.modes[i].element);
  }
  EXPECT_EQ(elements.size(), 30U) << "each strut in a mode of its own";
  const double next = factor_of(pi, plain_stiffness().iyy);  // less than four times the other
  EXPECT_NEAR(found.modes[30].factor, next, 1e-6 * next);
}

TEST(BucklingLimits, ThirtyEqualCantileversHaveThirtyModesThatDiffer) {
  const Row row(30, ElementKind::beam, clamped, {});
  const BucklingResult found = buckle(row.frame, row.loads, 30);
  ASSERT_EQ(found.modes.size(), 30U);
  Eigen::MatrixXd tips(30, 30);
  for (int mode = 0; mode < 30; ++mode) {
    const BucklingMode& one = found.modes[static_cast<std::size_t>(mode)];
    const double exact = factor_of(pi / 2, plain_stiffness().izz);
    EXPECT_NEAR(one.factor, exact, 1e-6 * exact) << mode;
    for (int tip = 0; tip < 30; ++tip) {
      tips(tip, mode) = one.shape[static_cast<std::size_t>(2 * tip + 1)][1];
    }
    tips.col(mode).normalize();
  }
  EXPECT_EQ(Eigen::FullPivLU<Eigen::MatrixXd>(tips).setThreshold(1e-3).rank(), 30);
}

TEST(BucklingLimits, AnElementBetweenFixedNodesHasHigherFactorsToo) {
  // Clamped: u = 2π, then tan(u/2) = u/2 with u = 8.98681891581813, then 4π.
  Row row(1, ElementKind::beam, clamped, {true, true, false, true, true, true});
  row.frame.supports[1].fixed[2] = true;
  row.frame.elements[0].stiffness.iyy = 100.0 * row.frame.elements[0].stiffness.izz;
  row.loads = {};
  const auto found = find(row.frame, row.loads, {-1000.0}, 3);
  const auto& modes = std::get<BucklingResult>(found).modes;
  ASSERT_EQ(modes.size(), 3U);
  const double turns[]{2 * pi, 8.98681891581813, 4 * pi};
  for (std::size_t i = 0; i < 3; ++i) {
    const double exact = factor_of(turns[i], plain_stiffness().izz);
    EXPECT_NEAR(modes[i].factor, exact, 1e-6 * exact) << i;
  }
}

TEST(BucklingLimits, AMechanismIsToldAsOne) {
  const LoadCase none;
  Row tilting(1, ElementKind::beam, pinned, {});
  Row hinged(1, ElementKind::beam, clamped, {});
  hinged.frame.elements[0].released[my] = true;
  Row strut(1, ElementKind::truss, pinned, {});
  for (const Frame* frame : {&tilting.frame, &hinged.frame, &strut.frame}) {
    const auto found = find(*frame, none, {-1000.0}, 2);
    const auto* problem = std::get_if<Problem>(&found);
    ASSERT_NE(problem, nullptr);
    EXPECT_EQ(problem->kind, Problem::Kind::mechanism) << problem->text;
  }
}

TEST(BucklingLimits, ModesEndWhereShearStiffnessDoes) {
  // A foot that slides at GAs = 54 kN: the column above it buckles earlier once, never again.
  Stiffness soft = shear_stiffness();
  soft.ay = soft.az = 2.0;
  Frame frame;
  add_node(frame, 0, 0, 0);
  add_node(frame, 0, 0, 50);
  add_node(frame, 0, 0, 4000);
  add_element(frame, 0, 1, soft);
  add_element(frame, 1, 2);
  frame.supports = {{0, clamped}};
  LoadCase loads;
  loads.nodal.push_back({2, {0, 0, -1000}});
  const BucklingResult found = buckle(frame, loads, 4);
  ASSERT_EQ(found.modes.size(), 1U);
  EXPECT_LT(found.modes[0].factor, 54.0);
}

TEST(BucklingLimits, AllFactorsOfAShearColumnLieBelowItsShearStiffness) {
  // Engesser: 1/P = 1/P_n + 1/GAs about both axes, on hinges.
  const Stiffness s = shear_stiffness();
  const Row row(1, ElementKind::beam, hinged_base, hinged_top, s);
  std::vector<double> exact;
  for (int n = 1; n <= 12; ++n) {
    exact.push_back(1.0 / (1.0 / factor_of(n * pi, s.izz) + 1000.0 / (s.g * s.ay)));
    exact.push_back(1.0 / (1.0 / factor_of(n * pi, s.iyy) + 1000.0 / (s.g * s.az)));
  }
  std::ranges::sort(exact);
  const BucklingResult found = buckle(row.frame, row.loads, 12);
  ASSERT_EQ(found.modes.size(), 12U);
  for (std::size_t i = 0; i < 12; ++i) {
    EXPECT_NEAR(found.modes[i].factor, exact[i], 1e-6 * exact[i]) << i;
  }
}

TEST(BucklingLimits, CompressionThatGrowsNearToTheShearStiffnessIsExactInOneElement) {
  // A stubby column, clamped and hinged, under load along it: cut into pieces whose compression is
  // nearly even, it buckles at the same factor.
  Stiffness stubby{.e = 70000.0,
                   .g = 27000.0,
                   .area = 500.0,
                   .ay = 265.0,
                   .az = 430.0,
                   .it = 1e4,
                   .iyy = 1.3e6,
                   .izz = 1.0e6};
  std::array<double, 2> factors{};
  for (const std::size_t parts : {1U, 24U}) {
    Frame frame;
    LoadCase loads;
    for (std::size_t i = 0; i <= parts; ++i) {
      add_node(frame, 0, 0, 500.0 * static_cast<double>(i) / static_cast<double>(parts));
    }
    for (std::size_t i = 0; i < parts; ++i) {
      add_element(frame, i, i + 1, stubby);
      loads.distributed.push_back({.element = i,
                                   .axes = LoadAxes::global,
                                   .from_value = {0, 0, -10.0},
                                   .to_value = {0, 0, -10.0}});
    }
    frame.supports = {{0, clamped}, {parts, hinged_top}};
    factors[parts == 1 ? 0 : 1] = buckle(frame, loads).modes.at(0).factor;
  }
  EXPECT_NEAR(factors[0], factors[1], 2e-6 * factors[1]);
}

TEST(BucklingLimits, AColumnWithoutLengthToSpeakOfStillBucklesByShear) {
  // Engesser: 1/P = 1/P_E + 1/GAs, and P_E is two thousand times GAs.
  Stiffness soft = plain_stiffness();
  soft.ay = soft.az = 10.0;
  Row row(1, ElementKind::beam, hinged_base, hinged_top, soft);
  row.frame.nodes[1].z = 60.0;
  for (const int modes : {1, 3}) {
    const BucklingResult found = buckle(row.frame, row.loads, modes);
    ASSERT_FALSE(found.modes.empty());
    // Above 99 % of GAs no length is carried.
    EXPECT_NEAR(found.modes[0].factor, 0.99 * 270.0, 1e-6 * 270.0);
  }
}

TEST(BucklingLimits, WhatATrussDoesNotCarryIsNotReleasedFromIt) {
  Row row(1, ElementKind::truss, pinned, hinged_top);
  row.frame.elements[0].released[fy] = row.frame.elements[0].released[6 + my] = true;
  const double exact = factor_of(pi, plain_stiffness().izz);
  EXPECT_NEAR(buckle(row.frame, row.loads).modes[0].factor, exact, 1e-6 * exact);
}

struct SlidingCase {
  const char* name;
  std::vector<std::size_t> released;
  double turns;
};
class ReleasedColumn : public testing::TestWithParam<SlidingCase> {};

TEST_P(ReleasedColumn, BucklesAsOneWithSuchEnds) {
  // Between clamped nodes, y alone: local y is what z bends.
  Row row(1, ElementKind::beam, clamped, clamped);
  row.frame.elements[0].stiffness.iyy = 1e4 * row.frame.elements[0].stiffness.izz;
  for (const std::size_t place : GetParam().released) row.frame.elements[0].released[place] = true;
  const auto found = find(row.frame, {}, {-1000.0});
  const auto& modes = std::get<BucklingResult>(found).modes;
  ASSERT_EQ(modes.size(), 1U);
  const double exact = factor_of(GetParam().turns, plain_stiffness().izz);
  EXPECT_NEAR(modes[0].factor, exact, 1e-6 * exact);
}

INSTANTIATE_TEST_SUITE_P(Buckling, ReleasedColumn,
                         testing::Values(SlidingCase{"hinge", {11}, 4.493409457909064},
                                         SlidingCase{"hinges", {5, 11}, pi},
                                         SlidingCase{"slide", {7}, pi},
                                         SlidingCase{"slide_at_start", {1}, pi},
                                         SlidingCase{"free_end", {7, 11}, pi / 2},
                                         SlidingCase{"free_start", {1, 5}, pi / 2},
                                         SlidingCase{"slide_and_hinge", {1, 11}, pi / 2}),
                         [](const auto& one) { return one.param.name; });

TEST(BucklingLimits, AMastOnCablesIsHardlyLowerWhereTheyAreHinged) {
  // Cables of 5 mm: their bending resists with 2·sqrt(N·EI)-like moments, 1e-3 of the mast's, and
  // their tension, a million times their Euler load, holds the top.
  constexpr double d = 5.0;
  constexpr Stiffness cable{.e = 70000.0,
                            .g = 27000.0,
                            .area = pi * d * d / 4,
                            .it = pi * d * d * d * d / 32,
                            .iyy = pi * d * d * d * d / 64,
                            .izz = pi * d * d * d * d / 64};
  std::array<double, 2> factors{};
  for (const bool is_hinged : {false, true}) {
    Frame frame;
    const auto base = add_node(frame, 0, 0, 0), top = add_node(frame, 0, 0, 8000);
    add_element(frame, base, top);
    frame.supports.push_back({base, clamped});
    LoadCase loads;
    for (int i = 0; i < 3; ++i) {
      const auto anchor = add_node(frame, 15000 * std::cos(2.1 * i), 15000 * std::sin(2.1 * i), 0);
      Element& element = add_element(frame, top, anchor, cable);
      element.expansion = 2.3e-5;
      if (is_hinged) element.kind = ElementKind::truss;
      frame.supports.push_back({anchor, clamped});
      loads.temperatures.push_back({.element = frame.elements.size() - 1, .change = -100.0});
    }
    factors[is_hinged ? 1 : 0] = buckle(frame, loads).modes.at(0).factor;
  }
  EXPECT_GE(factors[0], factors[1]);
  EXPECT_LE(factors[0], 1.01 * factors[1]);
}

TEST(BucklingLimits, AHungColumnWithATraceOfCompressionDoesNotBuckle) {
  // The lowest thousandth is compressed: L_c³ = 7.84·EI/(λ·q) at least, λ beyond 1e6.
  Row row(1, ElementKind::beam, clamped, clamped);
  row.loads = {};
  row.loads.distributed.push_back({.element = 0,
                                   .axes = LoadAxes::global,
                                   .from_value = {0, 0, -1.0},
                                   .to_value = {0, 0, -1.0}});
  const auto found = find(row.frame, row.loads, {-3.0}, 2);
  EXPECT_TRUE(std::get<BucklingResult>(found).modes.empty());
}

}  // namespace
}  // namespace aluframe::analysis
