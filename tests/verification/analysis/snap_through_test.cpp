// Shallow trusses and arches, which snap through, against closed forms and published curves.

#include <functional>

#include "tests/verification/analysis/large_displacements.h"

namespace aluframe::analysis {
namespace {

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

}  // namespace
}  // namespace aluframe::analysis
