#include <gtest/gtest.h>

#include <functional>
#include <limits>

#include "frames.h"

namespace aluframe::analysis {
namespace {

constexpr double infinite = std::numeric_limits<double>::infinity();
constexpr double not_a_number = std::numeric_limits<double>::quiet_NaN();

struct Fault {
  const char* name;
  std::function<void(Frame&, LoadCase&)> make;
  const char* text;
};

void PrintTo(const Fault& fault, std::ostream* stream) {
  *stream << fault.name;
}

class FrameWithAFault : public testing::TestWithParam<Fault> {};

TEST_P(FrameWithAFault, IsAProblemInWords) {
  Frame frame = cantilever(1000);
  LoadCase load_case;
  GetParam().make(frame, load_case);
  const Problem problem = problem_of(frame, load_case);
  EXPECT_EQ(problem.text, GetParam().text);
}

const Fault frame_faults[] = {
    {"ZeroLength", [](Frame& f, LoadCase&) { f.nodes[1].x = 0; },
     "element 1: its nodes lie at the same point"},
    {"NoSuchNode", [](Frame& f, LoadCase&) { f.elements[0].end = 7; },
     "element 1: there is no node at place 7 of 2"},
    {"NegativeArea", [](Frame& f, LoadCase&) { f.elements[0].stiffness.area = -5; },
     "element 1: its area is -5, must be positive"},
    {"NoTorsionConstant", [](Frame& f, LoadCase&) { f.elements[0].stiffness.it = 0; },
     "element 1: its torsion constant is 0, must be positive"},
    {"ModulusNotANumber", [](Frame& f, LoadCase&) { f.elements[0].stiffness.e = not_a_number; },
     "element 1: its elastic modulus is nan, must be positive"},
    {"NegativeShearArea", [](Frame& f, LoadCase&) { f.elements[0].stiffness.ay = -1; },
     "element 1: its shear area is -1, must be 0 or more"},
    {"StiffnessThatOverflows",
     [](Frame& f, LoadCase&) {
       f.elements[0].stiffness.e = 1e300;
       f.elements[0].stiffness.iyy = 1e10;
     },
     "element 1: its stiffness is too large to compute with"},
    {"CoordinateNotFinite", [](Frame& f, LoadCase&) { f.nodes[1].y = infinite; },
     "node 2: a coordinate is not finite"},
    {"BetaNotFinite", [](Frame& f, LoadCase&) { f.elements[0].beta = infinite; },
     "element 1: a number of it is not finite"},
    {"ReferenceAlongTheAxis",
     [](Frame& f, LoadCase&) { f.elements[0].reference = Vector3{-2, 0, 1e-3}; },
     "element 1: its reference direction lies along its axis"},
    {"ReferenceNotANumber",
     [](Frame& f, LoadCase&) { f.elements[0].reference = Vector3{0, not_a_number, 1}; },
     "element 1: its reference direction lies along its axis"},
    {"SupportNowhere", [](Frame& f, LoadCase&) { f.supports.push_back({9, clamped}); },
     "support: there is no node at place 9 of 2"},
    {"NegativeSpring", [](Frame& f, LoadCase&) { f.springs.push_back({1, {0, -3}}); },
     "node 2: a spring stiffness is -3, must be 0 or more"},
    {"ReleasedTruss",
     [](Frame& f, LoadCase&) {
       f.elements[0].kind = ElementKind::truss;
       f.elements[0].released[0] = true;
     },
     "element 1: a truss whose N is released carries nothing"},
};
INSTANTIATE_TEST_SUITE_P(Frames, FrameWithAFault, testing::ValuesIn(frame_faults),
                         [](const auto& fault) { return fault.param.name; });

const Fault load_faults[] = {
    {"LoadOnAMissingElement", [](Frame&, LoadCase& c) { c.points.push_back({.element = 4}); },
     "a load is on an element at place 4 of 1"},
    {"LoadOnAMissingNode", [](Frame&, LoadCase& c) { c.nodal.push_back({4, {1}}); },
     "a load is on a node at place 4 of 2"},
    {"LoadNotFinite", [](Frame&, LoadCase& c) { c.nodal.push_back({1, {infinite}}); },
     "load on node 2: not finite"},
    {"PlacesReversed",
     [](Frame&, LoadCase& c) { c.distributed.push_back({.element = 0, .from = 0.7, .to = 0.2}); },
     "load on element 1: it goes from 0.7 to 0.2 of the length, must lie within 0 to 1"},
    {"LoadBeyondTheEnd",
     [](Frame&, LoadCase& c) { c.distributed.push_back({.element = 0, .from = 0.2, .to = 1.2}); },
     "load on element 1: it goes from 0.2 to 1.2 of the length, must lie within 0 to 1"},
    {"PointBeyondTheEnd",
     [](Frame&, LoadCase& c) { c.points.push_back({.element = 0, .at = 1.5}); },
     "load on element 1: it acts at 1.5 of the length, must lie within 0 to 1"},
    {"GradientWithoutDepth",
     [](Frame&, LoadCase& c) { c.temperatures.push_back({.element = 0, .difference_z = 5}); },
     "load on element 1: a temperature difference needs the positive distance of its two faces"},
    {"SettlementOfNoSupport", [](Frame&, LoadCase& c) { c.settlements.push_back({1, dz, 5.0}); },
     "node 2 has a settlement along Z, but no support there"},
    {"SettlementNotFinite",
     [](Frame&, LoadCase& c) { c.settlements.push_back({0, dz, not_a_number}); },
     "node 1: its settlement is not finite"},
    {"WeightNotFinite", [](Frame&, LoadCase& c) { c.self_weight[2] = infinite; },
     "a factor of self-weight is not finite"},
    {"MomentOnATruss",
     [](Frame& f, LoadCase& c) {
       f.elements[0].kind = ElementKind::truss;
       c.points.push_back({.element = 0, .moment = {0, 1, 0}});
     },
     "load on element 1: a truss cannot take a moment"},
    {"MomentWhereOnlyTrussesMeet",
     [](Frame& f, LoadCase& c) {
       f.elements[0].kind = ElementKind::truss;
       c.nodal.push_back({1, {0, 0, 0, 0, 5}});
     },
     "node 2 is loaded with a moment about Y, but only trusses meet there"},
    {"ForceOnANodeAlone",
     [](Frame& f, LoadCase& c) {
       add_node(f, 5, 5, 5);
       c.nodal.push_back({2, {0, 0, -1}});
     },
     "node 3 is loaded with a force along Z, but no element meets it"},
    {"ForcesBeyondSinglePrecision",
     [](Frame&, LoadCase& c) { c.nodal.push_back({1, {0, 0, 1e38}}); },
     "the forces are too large to compute with"},
};
const Fault huge_loads[] = {
    {"HugeForce", [](Frame&, LoadCase& c) { c.nodal.push_back({1, {0, 0, 1e300}}); },
     "the forces are too large to compute with"},
    {"HugeSpanLoad",
     [](Frame&, LoadCase& c) {
       c.distributed.push_back({.element = 0, .from_value = {0, 0, 1e307}, .to_value = {0, 0, 1}});
     },
     "the forces are too large to compute with"},
    {"HugeWarmth",
     [](Frame& f, LoadCase& c) {
       f.elements[0].expansion = 1;
       c.temperatures.push_back({.element = 0, .change = 1e303});
     },
     "the forces are too large to compute with"},
    {"HugeWeight",
     [](Frame& f, LoadCase& c) {
       f.elements[0].density = 1e300;
       c.self_weight = {0, 0, -1e300};
     },
     "the forces are too large to compute with"},
    {"HugeSettlement",
     [](Frame& f, LoadCase& c) {
       f.supports.push_back({1, pinned});
       c.settlements.push_back({1, dz, 1e300});
     },
     "the forces are too large to compute with"},
};
INSTANTIATE_TEST_SUITE_P(HugeLoads, FrameWithAFault, testing::ValuesIn(huge_loads),
                         [](const auto& fault) { return fault.param.name; });

INSTANTIATE_TEST_SUITE_P(Loads, FrameWithAFault, testing::ValuesIn(load_faults),
                         [](const auto& fault) { return fault.param.name; });

TEST(ExtremeStiffness, OfTheWholeFrameCarriesItsLoadByStatics) {
  Frame frame = cantilever(1000);
  frame.elements[0].stiffness.e = frame.elements[0].stiffness.g = 1e295;
  LoadCase load_case;
  load_case.nodal.push_back({1, {0, 0, -5}});
  EXPECT_THAT(solved(frame, load_case).forces[0][0][my], float_near(-5000, 5000));
}

TEST(ExtremeStiffness, BesideOrdinaryOnesIsNotTrusted) {
  Frame frame = cantilever(1000);
  add_node(frame, 2000, 0, 0);
  add_element(frame, 1, 2).stiffness.e = 1e40;
  LoadCase load_case;
  load_case.nodal.push_back({2, {0, 0, -1}});
  EXPECT_EQ(problem_of(frame, load_case).kind, Problem::Kind::mechanism);
}

}  // namespace
}  // namespace aluframe::analysis
