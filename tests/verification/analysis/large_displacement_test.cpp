// Large displacements against closed forms and published curves.

#include "aluframe/analysis/large_displacement.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cmath>
#include <functional>
#include <numbers>

#include "tests/unit/aluframe/analysis/frames.h"

namespace aluframe::analysis {
namespace {

constexpr double pi = std::numbers::pi;

CaseResult displaced(const Frame& frame, const LoadCase& loads) {
  auto result = analyse_large_displacements(frame, loads);
  if (const auto* problem = std::get_if<Problem>(&result)) throw std::runtime_error(problem->text);
  return std::get<SecondOrderResult>(std::move(result)).result;
}

LimitLoad limit_of(const Frame& frame, const LoadCase& loads, double largest = 10.0) {
  auto result = find_limit_load(frame, loads, largest);
  if (const auto* problem = std::get_if<Problem>(&result)) throw std::runtime_error(problem->text);
  return std::get<LimitLoad>(std::move(result));
}

/// The largest value of a function with one maximum between two places.
double maximum_of(const std::function<double(double)>& f, double low, double high) {
  for (int i = 0; i < 200; ++i) {
    const double a = low + (high - low) / 3, b = high - (high - low) / 3;
    (f(a) < f(b) ? low : high) = f(a) < f(b) ? a : b;
  }
  return f(low);
}

// ---- Two-bar trusses -------------------------------------------------------------------------

constexpr double half_span = 1000.0;

/// Two bars from supports to an apex that moves in the plane of X and Z.
Frame two_bars(double rise, ElementKind kind, Stiffness stiffness) {
  Frame frame;
  add_node(frame, 0, 0, 0);
  add_node(frame, half_span, 0, rise);
  add_node(frame, 2 * half_span, 0, 0);
  for (const auto& [from, to] : {std::pair{0, 1}, std::pair{1, 2}}) {
    add_element(frame, static_cast<std::size_t>(from), static_cast<std::size_t>(to), stiffness)
        .kind = kind;
  }
  frame.supports = {{0, pinned}, {1, {false, true}}, {2, pinned}};
  return frame;
}

LoadCase down_at_apex(double load) {
  LoadCase loads;
  loads.nodal.push_back({1, {0, 0, -load}});
  return loads;
}

Stiffness bar() {
  return {.e = 70000.0, .g = 27000.0, .area = 500.0};
}

/// The load of an apex that has come down by w, with N = EA·(L - L0)/L0 in both bars along their
/// displaced axes.
double load_of_apex(double rise, double w) {
  const double before = std::hypot(half_span, rise), now = std::hypot(half_span, rise - w);
  const double push = bar().e * bar().area * (before - now) / before;
  return 2 * push * (rise - w) / now;
}

class TwoBarTruss : public testing::TestWithParam<double> {};

TEST_P(TwoBarTruss, SnapsThroughAtItsLimitLoad) {
  const double rise = GetParam();
  const double exact = maximum_of([&](double w) { return load_of_apex(rise, w); }, 0, rise);
  const Frame frame = two_bars(rise, ElementKind::truss, bar());
  const LimitLoad found = limit_of(frame, down_at_apex(exact));
  EXPECT_EQ(found.kind, LimitLoad::Kind::snap_through);
  EXPECT_NEAR(found.factor, 1.0, 1e-4);  // the bracket that it is closed in by
  EXPECT_EQ(found.text, "node 2 moves along Z");
}

TEST_P(TwoBarTruss, StandsBelowItsLimitLoadWithTheDisplacementOfTheClosedForm) {
  const double rise = GetParam(), w = 0.35 * rise;  // the limit is at 0.42
  const CaseResult r =
      displaced(two_bars(rise, ElementKind::truss, bar()), down_at_apex(load_of_apex(rise, w)));
  EXPECT_NEAR(r.displacements[1][dz], -w, 1e-8 * w);
  const double before = std::hypot(half_span, rise), now = std::hypot(half_span, rise - w);
  EXPECT_THAT(r.forces[0][2][n], float_near(bar().e * bar().area * (now - before) / before, 100.0));
  EXPECT_LT(r.equilibrium.nodes, 1e-9);
}

TEST_P(TwoBarTruss, IsRefusedAboveItsLimitLoad) {
  const double rise = GetParam();
  const double exact = maximum_of([&](double w) { return load_of_apex(rise, w); }, 0, rise);
  const Frame frame = two_bars(rise, ElementKind::truss, bar());
  EXPECT_NO_THROW(displaced(frame, down_at_apex(0.999 * exact)));
  for (const double factor : {1.001, 1.2, 5.0, 1000.0}) {
    const auto above = analyse_large_displacements(frame, down_at_apex(factor * exact));
    const auto& problem = std::get<Problem>(above);
    EXPECT_EQ(problem.kind, Problem::Kind::buckling);
    EXPECT_THAT(problem.text, testing::StartsWith("the frame snaps through at ")) << factor;
  }
}

INSTANTIATE_TEST_SUITE_P(Rises, TwoBarTruss, testing::Values(20.0, 50.0, 200.0, 700.0),
                         [](const auto& of) {
                           return "rise_" + std::to_string(static_cast<int>(of.param));
                         });

// ---- Two bars beside what moves more ---------------------------------------------------------

/// The two bars, and a slender mast apart from them, clamped at its foot and pushed at its top:
/// it moves many times as far as their apex, which does not feel it. Its push is below the one that
/// buckles it sideways, 4.01·√(EI·GIt)/L².
Frame bars_beside_a_mast(double rise, double height) {
  Frame frame = two_bars(rise, ElementKind::truss, bar());
  add_node(frame, half_span, 5000, 0);
  add_node(frame, half_span, 5000, height);
  add_element(frame, 3, 4);
  frame.supports.push_back({3, clamped});
  return frame;
}

struct Beside {
  double share;   ///< of the limit load
  double height;  ///< of the mast, mm
  double push;    ///< at its top, N
};

class BarsBesideAMast : public testing::TestWithParam<Beside> {
 protected:
  static constexpr double rise = 50.0;
  const double exact = maximum_of([](double w) { return load_of_apex(rise, w); }, 0, rise);
  const Frame frame = bars_beside_a_mast(rise, GetParam().height);
  LoadCase loads() const {
    LoadCase loads = down_at_apex(GetParam().share * exact);
    loads.nodal.push_back({4, {GetParam().push, 0, 0}});
    return loads;
  }
};

TEST_P(BarsBesideAMast, SnapThroughAtTheirOwnLimitLoadHoweverFarIsLooked) {
  for (const double largest : {2.0, 5.0, 10.0, 20.0, 50.0}) {
    if (largest < 1.01 / GetParam().share) continue;
    const LimitLoad found = limit_of(frame, loads(), largest);
    EXPECT_EQ(found.kind, LimitLoad::Kind::snap_through) << largest;
    EXPECT_NEAR(found.factor, 1.0 / GetParam().share, 2e-4 / GetParam().share) << largest;
    EXPECT_EQ(found.text, "node 2 moves along Z") << largest;
  }
}

TEST_P(BarsBesideAMast, AreRefusedAboveIt) {
  const auto answer = analyse_large_displacements(frame, loads());
  EXPECT_EQ(std::holds_alternative<Problem>(answer), GetParam().share > 1.0);
}

INSTANTIATE_TEST_SUITE_P(Loads, BarsBesideAMast,
                         testing::Values(Beside{0.2, 6000, 100}, Beside{0.2, 12000, 100},
                                         Beside{0.5, 12000, 400}, Beside{0.8, 20000, 300},
                                         Beside{1.05, 20000, 300}, Beside{1.2, 12000, 600},
                                         Beside{2.0, 12000, 600}, Beside{3.0, 20000, 100}));

/// As far as a factor is looked for does not make it less certain: a strut on hinges, which its
/// load shortens by N/EA before it bends out, so that its Euler load is that of the shorter length.
TEST(LimitLoadOfAStrut, IsThatOfEulerHoweverFarIsLooked) {
  constexpr double length = 3000.0, load = 10000.0;
  Frame frame = cantilever(length);
  frame.supports = {{0, {true, true, true, true, false, false}}, {1, {false, true, true}}};
  LoadCase loads;
  loads.nodal.push_back({1, {-load, 0, 0}});
  const Stiffness s = plain_stiffness();
  const double euler = pi * pi * s.e * s.izz / (length * length);
  for (const double largest : {70.0, 200.0, 1e4, 1e6}) {
    // Pieces with cubic shapes buckle 3e-5 too late, and N/EA of their length is 3e-3.
    EXPECT_NEAR(limit_of(frame, loads, largest).factor, euler / load, 5e-3 * euler / load)
        << largest;
  }
}

// ---- Loads that leave a frame without forces -------------------------------------------------

/// A bar that is warmer above bends to an arc without stress: κ = α·ΔT/h.
TEST(WithoutForces, ADifferenceOfTemperatureBendsACantileverToAnArc) {
  constexpr double length = 3000.0, depth = 100.0, expansion = 2.3e-5;
  Frame frame = cantilever(length);
  frame.elements[0].expansion = expansion;
  for (const double difference : {1.0, 30.0, 600.0}) {
    LoadCase loads;
    loads.temperatures.push_back({.element = 0, .difference_z = difference, .depth_z = depth});
    const CaseResult r = displaced(frame, loads);
    const double turn = expansion * difference / depth * length, radius = length / turn;
    EXPECT_NEAR(std::abs(r.displacements[1][dz]), radius * (1 - std::cos(turn)), 1e-3)
        << difference;
    EXPECT_NEAR(r.displacements[1][dx], radius * std::sin(turn) - length, 1e-3) << difference;
  }
}

/// A beam on hinges turns as a rigid body when a support comes down.
TEST(WithoutForces, ASettlementTurnsABeamOnHinges) {
  constexpr double length = 4000.0;
  Frame frame = cantilever(length);
  frame.supports = {{0, {true, true, true, true, false, false}}, {1, {false, true, true}}};
  for (const double down : {1.0, 100.0, 1000.0}) {
    LoadCase loads;
    loads.settlements.push_back({1, dz, -down});
    const CaseResult r = displaced(frame, loads);
    EXPECT_NEAR(r.displacements[1][dx], std::sqrt(length * length - down * down) - length,
                1e-6 * down)
        << down;
    EXPECT_NEAR(r.displacements[1][ry], std::asin(down / length), 1e-6) << down;
  }
}

/// The end of a clamped bar that turns with its support.
TEST(WithoutForces, ATurnedSupportTurnsACantilever) {
  constexpr double length = 1000.0;
  for (const double turn : {0.01, 0.3, 1.2}) {
    LoadCase loads;
    loads.settlements.push_back({0, ry, turn});
    const CaseResult r = displaced(cantilever(length), loads);
    EXPECT_NEAR(r.displacements[1][dz], -length * std::sin(turn), 1e-4) << turn;
    EXPECT_NEAR(r.displacements[1][dx], length * (std::cos(turn) - 1), 1e-4) << turn;
  }
}

// ---- Strongly pulled beams --------------------------------------------------------------------

/// A clamped bar under a load across and a pull: with k² = N/EI and u = kL/2 the moment at its ends
/// is -q/k²·(u·coth u - 1), and in the middle q/k²·(1 - u/sinh u).
TEST(PulledBeam, HasTheMomentsOfTheTie) {
  constexpr double length = 3000.0, q = 0.01;
  const double area = pi * 25.0, inertia = pi * 625.0 / 4.0;  // a rod of 10 mm
  Frame frame = cantilever(length, {.e = 70000.0,
                                    .g = 27000.0,
                                    .area = area,
                                    .it = 2 * inertia,
                                    .iyy = inertia,
                                    .izz = inertia});
  frame.supports.push_back({1, {false, true, true, true, true, true}});
  for (const double pull : {1000.0, 10000.0, 20000.0}) {
    LoadCase loads;
    loads.nodal.push_back({1, {pull, 0, 0}});
    loads.distributed.push_back({.element = 0, .from_value = {0, 0, -q}, .to_value = {0, 0, -q}});
    const CaseResult r = displaced(frame, loads);
    const double k = std::sqrt(pull / (70000.0 * inertia)), u = k * length / 2;
    const double at_end = -q / (k * k) * (u / std::tanh(u) - 1);
    const double in_middle = q / (k * k) * (1 - u / std::sinh(u));
    // Cubic shapes of pieces up to kl = 0.8: its fourth power over 720.
    EXPECT_NEAR(r.forces[0][0][my], at_end, 2e-3 * -at_end) << pull;
    EXPECT_NEAR(r.forces[0][2][my], in_middle, 2e-3 * in_middle) << pull;
  }
}

// ---- Stiff links ------------------------------------------------------------------------------

std::pair<Frame, LoadCase> cantilever_with_link(double l, double a, double times, double load) {
  Frame frame = cantilever(l);
  add_node(frame, l + a, 0, 0);
  Stiffness stiff = plain_stiffness();
  for (double* const value : {&stiff.area, &stiff.it, &stiff.iyy, &stiff.izz}) *value *= times;
  add_element(frame, 1, 2, stiff);
  LoadCase loads;
  loads.nodal.push_back({2, {0, 0, -load}});
  return {frame, loads};
}

/// A cantilever whose last tenth is many times as stiff: the load at its end acts on the bar with a
/// moment, so that the bar's end moves by P·l³/3EI + P·a·l²/2EI and turns by P·l²/2EI + P·a·l/EI,
/// with which the link turns.
TEST(StiffLink, AtTheEndOfACantilever) {
  constexpr double l = 900.0, a = 100.0, load = 30.0;
  for (const double times : {30.0, 300.0, 1000.0}) {
    const auto [frame, loads] = cantilever_with_link(l, a, times, load);
    const double ei = plain_stiffness().e * plain_stiffness().iyy;
    const double turn = load * (l * l / 2 + a * l) / ei;
    const double down = load * (l * l * l / 3 + a * l * l / 2) / ei + a * turn;
    const double in_link = load * a * a * a / 3 / (ei * times);
    const CaseResult r = displaced(frame, loads);
    // Rotations of 3e-5, whose squares are left out here.
    EXPECT_NEAR(r.displacements[2][dz], -(down + in_link), 1e-6 * down) << times;
  }
}

TEST(StiffLink, BeyondWhatRoundingAllowsIsRefusedWithTheReason) {
  const auto [frame, loads] = cantilever_with_link(900.0, 100.0, 1e8, 30.0);
  const auto answer = analyse_large_displacements(frame, loads);
  EXPECT_THAT(std::get<Problem>(answer).text, testing::HasSubstr("rounding in the stiffest"));
}

// ---- Williams' toggle: F. W. Williams, Q. J. Mech. Appl. Math. 17 (1964) 451 ------------------

/// Its half, a bar whose ends do not turn, by stability functions with bowing: the load when the
/// chord has come down to an angle. Lengths in inches, forces in pounds.
struct Toggle {
  static constexpr double span = 12.943, rise = 0.386, ea = 1.885e6, ei = 9.27e3;
  double length = std::hypot(span, rise), start = std::atan2(rise, span);

