#include <gtest/gtest.h>

#include "frames.h"

namespace aluframe::analysis {
namespace {

/// Text of the mechanism, under a load that would set it in motion.
std::string mechanism(const Frame& frame) {
  LoadCase load_case;
  load_case.self_weight = {0.3, 0.2, -1};
  const Problem problem = problem_of(frame, load_case);
  EXPECT_EQ(problem.kind, Problem::Kind::mechanism);
  return problem.text;
}

/// Beams from node to node along X, 1 m each, in a plane of their own.
Frame beam_of(std::size_t elements) {
  Frame frame;
  for (std::size_t i = 0; i <= elements; ++i)
    add_node(frame, 1000.0 * static_cast<double>(i), 0, 0);
  for (std::size_t i = 0; i < elements; ++i) add_element(frame, i, i + 1).density = 2.7e-6;
  return frame;
}

TEST(Mechanism, StructureWithoutSupportsIsNamed) {
  EXPECT_EQ(mechanism(beam_of(19)), "nothing supports the structure with nodes 1-20");
}

TEST(Mechanism, LongUnsupportedStructureIsFoundInSpiteOfRounding) {
  EXPECT_EQ(mechanism(beam_of(400)), "nothing supports the structure with nodes 1-401");
}

TEST(Mechanism, UnsupportedPartIsNamedByItsNodes) {
  Frame frame = beam_of(3);
  frame.supports.push_back({0, clamped});
  for (const double x : {0.0, 1000.0, 2000.0}) add_node(frame, x, 5000, 0);
  add_element(frame, 4, 5);
  add_element(frame, 5, 6);
  EXPECT_EQ(mechanism(frame), "nothing supports the part of the structure with nodes 5-7");
}

TEST(Mechanism, PartsThatStandByThemselvesAreNone) {
  Frame frame = beam_of(1);
  add_node(frame, 0, 5000, 0);
  add_node(frame, 2000, 5000, 0);
  add_element(frame, 2, 3);
  frame.supports = {{0, clamped}, {2, clamped}};
  LoadCase pull;
  pull.nodal = {{1, {500}}, {3, {700}}};
  const CaseResult r = solved(frame, pull);
  EXPECT_EQ(r.forces[0][0][n], 500.0F);
  EXPECT_EQ(r.forces[1][0][n], 700.0F);
}

TEST(Mechanism, SupportsThatLetTheWholeSlideAreTold) {
  Frame frame = beam_of(4);
  frame.supports = {{0, {false, true, true, true}}, {4, {false, true, true, false}}};
  EXPECT_EQ(mechanism(frame),
            "the supports do not hold the structure with nodes 1-5: it can move along X");
}

TEST(Mechanism, BeamThatMayTurnAboutItselfIsTold) {
  Frame frame = beam_of(4);
  frame.supports = {{0, pinned}, {4, {false, true, true, false}}};
  EXPECT_EQ(mechanism(frame),
            "the supports do not hold the structure with nodes 1-5: it can turn about an axis "
            "along X");
}

TEST(Mechanism, BeamOnOnePinTurnsAboutIt) {
  Frame frame = beam_of(2);
  frame.supports = {{0, {true, true, true, true, false, true}}};
  EXPECT_EQ(mechanism(frame),
            "the supports do not hold the structure with nodes 1-3: it can turn about an axis "
            "along Y");
}

TEST(Mechanism, NodeWhoseElementsAreAllReleasedIsNamed) {
  // Two beams meet with hinges on both sides: the node between them has nothing to turn against.
  Frame frame = beam_of(2);
  frame.supports = {{0, clamped}, {2, clamped}};
  frame.elements[0].released[10] = true;
  frame.elements[1].released[4] = true;
  EXPECT_EQ(mechanism(frame), "node 2 can rotate freely about Y: every element there is released");
}

TEST(Mechanism, NodeThatMayTurnAboutTwoAxesHasBothNamed) {
  Frame frame = beam_of(2);
  frame.supports = {{0, clamped}, {2, clamped}};
  for (const std::size_t i : {10U, 11U}) frame.elements[0].released[i] = true;
  for (const std::size_t i : {4U, 5U}) frame.elements[1].released[i] = true;
  EXPECT_EQ(mechanism(frame),
            "node 2 can rotate freely about Y and Z: every element there is released");
}

TEST(Mechanism, FurtherUnrestrainedNodesAreCounted) {
  Frame frame = beam_of(4);
  frame.supports = {{0, clamped}, {2, clamped}, {4, clamped}};
  for (const std::size_t i : {0U, 2U}) frame.elements[i].released[10] = true;
  for (const std::size_t i : {1U, 3U}) frame.elements[i].released[4] = true;
  EXPECT_EQ(mechanism(frame),
            "node 2 can rotate freely about Y: every element there is released (1 more node can "
            "move freely)");
}

TEST(Mechanism, ObliqueHingeNamesItsDirection) {
  Frame frame;
  add_node(frame, 0, 0, 0);
  add_node(frame, 1000, 1000, 0);
  add_node(frame, 2000, 2000, 0);
  add_element(frame, 0, 1).released[10] = true;
  add_element(frame, 1, 2).released[4] = true;
  frame.supports = {{0, clamped}, {2, clamped}};
  EXPECT_EQ(mechanism(frame),
            "node 2 can rotate freely about (0.707, -0.707, 0): every element there is released");
}

TEST(Mechanism, TrussesInOneLineDoNotHoldTheNodeBetweenThem) {
  Frame frame;
  for (const double x : {0.0, 1000.0, 2000.0}) add_node(frame, x, 0, 0);
  add_truss(frame, 0, 1).density = 2.7e-6;
  add_truss(frame, 1, 2);
  frame.supports = {{0, pinned}, {2, pinned}};
  EXPECT_EQ(mechanism(frame),
            "node 2 can move freely along Y and Z: the elements there do not resist it");
}

/// A portal in the plane of X and Z whose four corners are hinges about Y.
Frame hinged_portal() {
  Frame frame;
  add_node(frame, 0, 0, 0);
  add_node(frame, 0, 0, 3000);
  add_node(frame, 5000, 0, 3000);
  add_node(frame, 5000, 0, 0);
  add_element(frame, 0, 1).released[4] = true;
  auto& beam = add_element(frame, 1, 2);
  beam.released[4] = beam.released[10] = true;
  add_element(frame, 3, 2).released[4] = true;
  for (Element& element : frame.elements) element.density = 2.7e-6;
  frame.supports = {{0, clamped}, {3, clamped}};
  return frame;
}

TEST(Mechanism, PortalOfHingesSwaysAndItsMovingNodesAreNamed) {
  EXPECT_EQ(mechanism(hinged_portal()),
            "nodes 2-3 can move freely along X: no element or support resists it");
}

TEST(Mechanism, StiffnessesTooFarApartAreNamed) {
  // By hand, elements of 1 m: G·It/L³ = 27000·3.1e5/1e9 = 8.37 N/mm is the least of every element;
  // 12·E·Iyy/L³ = 12·7e4·1e30/1e9 = 8.4e26 N/mm the most of the second one.
  Frame frame;
  for (const double x : {0.0, 1000.0, 2000.0, 3000.0}) add_node(frame, x, 0, 0);
  for (std::size_t i = 0; i < 3; ++i) add_element(frame, i, i + 1);
  frame.elements[1].stiffness.iyy = 1e30;
  frame.supports = {{0, clamped}, {3, clamped}};
  EXPECT_THAT(mechanism(frame),
              testing::EndsWith("; or stiffnesses are too far apart to compute with: "
                                "8.4e+00 N/mm of element 1, 8.4e+26 N/mm of element 2"));
}

TEST(Mechanism, BracedPortalOfHingesStands) {
  Frame frame = hinged_portal();
  add_truss(frame, 0, 2);
  LoadCase wind;
  wind.nodal.push_back({1, {1000}});
  EXPECT_THAT(solved(frame, wind).forces[3][0][n], float_near(1000 * std::sqrt(34.0) / 5, 1000));
}

TEST(Mechanism, PortalHeldByNextToNothingIsNotTrusted) {
  // 1e-9 N/mm against axial stiffnesses of 6e4 N/mm: no digit of the sway would be certain.
  Frame frame = hinged_portal();
  frame.springs.push_back({1, {1e-9}});
  EXPECT_EQ(mechanism(frame),
            "nodes 2-3 can move almost freely along X: what resists is too soft for a certain "
            "result");
}

TEST(Mechanism, TorsionReleasedAtBothEndsIsNamedByElement) {
  Frame frame = beam_of(2);
  frame.supports = {{0, clamped}, {2, clamped}};
  frame.elements[1].released[3] = frame.elements[1].released[9] = true;
  EXPECT_EQ(mechanism(frame),
            "element 2: nothing holds it any more: Mx at the start and Mx at the end are released");
}

TEST(Mechanism, RotationOfANodeWithTrussesOnlyIsNone) {
  Frame frame;
  add_node(frame, 0, 0, 0);
  add_node(frame, 1000, 0, 0);
  add_truss(frame, 0, 1);
  frame.supports = {{0, pinned}, {1, {false, true, true}}};
  LoadCase pull;
  pull.nodal.push_back({1, {500}});
  EXPECT_EQ(solved(frame, pull).forces[0][0][n], 500.0F);
}

TEST(Mechanism, NodeThatNoElementMeetsIsLeftOut) {
  Frame frame = cantilever(1000);
  add_node(frame, 0, 0, 9000);
  LoadCase pull;
  pull.nodal.push_back({1, {500}});
  EXPECT_EQ(solved(frame, pull).displacements[2], Vector6{});
}

TEST(Mechanism, LongCantileverOfManyElementsIsNone) {
  // 60 elements: the softest motion is about 4e-8 as stiff as its elements, far from a mechanism.
  Frame frame = beam_of(60);
  frame.supports.push_back({0, clamped});
  LoadCase load_case;
  load_case.nodal.push_back({60, {0, 0, -1}});
  const Stiffness s = plain_stiffness();
  // Rounding of 1e-16 grows by the ratio of the stiffnesses.
  const double expected = -std::pow(6e4, 3) / (3 * s.e * s.iyy);
  EXPECT_THAT(solved(frame, load_case).displacements[60][dz],
              testing::DoubleNear(expected, 1e-7 * std::abs(expected)));
}

}  // namespace
}  // namespace aluframe::analysis
