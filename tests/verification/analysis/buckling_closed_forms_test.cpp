// Factors of columns and plane frames whose equation of buckling is known, one element a member.
// Each equation is derived in Timoshenko and Gere, Theory of Elastic Stability, 2nd ed., chapter 2,
// unless another source stands beside it, and is solved here by bisection.

#include <gtest/gtest.h>

#include <Eigen/Dense>
#include <algorithm>

#include "buckling_frames.h"

namespace aluframe::analysis::verification {
namespace {

constexpr double length = 4000.0, inertia = 2.9e6, ei = PlaneFrame::e * inertia;
constexpr double share = 2e-6;  // a factor is certain to 1e-6, the shortening of members the rest

/// The load at sqrt(P/EI)·L = u.
double load_at(double u, double over = length, double bending = ei) {
  return u * u * bending / (over * over);
}

void expect_factor(const PlaneFrame& frame, double exact) {
  EXPECT_NEAR(frame.factor(), exact, share * exact);
}

struct EndsCase {
  const char* name;
  Restraint base, top;
  double turns;  ///< sqrt(P/EI)·L
};
class ColumnOnItsEnds : public testing::TestWithParam<EndsCase> {};

TEST_P(ColumnOnItsEnds, HasItsEulerLoad) {
  PlaneFrame f;
  const auto base = f.node(0, 0, GetParam().base), top = f.node(0, length, GetParam().top);
  f.beam(base, top, inertia);
  f.press(top, 1.0);
  expect_factor(f, load_at(GetParam().turns));
}

INSTANTIATE_TEST_SUITE_P(
    Buckling, ColumnOnItsEnds,
    testing::Values(EndsCase{"cantilever", clamped_base, free_node, pi / 2},
                    EndsCase{"hinges", hinged_base, hinged_top, pi},
                    EndsCase{"clamped_hinged", clamped_base, hinged_top, 4.493409457909064},
                    EndsCase{"clamped", clamped_base, clamped_top, 2 * pi},
                    EndsCase{"clamped_guided", clamped_base, guided_top, pi},
                    EndsCase{"hinged_guided", hinged_base, guided_top, pi / 2}),
    [](const auto& one) { return one.param.name; });

/// Number, times what makes it comparable: EI/L of the column for rotations, EI/L³ for
/// translations.
class ColumnOnASpring : public testing::TestWithParam<double> {
 protected:
  static double rotational() { return GetParam() * ei / length; }
  static double translational() { return GetParam() * ei / (length * length * length); }
};

TEST_P(ColumnOnASpring, AtTheFootOfACantilever) {  // u·tan u = c·L/EI
  PlaneFrame f;
  const auto base = f.node(0, 0, hinged_base), top = f.node(0, length);
  f.beam(base, top, inertia);
  f.frame.springs.push_back({base, {0, 0, 0, 0, rotational(), 0}});
  f.press(top, 1.0);
  const double u = root_between(
      1e-9, pi / 2, [](double x) { return x * std::sin(x) - GetParam() * std::cos(x); });
  expect_factor(f, load_at(u));
}

TEST_P(ColumnOnASpring, AtBothEndsOfAHingedColumn) {  // tan(u/2)/(u/2) = -2·EI/(c·L)
  PlaneFrame f;
  const auto base = f.node(0, 0, hinged_base), top = f.node(0, length, hinged_top);
  f.beam(base, top, inertia);
  for (const auto node : {base, top}) {
    f.frame.springs.push_back({node, {0, 0, 0, 0, rotational(), 0}});
  }
  f.press(top, 1.0);
  const double u = root_between(
      pi, 2 * pi, [](double x) { return GetParam() * std::sin(x / 2) + x * std::cos(x / 2); });
  expect_factor(f, load_at(u));
}

TEST_P(ColumnOnASpring, AtTheTipOfACantilever) {  // tan u = u - u³·EI/(k·L³)
  PlaneFrame f;
  const auto base = f.node(0, 0, clamped_base), top = f.node(0, length);
  f.beam(base, top, inertia);
  f.frame.springs.push_back({top, {translational()}});
  f.press(top, 1.0);
  const double u = root_between(pi / 2, 4.493409457909064, [](double x) {
    return (x * x - GetParam()) * std::cos(x) + GetParam() * std::sin(x) / x;
  });
  expect_factor(f, load_at(u));
}

TEST_P(ColumnOnASpring, AtTheTopOfAHingedColumn) {  // tilts as a rigid bar at k·L, or bows
  PlaneFrame f;
  const auto base = f.node(0, 0, hinged_base), top = f.node(0, length);
  f.beam(base, top, inertia);
  f.frame.springs.push_back({top, {translational()}});
  f.press(top, 1.0);
  expect_factor(f, std::min(translational() * length, load_at(pi)));
}

TEST_P(ColumnOnASpring, InItsMiddle) {
  // One half wave with the spring, k·l³/EI·(1 - tan v/v) = 2·v² with l = L/2 and v = sqrt(P/EI)·l,
  // until two half waves pass it by from 16·π²·EI/L³ on.
  PlaneFrame f;
  const auto base = f.node(0, 0, hinged_base), middle = f.node(0, length / 2),
             top = f.node(0, length, hinged_top);
  f.beam(base, middle, inertia);
  f.beam(middle, top, inertia);
  f.frame.springs.push_back({middle, {translational()}});
  f.press(top, 1.0);
  double v = pi;
  const bool is_soft = GetParam() < 16 * pi * pi;
  if (is_soft) {
    v = root_between(pi / 2, pi, [](double x) {
      const double soft = GetParam() / 8.0;  // k·l³/EI
      return soft * (std::cos(x) - std::sin(x) / x) - 2.0 * x * x * std::cos(x);
    });
  }
  const BucklingResult found = buckle(f.frame, f.loads);
  ASSERT_EQ(found.modes.size(), 1U);
  EXPECT_NEAR(found.modes[0].factor, load_at(2.0 * v), share * load_at(2.0 * v));
  const auto& shape = found.modes[0].shape;
  const double moved = std::abs(shape[middle][0]), turned = std::abs(shape[middle][4]) * length;
  EXPECT_EQ(moved > turned, is_soft);
}

INSTANTIATE_TEST_SUITE_P(Buckling, ColumnOnASpring,
                         testing::Values(0.01, 1.0, 20.0, 0.99 * 16 * pi * pi, 1.01 * 16 * pi * pi,
                                         1e4));

struct StepCase {
  double upper_length, lower_inertia, load_at_step;  ///< shares of the lower length and upper I, P
};
class SteppedCantilever : public testing::TestWithParam<StepCase> {};

TEST_P(SteppedCantilever, HasTheProductOfTwoTangents) {
  // tan(k1·l1)·tan(k2·l2) = k1/k2·(P1 + P2)/P1, P1 on top and P2 on the step.
  const auto& [upper, lower, step_load] = GetParam();
  const double l1 = upper * length, l2 = length;
  PlaneFrame f;
  const auto base = f.node(0, 0, clamped_base), step = f.node(0, l2), top = f.node(0, l1 + l2);
  f.beam(base, step, lower * inertia);
  f.beam(step, top, inertia);
  f.press(top, 1.0);
  f.press(step, step_load);
  const double ratio = std::sqrt((1.0 + step_load) / lower);  // k2/k1
  const double ends = std::min(pi / 2 / l1, pi / 2 / (ratio * l2));
  const double k1 = root_between(1e-9 * ends, ends, [&](double k) {
    return std::sin(k * l1) * std::sin(ratio * k * l2) -
           (1.0 + step_load) / ratio * std::cos(k * l1) * std::cos(ratio * k * l2);
  });
  expect_factor(f, k1 * k1 * ei);
}

INSTANTIATE_TEST_SUITE_P(Buckling, SteppedCantilever,
                         testing::Values(StepCase{1.0, 1.0, 0.0}, StepCase{0.5, 2.0, 0.0},
                                         StepCase{2.0, 10.0, 0.0}, StepCase{1.0, 1.0, 1.0},
                                         StepCase{0.3, 4.0, 7.0}, StepCase{1.0, 1e4, 0.0}));

/// The beam's I/L over a column's.
class Portal : public testing::TestWithParam<double> {
 protected:
  static constexpr double width = 6000.0;
  static double g() { return GetParam(); }

