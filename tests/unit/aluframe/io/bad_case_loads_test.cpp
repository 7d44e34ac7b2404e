// Loads that cannot be meant, one fault a model.
#include "tests/unit/aluframe/io/bad_model.h"
#include "tests/unit/aluframe/io/case_loads.h"

namespace aluframe::io {
namespace {

/// Loads of the second case, and the message behind its path.
struct BadLoads {
  const char* name;
  const char* loads;
  const char* message;
};

void PrintTo(const BadLoads& bad, std::ostream* out) {
  *out << bad.loads;
}

class BadCaseLoads : public testing::TestWithParam<BadLoads> {};

/// Elements 1 and 2 are beams, element 3 is a truss; node 1 is held along X and about Y.
std::string frame_with(const std::string& loads) {
  std::string text = replaced(with_loads(loads), R"("nodes": [3, 4], "section")",
                              R"("nodes": [3, 4], "kind": "truss", "section")");
  text = replaced(text, R"("restrained": "all")",
                  R"("restrained": ["Dx", "Ry"], "springs": {"Dz": 5})");
  return text;
}

TEST_P(BadCaseLoads, AreNamedByTheirPath) {
  EXPECT_EQ(message_about(frame_with(GetParam().loads)),
            std::string("post.json: /load_cases/1/") + GetParam().message);
}

std::string name_of(const testing::TestParamInfo<BadLoads>& info) {
  return info.param.name;
}

INSTANTIATE_TEST_SUITE_P(
    SelfWeight, BadCaseLoads,
    testing::Values(
        BadLoads{"FactorOfZero", R"("self_weight": 0)", "self_weight: found 0, must not be 0"},
        BadLoads{"NoFactors", R"("self_weight": {})",
                 "self_weight: at least one of X, Y, Z must not be 0"},
        BadLoads{"FactorsOfZero", R"("self_weight": {"X": 0, "Z": 0})",
                 "self_weight: at least one of X, Y, Z must not be 0"},
        BadLoads{"TruthValue", R"("self_weight": true)",
                 "self_weight: found true, must be a number, or an object of X, Y and Z"},
        BadLoads{"LocalAxis", R"("self_weight": {"z": -1})",
                 R"(self_weight/z: unknown field, did you mean "Z"?)"},
        BadLoads{"FactorBeyondTheRange", R"("self_weight": 2e30)",
                 "self_weight: found 2e+30, must be between -1e30 and 1e30"}),
    name_of);

INSTANTIATE_TEST_SUITE_P(
    Targets, BadCaseLoads,
    testing::Values(
        BadLoads{"MissingNode", R"("nodal": [{"nodes": [1, 99], "Fx": 1}])",
                 "nodal/0/nodes/1: node 99 does not exist"},
        BadLoads{"MissingElementOfASpan",
                 R"("span": [{"elements": [8], "direction": "Z", "value": 1}])",
                 "span/0/elements/0: element 8 does not exist"},
        BadLoads{"MissingElementOfAPoint",
                 R"("points": [{"elements": [1, 8], "direction": "Z", "at": 0, "force": 1}])",
                 "points/0/elements/1: element 8 does not exist"},
        BadLoads{"MissingElementOfATemperature",
                 R"("temperature": [{"elements": [8], "change": 1}])",
                 "temperature/0/elements/0: element 8 does not exist"},
        BadLoads{"MissingNodeOfASettlement", R"("settlements": [{"node": 99, "Dx": 1}])",
                 "settlements/0/node: node 99 does not exist"},
        BadLoads{"NoNodes", R"("nodal": [{"nodes": [], "Fx": 1}])",
                 R"(nodal/0/nodes: found an empty list, must have at least one node, or be "all")"},
        BadLoads{"NoElements", R"("span": [{"elements": [], "direction": "Z", "value": 1}])",
                 "span/0/elements: found an empty list, must have at least one element, or be "
                 R"("all")"},
        BadLoads{"ElementGivenTwice",
                 R"("span": [{"elements": [1, 2, 1], "direction": "Z", "value": 1}])",
                 "span/0/elements/2: found 1, which is given before"},
        BadLoads{"UnknownWord", R"("nodal": [{"nodes": "every", "Fx": 1}])",
                 R"(nodal/0/nodes: found "every", must be "all")"},
        BadLoads{"NumberForAList", R"("nodal": [{"nodes": 3, "Fx": 1}])",
                 "nodal/0/nodes: found 3, must be a list"},
        BadLoads{"NoTarget", R"("nodal": [{"Fx": 1}])", R"(nodal/0: missing field "nodes")"}),
    name_of);

INSTANTIATE_TEST_SUITE_P(
    Nodal, BadCaseLoads,
    testing::Values(BadLoads{"NoComponent", R"("nodal": [{"nodes": [1]}])",
                             "nodal/0: at least one of Fx, Fy, Fz, Mx, My, Mz must not be 0"},
                    BadLoads{"ComponentsOfZero", R"("nodal": [{"nodes": [1], "Fx": 0, "Mz": 0}])",
                             "nodal/0: at least one of Fx, Fy, Fz, Mx, My, Mz must not be 0"},
                    BadLoads{"ComponentBeyondTheRange", R"("nodal": [{"nodes": [1], "My": -2e30}])",
                             "nodal/0/My: found -2e+30, must be between -1e30 and 1e30"},
                    BadLoads{"LocalComponent", R"("nodal": [{"nodes": [1], "N": 1}])",
                             "nodal/0/N: unknown field, allowed are nodes, Fx, Fy, Fz, Mx, My, Mz"},
                    BadLoads{"ObjectForAList", R"("nodal": {"nodes": [1], "Fx": 1})",
                             "nodal: found an object, must be a list"}),
    name_of);

INSTANTIATE_TEST_SUITE_P(
    Span, BadCaseLoads,
    testing::Values(
        BadLoads{"NoDirection", R"("span": [{"elements": [1], "value": 1}])",
                 R"(span/0: missing field "direction")"},
        BadLoads{"UnknownDirection",
                 R"("span": [{"elements": [1], "direction": "-Z", "value": 1}])",
                 R"(span/0/direction: found "-Z", must be one of x, y, z, X, Y, Z)"},
        BadLoads{"NoValue", R"("span": [{"elements": [1], "direction": "Z"}])",
                 R"(span/0: missing field "value" or "values")"},
        BadLoads{"ValueBesideValues",
                 R"("span": [{"elements": [1], "direction": "Z", "value": 1, "values": [1, 2]}])",
                 R"(span/0/values: not allowed beside "value")"},
        BadLoads{"ValueOfZero", R"("span": [{"elements": [1], "direction": "Z", "value": 0}])",
                 "span/0/value: found 0, must not be 0"},
        BadLoads{"ValuesOfZero",
                 R"("span": [{"elements": [1], "direction": "Z", "values": [0, 0]}])",
                 "span/0/values: at least one of the two must not be 0"},
        BadLoads{"ThreeValues",
                 R"("span": [{"elements": [1], "direction": "Z", "values": [1, 2, 3]}])",
                 "span/0/values: found 3 numbers, must be 2: where the load begins and ends"},
        BadLoads{"OneValueInAList",
                 R"("span": [{"elements": [1], "direction": "Z", "values": [1]}])",
                 "span/0/values: found 1 numbers, must be 2: where the load begins and ends"},
        BadLoads{"ValueBeyondTheRange",
                 R"("span": [{"elements": [1], "direction": "Z", "values": [1, 2e30]}])",
                 "span/0/values/1: found 2e+30, must be between -1e30 and 1e30"},
        BadLoads{"ProjectionOfALocalDirection",
                 R"("span": [{"elements": [1], "direction": "z", "value": 1, "projected": true}])",
                 "span/0/projected: found true, only a load along X, Y or Z can be projected"},
        BadLoads{"ProjectionAlongTheElement",
                 R"("span": [{"elements": [1], "direction": "Z", "value": 1, "projected": true}])",
                 "span/0/projected: acts on nothing: all elements of the load lie along its "
                 "direction"},
        BadLoads{"BeginningBeforeTheElement",
                 R"("span": [{"elements": [1], "direction": "Z", "value": 1, "from": -0.1}])",
                 "span/0/from: found -0.1, must be between 0 and 1"},
        BadLoads{"EndBehindTheElement",
                 R"("span": [{"elements": [1], "direction": "Z", "value": 1, "to": 1.1}])",
                 "span/0/to: found 1.1, must be between 0 and 1"},
        BadLoads{
            "EndBeforeTheBeginning",
            R"("span": [{"elements": [1], "direction": "Z", "value": 1, "from": 0.8, "to": 0.2}])",
            "span/0/to: the load goes from 0.8 to 0.2 of the length, must begin before it ends"},
        BadLoads{"BeginningAtTheEndOfTheElement",
                 R"("span": [{"elements": [1], "direction": "Z", "value": 1, "from": 1}])",
                 "span/0/from: the load goes from 1 to 1 of the length, must begin before it "
                 "ends"}),
    name_of);

INSTANTIATE_TEST_SUITE_P(
    Points, BadCaseLoads,
    testing::Values(
        BadLoads{"NoPlace", R"("points": [{"elements": [1], "direction": "Z", "force": 1}])",
                 R"(points/0: missing field "at")"},
        BadLoads{"PlaceBehindTheElement",
                 R"("points": [{"elements": [1], "direction": "Z", "at": 1.5, "force": 1}])",
                 "points/0/at: found 1.5, must be between 0 and 1"},
        BadLoads{"NeitherForceNorMoment",
                 R"("points": [{"elements": [1], "direction": "Z", "at": 1}])",
                 R"(points/0: missing field "force" or "moment")"},
        BadLoads{
            "ForceAndMoment",
            R"("points": [{"elements": [1], "direction": "Z", "at": 1, "force": 1, "moment": 1}])",
            R"(points/0/moment: not allowed beside "force")"},
        BadLoads{"ForceOfZero",
                 R"("points": [{"elements": [1], "direction": "Z", "at": 1, "force": 0}])",
                 "points/0/force: found 0, must not be 0"},
        BadLoads{"MomentOfZero",
                 R"("points": [{"elements": [1], "direction": "Z", "at": 1, "moment": 0}])",
                 "points/0/moment: found 0, must not be 0"},
        BadLoads{"MomentOnATruss",
                 R"("points": [{"elements": [1, 3], "direction": "y", "at": 0.5, "moment": 1}])",
                 "points/0/moment: element 3 is a truss, which takes no moment"},
        BadLoads{"MomentOnAllElements",
                 R"("points": [{"elements": "all", "direction": "y", "at": 0.5, "moment": 1}])",
                 "points/0/moment: element 3 is a truss, which takes no moment"},
        BadLoads{"Projection",
                 R"("points": [{"elements": [1], "direction": "Z", "at": 1, "force": 1,
                                "projected": true}])",
                 "points/0/projected: unknown field, allowed are elements, direction, at, force, "
                 "moment"}),
    name_of);

