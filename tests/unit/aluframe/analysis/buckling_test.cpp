#include "aluframe/analysis/buckling.h"

#include <gtest/gtest.h>

#include <cmath>
#include <numbers>

#include "aluframe/analysis/second_order.h"
#include "tests/support/buckle.h"
#include "tests/unit/aluframe/analysis/frames.h"

namespace aluframe::analysis {
namespace {

constexpr double pi = std::numbers::pi;
constexpr std::array<bool, 6> guided{true, true, false, true, true, true};
constexpr std::array<bool, 6> hinged_top{true, true, false, false, false, false};
constexpr std::array<bool, 6> hinged_base{true, true, true, false, false, true};

/// A column along Z of so many elements under a load of 1 kN on its top.
struct Column {
  Frame frame;
  LoadCase loads;
};

Column column(int elements, double length, const std::array<bool, 6>& base,
              const std::array<bool, 6>& top, const Stiffness& stiffness = plain_stiffness()) {
  Column c;
  for (int i = 0; i <= elements; ++i) add_node(c.frame, 0, 0, length * i / elements);
  for (std::size_t i = 0; i < static_cast<std::size_t>(elements); ++i) {
    add_element(c.frame, i, i + 1, stiffness);
  }
  const auto last = static_cast<std::size_t>(elements);
  c.frame.supports = {{0, base}, {last, top}};
  c.loads.nodal.push_back({last, {0, 0, -1000, 0, 0, 0}});
  return c;
}

struct EulerCase {
  const char* name;
  std::array<bool, 6> base, top;
  double turns;  ///< sqrt(P/EI)·L
};

class EulerCases : public testing::TestWithParam<EulerCase> {};

TEST_P(EulerCases, AreExactWithOneElementOrSeveral) {
  const auto& [name, base, top, turns] = GetParam();
  const Stiffness s = plain_stiffness();
  const double length = 4000.0;
  const double exact = turns * turns * s.e * s.izz / (length * length) / 1000.0;
  for (const int elements : {1, 2, 7}) {
    const Column c = column(elements, length, base, top);
    const BucklingResult found = buckle(c.frame, c.loads);
    ASSERT_EQ(found.modes.size(), 1U);
    EXPECT_NEAR(found.modes[0].factor, exact, 1e-6 * exact) << name << " of " << elements;
    EXPECT_LE(found.factorisations, 15);
  }
}

INSTANTIATE_TEST_SUITE_P(
    Buckling, EulerCases,
    testing::Values(EulerCase{"cantilever", clamped, {}, pi / 2},
                    EulerCase{"on hinges", hinged_base, hinged_top, pi},
                    EulerCase{"clamped and hinged", clamped, hinged_top, 4.4934094579090642},
                    EulerCase{"clamped", clamped, guided, 2 * pi},
                    EulerCase{"guided", clamped, {false, false, false, true, true, true}, pi}));

TEST(Buckling, UnderOwnWeightIsThatOfBesselFunctions) {
  // q·L³/EI = 7.8373 (Timoshenko and Gere, article 2.12): 9/4·x², x = 1.8663508 the first zero of
  // the Bessel function of order -1/3.
  const Stiffness s = plain_stiffness();
  const double length = 4000.0;
  Column c = column(1, length, clamped, {});
  c.loads = {};
  c.loads.distributed.push_back({.element = 0,
                                 .axes = LoadAxes::global,
                                 .from_value = {0, 0, -1.0},
                                 .to_value = {0, 0, -1.0}});
  const double exact = 2.25 * 1.86635086 * 1.86635086 * s.e * s.izz / (length * length * length);
  const BucklingResult found = buckle(c.frame, c.loads);
  ASSERT_EQ(found.modes.size(), 1U);
  EXPECT_NEAR(found.modes[0].factor, exact, 1e-7 * exact);
}

TEST(Buckling, CountsAPointLoadBetweenTheNodes) {
  // The same column with the load on its middle by a node there.
  const double length = 4000.0;
  Column one = column(1, length, clamped, {});
  one.loads = {};
  one.loads.points.push_back(
      {.element = 0, .axes = LoadAxes::global, .force = {0, 0, -1000.0}, .at = 0.5});
  Column two = column(2, length, clamped, {});
  two.loads = {};
  two.loads.nodal.push_back({1, {0, 0, -1000, 0, 0, 0}});
  const double exact = pi * pi / 4.0 * plain_stiffness().e * plain_stiffness().izz /
                       (2000.0 * 2000.0) / 1000.0;  // the lower half alone is pressed
  EXPECT_NEAR(buckle(one.frame, one.loads).modes[0].factor, exact, 1e-6 * exact);
  EXPECT_NEAR(buckle(two.frame, two.loads).modes[0].factor, exact, 1e-6 * exact);
}

TEST(Buckling, OfAShortPressedPartIsThatOfTheStubItIs) {
  // A load at a part a of a cantilever presses the stub below it alone: pi²·EI/(4·(a·L)²).
  const Stiffness s = plain_stiffness();
  const double length = 4000.0;
  for (const double at : {0.05, 0.1, 0.15, 0.2, 0.37}) {
    Column c = column(1, length, clamped, {});
    c.loads = {};
    c.loads.points.push_back(
        {.element = 0, .axes = LoadAxes::global, .force = {0, 0, -1000.0}, .at = at});
    const double stub = at * length;
    const double exact = pi * pi / 4.0 * s.e * s.izz / (stub * stub) / 1000.0;
    const BucklingResult found = buckle(c.frame, c.loads, 2);
    EXPECT_NEAR(found.modes[0].factor, exact, 1e-6 * exact) << at;
    const double second = std::min(9.0, s.iyy / s.izz) * exact;
    EXPECT_NEAR(found.modes[1].factor, second, 1e-5 * second) << at;
  }
}

TEST(Buckling, OfAPressedPartBetweenRestraintsIsThatOfANodeAtItsLoad) {
  // The same bar in two elements that meet at the load, whose parts are uniform.
  for (const double at : {0.1, 0.2, 0.3}) {
    Column one = column(1, 3000.0, clamped, clamped);
    one.frame.elements[0].released[6] = true;  // the upper part is not pulled
    one.loads = {};
    one.loads.points.push_back(
        {.element = 0, .axes = LoadAxes::global, .force = {0, 0, -20000.0}, .at = at});
    Column two = column(2, 3000.0, clamped, clamped);
    two.frame.nodes[1].z = at * 3000.0;
    two.frame.elements[1].released[6] = true;
    two.loads = {};
    two.loads.nodal.push_back({1, {0, 0, -20000.0, 0, 0, 0}});
    const double in_one = buckle(one.frame, one.loads).modes[0].factor;
    const double in_two = buckle(two.frame, two.loads).modes[0].factor;
    EXPECT_NEAR(in_one, in_two, 1e-5 * in_two) << at;
  }
}

TEST(Buckling, LowersByShearAsEngesserHasIt) {
  const Stiffness s = shear_stiffness();
  const double length = 600.0;  // short, so that shear counts
  const Column c = column(1, length, hinged_base, hinged_top, s);
  const double euler_z = pi * pi * s.e * s.izz / (length * length);
  const double exact = 1.0 / (1.0 / euler_z + 1.0 / (s.g * s.ay)) / 1000.0;
  EXPECT_NEAR(buckle(c.frame, c.loads).modes[0].factor, exact, 1e-6 * exact);
}

TEST(Buckling, OfATrussIsItsOwnAsABarOnHinges) {
  const Stiffness s = plain_stiffness();
  Frame frame;
  add_node(frame, 0, 0, 0);
  add_node(frame, 3000, 0, 0);
  add_truss(frame, 0, 1);
  frame.supports = {{0, pinned}, {1, {false, true, true, false, false, false}}};
  LoadCase loads;
  loads.nodal.push_back({1, {-1000, 0, 0, 0, 0, 0}});
  const double exact = pi * pi * s.e * s.izz / (3000.0 * 3000.0) / 1000.0;
  const BucklingResult found = buckle(frame, loads);
  ASSERT_EQ(found.modes.size(), 1U);
  EXPECT_NEAR(found.modes[0].factor, exact, 1e-6 * exact);
  EXPECT_EQ(found.modes[0].element, 0U);
  EXPECT_EQ(found.modes[0].text, "element 1 buckles between its nodes, along Y");
}

TEST(Buckling, IsNoneWithoutCompression) {
  Column c = column(2, 3000.0, clamped, {});
  c.loads.nodal[0].value = {0, 0, 1000, 0, 0, 0};
  EXPECT_TRUE(buckle(c.frame, c.loads).modes.empty());
  c.loads.nodal[0].value = {1000, 0, 0, 0, 0, 0};
  EXPECT_TRUE(buckle(c.frame, c.loads).modes.empty()) << "bending alone";
}

TEST(Buckling, FindsHigherFactorsInTheirOrder) {
  // About both axes: (n·π)²·EI/L² with n = 1, 2 for z and y.
  const Stiffness s = plain_stiffness();
  const double length = 4000.0, unit = pi * pi / (length * length) / 1000.0;
  for (const int elements : {1, 3}) {
    const Column c = column(elements, length, hinged_base, hinged_top);
    const BucklingResult found = buckle(c.frame, c.loads, 4);
    ASSERT_EQ(found.modes.size(), 4U);
    std::vector<double> exact{s.e * s.izz * unit, s.e * s.iyy * unit, 4 * s.e * s.izz * unit,
                              9 * s.e * s.izz * unit};
    std::ranges::sort(exact);
    for (std::size_t i = 0; i < 4; ++i) {
      EXPECT_NEAR(found.modes[i].factor, exact[i], 2e-6 * exact[i]) << i;
    }
  }
}

TEST(Buckling, FindsEqualFactorsBoth) {
  Stiffness round = plain_stiffness();
  round.iyy = round.izz;
  const Column c = column(2, 4000.0, clamped, {}, round);
  const BucklingResult found = buckle(c.frame, c.loads, 2);
  ASSERT_EQ(found.modes.size(), 2U);
  const double exact = pi * pi / 4 * round.e * round.izz / (4000.0 * 4000.0) / 1000.0;
  EXPECT_NEAR(found.modes[0].factor, exact, 2e-6 * exact);
  EXPECT_NEAR(found.modes[1].factor, exact, 2e-6 * exact);
  // Two directions, not one twice.
  const Vector6 &a = found.modes[0].shape[2], &b = found.modes[1].shape[2];
  const double across = std::abs(a[0] * b[1] - a[1] * b[0]);
  EXPECT_GT(across, 0.5 * std::hypot(a[0], a[1]) * std::hypot(b[0], b[1]));
}

TEST(Buckling, SharesTheWorkOfTheAxialForces) {
  // Two storeys, the load on the middle: the lower element alone is pressed.
  Column c = column(2, 4000.0, clamped, {});
  c.loads.nodal[0].node = 1;
  const BucklingResult found = buckle(c.frame, c.loads);
  EXPECT_NEAR(found.modes[0].work[0].sum(), 1.0, 1e-9);
  EXPECT_NEAR(found.modes[0].work[1].sum(), 0.0, 1e-9);
}

// An upright element has y along Y and z against X: what moves along X bends it about y.
TEST(Buckling, TellsAboutWhichAxisTheAxialForcesWork) {
  for (const auto kind : {ElementKind::beam, ElementKind::truss}) {
    for (const std::size_t along : {0U, 1U}) {
      std::array<bool, 6> top{false, false, false, false, false, true};
      top[1 - along] = true;
      Column c = column(1, 4000.0, {true, true, true, false, false, true}, top);
      c.frame.elements[0].kind = kind;
      Spring spring{.node = 1, .stiffness = {}};
      spring.stiffness[along] = 2.0;
      c.frame.springs.push_back(spring);
      const BucklingResult found = buckle(c.frame, c.loads);
      // A pendulum on a spring: P = k·L (Timoshenko and Gere, article 2.3).
      EXPECT_NEAR(found.modes[0].factor, 2.0 * 4000.0 / 1000.0, 1e-5);
      EXPECT_NEAR(found.modes[0].work[0].about_y, along == 0 ? 1.0 : 0.0, 1e-6);
      EXPECT_NEAR(found.modes[0].work[0].about_z, along == 0 ? 0.0 : 1.0, 1e-6);
      EXPECT_NEAR(found.compression[0], 1000.0, 1e-6);
    }
  }
}

TEST(Buckling, FindsAllModesNearTheFirst) {
  // A round cantilever buckles both ways at once; the next factors are nine times as large.
  Stiffness round = plain_stiffness();
  round.iyy = round.izz;
  const Column c = column(1, 4000.0, clamped, {}, round);
  const auto axial =
      axial_forces_at_start(std::get<Solution>(analyse(c.frame, std::span(&c.loads, 1))).cases[0]);
  auto found = std::get<BucklingResult>(Buckling(c.frame).find_near(c.loads, axial));
  ASSERT_EQ(found.modes.size(), 2U);
  EXPECT_FALSE(found.has_passed_over);
  const double exact = pi * pi / 4 * round.e * round.izz / (4000.0 * 4000.0) / 1000.0;
  for (const BucklingMode& mode : found.modes) EXPECT_NEAR(mode.factor, exact, 1e-3 * exact);
}

TEST(Buckling, LooksForFewerModesInLargeFrames) {
  EXPECT_EQ(most_near_modes(0), 60);
  EXPECT_EQ(most_near_modes(1000), 60);
  EXPECT_EQ(most_near_modes(3000), 20);
  EXPECT_EQ(most_near_modes(50000), 4);
}

TEST(Buckling, BeginsANewSearchWithTheModesBefore) {
  const Column c = column(5, 4000.0, clamped, {});
  Buckling buckling(c.frame);
  const std::vector<double> axial(5, -1000.0), more(5, -1700.0);
  const auto first = buckling.find(c.loads, axial);
  const auto second = buckling.find(c.loads, more);
  const double factor = std::get<BucklingResult>(first).modes[0].factor;
  EXPECT_NEAR(std::get<BucklingResult>(second).modes[0].factor, factor / 1.7, 1e-6 * factor);
  EXPECT_LT(std::get<BucklingResult>(second).factorisations,
            std::get<BucklingResult>(first).factorisations);
}

TEST(Buckling, IsWhereSecondOrderGrowsWithoutBound) {
  Column c = column(3, 4000.0, clamped, {});
  const double factor = buckle(c.frame, c.loads).modes[0].factor;
  c.loads.nodal[0].value = {1.0, 1.0, -1000.0 * factor * 0.999, 0, 0, 0};
  const auto below = analyse_second_order(c.frame, c.loads);
  ASSERT_TRUE(std::holds_alternative<SecondOrderResult>(below));
  const Vector6& tip = std::get<SecondOrderResult>(below).result.displacements.back();
  // Grown by 1/(1 - 0.999) beside the deflection of first order, as far as the load has the mode.
  const double first = std::pow(4000.0, 3) / (3.0 * 70000.0 * 2.9e6);
  EXPECT_GT(tip[1], 900.0 * first);
  c.loads.nodal[0].value[2] = -1000.0 * factor * 1.001;
  const auto above = analyse_second_order(c.frame, c.loads);
  ASSERT_TRUE(std::holds_alternative<Problem>(above));
  EXPECT_EQ(std::get<Problem>(above).kind, Problem::Kind::buckling);
}

/// Two trusses that buckle between their nodes at one load, beside a mast that nothing presses: the
/// Euler load of a bar on hinges over its compression, whatever the loads are.
TEST(Buckling, OfTrussesBesideAnElementWithoutForces) {
  Frame frame;
  for (const double x : {-4000.0, 0.0, 4000.0}) add_node(frame, x, 0, x == 0.0 ? 200 : 0);
  add_truss(frame, 0, 1);
  add_truss(frame, 1, 2);
  add_node(frame, 0, 5000, 0);
  add_node(frame, 0, 5000, 20000);
  add_element(frame, 3, 4);
  frame.supports = {{0, pinned}, {1, {false, true}}, {2, pinned}, {3, clamped}};
  const double length = std::hypot(4000.0, 200.0);
  const double euler = pi * pi * 70000.0 * 2.9e6 / (length * length);
  for (int i = 0; i < 40; ++i) {
    const double down = 5000.0 * std::pow(1.07, i);
    LoadCase loads;
    loads.nodal.push_back({1, {0, 0, -down}});
    const CaseResult r = solved(frame, loads);
    Buckling buckling(frame);
    const auto found = buckling.find(loads, axial_forces_at_start(r));
    const double compression = down / 2 * length / 200;
    EXPECT_NEAR(std::get<BucklingResult>(found).modes.front().factor, euler / compression,
                1e-6 * euler / compression)
        << down;
  }
}

}  // namespace
}  // namespace aluframe::analysis
