// Members cut into hundreds of pieces, and links a million times as stiff as what they join,
// against closed forms. Double precision alone loses every digit of the forces there.

#include <gtest/gtest.h>

#include <array>
#include <cmath>
#include <stdexcept>
#include <string>

#include "aluframe/analysis/second_order.h"

namespace aluframe::analysis {
namespace {

enum Component { n, fy, fz, mx, my, mz };
constexpr std::size_t dz = 2;
constexpr std::array<bool, 6> clamped{true, true, true, true, true, true};

/// Element forces are kept in single precision, 6e-8 of each.
constexpr double of_forces = 1e-7;
/// The least that an engineer could notice; the refined ones are good to 1e-9.
constexpr double of_displacements = 1e-8;

/// An aluminium section with shear areas.
constexpr Stiffness section{.e = 70000.0,
                            .g = 27000.0,
                            .area = 2500.0,
                            .ay = 1100.0,
                            .az = 700.0,
                            .it = 3.1e5,
                            .iyy = 9.3e6,
                            .izz = 2.9e6};
constexpr double ei = section.e * section.iyy, gas = section.g * section.az;

enum class Theory { first_order, second_order };

CaseResult solved(const Frame& frame, const LoadCase& loads, Theory theory) {
  if (theory == Theory::second_order) {
    auto result = analyse_second_order(frame, loads);
    if (const auto* problem = std::get_if<Problem>(&result)) {
      throw std::runtime_error(problem->text);
    }
    return std::get<SecondOrderResult>(std::move(result)).result;
  }
  auto result = analyse(frame, {&loads, 1});
  if (const auto* problem = std::get_if<Problem>(&result)) throw std::runtime_error(problem->text);
  return std::get<Solution>(std::move(result)).cases.front();
}

void expect_near(double found, double expected, double share) {
  EXPECT_NEAR(found, expected, share * std::abs(expected));
}

/// A straight member that rises by `rise` for 1 along X.
Frame member(std::size_t parts, double length, double rise = 0.0) {
  Frame frame;
  const double flat = length / std::hypot(1.0, rise);
  for (std::size_t i = 0; i <= parts; ++i) {
    const double x = flat * static_cast<double>(i) / static_cast<double>(parts);
    frame.nodes.push_back({static_cast<Number>(i + 1), x, 0.0, rise * x});
  }
  for (std::size_t i = 0; i < parts; ++i) {
    frame.elements.push_back(
        {.number = static_cast<Number>(i + 1), .start = i, .end = i + 1, .stiffness = section});
  }
  return frame;
}

struct Chain {
  std::size_t parts;
  double length, rise;
  Theory theory;
};

class LongChain : public testing::TestWithParam<Chain> {};

TEST_P(LongChain, CantileverHasTheForcesOfStaticsAndTheClosedDisplacement) {
  const auto& [parts, length, rise, theory] = GetParam();
  Frame frame = member(parts, length, rise);
  frame.supports = {{0, clamped}};
  // 1 N square to the member bends without axial force: both theories agree.
  const double cosine = 1 / std::hypot(1.0, rise), sine = rise * cosine;
  LoadCase loads;
  loads.nodal = {{parts, {sine, 0, -cosine}}};
  const CaseResult r = solved(frame, loads, theory);
  const double sinks = std::pow(length, 3) / (3 * ei) + length / gas;
  expect_near(r.displacements[parts][dz], -sinks * cosine, of_displacements);
  for (const std::size_t i : {std::size_t{0}, parts / 3, parts - 1}) {
    const double arm = length * static_cast<double>(parts - i) / static_cast<double>(parts);
    expect_near(r.forces[i][0][fz], 1.0, of_forces);
    expect_near(r.forces[i][0][my], -arm, of_forces);
    EXPECT_NEAR(r.forces[i][0][n], 0.0, of_forces);
  }
  expect_near(r.reactions[0].value[dz], cosine, 1e-9);
  EXPECT_LT(r.equilibrium.force_error, 1e-7);
}

std::string name_of_chain(const testing::TestParamInfo<Chain>& chain) {
  const auto& [parts, length, rise, theory] = chain.param;
  return std::to_string(parts) + "_" + std::to_string(std::lround(length)) +
         (rise > 0 ? "_oblique" : "") + (theory == Theory::second_order ? "_second_order" : "");
}

constexpr Theory first = Theory::first_order, second = Theory::second_order;
INSTANTIATE_TEST_SUITE_P(OfPieces, LongChain,
                         testing::Values(Chain{200, 3e3, 0, first}, Chain{400, 3e3, 0, first},
                                         Chain{1000, 3e3, 0, first}, Chain{200, 2e5, 0, first},
                                         Chain{400, 4e5, 0, first}, Chain{1000, 1e6, 0, first},
                                         Chain{1000, 3e3, 0.3, first}, Chain{1000, 1e6, 0.3, first},
                                         Chain{200, 3e3, 0.3, second}, Chain{1000, 3e3, 0, second},
                                         Chain{200, 2e5, 0.3, second}),
                         name_of_chain);

class BeamOf300Pieces : public testing::TestWithParam<Theory> {
 protected:
  static constexpr std::size_t parts = 300;
  static constexpr double length = 6000.0, q = 5.0;

