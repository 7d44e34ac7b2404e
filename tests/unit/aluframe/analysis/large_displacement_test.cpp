#include "aluframe/analysis/large_displacement.h"

#include <gtest/gtest.h>

#include <Eigen/Geometry>

#include "frames.h"

namespace aluframe::analysis {
namespace {

SecondOrderResult displaced(const Frame& frame, const LoadCase& loads) {
  auto result = analyse_large_displacements(frame, loads);
  if (const auto* problem = std::get_if<Problem>(&result)) throw std::runtime_error(problem->text);
  return std::get<SecondOrderResult>(std::move(result));
}

Problem problem_under(const Frame& frame, const LoadCase& loads) {
  auto result = analyse_large_displacements(frame, loads);
  if (auto* problem = std::get_if<Problem>(&result)) return std::move(*problem);
  throw std::runtime_error("was analysed");
}

/// A portal in space with a brace, a hinged beam, a spring and axes of all directions.
Frame portal() {
  Frame frame;
  add_node(frame, 0, 0, 0);
  add_node(frame, 100, 50, 3000);
  add_node(frame, 4000, 400, 3300);
  add_node(frame, 4200, 0, 0);
  add_element(frame, 0, 1, shear_stiffness()).beta = 20;
  add_element(frame, 1, 2, shear_stiffness()).released = {false, false, false, false, true, true};
  add_element(frame, 2, 3, shear_stiffness());
  add_truss(frame, 0, 2);
  for (Element& element : frame.elements) element.expansion = 2.3e-5;
  frame.supports = {{0, clamped}, {3, pinned}};
  frame.springs = {{1, {50.0, 20.0, 0.0, 1e6, 0.0, 0.0}}};
  return frame;
}

/// Every kind of load, times a factor.
LoadCase all_loads(double factor) {
  const auto times = [&](Vector3 v) {
    for (double& value : v) value *= factor;
    return v;
  };
  LoadCase loads;
  loads.nodal.push_back({1, {3000 * factor, -500 * factor, -2e4 * factor, 1e6 * factor, 0, 0}});
  loads.distributed.push_back({.element = 1,
                               .axes = LoadAxes::global,
                               .from_value = times({1, 2, -4}),
                               .to_value = times({0, 1, -9}),
                               .from = 0.13,
                               .to = 0.77});
  loads.distributed.push_back(
      {.element = 0, .from_value = times({1, 2, 1}), .to_value = times({1, 2, 1})});
  loads.distributed.push_back({.element = 3,
                               .axes = LoadAxes::projected,
                               .from_value = times({0, 0, -1}),
                               .to_value = times({0, 0, -1})});
  loads.points.push_back({.element = 2,
                          .force = times({1000, 2000, -700}),
                          .moment = times({1e5, 3e5, -4e5}),
                          .at = 0.3});
  loads.points.push_back({.element = 1, .moment = times({2e5, 3e5, 4e5}), .at = 0.04});
  loads.points.push_back({.element = 2, .force = times({300, 0, 900}), .at = 0.5});
  loads.temperatures.push_back({.element = 1,
                                .change = 20 * factor,
                                .difference_y = 10 * factor,
                                .depth_y = 100,
                                .difference_z = -15 * factor,
                                .depth_z = 200});
  loads.settlements.push_back({3, dz, -5 * factor});
  loads.settlements.push_back({0, rx, 0.002 * factor});
  return loads;
}

double largest_of(const CaseResult& result, std::size_t from) {
  double largest = 0.0;
  for (const ElementForces& element : result.forces) {
    for (const SectionForces& at : element) {
      for (std::size_t i = from; i < from + 3; ++i) {
        largest = std::max(largest, std::abs(double{at[i]}));
      }
    }
  }
  return largest;
}

/// @param tolerance part of the largest force and moment of the frame
void expect_same_forces(const CaseResult& a, const CaseResult& b, double tolerance) {
  const double force = largest_of(b, 0), moment = largest_of(b, 3);
  for (std::size_t e = 0; e < b.forces.size(); ++e) {
    for (std::size_t at = 0; at < 5; ++at) {
      for (std::size_t i = 0; i < 6; ++i) {
        EXPECT_NEAR(a.forces[e][at][i], b.forces[e][at][i], tolerance * (i < 3 ? force : moment))
            << "element " << e + 1 << ", position " << at << ", component " << i;
      }
    }
  }
}

TEST(LargeDisplacement, SmallLoadsHaveTheForcesOfFirstOrder) {
  const CaseResult large = displaced(portal(), all_loads(1e-6)).result;
  const CaseResult small = solved(portal(), all_loads(1e-6));
  // Rotations of 1e-6 turn forces by as much; they are kept in single precision.
  expect_same_forces(large, small, 5e-6);
  for (std::size_t i = 0; i < 4; ++i) {
    for (std::size_t k = 0; k < 6; ++k) {
      const double size = k < 3 ? 1e-3 : 1e-6;
      EXPECT_NEAR(large.displacements[i][k], small.displacements[i][k], 1e-4 * size);
    }
  }
  ASSERT_EQ(large.reactions.size(), small.reactions.size());
  for (std::size_t i = 0; i < large.reactions.size(); ++i) {
    for (std::size_t k = 0; k < 6; ++k) {
      EXPECT_NEAR(large.reactions[i].value[k], small.reactions[i].value[k], k < 3 ? 1e-4 : 0.1);
    }
  }
}

TEST(LargeDisplacement, LoadsAndReactionsBalanceAboutTheDisplacedNodes) {
  Frame frame = portal();
  LoadCase loads;
  loads.nodal.push_back({1, {60000, -20000, -4e4, 1e6, 0, 0}});
  loads.nodal.push_back({2, {0, 30000, -5e4}});
  const CaseResult r = displaced(frame, loads).result;
  EXPECT_GT(std::abs(r.displacements[1][dx]), 50.0);
  Eigen::Vector3d force = Eigen::Vector3d::Zero(), moment = force;
  const auto add = [&](std::size_t node, const Vector6& six) {
    const Node& at = frame.nodes[node];
    const Vector6& u = r.displacements[node];
    const Eigen::Vector3d place(at.x + u[0], at.y + u[1], at.z + u[2]), f(six[0], six[1], six[2]);
    force += f;
    moment += place.cross(f) + Eigen::Vector3d(six[3], six[4], six[5]);
  };
  for (const NodalLoad& load : loads.nodal) add(load.node, load.value);
  for (const Reaction& reaction : r.reactions) add(reaction.node, reaction.value);
  EXPECT_LT(force.norm(), 1e-8 * 5e4);
  EXPECT_LT(moment.norm(), 1e-8 * 5e4 * 5000);
  EXPECT_LT(r.equilibrium.nodes, 1e-9);
}

/// The frame and loads in global directions, turned about an axis.
Eigen::Matrix3d any_turn() {
  return Eigen::Quaterniond(0.5, 0.3, -0.7, 0.2).normalized().matrix();
}

TEST(LargeDisplacement, TurningTheFrameLeavesItsForces) {
  const Eigen::Matrix3d turn = any_turn();
  const auto turned = [&](double x, double y, double z) {
    const Eigen::Vector3d v = turn * Eigen::Vector3d(x, y, z);
    return Vector3{v.x(), v.y(), v.z()};
  };
  Frame frame = portal();
  frame.springs.clear();
  frame.supports[1].fixed = clamped;  // whose directions are global
  for (Element& element : frame.elements) element.reference = Vector3{0.3, -0.8, 0.5};
  LoadCase loads;
  loads.nodal.push_back({1, {2e4, -6e3, -1e4}});
  loads.distributed.push_back(
      {.element = 1, .axes = LoadAxes::global, .from_value = {0, 3, -9}, .to_value = {0, 3, -9}});
  const CaseResult straight = displaced(frame, loads).result;
  for (Node& node : frame.nodes) {
    const Vector3 at = turned(node.x, node.y, node.z);
    node = {node.number, at[0], at[1], at[2]};
  }
  for (Element& element : frame.elements) element.reference = turned(0.3, -0.8, 0.5);
  const Vector3 push = turned(2e4, -6e3, -1e4);
  loads.nodal[0].value = {push[0], push[1], push[2]};
  loads.distributed[0].from_value = loads.distributed[0].to_value = turned(0, 3, -9);
  expect_same_forces(displaced(frame, loads).result, straight, 1e-6);
}

/// The displacements of the tip of a cantilever in one element, and in one that is split.
std::array<Vector6, 2> tips_of_whole_and_split(const LoadCase& loads) {
  const Frame whole = cantilever(4000);
  Frame split = whole;
  add_node(split, 1700, 0, 0);
  split.elements[0].end = 2;
  add_element(split, 2, 1);
  return {displaced(whole, loads).result.displacements[1],
          displaced(split, loads).result.displacements[1]};
}

TEST(LargeDisplacement, SplittingAnElementLeavesTheDisplacements) {
  LoadCase loads;
  loads.nodal.push_back({1, {-1e4, 3e3, 0, 0, 0, 1e6}});
  const auto [a, b] = tips_of_whole_and_split(loads);
  EXPECT_GT(std::abs(a[dy]), 400.0);
  // Pieces are cubic against their chords: fourth powers of an eighth.
  for (std::size_t i = 0; i < 6; ++i) {
    EXPECT_NEAR(a[i], b[i], 1e-5 * (i < 3 ? std::abs(a[dy]) : std::abs(a[rz])));
  }
}

TEST(LargeDisplacement, SplittingAnElementBentInBothPlanesLeavesTheDisplacementsNearly) {
  LoadCase loads;
  loads.nodal.push_back({1, {-1e4, 3e3, -2e3, 1e5, 0, 0}});
  const auto [a, b] = tips_of_whole_and_split(loads);
  EXPECT_GT(std::abs(a[rx]), 0.03);
  // A piece turns its two planes of bending with its ends: squares of an eighth.
  for (std::size_t i = 0; i < 6; ++i) {
    EXPECT_NEAR(a[i], b[i], 0.01 * (i < 3 ? std::abs(a[dy]) : std::abs(a[rz])));
  }
}

TEST(LargeDisplacement, ManyShortElementsKeepTheirDigits) {
  Frame frame;
  for (int i = 0; i <= 40; ++i) add_node(frame, 100.0 * i, 0, 0);
  for (std::size_t i = 0; i < 40; ++i) add_element(frame, i, i + 1);
  frame.supports = {{0, clamped}};
  LoadCase loads;
  loads.nodal.push_back({40, {-1e4, 3e3, 0, 0, 0, 1e6}});
  const SecondOrderResult many = displaced(frame, loads);
  EXPECT_LT(many.result.equilibrium.nodes, 1e-8);
  loads.nodal[0].node = 1;
  const SecondOrderResult one = displaced(cantilever(4000), loads);
  const double size = std::abs(one.result.displacements[1][dy]);
  EXPECT_NEAR(many.result.displacements[40][dy], one.result.displacements[1][dy], 1e-5 * size);
}

TEST(LargeDisplacement, AHingedStrutHasTheMomentsOfSecondOrder) {
  Frame frame = cantilever(4000);
  frame.supports = {{0, {true, true, true, true, false, false}},
                    {1, {false, true, true, true, false, false}}};
  LoadCase loads;
  loads.nodal.push_back({1, {-8e4}});
  loads.distributed.push_back({.element = 0, .from_value = {0, 0, -1}, .to_value = {0, 0, -1}});
  const CaseResult large = displaced(frame, loads).result;
  const auto second = analyse_second_order(frame, loads);
  const CaseResult& small = std::get<SecondOrderResult>(second).result;
  // It grows shorter by 4.6e-4 of its length, and so do the arms of the load.
  expect_same_forces(large, small, 1e-3);
}

TEST(LargeDisplacement, ATrussBeyondItsOwnBucklingLoadIsAProblem) {
  Frame frame;
  add_node(frame, 0, 0, 0);
  add_node(frame, 4000, 0, 0);
  add_truss(frame, 0, 1);
  frame.supports = {{0, pinned}, {1, {false, true, true}}};
  LoadCase loads;
  // π²·EI/L² with the smaller I; at the length before.
  const double euler = 9.869604401 * 70000.0 * 2.9e6 / (4000.0 * 4000.0);
  loads.nodal.push_back({1, {-0.999 * euler}});
  EXPECT_NO_THROW(displaced(frame, loads));
  loads.nodal[0].value[0] = -2 * euler;
  const Problem problem = problem_under(frame, loads);
  EXPECT_EQ(problem.kind, Problem::Kind::buckling);
  EXPECT_EQ(problem.text, "element 1 buckles between its nodes at 0.5 of these loads");
  EXPECT_EQ(problem.element, 0U);
}

TEST(LargeDisplacement, EndsThatSlideAreAProblemOfTheInput) {
  Frame frame = cantilever(4000);
  frame.supports.push_back({1, clamped});
  frame.elements[0].released[8] = true;
  const Problem problem = problem_under(frame, {});
  EXPECT_EQ(problem.kind, Problem::Kind::input);
  EXPECT_EQ(problem.text,
            "element 1 releases Fz, and an end that slides cannot be followed through large "
            "displacements: only Mx, My and Mz may be released");
}

TEST(LargeDisplacement, WhatFirstOrderRefusesIsRefusedWithItsMessage) {
  Frame frame = cantilever(4000);
  frame.supports[0].fixed = pinned;
  LoadCase loads;
  loads.nodal.push_back({1, {0, 0, -1}});
  const Problem problem = problem_under(frame, loads);
  EXPECT_EQ(problem.kind, Problem::Kind::mechanism);
  EXPECT_EQ(problem.text, problem_of(frame, loads).text);
}

TEST(LargeDisplacement, AFrameWithoutLoadsStaysWhereItIs) {
  const SecondOrderResult r = displaced(portal(), {});
  EXPECT_EQ(largest_of(r.result, 0) + largest_of(r.result, 3), 0.0);
  EXPECT_EQ(r.result.equilibrium.nodes, 0.0);
}

SecondOrderResult second_order(const Frame& frame, const LoadCase& loads) {
  auto result = analyse_second_order(frame, loads);
  if (const auto* problem = std::get_if<Problem>(&result)) throw std::runtime_error(problem->text);
  return std::get<SecondOrderResult>(std::move(result));
}

TEST(GrowthOfSecondOrder, IsThatOfAShallowTruss) {
  Frame frame;
  for (const double x : {0.0, 1.0, 2.0}) add_node(frame, 1000 * x, 0, x == 1.0 ? 50 : 0);
  add_truss(frame, 0, 1);
  add_truss(frame, 1, 2);
  frame.supports = {{0, pinned}, {1, {false, true}}, {2, pinned}};
  LoadCase loads;
  loads.nodal.push_back({1, {0, 0, -2000}});
  const SecondOrderResult small = second_order(frame, loads);
  const double before = small.result.displacements[1][dz];
  const double after = displaced(frame, loads).result.displacements[1][dz];
  // One step finds what is missing but for its square.
  const double missing = after / before - 1;
  EXPECT_NEAR(small.growth, missing, 3 * missing * missing);
  EXPECT_GT(missing, 0.02);
  EXPECT_EQ(small.growing, "");
  loads.nodal[0].value[dz] *= 2.5;
  EXPECT_GT(second_order(frame, loads).growth, noticeable_growth);
  EXPECT_EQ(second_order(frame, loads).growing, "node 2 moves along Z");
}

TEST(GrowthOfSecondOrder, IsNextToNothingInAFrameThatSways) {
  LoadCase loads;
  loads.nodal.push_back({1, {-2e4, 0, -500}});
  const SecondOrderResult r = second_order(cantilever(4000), loads);
  EXPECT_LT(r.result.displacements[1][dz], -15.0);  // a span over 250
  EXPECT_LT(std::abs(r.growth), 1e-3);
}

/// Two shallow bars, rise 50 mm on 2 m, under a load down at their apex, and a mast apart from them
/// that is pushed at its top and moves a hundred times as far.
std::pair<Frame, LoadCase> bars_beside_a_mast(double down) {
  Frame frame;
  for (const double x : {0.0, 1.0, 2.0}) add_node(frame, 1000 * x, 0, x == 1.0 ? 50 : 0);
  add_truss(frame, 0, 1);
  add_truss(frame, 1, 2);
  add_node(frame, 0, 5000, 0);
  add_node(frame, 0, 5000, 6000);
  add_element(frame, 3, 4);
  frame.supports = {{0, pinned}, {1, {false, true}}, {2, pinned}, {3, clamped}};
  LoadCase loads;
  loads.nodal = {{1, {0, 0, -down}}, {4, {3000, 0, 0}}};
  return {frame, loads};
}

/// They carry 2·EA·(h/L)³·0.1925 = 8420 N, on a closed form of small angles.
TEST(GrowthOfSecondOrder, OfAPartIsSeenBesideWhatMovesFurther) {
  const auto flattens = [](double down) {
    const auto [frame, loads] = bars_beside_a_mast(down);
    return second_order(frame, loads);
  };
  const SecondOrderResult r = flattens(0.7 * 8420);
  EXPECT_LT(r.growth, noticeable_growth);
  EXPECT_TRUE(r.flattens);
  EXPECT_EQ(r.growing, "node 2 moves along Z");
  // Eight times as far, it would be displaced by more than it is high.
  for (const double share : {0.9, 1.1}) EXPECT_TRUE(flattens(share * 8420).flattens);
  EXPECT_FALSE(flattens(0.25 * 8420).flattens);
}

TEST(SecondOrder, NamesWhatBucklesBesideWhatIsSofter) {
  const auto [frame, loads] = bars_beside_a_mast(1.5 * 8420);
  const auto result = analyse_second_order(frame, loads);
  EXPECT_EQ(std::get<Problem>(result).text,
            "the frame buckles under these loads: node 2 moves along Z");
}

TEST(GrowthOfSecondOrder, NothingFlattensInAPortalThatSways) {
  Frame frame;
  for (const double x : {0.0, 6000.0}) {
    add_node(frame, x, 0, 0);
    add_node(frame, x, 0, 4000);
  }
  // A ridge 100 mm above the eaves, and columns that lean a little.
  add_node(frame, 3000, 0, 4100);
  frame.nodes[1].x = 50;
  add_element(frame, 0, 1);
  add_element(frame, 2, 3);
  add_element(frame, 1, 4);
  add_element(frame, 4, 3);
  frame.supports = {{0, clamped}, {2, clamped}};
  LoadCase loads;
  loads.nodal = {{1, {2000, 0, -2e4}}, {3, {2000, 0, -2e4}}, {4, {0, 0, -3000}}};
  const SecondOrderResult r = second_order(frame, loads);
  EXPECT_GT(r.result.displacements[1][dx], 20.0);  // a height over 200
  EXPECT_FALSE(r.flattens);
  EXPECT_EQ(r.growing, "");
}

TEST(LimitLoad, OfAFrameThatCarriesMoreIsNone) {
  LoadCase loads;
  loads.nodal.push_back({1, {0, 0, -100}});
  const auto found = find_limit_load(cantilever(4000), loads, 3.0);
  const auto& limit = std::get<LimitLoad>(found);
  EXPECT_EQ(limit.kind, LimitLoad::Kind::none);
  EXPECT_EQ(limit.factor, 3.0);
  EXPECT_EQ(limit.node, 1U);
  // P·L³/3EI.
  EXPECT_NEAR(limit.largest_displacement, 300.0 * 6.4e10 / (3 * 70000.0 * 9.3e6), 0.01);
}

}  // namespace
}  // namespace aluframe::analysis
