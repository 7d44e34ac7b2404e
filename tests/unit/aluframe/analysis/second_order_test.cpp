#include "aluframe/analysis/second_order.h"

#include <gtest/gtest.h>

#include <numbers>

#include "frames.h"

namespace aluframe::analysis {
namespace {

constexpr double length = 4000.0;
constexpr double pi = std::numbers::pi;

SecondOrderResult second_order(const Frame& frame, const LoadCase& loads,
                               const SecondOrderOptions& options = {}) {
  auto result = analyse_second_order(frame, loads, options);
  if (const auto* problem = std::get_if<Problem>(&result)) throw std::runtime_error(problem->text);
  return std::get<SecondOrderResult>(std::move(result));
}

Problem buckling_of(const Frame& frame, const LoadCase& loads,
                    const SecondOrderOptions& options = {}) {
  auto result = analyse_second_order(frame, loads, options);
  if (auto* problem = std::get_if<Problem>(&result)) return std::move(*problem);
  throw std::runtime_error("was analysed");
}

/// One element along X. Both ends restrained sideways; stiff in the plane of y; `clamped` ends do
/// not rotate.
Frame strut(bool start_clamped, bool end_clamped, Stiffness stiffness = plain_stiffness()) {
  stiffness.izz = 1e9;
  Frame frame;
  add_node(frame, 0, 0, 0);
  add_node(frame, length, 0, 0);
  add_element(frame, 0, 1, stiffness);
  frame.supports = {{0, {true, true, true, true, start_clamped, true}},
                    {1, {false, true, true, true, end_clamped, true}}};
  return frame;
}

/// A push at the end and a uniform load of q along -Z.
LoadCase push_and_load(double push, double q) {
  LoadCase loads;
  loads.nodal.push_back({1, {-push}});
  if (q != 0.0) {
    loads.distributed.push_back({.element = 0, .from_value = {0, 0, -q}, .to_value = {0, 0, -q}});
  }
  return loads;
}

double euler_load() {
  const Stiffness s = plain_stiffness();
  return pi * pi * s.e * s.iyy / (length * length);
}

/// u = kL/2 of the stability functions under the share of the Euler load.
double half_angle(double share) {
  return pi / 2 * std::sqrt(share);
}

TEST(SecondOrder, HingedStrutUnderUniformLoadHasTheSecantMoment) {
  // M = q·L²/8 · 2(sec u − 1)/u² (Timoshenko and Gere, Theory of Elastic Stability, 1.7).
  for (const double share : {0.1, 0.5, 0.8, 0.95}) {
    const double u = half_angle(share), plain = 3.0 * length * length / 8;
    const auto r = second_order(strut(false, false), push_and_load(share * euler_load(), 3.0));
    const double expected = plain * 2 * (1 / std::cos(u) - 1) / (u * u);
    // Eight pieces buckle at a load 3e-5 higher; the moment grows by 1/(1 − share) of that.
    EXPECT_NEAR(r.result.forces[0][2][my], expected, 4e-5 / (1 - share) * expected) << share;
  }
}

TEST(SecondOrder, ClampedStrutUnderUniformLoadHasTheStabilityFunctionsMoments) {
  // End moment q·L²/12 · 3(tan u − u)/(u²·tan u) (Timoshenko and Gere, 1.11).
  const double share = 1.5, u = half_angle(share), plain = 3.0 * length * length / 12;
  const auto r = second_order(strut(true, true), push_and_load(share * euler_load(), 3.0));
  const double expected = plain * 3 * (std::tan(u) - u) / (u * u * std::tan(u));
  EXPECT_NEAR(r.result.forces[0][0][my], -expected, 2e-4 * expected);
}

TEST(SecondOrder, PullStraightensAHingedBar) {
  // M = q·L²/8 · 2(1 − sech u)/u² with a pull instead of a push.
  const double share = 2.0, u = half_angle(share), plain = 3.0 * length * length / 8;
  const auto r = second_order(strut(false, false), push_and_load(-share * euler_load(), 3.0));
  const double expected = plain * 2 * (1 - 1 / std::cosh(u)) / (u * u);
  EXPECT_NEAR(r.result.forces[0][2][my], expected, 1e-4 * plain);
}

TEST(SecondOrder, SidewaysPlaneIsTreatedAlike) {
  // The secant formula in the plane of y: a push of half that plane's Euler load.
  Frame frame = strut(false, false);
  frame.elements[0].stiffness = plain_stiffness();
  frame.supports = {{0, {true, true, true, true, true, false}},
                    {1, {false, true, true, true, true, false}}};
  const Stiffness s = plain_stiffness();
  LoadCase loads;
  loads.nodal.push_back({1, {-0.5 * pi * pi * s.e * s.izz / (length * length)}});
  loads.distributed.push_back({.element = 0, .from_value = {0, -3, 0}, .to_value = {0, -3, 0}});
  const double u = half_angle(0.5), plain = 3.0 * length * length / 8;
  const double expected = plain * 2 * (1 / std::cos(u) - 1) / (u * u);
  EXPECT_NEAR(second_order(frame, loads).result.forces[0][2][mz], expected, 1e-4 * expected);
}

TEST(SecondOrder, HingesOfAReleasedElementBowLikeThoseOfItsSupports) {
  // Ends released, not free to turn at the nodes: the same strut, its bow recovered inside.
  Frame frame = strut(true, true);
  frame.elements[0].released[4] = frame.elements[0].released[10] = true;
  const LoadCase loads = push_and_load(0.6 * euler_load(), 3.0);
  const auto released = second_order(frame, loads).result.forces[0];
  const auto supported = second_order(strut(false, false), loads).result.forces[0];
  EXPECT_EQ(released[0][my], 0.0F);
  for (std::size_t i = 1; i < 4; ++i) {
    EXPECT_THAT(released[i][my], float_near(supported[i][my], supported[2][my]));
  }
}

TEST(SecondOrder, ShearFlexibilityAddsToTheBow) {
  // M = q·EI/P·(sec(kL/2) − 1), k² = P/(EI·(1 − P/GA)): the axial force acts on the whole slope
  // (Engesser; from EI·t'' = −GA·(w' − t), (GA·(w' − t) − P·w')' = −q).
  const Stiffness s = shear_stiffness();
  const double push = 0.4 * euler_load(), ei = s.e * s.iyy, ga = s.g * s.az;
  const double k = std::sqrt(push / (ei * (1 - push / ga)));
  const double expected = 3.0 * ei / push * (1 / std::cos(k * length / 2) - 1);
  const auto r = second_order(strut(false, false, s), push_and_load(push, 3.0));
  EXPECT_NEAR(r.result.forces[0][2][my], expected, 1e-4 * expected);
}

TEST(SecondOrder, BracedPostHasTheForcesOfItsDisplacedJoint) {
  // A vertical and a diagonal truss at 45° to a joint under H and P. Displaced by u and v it turns
  // them by u/h and (u − v)/(√2·L), so that their forces push it sideways: with
  // V = N2·(u − v)/(2·L) and W = N1·u/h, N2 = √2·(H − V − W), N1 = −P − N2/√2 + V, and both from
  // the elongations v and (u + v)/√2. Each round here leaves a hundredth of the error before.
  constexpr double h = 4000.0, push = 1e5, weight = 2e5;
  const double root = std::numbers::sqrt2, diagonal = h * root;
  const double ea = plain_stiffness().e * plain_stiffness().area;
  double n1 = 0.0, n2 = 0.0, u = 0.0, v = 0.0;
  for (int i = 0; i < 50; ++i) {
    const double across = n2 * (u - v) / (2 * diagonal), lean = n1 * u / h;
    n2 = root * (push - across - lean);
    n1 = -weight - n2 / root + across;
    v = n1 * h / ea;
    u = root * n2 * diagonal / ea - v;
  }
  Frame frame;
  add_node(frame, 0, 0, 0);
  add_node(frame, -h, 0, 0);
  add_node(frame, 0, 0, h);
  for (const std::size_t foot : {0U, 1U}) {
    Element& bar = add_truss(frame, foot, 2);
    bar.stiffness.iyy = bar.stiffness.izz = 1e8;  // stays straight between its nodes
  }
  frame.supports = {{0, pinned}, {1, pinned}, {2, {false, true}}};
  LoadCase loads;
  loads.nodal.push_back({2, {push, 0, -weight}});
  const auto r = second_order(frame, loads);
  // To single precision: one round less would leave 1e-4.
  EXPECT_NEAR(r.result.forces[0][0][n], n1, 1e-6 * std::abs(n1));
  EXPECT_NEAR(r.result.forces[1][0][n], n2, 1e-6 * std::abs(n2));
  EXPECT_NEAR(r.result.displacements[2][dx], u, 1e-6 * u);
}

TEST(SecondOrder, TrussBeyondItsOwnEulerLoadIsRefused) {
  // A bar on hinges between held nodes: P = π²·E·Izz/L², its weaker axis.
  constexpr double span = 3000.0;
  const Stiffness s = plain_stiffness();
  const double euler = std::numbers::pi * std::numbers::pi * s.e * s.izz / (span * span);
  Frame frame;
  add_node(frame, 0, 0, 0);
  add_node(frame, span, 0, 0);
  add_truss(frame, 0, 1);
  frame.supports = {{0, pinned}, {1, {false, true, true, false, false, false}}};
  LoadCase loads;
  loads.nodal.push_back({1, {-0.999 * euler, 0, 0, 0, 0, 0}});
  EXPECT_TRUE(std::holds_alternative<SecondOrderResult>(analyse_second_order(frame, loads)));
  loads.nodal[0].value[0] = -1.001 * euler;
  const auto beyond = analyse_second_order(frame, loads);
  ASSERT_TRUE(std::holds_alternative<Problem>(beyond));
  EXPECT_EQ(std::get<Problem>(beyond).kind, Problem::Kind::buckling);
  EXPECT_THAT(std::get<Problem>(beyond).text, testing::HasSubstr("element 1 buckles between"));
}

TEST(SecondOrder, CantileverMastHasTheTangentMomentAtItsFoot) {
  // M = H·tan(kL)/k.
  const Stiffness s = plain_stiffness();
  Frame frame;
  add_node(frame, 0, 0, 0);
  add_node(frame, 0, 0, length);
  add_element(frame, 0, 1);
  frame.supports = {{0, clamped}, {1, {false, true}}};
  LoadCase loads;
  loads.nodal.push_back({1, {700, 0, -0.2 * euler_load()}});
  const double k = std::sqrt(0.2 * euler_load() / (s.e * s.iyy));
  const auto r = second_order(frame, loads);
  const double expected = 700 * std::tan(k * length) / k;
  EXPECT_NEAR(std::abs(r.result.forces[0][0][my]), expected, 1e-4 * expected);
  EXPECT_NEAR(r.result.reactions[0].value[ry], -expected, 1e-4 * expected);
}

// The rounding of a hundred short stiff pieces must not outgrow the loads of the slender mast.
TEST(SecondOrder, CantileverMastOfManyElementsHasTheSameMoment) {
  const Stiffness s = plain_stiffness();
  constexpr std::size_t count = 100;
  Frame frame;
  for (std::size_t i = 0; i <= count; ++i) {
    add_node(frame, 0, 0, length * static_cast<double>(i) / count);
    if (i > 0) add_element(frame, i - 1, i);
  }
  frame.supports = {{0, clamped}, {count, {false, true}}};
  LoadCase loads;
  loads.nodal.push_back({count, {700, 0, -0.2 * euler_load()}});
  const double k = std::sqrt(0.2 * euler_load() / (s.e * s.iyy));
  const auto r = second_order(frame, loads);
  const double expected = 700 * std::tan(k * length) / k;
  // Single precision of forces; the pieces are short enough to leave no error of their own.
  EXPECT_NEAR(std::abs(r.result.forces[0][0][my]), expected, 1e-6 * expected);
}

/// A pendulum of a truss on a hinge, its top restrained by a spring sideways.
Frame pendulum(double spring) {
  Frame frame;
  add_node(frame, 0, 0, 0);
  add_node(frame, 0, 0, 3000);
  add_truss(frame, 0, 1);
  frame.supports = {{0, pinned}, {1, {false, true}}};
  frame.springs.push_back({1, {spring}});
  return frame;
}

TEST(SecondOrder, LoadedPendulumOnASpringSwaysByTheReducedStiffness) {
  // u = H/(k − P/L).
  LoadCase loads;
  loads.nodal.push_back({1, {100, 0, -60000}});
  const auto r = second_order(pendulum(50.0), loads);
  EXPECT_NEAR(r.result.displacements[1][dx], 100.0 / (50 - 60000.0 / 3000), 1e-4);
}

TEST(SecondOrder, PendulumBeyondItsSpringBucklesAndItsNodeIsNamed) {
  LoadCase loads;
  loads.nodal.push_back({1, {100, 0, -160000}});
  const Problem problem = buckling_of(pendulum(50.0), loads);
  EXPECT_EQ(problem.kind, Problem::Kind::buckling);
  EXPECT_EQ(problem.text, "the frame buckles under these loads: node 2 moves along X");
}

struct Strut {
  const char* name;
  bool start_clamped, end_clamped;
  double share;  // of the Euler load, at which it buckles
};
void PrintTo(const Strut& one, std::ostream* stream) {
  *stream << one.name;
}

class BucklingStrut : public testing::TestWithParam<Strut> {};
INSTANTIATE_TEST_SUITE_P(Ends, BucklingStrut,
                         testing::Values(Strut{"Hinged", false, false, 1.0},
                                         Strut{"ClampedAtOneEnd", true, false,
                                               2.045748},  // tan x = x: (4.493409/pi)^2
                                         Strut{"ClampedAtBoth", true, true, 4.0}),
                         [](const auto& one) { return one.param.name; });

TEST_P(BucklingStrut, CarriesJustLessThanItsBucklingLoad) {
  const auto& [name, start, end, share] = GetParam();
  const LoadCase loads = push_and_load(0.999 * share * euler_load(), 0.0);
  EXPECT_NEAR(second_order(strut(start, end), loads).result.forces[0][2][n],
              -0.999 * share * euler_load(), 1.0);
}

TEST_P(BucklingStrut, BucklesUnderJustMore) {
  const auto& [name, start, end, share] = GetParam();
  const Problem problem =
      buckling_of(strut(start, end), push_and_load(1.002 * share * euler_load(), 0.0));
  EXPECT_EQ(problem.kind, Problem::Kind::buckling);
}

// Loads in the stiff plane alone do not move what buckles out of it: the equations have a solution.
TEST(SecondOrder, StrutBendingAboutItsStiffAxisBucklesAboutTheOther) {
  for (const double share : {0.9, 1.1, 1.5}) {
    LoadCase loads = push_and_load(share * euler_load(), 0.0);
    loads.distributed.push_back({.element = 0, .from_value = {0, 1, 0}, .to_value = {0, 1, 0}});
    if (share < 1.0) {
      EXPECT_NO_THROW(second_order(strut(false, false), loads));
    } else {
      EXPECT_EQ(buckling_of(strut(false, false), loads).kind, Problem::Kind::buckling) << share;
    }
  }
}

// Beside what is much softer, and in equilibrium, a strut beyond its buckling load shows in nothing
// but the sign of a pivot.
TEST(SecondOrder, StrutBucklesBesideASoftCantilever) {
  Frame frame = strut(false, false);
  Stiffness soft = plain_stiffness();
  for (double* value : {&soft.iyy, &soft.izz, &soft.it}) *value /= 1e4;
  add_node(frame, 0, 5000, 0);
  add_node(frame, 1000, 5000, 0);
  add_element(frame, 2, 3, soft);
  frame.supports.push_back({2, clamped});
  for (const double share : {1.1, 1.5, 2.5}) {
    LoadCase loads = push_and_load(share * euler_load(), 0.0);
    loads.distributed.push_back({.element = 0, .from_value = {0, 1, 0}, .to_value = {0, 1, 0}});
    EXPECT_EQ(buckling_of(frame, loads).kind, Problem::Kind::buckling) << share;
  }
}

TEST(SecondOrder, ElementThatBucklesBetweenClampedNodesIsNamed) {
  const Problem problem = buckling_of(strut(true, true), push_and_load(5 * euler_load(), 0.0));
  EXPECT_THAT(problem.text, testing::StartsWith("element 1 buckles between its nodes: its axial "
                                                "force reaches -"));
  EXPECT_THAT(problem.text, testing::EndsWith(" N"));
  EXPECT_EQ(problem.element, 0U);
}

TEST(SecondOrder, PortalThatSwaysUnderItsColumnsBucklesSideways) {
  Frame frame;
  add_node(frame, 0, 0, 0);
  add_node(frame, 0, 0, 3000);
  add_node(frame, 5000, 0, 3000);
  add_node(frame, 5000, 0, 0);
  // Across, where their tops are held but may turn, the columns would buckle first otherwise.
  Stiffness stiff_across = plain_stiffness();
  stiff_across.izz *= 10.0;
  for (const auto& [start, end] : {std::pair{0U, 1U}, {1U, 2U}, {3U, 2U}}) {
    add_element(frame, start, end, stiff_across);
  }
  frame.supports = {{0, clamped}, {3, clamped}, {1, {false, true}}, {2, {false, true}}};
  LoadCase loads;
  for (const std::size_t top : {1U, 2U}) loads.nodal.push_back({top, {0, 0, -8e5}});
  EXPECT_EQ(buckling_of(frame, loads).text,
            "the frame buckles under these loads: nodes 2-3 move along X");
}

TEST(SecondOrder, WithoutAxialForceIsTheFirstOrder) {
  const LoadCase loads = push_and_load(0.0, 3.0);
  const auto r = second_order(strut(true, false, shear_stiffness()), loads);
  const CaseResult first = solved(strut(true, false, shear_stiffness()), loads);
  for (std::size_t i = 0; i < 5; ++i) {
    EXPECT_THAT(r.result.forces[0][i][my], float_near(first.forces[0][i][my], 6e6));
  }
  EXPECT_EQ(r.iterations, 1);
}

TEST(SecondOrder, AxialForceThatVariesAlongTheElementCountsWhereItIs) {
  // A mast under its own weight alone buckles at q·L = 7.837·EI/L² (Timoshenko and Gere, 2.12).
  const Stiffness s = plain_stiffness();
  const double critical = 7.837 * s.e * s.iyy / (length * length * length);
  Frame frame;
  add_node(frame, 0, 0, 0);
  add_node(frame, 0, 0, length);
  add_element(frame, 0, 1);
  frame.supports = {{0, clamped}, {1, {false, true, false, true, false, true}}};
  LoadCase below, above;
  for (const auto& [loads, q] : {std::pair{&below, 0.995}, {&above, 1.005}}) {
    const Vector3 weight{-q * critical, 0, 0};
    loads->distributed.push_back({.element = 0, .from_value = weight, .to_value = weight});
  }
  EXPECT_NO_THROW(second_order(frame, below));
  EXPECT_EQ(buckling_of(frame, above).kind, Problem::Kind::buckling);
}

TEST(SecondOrder, TellsItsConvergence) {
  const auto r = second_order(strut(false, false), push_and_load(0.5 * euler_load(), 3.0));
  EXPECT_THAT(r.message(), testing::StartsWith("in equilibrium after "));
  EXPECT_LE(r.change, 1e-6);
}

TEST(SecondOrder, WithoutIterationsLeftIsAProblem) {
  // The two columns share the load anew at every step.
  Frame frame;
  add_node(frame, 0, 0, 0);
  add_node(frame, 0, 0, 3000);
  add_node(frame, 4000, 0, 3000);
  add_node(frame, 4000, 0, 0);
  add_element(frame, 0, 1);
  add_element(frame, 1, 2);
  add_element(frame, 3, 2);
  frame.supports = {{0, clamped}, {3, clamped}, {1, {false, true}}, {2, {false, true}}};
  LoadCase loads;
  loads.nodal = {{1, {20000, 0, -5e4}}, {2, {0, 0, -5e4}}};
  const Problem problem = buckling_of(frame, loads, {.most_iterations = 1, .tolerance = 1e-14});
  EXPECT_EQ(problem.kind, Problem::Kind::divergence);
  EXPECT_THAT(problem.text, testing::StartsWith("no equilibrium of second order after 1 "));
}

TEST(SecondOrder, MechanismIsOneBeforeAnyAxialForce) {
  EXPECT_EQ(buckling_of(pendulum(0.0), push_and_load(0.0, 0.0)).kind, Problem::Kind::mechanism);
}

TEST(SecondOrder, BadInputIsAProblem) {
  LoadCase loads;
  loads.nodal.push_back({9, {1}});
  EXPECT_EQ(buckling_of(pendulum(1.0), loads).kind, Problem::Kind::input);
}

}  // namespace
}  // namespace aluframe::analysis