INSTANTIATE_TEST_SUITE_P(
    Temperature, BadCaseLoads,
    testing::Values(
        BadLoads{"NoTemperature", R"("temperature": [{"elements": [1]}])",
                 "temperature/0: at least one of change, difference_y, difference_z must not be 0"},
        BadLoads{"TemperaturesOfZero", R"("temperature": [{"elements": [1], "change": 0}])",
                 "temperature/0: at least one of change, difference_y, difference_z must not be 0"},
        BadLoads{"DifferenceOnATruss",
                 R"("temperature": [{"elements": [3], "change": 1, "difference_z": 5}])",
                 "temperature/0/difference_z: element 3 is a truss, which does not bend"},
        BadLoads{"DifferenceOnAllElements",
                 R"("temperature": [{"elements": "all", "difference_y": 5}])",
                 "temperature/0/difference_y: element 3 is a truss, which does not bend"}),
    name_of);

INSTANTIATE_TEST_SUITE_P(
    Settlements, BadCaseLoads,
    testing::Values(BadLoads{"NoDisplacement", R"("settlements": [{"node": 1}])",
                             "settlements/0: at least one of Dx, Dy, Dz, Rx, Ry, Rz must not be 0"},
                    BadLoads{"DisplacementOfZero", R"("settlements": [{"node": 1, "Dx": 0}])",
                             "settlements/0: at least one of Dx, Dy, Dz, Rx, Ry, Rz must not be 0"},
                    BadLoads{"FreeDirection", R"("settlements": [{"node": 1, "Dx": 1, "Dy": 1}])",
                             "settlements/0/Dy: node 1 is not restrained in this direction"},
                    BadLoads{"DirectionHeldByASpring", R"("settlements": [{"node": 1, "Dz": 1}])",
                             "settlements/0/Dz: node 1 is not restrained in this direction"},
                    BadLoads{"NodeWithoutSupport", R"("settlements": [{"node": 2, "Rx": 1}])",
                             "settlements/0/Rx: node 2 is not restrained in this direction"},
                    BadLoads{"ZeroInAFreeDirection",
                             R"("settlements": [{"node": 1, "Dx": 1, "Dy": 0}])",
                             "settlements/0/Dy: node 1 is not restrained in this direction"},
                    BadLoads{"NodeGivenTwice",
                             R"("settlements": [{"node": 1, "Dx": 1}, {"node": 1, "Ry": 1}])",
                             "settlements/1: node 1 has a settlement in this load case already"}),
    name_of);

INSTANTIATE_TEST_SUITE_P(
    Fields, BadCaseLoads,
    testing::Values(BadLoads{"MisspeltList", R"("spans": [])",
                             R"(spans: unknown field, did you mean "span"?)"},
                    BadLoads{"UnknownFieldOfASpan",
                             R"("span": [{"elements": [1], "direction": "Z", "value": 1, "q": 1}])",
                             "span/0/q: unknown field, allowed are elements, direction, projected, "
                             "value, values, from, to"}),
    name_of);

TEST(BadLoadTest, ValueThatVanishesInNewtonsPerMillimetreIsRefused) {
  // The smallest double, 4.9e-324 N/m, is less than half of itself in N/mm.
  const std::string loads = R"("span": [{"elements": [1], "direction": "Z", "value": 4.9e-324}])";
  EXPECT_EQ(message_about(replaced(with_loads(loads), R"("length": "mm")", R"("length": "m")")),
            "post.json: /load_cases/1/span/0/value: found 5e-324, must not be 0");
}

}  // namespace
}  // namespace aluframe::io