  /// Rotation of both ends against the chord; v = L/2·sqrt(N/EI).
  static double shape(double v) { return std::cos(v) - std::sin(v) / v; }
  double bow(double turn, double push) const {
    const double v = length / 2 * std::sqrt(push / ei), s = std::sin(v) / v;
    const double c = turn / shape(v);
    return c * c * length / 2 * ((1 + std::sin(2 * v) / (2 * v)) / 2 - s * s);
  }
  double push(double angle) const {
    double low = 1e-6, high = 0.99 * 4 * pi * pi * ei / (length * length);
    const auto excess = [&](double n) {
      return length - n * length / ea - bow(start - angle, n) - span / std::cos(angle);
    };
    for (int i = 0; i < 200; ++i) {
      const double middle = (low + high) / 2;
      (excess(middle) > 0 ? low : high) = middle;
    }
    return low;
  }
  double load(double angle) const {
    const double n = push(angle), k = std::sqrt(n / ei), v = k * length / 2;
    const double moment = -ei * k * std::sin(v) * (start - angle) / shape(v);
    const double chord = span / std::cos(angle);
    return 2 * (n * std::sin(angle) + 2 * moment / chord * std::cos(angle));
  }
};

TEST(WilliamsToggle, FollowsThePathOfStabilityFunctions) {
  const Toggle toggle;
  Stiffness s{.e = 1.03e7, .g = 4e6, .area = 0.0, .it = 1e-2, .iyy = 0.0, .izz = 1.0};
  s.area = Toggle::ea / s.e;
  s.iyy = Toggle::ei / s.e;
  Frame frame;
  add_node(frame, 0, 0, 0);
  add_node(frame, Toggle::span, 0, Toggle::rise);
  add_node(frame, 2 * Toggle::span, 0, 0);
  add_element(frame, 0, 1, s);
  add_element(frame, 1, 2, s);
  frame.supports = {{0, clamped}, {2, clamped}};
  const double limit = maximum_of([&](double angle) { return toggle.load(angle); },
                                  0.3 * toggle.start, toggle.start);
  const LimitLoad found = limit_of(frame, down_at_apex(limit));
  EXPECT_EQ(found.kind, LimitLoad::Kind::snap_through);
  EXPECT_NEAR(found.factor, 1.0, 5e-4);
  for (const double part : {0.9, 0.7, 0.5}) {
    const double angle = part * toggle.start;
    const double w = Toggle::rise - Toggle::span * std::tan(angle);
    const CaseResult r = displaced(frame, down_at_apex(toggle.load(angle)));
    // Pieces bend by cubics: 1e-4. The slope of the path is low, so displacements err by more.
    EXPECT_NEAR(r.displacements[1][dz], -w, 1e-3 * w) << part;
  }
}

// ---- Cantilevers ------------------------------------------------------------------------------

/// K. E. Bisshopp and D. C. Drucker, Quart. Appl. Math. 3 (1945) 272: a cantilever under a load at
/// its tip that stays vertical, by elliptic integrals of the modulus k.
struct Elastica {
  double k = 0.0, load = 0.0;  ///< P·L²/EI

