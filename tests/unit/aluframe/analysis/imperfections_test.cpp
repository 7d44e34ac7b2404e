// What a frame is out of true by, against closed forms of beam-columns (Timoshenko and Gere, Theory
// of Elastic Stability, chapter 1) and against frames whose nodes lie where the imperfection puts
// them.

#include "aluframe/analysis/imperfections.h"

#include <gtest/gtest.h>

#include <numbers>

#include "aluframe/analysis/second_order.h"
#include "frames.h"

namespace aluframe::analysis {
namespace {

constexpr double length = 4000.0, pi = std::numbers::pi;
constexpr double bow = 1.0 / 300, lean = 1.0 / 200;

/// Forces are kept in single precision.
constexpr double single = 1e-6;

CaseResult imperfect(const Frame& frame, const LoadCase& loads, const Imperfections& what) {
  const auto solved = analyse_second_order(frame, loads, {.imperfections = what});
  if (const auto* problem = std::get_if<Problem>(&solved)) throw std::runtime_error(problem->text);
  return std::get<SecondOrderResult>(solved).result;
}

std::string refused(const Frame& frame, const LoadCase& loads, const Imperfections& what) {
  const auto solved = analyse_second_order(frame, loads, {.imperfections = what});
  const auto* problem = std::get_if<Problem>(&solved);
  return problem == nullptr ? "" : problem->text;
}

/// Stiff about z, so that what happens is about y.
Stiffness about_y(Stiffness stiffness = plain_stiffness()) {
  stiffness.izz = 1e10;
  return stiffness;
}

double euler_load(const Stiffness& s = plain_stiffness()) {
  return pi * pi * s.e * s.iyy / (length * length);
}

/// A hinged strut along X in equal pieces, as one member.
struct Strut {
  Frame frame;
  LoadCase loads;
  Imperfections bowed{.bow = {bow, 0.0}};