  PlaneFrame portal(Restraint base, Restraint top) const {
    PlaneFrame f;
    const auto a = f.node(0, 0, base), b = f.node(0, length, top), c = f.node(width, length, top),
               d = f.node(width, 0, base);
    f.beam(a, b, inertia);
    f.beam(b, c, g() * inertia * width / length);
    f.beam(d, c, inertia);
    f.press(b, 1.0);
    f.press(c, 1.0);
    return f;
  }
};

TEST_P(Portal, SwaysOnHinges) {  // u·tan u = 6·g
  const double u = root_between(1e-9, pi / 2,
                                [](double x) { return x * std::sin(x) - 6.0 * g() * std::cos(x); });
  expect_factor(portal(hinged_base, free_node), load_at(u));
}

TEST_P(Portal, SwaysOnClampedFeet) {  // u·cot u = -6·g
  const double u =
      root_between(pi / 2, pi, [](double x) { return x * std::cos(x) + 6.0 * g() * std::sin(x); });
  expect_factor(portal(clamped_base, free_node), load_at(u));
}

TEST_P(Portal, BracedOnHingesTurnsItsCornersAgainstEachOther) {
  const double u =
      root_between(pi, 4.4934, [](double x) { return near_moment_far_hinged(x) + 2.0 * g(); });
  expect_factor(portal(hinged_base, hinged_top), load_at(u));
}

TEST_P(Portal, BracedOnClampedFeetTurnsItsCornersAgainstEachOther) {
  const double u =
      root_between(4.4934, 2 * pi - 1e-6, [](double x) { return near_moment(x) + 2.0 * g(); });
  expect_factor(portal(clamped_base, hinged_top), load_at(u));
}

INSTANTIATE_TEST_SUITE_P(Buckling, Portal, testing::Values(0.01, 0.3, 1.0, 5.0, 100.0));

struct StoreysCase {
  double upper_length, upper_inertia, middle_load;  ///< shares of the lower storey's, of the top's
};
class TwoStoreyColumn : public testing::TestWithParam<StoreysCase> {};

TEST_P(TwoStoreyColumn, BracedAtItsFloorsSharesTheirRotation) {
  const auto& [upper, upper_inertia, middle_load] = GetParam();
  PlaneFrame f;
  const auto base = f.node(0, 0, hinged_base), middle = f.node(0, length, hinged_top),
             top = f.node(0, (1.0 + upper) * length, hinged_top);
  f.beam(base, middle, inertia);
  f.beam(middle, top, upper_inertia * inertia);
  f.press(middle, middle_load);
  f.press(top, 1.0);
  // sqrt(P/EI)·L of each storey over that of the lower one under P = 1.
  const double lower_turns = std::sqrt(1.0 + middle_load),
               upper_turns = upper / std::sqrt(upper_inertia);
  const double most = std::max(lower_turns, upper_turns);
  const double u = root_between((pi - 1e-6) / most, (4.493409457 - 1e-9) / most, [&](double x) {
    return near_moment_far_hinged(lower_turns * x) +
           upper_inertia / upper * near_moment_far_hinged(upper_turns * x);
  });
  expect_factor(f, load_at(u));
}

INSTANTIATE_TEST_SUITE_P(Buckling, TwoStoreyColumn,
                         testing::Values(StoreysCase{0.6, 1.0, 0.0}, StoreysCase{1.7, 1.0, 0.5},
                                         StoreysCase{0.8, 0.25, 3.0}, StoreysCase{1.0, 1e-3, 1e3},
                                         StoreysCase{0.3, 20.0, 0.0}));

/// The determinant of the equations of half a two-storey portal on clamped feet that sways: the
/// rotations of its floors and their translations, slope-deflection with stability functions.
double two_storey_determinant(double p, double beams, double floor_load) {
  Eigen::Matrix4d k = Eigen::Matrix4d::Zero();  // θ1, θ2, Δ1/L, Δ2/L over EI/L
  const auto add = [&](double force, int low, int high) {
    const double u = length * std::sqrt(force / ei), s = near_moment(u), c = carry_over(u);
    const double sway = s * (1.0 + c), shear = 2.0 * sway - u * u;
    const auto put = [&](int i, int j, double value) {
      if (i >= 0 && j >= 0) k(i, j) += value;
    };
    const int theta[]{low, high}, delta[]{low < 0 ? -1 : low + 2, high + 2};
    for (int i = 0; i < 2; ++i) {
      for (int j = 0; j < 2; ++j) {
        put(theta[i], theta[j], i == j ? s : s * c);
        put(delta[i], delta[j], i == j ? shear : -shear);
        put(theta[i], delta[j], j == 0 ? sway : -sway);
        put(delta[i], theta[j], i == 0 ? sway : -sway);
      }
    }
  };
  add(p * (1.0 + floor_load), -1, 0);
  add(p, 0, 1);
  k(0, 0) += 6.0 * beams;
  k(1, 1) += 6.0 * beams;
  return k.determinant();
}

TEST(Buckling, OfATwoStoreyPortalThatSways) {
  for (const double beams : {0.1, 1.0, 10.0}) {
    for (const double floor_load : {0.0, 1.0, 4.0}) {
      PlaneFrame f;
      std::vector<std::size_t> left, right;
      for (int floor = 0; floor < 3; ++floor) {
        const Restraint restraint = floor == 0 ? clamped_base : free_node;
        left.push_back(f.node(0, floor * length, restraint));
        right.push_back(f.node(length, floor * length, restraint));
        if (floor == 0) continue;
        f.beam(left.end()[-2], left.back(), inertia);
        f.beam(right.end()[-2], right.back(), inertia);
        f.beam(left.back(), right.back(), beams * inertia);
        for (const auto node : {left.back(), right.back()})
          f.press(node, floor == 1 ? floor_load : 1);
      }
      // The first change of sign above 0.
      const auto determinant = [&](double p) {
        return two_storey_determinant(p, beams, floor_load);
      };
      const double step = load_at(pi) / 1000.0;
      double p = step;
      while (determinant(p) > 0.0) p += step;
      const double exact = root_between(p - step, p, determinant);
      EXPECT_NEAR(f.factor(), exact, share * exact) << beams << ", " << floor_load;
    }
  }
}

TEST(Buckling, OfACantileverThatHoldsLeaningColumns) {
  // tan u = u·(1 + r)/r, r the leaning load over the cantilever's: the leaning columns push with
  // P·δ/L on its tip (Yura, The effective length of columns in unbraced frames, AISC Engineering
  // Journal 8 (1971) 37).
  for (const double r : {0.1, 1.0, 6.0}) {
    for (const int leaning : {1, 3}) {
      PlaneFrame f;
      const auto base = f.node(0, 0, clamped_base), tip = f.node(0, length);
      f.beam(base, tip, inertia);
      f.press(tip, 1.0);
      std::size_t before = tip;
      for (int i = 1; i <= leaning; ++i) {
        const double x = 3000.0 * i;
        const auto foot = f.node(x, 0, hinged_base);
        const auto head = f.node(x, length, {false, false, i == 1});
        // The first is a beam with a hinge under its top, the others are struts.
        if (i == 1) {
          f.beam(foot, head, 100 * inertia).released[11] = true;
        } else {
          f.frame.supports.back().fixed[4] = true;
          f.truss(foot, head, 100 * inertia);
        }
        f.truss(before, head, inertia);
        f.press(head, r / leaning);
        before = head;
      }
      const double u = root_between(
          1e-3, pi / 2, [&](double x) { return (1.0 + r) * std::cos(x) - r * std::sin(x) / x; });
      SCOPED_TRACE(testing::Message() << r << " on " << leaning);
      expect_factor(f, load_at(u));
    }
  }
}

TEST(Buckling, OfABracketIsThatOfItsStrut) {
  // A strut at 45° and a horizontal tie hold a load: the strut has √2 of it.
  PlaneFrame f;
  const auto foot = f.node(0, 0, {true, true, true}), wall = f.node(0, 2000, {true, true, true}),
             tip = f.node(2000, 2000, {false, false, true});
  f.truss(foot, tip, inertia);
  f.truss(wall, tip, inertia);
  f.press(tip, 1.0);
  const double strut = 2000.0 * std::sqrt(2.0);
  expect_factor(f, load_at(pi, strut) / std::sqrt(2.0));
  EXPECT_EQ(buckle(f.frame, f.loads).modes[0].element, 0U);
}

/// Struts that do not bow: what buckles is the frame.
Element rigid_strut(std::size_t number, std::size_t start, std::size_t end) {
  Element element;
  element.number = static_cast<Number>(number);
  element.start = start;
  element.end = end;
  element.stiffness = {.e = 70000.0, .area = 1000.0};
  element.kind = ElementKind::truss;
  return element;
}

class Inclination : public testing::TestWithParam<double> {};

TEST_P(Inclination, OfTwoBarsGivesTheLoadAtWhichTheirTopSinks) {
  // 2·EA/L·sin² resists and 2·N/L·cos² drives, N = P/(2·sin); sideways the same with sin and cos
  // exchanged.
  const double a = GetParam() * pi / 180, bar = 5000.0, ea = 70000.0 * 1000.0;
  Frame frame;
  frame.nodes = {
      {1, -bar * std::cos(a), 0, 0}, {2, bar * std::cos(a), 0, 0}, {3, 0, 0, bar * std::sin(a)}};
  frame.elements = {rigid_strut(1, 0, 2), rigid_strut(2, 1, 2)};
  frame.supports = {{0, clamped}, {1, clamped}, {2, {false, true, false, true, true, true}}};
  LoadCase loads;
  loads.nodal.push_back({2, {0, 0, -1e5}});
  const double tangent = std::tan(a) * std::tan(a);
  const double exact = 2.0 * std::sin(a) * ea * std::min(tangent, 1.0 / tangent) / 1e5;
  const BucklingResult found = buckle(frame, loads);
  ASSERT_EQ(found.modes.size(), 1U);
  EXPECT_NEAR(found.modes[0].factor, exact, share * exact);
}

TEST_P(Inclination, OfATripodGivesTheLoadAtWhichItsTopMoves) {
  // Three legs: 3·EA/L·sin² against 3·N/L·cos² down, 3/2·EA/L·cos² against N/L·(3 - 3/2·cos²)
  // sideways, N = P/(3·sin).
  const double a = GetParam() * pi / 180, leg = 5000.0, ea = 70000.0 * 1000.0;
  Frame frame;
  for (int i = 0; i < 3; ++i) {
    const double turn = 0.3 + i * 2 * pi / 3;
    frame.nodes.push_back({static_cast<Number>(i + 1), leg * std::cos(a) * std::cos(turn),
                           leg * std::cos(a) * std::sin(turn), 0});
    frame.elements.push_back(
        rigid_strut(static_cast<std::size_t>(i) + 1, static_cast<std::size_t>(i), 3));
    frame.supports.push_back({static_cast<std::size_t>(i), clamped});
  }
  frame.nodes.push_back({4, 0, 0, leg * std::sin(a)});
  frame.supports.push_back({3, {false, false, false, true, true, true}});
  LoadCase loads;
  loads.nodal.push_back({3, {0, 0, -1e5}});
  const double across = std::cos(a) * std::cos(a) / 2.0;
  const double down = ea * std::tan(a) * std::tan(a), sideways = ea * across / (1.0 - across);
  const double exact = 3.0 * std::sin(a) * std::min(down, sideways) / 1e5;
  const BucklingResult found = buckle(frame, loads, 3);
  ASSERT_EQ(found.modes.size(), 3U);
  EXPECT_NEAR(found.modes[0].factor, exact, share * exact);
  // Sideways it moves in two directions at the same load.
  std::vector<double> all{down, sideways, sideways};
  std::ranges::sort(all);
  for (std::size_t i = 0; i < 3; ++i) {
    const double one = 3.0 * std::sin(a) * all[i] / 1e5;
    EXPECT_NEAR(found.modes[i].factor, one, share * one) << i;
  }
}

INSTANTIATE_TEST_SUITE_P(Buckling, Inclination, testing::Values(3.0, 20.0, 40.0, 60.0, 80.0));

TEST(Buckling, OfARingUnderLoadsThatKeepTheirDirection) {
  // 4·EI/R³: of loads that keep their direction, an inextensible ring with β = (w' + v)/R has the
  // energies EI/2·∫β'²/R² and q·R/2·∫β², so q = n²·EI/R³, n = 2 for the ellipse. The polygon of 96
  // sides is off by several (π/96)² = 1e-3.
  constexpr int sides = 96;
  const double radius = 2000.0;
  PlaneFrame f;
  for (int i = 0; i < sides; ++i) {
    const double turn = 2 * pi * i / sides, x = radius * std::cos(turn),
                 z = radius * std::sin(turn);
    // Held where the ellipse has its axes, against the rotation of the whole as well: loads that
    // keep their direction would drive it.
    const bool is_first = i == 0, is_axis = is_first || i == sides / 2;
    const auto node = f.node(x, z, {is_first, is_axis, is_axis});
    const double force = 2 * radius * std::sin(pi / sides);  // 1 N/mm on two half sides
    f.loads.nodal.push_back({node, {-force * std::cos(turn), 0, -force * std::sin(turn)}});
  }
  for (std::size_t i = 0; i < sides; ++i) f.beam(i, (i + 1) % sides, inertia);
  const double exact = 4.0 * ei / (radius * radius * radius);
  EXPECT_NEAR(f.factor(), exact, 2e-3 * exact);
}

TEST(Buckling, OfAHingedColumnUnderItsOwnWeight) {
  // q·L = 18.6·EI/L² (article 2.12), three digits.
  PlaneFrame f;
  const auto base = f.node(0, 0, hinged_base), top = f.node(0, length, hinged_top);
  f.beam(base, top, inertia);
  f.loads.distributed.push_back({.element = 0,
                                 .axes = LoadAxes::global,
                                 .from_value = {0, 0, -1.0},
                                 .to_value = {0, 0, -1.0}});
  EXPECT_NEAR(f.factor() * length / (ei / (length * length)), 18.6, 0.05);
}

TEST(Buckling, OfAShearColumnHasAllFactorsBelowItsShearStiffness) {
  // Engesser: 1/P = 1/P_n + 1/GAs with P_n = n²·π²·EI/L².
  PlaneFrame f;
  const double over = 600.0;
  const auto base = f.node(0, 0, hinged_base), top = f.node(0, over, hinged_top);
  f.beam(base, top, inertia).stiffness.ay = 1100.0;
  f.press(top, 1000.0);
  const BucklingResult found = buckle(f.frame, f.loads, 4);
  ASSERT_EQ(found.modes.size(), 4U);
  for (int n = 1; n <= 4; ++n) {
    const double exact = 1.0 / (1.0 / load_at(n * pi, over) + 1.0 / (27000.0 * 1100.0)) / 1000.0;
    EXPECT_NEAR(found.modes[static_cast<std::size_t>(n - 1)].factor, exact, share * exact) << n;
  }
}

}  // namespace
}  // namespace aluframe::analysis::verification
