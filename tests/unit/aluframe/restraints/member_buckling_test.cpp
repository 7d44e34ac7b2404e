// Buckling loads of whole members against closed forms, and against the tables of S. P. Timoshenko
// and J. M. Gere, Theory of Elastic Stability, 2nd edition, chapter 6, which are given with three
// digits and were summed up by hand from a few terms.
#include "aluframe/restraints/member_buckling.h"

#include <gtest/gtest.h>

#include <cmath>
#include <functional>
#include <numbers>

namespace aluframe::restraints {
namespace {

constexpr double pi = std::numbers::pi;
constexpr double shear_modulus = 27000.0;
constexpr double length = 4000.0;
/// A bisection to a thousandth, from below.
constexpr double found_within = 1.5e-3;
/// Of the printed tables.
constexpr double of_table = 1e-2;

/// Doubly symmetric, 200 mm between the flanges; It by L²·G·It/(E·Iω) = `slender`.
LateralSection symmetric(double slender, bool at_flange) {
  LateralSection section;
  section.e = 70000.0;
  section.izz = 2e6;
  section.iw = section.izz * 100.0 * 100.0;
  section.it = slender * section.e * section.iw / (length * length * shear_modulus);
  if (at_flange) section.load_height = {-100.0, -100.0};
  return section;
}

using Diagram = std::function<double(double)>;

/// Elements of equal length with the moments of a diagram at five positions each.
std::vector<BucklingPart> parts_of(const LateralSection& section, const Diagram& moment,
                                   int elements = 8) {
  std::vector<BucklingPart> parts;
  for (int i = 0; i < elements; ++i) {
    BucklingPart part;
    part.section = section;
    const double start = length * i / elements, end = length * (i + 1) / elements;
    part.moments.stretch = {start, end};
    for (int p = 0; p <= 4; ++p) {
      const double at = start + (end - start) * p / 4.0;
      part.moments.at.push_back({at, moment(at)});
    }
    parts.push_back(part);
  }
  return parts;
}

LateralHold fork(double at) {
  return {.at = at, .sideways = true, .twist = true};
}
std::vector<LateralHold> forks() {
  return {fork(0.0), fork(length)};
}

double critical(const std::vector<BucklingPart>& parts, const std::vector<LateralHold>& holds) {
  return MemberBuckling(parts, holds).factor_below(1e9);
}

double uniform_critical(const LateralSection& section, double l) {
  const double squared = pi * pi * section.e * section.izz / (l * l);
  const double b = section.beta_y;
  return squared *
         (b + std::sqrt(b * b + section.iw / section.izz + shear_modulus * section.it / squared));
}

double unit_of_table(const LateralSection& section) {
  return std::sqrt(section.e * section.izz * shear_modulus * section.it) / (length * length);
}

TEST(MemberBuckling, OfEqualEndMomentsIsTheClosedForm) {
  for (const double slender : {0.4, 4.0, 100.0}) {
    LateralSection section = symmetric(slender, true);
    for (const double beta : {0.0, 30.0, -30.0}) {
      section.beta_y = beta;
      const double expected = uniform_critical(section, length);
      EXPECT_NEAR(critical(parts_of(section, [](double) { return 1.0; }), forks()), expected,
                  expected * found_within);
      // With the bottom flange compressed it is the other way round.
      section.beta_y = -beta;
      EXPECT_NEAR(critical(parts_of(section, [](double) { return -1.0; }), forks()), expected,
                  expected * found_within);
    }
  }
}

TEST(MemberBuckling, OfALoadInTheMiddleIsThatOfTheTable) {
  const Diagram moment = [](double x) { return std::min(x, length - x) / 2.0; };
  const auto gamma = [&](double slender, bool at_flange) {
    const LateralSection section = symmetric(slender, at_flange);
    return critical(parts_of(section, moment), forks()) / unit_of_table(section);
  };
  EXPECT_NEAR(gamma(0.4, false), 86.4, 86.4 * of_table);
  EXPECT_NEAR(gamma(0.4, true), 51.5, 51.5 * of_table);
  EXPECT_NEAR(gamma(4, false), 31.9, 31.9 * of_table);
  EXPECT_NEAR(gamma(4, true), 20.2, 20.2 * of_table);
}

TEST(MemberBuckling, OfAnEvenLoadIsThatOfTheTable) {
  const auto gamma = [](double slender, bool at_flange, double sign) {
    const Diagram moment = [sign](double x) { return sign * x * (length - x) / 2.0 / length; };
    const LateralSection section = symmetric(slender, at_flange);
    return critical(parts_of(section, moment), forks()) / unit_of_table(section);
  };
  for (const double sign : {1.0, -1.0}) {
    EXPECT_NEAR(gamma(0.4, false, sign), 143.0, 143.0 * of_table);
    EXPECT_NEAR(gamma(0.4, true, sign), 92.9, 92.9 * of_table);
    EXPECT_NEAR(gamma(4, false, sign), 53.0, 53.0 * of_table);
    EXPECT_NEAR(gamma(4, true, sign), 36.3, 36.3 * of_table);
  }
}

TEST(MemberBuckling, OfACantileverWithAMomentAtItsTipIsTheClosedForm) {
  LateralSection section = symmetric(4, true);
  section.iw = 1e-6 * section.iw;
  LateralHold root = fork(0.0);
  root.rotation = true;
  const double expected =
      pi / (2.0 * length) * std::sqrt(section.e * section.izz * shear_modulus * section.it);
  EXPECT_NEAR(critical(parts_of(section, [](double) { return 1.0; }), {root}), expected,
              expected * found_within);
}

TEST(MemberBuckling, BetweenPlacesThatHoldTheTwistIsThatOfAPiece) {
  const LateralSection section = symmetric(4, true);
  const auto parts = parts_of(section, [](double) { return 1.0; });
  const double expected = uniform_critical(section, length / 2.0);
  for (const bool sideways : {false, true}) {
    auto holds = forks();
    holds.push_back({.at = length / 2.0, .sideways = sideways, .twist = true});
    EXPECT_NEAR(critical(parts, holds), expected, expected * found_within);
  }
}

TEST(MemberBuckling, AFlangeThatIsHeldEverywhereLeavesTurningAboutIt) {
  // Equal moments that compress the bottom flange, the top one held: the section turns about it,
  // with E·(Iω + Izz·h²) and G·It against M·2h of the twist (from the energy, u = −h·φ).
  const LateralSection section = symmetric(4, true);
  auto holds = forks();
  for (int i = 1; i < 32; ++i) holds.push_back({.at = length * i / 32.0, .top = true});
  const double h = 100.0;
  const double expected =
      (section.e * (section.iw + section.izz * h * h) * pi * pi / (length * length) +
       shear_modulus * section.it) /
      (2.0 * h);
  EXPECT_NEAR(critical(parts_of(section, [](double) { return -1.0; }), holds), expected,
              expected * 5e-3);
  EXPECT_GT(critical(parts_of(section, [](double) { return 1.0; }), holds), 20.0 * expected);
}

TEST(MemberBuckling, IsTheBoundWhereThatIsSmaller) {
  const auto parts = parts_of(symmetric(4, true), [](double) { return 1.0; });
  const MemberBuckling member(parts, forks());
  const double expected = uniform_critical(symmetric(4, true), length);
  EXPECT_TRUE(member.is_stable(0.998 * expected));
  EXPECT_FALSE(member.is_stable(1.002 * expected));
  EXPECT_EQ(member.factor_below(0.5 * expected), 0.5 * expected);
}

TEST(MemberBuckling, OfAMechanismIsNothing) {
  const auto parts = parts_of(symmetric(4, true), [](double) { return 1.0; });
  const LateralHold middle{.at = length / 2.0, .top = true};
  for (const auto& holds : std::vector<std::vector<LateralHold>>{
           {},
           {fork(0.0)},
           {middle},
           {{.at = 0.0, .sideways = true}, {.at = length, .sideways = true}}}) {
    EXPECT_EQ(critical(parts, holds), 0.0);
  }
  EXPECT_GT(critical(parts, {fork(0.0), middle}), 0.0);
}

TEST(MemberBuckling, DoesNotDependOnHowManyElementsAMemberHas) {
  const Diagram moment = [](double x) { return 1.0 - 1.5 * x / length; };
  auto holds = forks();
  holds.push_back({.at = 0.3 * length, .top = true});
  const LateralSection section = symmetric(4, true);
  const double one = critical(parts_of(section, moment, 1), holds);
  EXPECT_NEAR(critical(parts_of(section, moment, 16), holds), one, one * 2.0 * found_within);
}

}  // namespace
}  // namespace aluframe::restraints