  explicit Elastica(double modulus) : k(modulus) {
    const double start = std::asin(1 / (k * std::sqrt(2.0)));
    const double root = std::comp_ellint_1(k) - std::ellint_1(k, start);
    load = root * root;
    down = 1 - 2 / root * (std::comp_ellint_2(k) - std::ellint_2(k, start));
    const double sine = 2 * k * k - 1;
    back = 1 - std::sqrt(2 * sine / load);
    turn = std::asin(sine);
  }
  double down = 0.0, back = 0.0, turn = 0.0;  ///< of the tip: parts of the length; rad
};

/// 500 times as long as its radius of gyration: it shortens by 4e-5 at most.
Stiffness thin() {
  return {.e = 70000.0, .g = 27000.0, .area = 250.0, .it = 1e3, .iyy = 1e3, .izz = 2e3};
}

class ElasticaTest : public testing::TestWithParam<double> {};

TEST_P(ElasticaTest, IsMetByOneElement) {
  const Elastica exact(GetParam());
  constexpr double length = 1000.0;
  const Stiffness s = thin();
  LoadCase loads;
  loads.nodal.push_back({1, {0, 0, -exact.load * s.e * s.iyy / (length * length)}});
  const CaseResult r = displaced(cantilever(length, s), loads);
  // Eight pieces, the softest one turning by a quarter of the whole angle: 5e-3 at 82 degrees.
  const double tolerance = exact.load < 3 ? 5e-4 : 5e-3;
  EXPECT_NEAR(r.displacements[1][dz] / length, -exact.down, tolerance * exact.down);
  EXPECT_NEAR(r.displacements[1][dx] / length, -exact.back, tolerance * exact.back);
  EXPECT_NEAR(r.displacements[1][ry], exact.turn, tolerance * exact.turn);
  // The clamping moment balances the load at its displaced arm; single precision.
  const double arm = length + r.displacements[1][dx];
  EXPECT_NEAR(r.reactions[0].value[ry], loads.nodal[0].value[2] * arm,
              1e-6 * std::abs(loads.nodal[0].value[2] * arm));
}

// Loads P·L²/EI of 0.65, 2.2 and 9.9.
INSTANTIATE_TEST_SUITE_P(Moduli, ElasticaTest, testing::Values(0.80, 0.93, 0.9975),
                         [](const auto& of) {
                           return "modulus_" + std::to_string(static_cast<int>(1e4 * of.param));
                         });

TEST(LargeDisplacement, AnEndMomentBendsACantileverToACircle) {
  constexpr double length = 1000.0;
  const Stiffness s = thin();
  for (const double angle : {0.5 * pi, pi, 1.9 * pi}) {
    LoadCase loads;
    loads.nodal.push_back({1, {0, 0, 0, 0, -angle * s.e * s.iyy / length, 0}});
    Frame frame = cantilever(length, s);
    frame.supports.push_back({1, {false, true, false, true, false, true}});  // stays in its plane
    const CaseResult r = displaced(frame, loads);
    const double radius = length / angle;
    // Chords of eight pieces are those of arcs to (angle/16)^4/120.
    const double tolerance = 2e-3 * length;
    EXPECT_NEAR(r.displacements[1][dx], radius * std::sin(angle) - length, tolerance) << angle;
    EXPECT_NEAR(r.displacements[1][dz], radius * (1 - std::cos(angle)), tolerance) << angle;
  }
}

TEST(LargeDisplacement, ABendOf45DegreesMovesInSpaceAsPublished) {
  // K.-J. Bathe and S. Bolourchi, Int. J. Numer. Meth. Engng 14 (1979) 961: radius 100, section
  // 1 x 1, E = 1e7, no lateral contraction, load 300 and 600 across the plane of the bend.
  const Stiffness s{.e = 1e7,
                    .g = 5e6,
                    .area = 1.0,
                    .ay = 5.0 / 6.0,
                    .az = 5.0 / 6.0,
                    .it = 1.0 / 6.0,
                    .iyy = 1.0 / 12.0,
                    .izz = 1.0 / 12.0};
  Frame frame;
  constexpr int count = 8;
  for (int i = 0; i <= count; ++i) {
    const double angle = pi / 4 * i / count;
    add_node(frame, 100 * (1 - std::cos(angle)), 100 * std::sin(angle), 0);
  }
  for (std::size_t i = 0; i < count; ++i) add_element(frame, i, i + 1, s);
  frame.supports.push_back({0, clamped});
  const auto tip = [&](double load) {
    LoadCase loads;
    loads.nodal.push_back({count, {0, 0, load}});
    const Vector6 moved = displaced(frame, loads).displacements[count];
    const Node& node = frame.nodes[count];
    return std::array{node.x + moved[0], node.y + moved[1], moved[2]};
  };
  // Published positions differ from one another by about 1 % of the displacement.
  EXPECT_THAT(tip(300), testing::Pointwise(testing::DoubleNear(0.7), {22.5, 59.2, 39.5}));
  EXPECT_THAT(tip(600), testing::Pointwise(testing::DoubleNear(0.7), {15.9, 47.2, 53.4}));
}

// ---- Shallow arches: S. P. Timoshenko and J. M. Gere, Theory of Elastic Stability, 7.7 ---------

/// An arch a·sin(πx/L) on hinges under a load q·sin(πx/L), in parts of π⁴·EI·a/L⁴: with b = β·a
/// left of the rise, q = 1 - β + β(1 - β²)/m and m = 4·I/(A·a²). Its maximum is the limit point; at
/// the thrust 4π²·EI/L² it gives way to one side, which comes first for m below 2/11.
double arch_limit(double m) {
  return 1 + std::sqrt(4 * std::pow(1 - m, 3) / (27 * m * m));
}
double arch_bifurcation(double m) {
  return 1 + 3 * std::sqrt(1 - 4 * m);
}

struct Arch {
  Frame frame;
  LoadCase loads;
};

Arch shallow_arch(double m) {
  constexpr double span = 20000.0, rise = span / 200;
  constexpr std::size_t count = 24;
  Stiffness s{.e = 70000.0, .g = 27000.0, .area = 1000.0, .it = 1e6};
  s.iyy = m * s.area * rise * rise / 4;
  s.izz = 100 * s.iyy;
  Arch arch;
  for (std::size_t i = 0; i <= count; ++i) {
    const double x = span * static_cast<double>(i) / count;
    add_node(arch.frame, x, 0, rise * std::sin(pi * x / span));
    arch.frame.supports.push_back({i, {false, true, false, true, false, true}});
  }
  arch.frame.supports.front().fixed =
      arch.frame.supports.back().fixed = {true, true, true, true, false, true};
  const double unit = std::pow(pi / span, 4) * s.e * s.iyy * rise;
  for (std::size_t i = 0; i < count; ++i) {
    add_element(arch.frame, i, i + 1, s);
    const auto q = [&](std::size_t node) {
      return -unit * std::sin(pi * static_cast<double>(node) / count);
    };
    arch.loads.distributed.push_back({.element = i,
                                      .axes = LoadAxes::projected,
                                      .from_value = {0, 0, q(i)},
                                      .to_value = {0, 0, q(i + 1)}});
  }
  return arch;
}

TEST(ShallowArch, SnapsThroughAtTimoshenkosLimitLoad) {
  for (const double m : {0.3, 0.5, 0.7}) {
    const Arch arch = shallow_arch(m);
    const LimitLoad found = limit_of(arch.frame, arch.loads);
    EXPECT_EQ(found.kind, LimitLoad::Kind::snap_through) << m;
    // Loads linear between 24 sine values are (π/24)²/12 = 1.4e-3 too small, and the arch is no
    // parabola: 5e-3 in all.
    EXPECT_NEAR(found.factor, arch_limit(m), 5e-3 * arch_limit(m)) << m;
  }
}

/// An arch just too flat to snap through (m = 1.05) comes down fast around q = 1. The path steps
/// over loads that are asked for there, and has to come back to them.
TEST(ShallowArch, StandsUnderEveryLoadOfAPathThatAllButSnaps) {
  constexpr double m = 1.05, rise = 100.0;
  const Arch arch = shallow_arch(m);
  for (int i = 1; i <= 40; ++i) {
    const double q = 0.05 * i;
    double low = -2.0, high = 1.0;  // of β, which falls as the load grows
    for (int k = 0; k < 60; ++k) {
      const double beta = (low + high) / 2;
      (1 - beta + beta * (1 - beta * beta) / m > q ? low : high) = beta;
    }
    LoadCase loads = arch.loads;
    for (DistributedLoad& load : loads.distributed) {
      load.from_value[2] *= q;
      load.to_value[2] *= q;
    }
    // The load is 5e-3 off, as above, and ten times that where the path is flat.
    const double down = -displaced(arch.frame, loads).displacements[12][dz];
    EXPECT_NEAR(down, rise * (1 - low), 0.05 * rise * q + 0.5) << q;
  }
}

TEST(ShallowArch, GivesWayToOneSideAtTimoshenkosThrust) {
  for (const double m : {0.02, 0.1}) {
    const Arch arch = shallow_arch(m);
    const LimitLoad found = limit_of(arch.frame, arch.loads);
    EXPECT_EQ(found.kind, LimitLoad::Kind::buckling) << m;
    EXPECT_NEAR(found.factor, arch_bifurcation(m), 5e-3 * arch_bifurcation(m)) << m;
  }
}

// ---- Columns ----------------------------------------------------------------------------------

TEST(LargeDisplacement, AColumnOfOneElementBucklesAtEulersLoads) {
  // Clamped-free, hinged and clamped at both ends: effective lengths 2, 1 and 1/2.
  constexpr double length = 4000.0;
  Stiffness s = plain_stiffness();
  s.izz = 1e9;
  const double euler = pi * pi * s.e * s.iyy / (length * length);
  const auto factor_of = [&](const Support& start, const Support& end, double load) {
    Frame frame = cantilever(length, s);
    frame.supports = {start, end};
    LoadCase loads;
    loads.nodal.push_back({1, {-load}});
    const LimitLoad found = limit_of(frame, loads, 2.0);
    EXPECT_EQ(found.kind, LimitLoad::Kind::buckling);
    return found.factor;
  };
  const Support held{0, clamped}, hinged{0, {true, true, true, true, false, true}};
  const Support free{1, {false, true, false, true, false, true}},
      rolling{1, {false, true, true, true, false, true}},
      guided{1, {false, true, true, true, true, true}};
  // The bar is shortened by σ/E = 2e-3 to 8e-3 before it buckles, which raises its load by twice
  // that; bracket 1e-4; pieces 5e-4 (clamped at both ends).
  const double shortening = euler / (s.e * s.area);
  EXPECT_NEAR(factor_of(held, free, euler / 4), 1.0, 2 * shortening + 2e-4);
  EXPECT_NEAR(factor_of(hinged, rolling, euler), 1.0, 2 * shortening + 2e-4);
  EXPECT_NEAR(factor_of(held, guided, 4 * euler), 1.0, 8 * shortening + 7e-4);
}

TEST(LargeDisplacement, ABeamOnForksBucklesSidewaysAtTimoshenkosLoad) {
  // Under a force at its middle: 16.94·√(EIz·GIt)/L² (Timoshenko and Gere, 6.5), without warping;
  // bending in its own plane before raises it by 1/√(1 - Iz/Iy) at most, 0.5 %.
  constexpr double length = 4000.0;
  Stiffness s = plain_stiffness();
  s.iyy = 2e7;
  s.izz = 2e5;
  s.it = 4e5;
  Frame frame;
  for (const double x : {0.0, 0.5, 1.0}) add_node(frame, x * length, 0, 0);
  add_element(frame, 0, 1, s);
  add_element(frame, 1, 2, s);
  frame.supports = {{0, {true, true, true, true}}, {2, {false, true, true, true}}};
  LoadCase loads;
  const double critical = 16.94 * std::sqrt(s.e * s.izz * s.g * s.it) / (length * length);
  loads.nodal.push_back({1, {0, 0, -critical}});
  const LimitLoad found = limit_of(frame, loads);
  EXPECT_EQ(found.kind, LimitLoad::Kind::buckling);
  EXPECT_EQ(found.text, "node 2 moves along Y");
  EXPECT_NEAR(found.factor, 1.0, 5e-3);
}

}  // namespace
}  // namespace aluframe::analysis