  CaseResult under_uniform_load(std::array<bool, 6> start, std::array<bool, 6> end) const {
    Frame frame = member(parts, length);
    frame.supports = {{0, start}, {parts, end}};
    LoadCase loads;
    for (std::size_t i = 0; i < parts; ++i) {
      loads.distributed.push_back({.element = i, .from_value = {0, 0, -q}, .to_value = {0, 0, -q}});
    }
    return solved(frame, loads, GetParam());
  }
};

TEST_P(BeamOf300Pieces, OnTwoSupportsHasItsParabola) {
  const CaseResult r = under_uniform_load({true, true, true, true}, {false, true, true});
  expect_near(r.forces[parts / 2][0][my], q * length * length / 8, of_forces);
  expect_near(r.forces[0][0][fz], q * length / 2, of_forces);
  const double sinks = 5 * q * std::pow(length, 4) / (384 * ei) + q * length * length / (8 * gas);
  expect_near(r.displacements[parts / 2][dz], -sinks, of_displacements);
}

TEST_P(BeamOf300Pieces, ClampedAtBothEndsHasATwelfthAndATwentyFourth) {
  const CaseResult r = under_uniform_load(clamped, {false, true, true, true, true, true});
  expect_near(r.forces[0][0][my], -q * length * length / 12, of_forces);
  expect_near(r.forces[parts / 2][0][my], q * length * length / 24, of_forces);
  const double sinks = q * std::pow(length, 4) / (384 * ei) + q * length * length / (8 * gas);
  expect_near(r.displacements[parts / 2][dz], -sinks, of_displacements);
}

INSTANTIATE_TEST_SUITE_P(InBothTheories, BeamOf300Pieces, testing::Values(first, second),
                         [](const auto& of) {
                           return of.param == first ? "first_order" : "second_order";
                         });

/// Two flexible pieces of 1 m with a link of 100 mm between them, so many times as stiff.
class StiffLink : public testing::TestWithParam<double> {
 protected:
  static constexpr double flexible = 1000.0, link = 100.0;

  StiffLink() {
    double x = 0.0;
    for (const double part : {0.0, flexible, link, flexible}) {
      x += part;
      frame_.nodes.push_back({static_cast<Number>(frame_.nodes.size() + 1), x});
    }
    Stiffness rigid_in_shear = section;
    rigid_in_shear.ay = rigid_in_shear.az = 0.0;
    for (std::size_t i = 0; i < 3; ++i) {
      frame_.elements.push_back({.number = static_cast<Number>(i + 1),
                                 .start = i,
                                 .end = i + 1,
                                 .stiffness = rigid_in_shear});
    }
    Stiffness& s = frame_.elements[1].stiffness;
    for (double* value : {&s.area, &s.it, &s.iyy, &s.izz}) *value *= GetParam();
  }
  Frame frame_;
};

TEST_P(StiffLink, InACantileverHasTheForcesOfStatics) {
  frame_.supports = {{0, clamped}};
  LoadCase loads;
  loads.nodal = {{3, {0, 0, -1}}};
  // The moments squared over the bending stiffness of each piece.
  const auto cube = [](double x) { return x * x * x; };
  const double all = 2 * flexible + link, rest = flexible + link;
  const double sinks = (cube(all) - cube(rest)) / (3 * ei) +
                       (cube(rest) - cube(flexible)) / (3 * ei * GetParam()) +
                       cube(flexible) / (3 * ei);
  for (const Theory theory : {first, second}) {
    const CaseResult r = solved(frame_, loads, theory);
    expect_near(r.forces[1][0][fz], 1.0, of_forces);
    expect_near(r.forces[1][0][my], -rest, of_forces);
    expect_near(r.displacements[3][dz], -sinks, of_displacements);
  }
}

TEST_P(StiffLink, BetweenClampedPiecesSharesTheMomentByTheForceMethod) {
  frame_.supports = {{0, clamped}, {3, clamped}};
  LoadCase loads;
  loads.nodal = {{1, {0, 0, -1000}}, {2, {0, 0, -1000}}};
  // No rotation at the ends: the moments of the simple beam, P·x and then P·a, less the clamping
  // moment X, over the bending stiffness sum up to 0.
  const double load = 1000.0, a = flexible, soft_link = link / GetParam();
  const double held = load * (a * a + a * soft_link) / (2 * a + soft_link);
  for (const Theory theory : {first, second}) {
    const CaseResult r = solved(frame_, loads, theory);
    expect_near(r.forces[0][0][my], -held, of_forces);
    expect_near(r.forces[1][2][my], load * a - held, of_forces);
    // The start bends by X·a²/2 − P·a³/6 over EI.
    const double deflection = (load * a * a * a / 6 - held * a * a / 2) / ei;
    expect_near(r.displacements[1][dz], deflection, of_displacements);
  }
}

INSTANTIATE_TEST_SUITE_P(TimesTheStiffness, StiffLink, testing::Values(1e2, 1e4, 1e6, 1e8),
                         [](const auto& of) {
                           return "1e" + std::to_string(std::lround(std::log10(of.param)));
                         });

}  // namespace
}  // namespace aluframe::analysis