  Strut(std::size_t pieces, double push, const Stiffness& stiffness = about_y()) {
    add_node(frame, 0, 0, 0);
    std::vector<std::size_t> member;
    for (std::size_t i = 0; i < pieces; ++i) {
      add_node(frame, length * static_cast<double>(i + 1) / static_cast<double>(pieces), 0, 0);
      add_element(frame, i, i + 1, stiffness);
      member.push_back(i);
    }
    frame.supports = {{0, {true, true, true, true, false, false}},
                      {pieces, {false, true, true, false, false, false}}};
    loads.nodal.push_back({pieces, {-push}});
    bowed.members = {member};
  }
};

/// M at a part of the length of a hinged strut bowed to a parabola: EI·w'' = -P·(w + w0) gives
/// 8·EI·e/L²·(cos(k·(x - L/2))/cos(k·L/2) - 1), with k² = P/EI, or P/(EI·(1 - P/GA)) where shear
/// deforms it (Engesser). Without a load across, the bow is towards +z, where My is negative.
double moment_of_bow(double push, double part, const Stiffness& s = plain_stiffness()) {
  const double ei = s.e * s.iyy, shear = s.az > 0.0 ? 1.0 - push / (s.g * s.az) : 1.0;
  const double k = std::sqrt(push / (ei * shear));
  return -8 * ei * bow / length *
         (std::cos(k * length * (part - 0.5)) / std::cos(k * length / 2) - 1);
}

TEST(Bow, OfAHingedStrutHasTheSecantMoment) {
  for (const double share : {0.1, 0.6, 0.95}) {
    const double push = share * euler_load();
    const Strut strut(1, push);
    const auto forces = imperfect(strut.frame, strut.loads, strut.bowed).forces[0];
    for (std::size_t i = 0; i < 5; ++i) {
      EXPECT_NEAR(forces[i][my], moment_of_bow(push, static_cast<double>(i) / 4),
                  single * std::abs(moment_of_bow(push, 0.5)))
          << share << " " << i;
    }
  }
}

TEST(Bow, OfAMemberIsTheSameInAnyNumberOfPieces) {
  const double push = 0.6 * euler_load();
  Strut strut(6, push);
  // One of them points the other way, and turns its y with it.
  std::swap(strut.frame.elements[2].start, strut.frame.elements[2].end);
  const auto result = imperfect(strut.frame, strut.loads, strut.bowed);
  for (const std::size_t element : {0U, 1U, 3U, 4U, 5U}) {
    const double middle = (static_cast<double>(element) + 0.5) / 6;
    EXPECT_NEAR(result.forces[element][2][my], moment_of_bow(push, middle),
                1e-5 * std::abs(moment_of_bow(push, 0.5)))
        << element;
  }
  EXPECT_NEAR(std::abs(result.forces[2][2][my]), std::abs(moment_of_bow(push, 2.5 / 6)),
              1e-5 * std::abs(moment_of_bow(push, 0.5)));
}

TEST(Bow, IsThatOfAMemberWhoseNodesLieOnIt) {
  // Nodes on the parabola, straight between them: sixteen pieces stay within a per cent of it.
  constexpr std::size_t pieces = 16;
  const double push = 0.6 * euler_load();
  Strut drawn(pieces, push);
  for (Node& node : drawn.frame.nodes) {
    node.z = 4 * bow * node.x * (length - node.x) / length;
  }
  const float expected = imperfect(drawn.frame, drawn.loads, {}).forces[pieces / 2][0][my];
  EXPECT_NEAR(expected, moment_of_bow(push, 0.5), 5e-3 * std::abs(expected));
}

TEST(Bow, AboutZDeflectsAlongY) {
  Strut strut(1, 0.0);
  Stiffness s = plain_stiffness();
  s.izz = s.iyy;
  strut.frame.elements[0].stiffness = s;
  const double push = 0.5 * euler_load();
  strut.loads.nodal = {{1, {-push}}};
  const auto forces = imperfect(strut.frame, strut.loads, {.bow = {0.0, bow}}).forces[0];
  EXPECT_NEAR(forces[2][mz], moment_of_bow(push, 0.5), single * std::abs(forces[2][mz]));
  EXPECT_EQ(forces[2][my], 0.0F);
}

TEST(Bow, WithShearFlexibilityFollowsEngesser) {
  const Stiffness s = about_y(shear_stiffness());
  const double push = 0.5 * euler_load();
  const Strut strut(1, push, s);
  const auto forces = imperfect(strut.frame, strut.loads, strut.bowed).forces[0];
  EXPECT_NEAR(forces[2][my], moment_of_bow(push, 0.5, s), single * std::abs(forces[2][my]));
}

TEST(Bow, UnderAPullIsStraightened) {
  // 8·EI·e/L²·(1 - sech(k·L/2)).
  const double pull = 2 * euler_load(), ei = plain_stiffness().e * plain_stiffness().iyy;
  const Strut strut(1, -pull);
  const auto forces = imperfect(strut.frame, strut.loads, strut.bowed).forces[0];
  const double expected =
      8 * ei * bow / length * (1 - 1 / std::cosh(std::sqrt(pull / ei) * length / 2));
  EXPECT_NEAR(forces[2][my], expected, single * expected);
}

TEST(Bow, AddsToTheMomentOfALoadOfEitherSign) {
  const double push = 0.6 * euler_load();
  for (const double q : {2.0, -2.0}) {
    Strut strut(1, push);
    strut.loads.distributed.push_back(
        {.element = 0, .from_value = {0, 0, -q}, .to_value = {0, 0, -q}});
    const float plain = imperfect(strut.frame, strut.loads, {}).forces[0][2][my];
    const float bowed = imperfect(strut.frame, strut.loads, strut.bowed).forces[0][2][my];
    const double expected = plain + std::copysign(moment_of_bow(push, 0.5), q);
    EXPECT_NEAR(bowed, expected, 2 * single * std::abs(expected)) << q;
  }
}

TEST(Bow, UnderAPullAddsToTheMomentOfALoad) {
  for (const double q : {2.0, -2.0}) {
    Strut strut(1, -0.5 * euler_load());
    strut.loads.distributed.push_back(
        {.element = 0, .from_value = {0, 0, -q}, .to_value = {0, 0, -q}});
    const float plain = imperfect(strut.frame, strut.loads, {}).forces[0][2][my];
    const float bowed = imperfect(strut.frame, strut.loads, strut.bowed).forces[0][2][my];
    EXPECT_GT(bowed / plain, 1.1F) << q;
  }
}

TEST(Bow, OfElementsWithReleasedEndsIsThatOfHinges) {
  const double push = 0.6 * euler_load();
  Strut strut(1, push);
  strut.frame.elements[0].released[4] = strut.frame.elements[0].released[10] = true;
  for (Support& support : strut.frame.supports) support.fixed[4] = true;
  const auto forces = imperfect(strut.frame, strut.loads, strut.bowed).forces[0];
  EXPECT_EQ(forces[0][my], 0.0F);
  EXPECT_NEAR(forces[2][my], moment_of_bow(push, 0.5), single * std::abs(forces[2][my]));
}

/// A clamped column along Z of height `length` with loads on its top and along it.
Frame column() {
  Frame frame;
  add_node(frame, 0, 0, 0);
  add_node(frame, 0, 0, length);
  add_element(frame, 0, 1);
  frame.supports.push_back({0, clamped});
  return frame;
}

/// P·lean·tan(k·L)/k, the moment of a column under a load across of P·lean.
double moment_of_lean(double push, double ei) {
  const double k = std::sqrt(push / ei);
  return push * lean * std::tan(k * length) / k;
}

TEST(Sway, OfACantileverColumnHasTheTangentMoment) {
  const Stiffness s = plain_stiffness();
  const double push = 0.03 * euler_load();
  LoadCase loads;
  loads.nodal.push_back({1, {0, 0, -push}});
  const auto leaning = imperfect(column(), loads, {.sway = {lean, 0.0}});
  const double expected = moment_of_lean(push, s.e * s.iyy);
  EXPECT_NEAR(std::abs(leaning.forces[0][0][my]), expected, single * expected);
  EXPECT_EQ(leaning.forces[0][0][mz], 0.0F);
  EXPECT_NEAR(leaning.reactions[0].value[ry], -expected, single * expected);
  EXPECT_EQ(leaning.reactions[0].value[dx], 0.0);  // nothing pushes it sideways
  const auto other = imperfect(column(), loads, {.sway = {0.0, lean}});
  const double about_x = moment_of_lean(push, s.e * s.izz);
  EXPECT_NEAR(other.reactions[0].value[rx], about_x, single * about_x);
}

TEST(Sway, UnderAnAxialForceThatGrowsDownwardsIsALoadAcross) {
  // P on the top and q along it, leaning: as if upright under lean·P and lean·q across as well.
  constexpr double push = 4000.0, q = 2.0;
  LoadCase loads;
  loads.nodal.push_back({1, {0, 0, -push}});
  loads.distributed.push_back(
      {.element = 0, .axes = LoadAxes::global, .from_value = {0, 0, -q}, .to_value = {0, 0, -q}});
  const auto leaning = imperfect(column(), loads, {.sway = {lean, 0.0}});
  loads.nodal.push_back({1, {push * lean}});
  loads.distributed.push_back(
      {.element = 0, .axes = LoadAxes::global, .from_value = {q * lean}, .to_value = {q * lean}});
  const auto pushed = imperfect(column(), loads, {});
  for (std::size_t i = 0; i < 5; ++i) {
    EXPECT_THAT(leaning.forces[0][i][my],
                float_near(pushed.forces[0][i][my], pushed.forces[0][0][my]));
  }
  EXPECT_NEAR(leaning.displacements[1][dx], pushed.displacements[1][dx],
              1e-7 * pushed.displacements[1][dx]);
}

/// Two columns and a beam in the plane of X and Z, hinged at their feet, and a column of a truss
/// that leans on them; every node displaced along X by its height times `drawn`.
Frame portal(double drawn) {
  Frame frame;
  const auto node = [&](double x, double z) { add_node(frame, x + drawn * z, 0, z); };
  node(0, 0);
  node(0, 3000);
  node(6000, 3500);
  node(6000, 0);
  node(9000, 0);
  node(9000, 3500);
  add_element(frame, 0, 1, about_y());
  add_element(frame, 1, 2, about_y());
  add_element(frame, 3, 2, about_y());
  add_truss(frame, 4, 5);
  add_truss(frame, 2, 5);
  for (const std::size_t foot : {0U, 3U, 4U}) {
    frame.supports.push_back({foot, {true, true, true, true, false, true}});
  }
  for (const std::size_t top : {1U, 2U, 5U}) {
    frame.supports.push_back({top, {false, true, false, true, false, true}});
  }
  return frame;
}

LoadCase portal_loads(double side) {
  LoadCase loads;
  for (const std::size_t top : {1U, 2U, 5U}) loads.nodal.push_back({top, {side, 0, -12000}});
  return loads;
}

TEST(Sway, IsThatOfAFrameWhoseNodesLieOutOfPlumb) {
  constexpr double small = 1e-4;  // so that its square does not count
  for (const double side : {0.0, 1.0, -1.0}) {
    const double sign = side < 0.0 ? -1.0 : 1.0;
    const auto leaning = imperfect(portal(0.0), portal_loads(side), {.sway = {small, 0.0}});
    const auto drawn = imperfect(portal(sign * small), portal_loads(side), {});
    const auto plain = imperfect(portal(0.0), portal_loads(side), {});
    for (const std::size_t corner : {0U, 2U}) {
      const double expected = drawn.forces[corner][4][my];
      const double by_lean = std::abs(expected - plain.forces[corner][4][my]);
      EXPECT_GT(by_lean, 0.1 * std::abs(expected));
      EXPECT_NEAR(leaning.forces[corner][4][my], expected, 2e-3 * by_lean) << side;
    }
  }
}

TEST(Sway, WithBowHasTheSignsThatAdd) {
  // Without a load across, the column leans towards +X, and is bowed the way that bends it further.
  const double push = 0.03 * euler_load();
  LoadCase loads;
  loads.nodal.push_back({1, {0, 0, -push}});
  const float leaning = imperfect(column(), loads, {.sway = {lean, 0.0}}).forces[0][2][my];
  const float both =
      imperfect(column(), loads, {.sway = {lean, 0.0}, .bow = {bow, 0.0}}).forces[0][2][my];
  EXPECT_GT(both / leaning, 1.05F);
}

TEST(Mode, OfAHingedStrutOfOneElementIsAHalfSine) {
  // P·a/(1 - P/Pe)·sin(π·x/L): the strut buckles while its nodes stand still.
  constexpr double amplitude = 15.0;
  const double share = 0.6;
  const Strut strut(1, share * euler_load());
  const auto forces = imperfect(strut.frame, strut.loads, {.mode = amplitude}).forces[0];
  const double middle = share * euler_load() * amplitude / (1 - share);
  EXPECT_NEAR(std::abs(forces[2][my]), middle, 3e-5 * middle);
  EXPECT_NEAR(std::abs(forces[1][my]), middle * std::sqrt(0.5), 3e-5 * middle);
}

TEST(Mode, OfACantileverColumnHasItsLargestDisplacementAtItsTop) {
  // P·a/(1 - P/Pcr), with a quarter of Euler's load; of three elements.
  constexpr double amplitude = 15.0;
  Frame frame;
  for (const double z : {0.0, 1000.0, 2500.0, length}) add_node(frame, 0, 0, z);
  for (std::size_t i = 0; i < 3; ++i) add_element(frame, i, i + 1, about_y());
  frame.supports.push_back({0, clamped});
  const double share = 0.5, push = share * euler_load() / 4;
  for (const double side : {20.0, -20.0}) {
    LoadCase loads;
    loads.nodal.push_back({3, {side, 0, -push}});
    const float plain = imperfect(frame, loads, {}).forces[0][0][my];
    const float found = imperfect(frame, loads, {.mode = amplitude}).forces[0][0][my];
    const double by_mode = push * amplitude / (1 - share);
    EXPECT_NEAR(found, plain + std::copysign(by_mode, plain), 3e-5 * by_mode) << side;
  }
}

TEST(Mode, OfATrussBetweenItsNodesIsRefused) {
  Frame frame;
  add_node(frame, 0, 0, 0);
  add_node(frame, 0, 0, length);
  add_truss(frame, 0, 1);
  frame.supports = {{0, pinned}, {1, {true, true, false, false, false, false}}};
  LoadCase loads;
  loads.nodal.push_back({1, {0, 0, -0.1 * euler_load()}});
  EXPECT_EQ(
      refused(frame, loads, {.mode = 10.0}),
      "the first buckling mode cannot be an imperfection: element 1 buckles in it between its "
      "nodes, and a truss does not bend; give sway, or make it a beam with hinges");
}

TEST(Mode, OfAFrameInTensionIsNone) {
  const Strut strut(1, -1000.0);
  EXPECT_EQ(imperfect(strut.frame, strut.loads, {.mode = 10.0}).forces,
            imperfect(strut.frame, strut.loads, {}).forces);
}

TEST(Imperfections, LeaveNoForceUnbalanced) {
  const auto result = imperfect(
      portal(0.0), portal_loads(1.0),
      {.sway = {lean, lean}, .bow = {bow, bow}, .members = {{0}, {1}, {2}}, .mode = 10.0});
  EXPECT_LT(result.equilibrium.nodes, 1e-9);
  EXPECT_LT(result.equilibrium.whole, 1e-9);
}

TEST(Imperfections, BeyondTheBucklingLoadAreNoEquilibrium) {
  const Strut strut(1, 1.01 * euler_load());
  EXPECT_THAT(refused(strut.frame, strut.loads, strut.bowed),
              testing::StartsWith("the frame buckles under these loads"));
}

}  // namespace
}  // namespace aluframe::analysis
