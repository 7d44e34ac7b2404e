// Entities that contradict themselves or each other, one fault a model.
#include "tests/unit/aluframe/io/bad_model.h"

namespace aluframe::io {
namespace {

using BadEntity = RejectedModel;

constexpr const char* dimensions = R"({"H": 150, "B": 60, "tw": 3, "tf1": 3})";
constexpr const char* alloy = R"("alloy": "6063-T5")";
constexpr const char* own_values = R"("grade": "own", "f02_thin": 110, "fu": 160)";

TEST_P(BadEntity, IsNamedByItsPath) {
  expect_message();
}

INSTANTIATE_TEST_SUITE_P(
    References, BadEntity,
    testing::Values(
        BadModel{"MissingNodeOfAnElement", R"("nodes": [3, 4])", R"("nodes": [3, 99])",
                 "/elements/2/nodes/1: node 99 does not exist"},
        BadModel{"MissingSection", R"("nodes": [2, 3], "section": 1)",
                 R"("nodes": [2, 3], "section": 7)",
                 "/elements/1/section: section 7 does not exist"},
        BadModel{"MissingMaterial", R"("section": 1, "material": 1)",
                 R"("section": 1, "material": 2)",
                 "/elements/0/material: material 2 does not exist"},
        BadModel{"MissingNodeOfASupport", R"("node": 1)", R"("node": 12)",
                 "/supports/0/node: node 12 does not exist"},
        BadModel{"MissingElementOfAMember", R"("elements": [1, 2])", R"("elements": [1, 8])",
                 "/members/0/elements/1: element 8 does not exist"},
        BadModel{"MissingCaseOfACombination", R"({"case": 2, "factor": 1.5})", R"({"case": 3})",
                 "/combinations/0/terms/1/case: load case 3 does not exist"},
        BadModel{"MissingCombinationOfACombination", R"({"combination": 1})",
                 R"({"combination": 5})",
                 "/combinations/1/terms/0/combination: combination 5 does not exist"},
        BadModel{"MissingElementOfForces", R"("element": 1, "case")", R"("element": 9, "case")",
                 "/forces/0/element: element 9 does not exist"},
        BadModel{"MissingCaseOfForces", R"("case": 1, "values")", R"("case": 4, "values")",
                 "/forces/0/case: load case 4 does not exist"}),
    name_of_bad_model);

INSTANTIATE_TEST_SUITE_P(
    Orientations, BadEntity,
    testing::Values(
        BadModel{"OrientationOfNothing", R"("nodes": [2, 3])",
                 R"("nodes": [2, 3], "orientation": {})",
                 R"(/elements/1/orientation: one of "vector" and "node" is needed, found neither)"},
        BadModel{"OrientationOfBoth", R"("nodes": [2, 3])",
                 R"("nodes": [2, 3], "orientation": {"vector": [1, 0, 0], "node": 1})",
                 R"(/elements/1/orientation: one of "vector" and "node" is needed, found both)"},
        BadModel{"VectorOfTwoComponents", R"("nodes": [2, 3])",
                 R"("nodes": [2, 3], "orientation": {"vector": [1, 0]})",
                 "/elements/1/orientation/vector: found 2 components, must be 3: X, Y and Z"},
        BadModel{"MissingNodeOfAnOrientation", R"("nodes": [2, 3])",
                 R"("nodes": [2, 3], "orientation": {"node": 99})",
                 "/elements/1/orientation/node: node 99 does not exist"},
        BadModel{"VectorAlongTheAxis", R"("nodes": [2, 3])",
                 R"("nodes": [2, 3], "orientation": {"vector": [0.0005, 0, -1]})",
                 "/elements/1/orientation: the direction (0.0005, 0, -1) lies along the element's "
                 "axis: the sine of the angle between them is 0.0005, must be 0.001 or more"},
        BadModel{"VectorWithoutLength", R"("nodes": [2, 3])",
                 R"("nodes": [2, 3], "orientation": {"vector": [0, 0, 0]})",
                 "/elements/1/orientation: the vector (0, 0, 0) has no length, so it gives no "
                 "direction"},
        BadModel{
            "NodeOnTheAxis", R"("nodes": [2, 3])", R"("nodes": [2, 3], "orientation": {"node": 4})",
            "/elements/1/orientation: the direction (0, 0, 6000) mm to the node lies along the "
            "element's axis: the sine of the angle between them is 0, must be 0.001 or more"}),
    name_of_bad_model);

INSTANTIATE_TEST_SUITE_P(
    Duplicates, BadEntity,
    testing::Values(
        BadModel{"NumberTakenByAnotherNode", R"("number": 3, "x")", R"("number": 2, "x")",
                 "/nodes/2/number: number 2 is taken by /nodes/1"},
        BadModel{"NumberTakenByAnotherCase", R"("number": 2, "name": "WIND")",
                 R"("number": 1, "name": "WIND")",
                 "/load_cases/1/number: number 1 is taken by /load_cases/0"},
        BadModel{"SecondSupportOfANode", R"("supports": [)",
                 R"("supports": [{"node": 1, "restrained": ["Dx"]}, )",
                 "/supports/1: node 1 has a support already"},
        BadModel{"DirectionRestrainedTwice", R"("restrained": "all")",
                 R"("restrained": ["Dx", "Dy", "Dx"])",
                 R"(/supports/0/restrained/2: found "Dx", which is given before)"},
        BadModel{
            "SecondForcesOfAnElementAndCase", R"("forces": [)",
            R"("forces": [{"element": 1, "case": 1, "values": [[0,0,0,0,0,0],[0,0,0,0,0,0]]}, )",
            "/forces/1: element 1 has forces in case 1 already"},
        BadModel{"ElementInTwoMembers", R"("members": [)",
                 R"("members": [{"number": 2, "elements": [2, 3]}, )",
                 "/members/1/elements/1: element 2 is in member 2 already"},
        BadModel{"ElementTwiceInAMember", R"("elements": [1, 2])", R"("elements": [1, 1])",
                 "/members/0/elements/1: element 1 is in member 1 already"}),
    name_of_bad_model);

INSTANTIATE_TEST_SUITE_P(
    Structure, BadEntity,
    testing::Values(
        BadModel{"ElementBetweenANodeAndItself", R"("nodes": [2, 3])", R"("nodes": [2, 2])",
                 "/elements/1/nodes: the element starts and ends at node 2"},
        BadModel{"ElementWithoutLength", R"("z": 6000)", R"("z": 3000)",
                 "/elements/1/nodes: nodes 2 and 3 are at the same point"},
        BadModel{"ElementWithThreeNodes", R"("nodes": [2, 3])", R"("nodes": [2, 3, 4])",
                 "/elements/1/nodes: found 3 node numbers, must be 2: start and end"},
        BadModel{"UnknownKindOfElement", R"("nodes": [2, 3])", R"("nodes": [2, 3], "kind": "rod")",
                 R"(/elements/1/kind: found "rod", must be one of beam, truss)"},
        BadModel{
            "UnknownMemberType", R"("nodes": [2, 3])", R"("nodes": [2, 3], "member_type": "post")",
            R"(/elements/1/member_type: found "post", must be one of column, beam, brace, truss)"},
        BadModel{"UnknownRelease", R"("nodes": [2, 3])",
                 R"("nodes": [2, 3], "releases": {"end": ["Rz"]})",
                 R"(/elements/1/releases/end/0: found "Rz", must be one of N, Fy, Fz, Mx, My, Mz)"},
        BadModel{"UnknownDirectionOfASupport", R"("restrained": "all")", R"("restrained": ["Tx"])",
                 R"(/supports/0/restrained/0: found "Tx", must be one of Dx, Dy, Dz, Rx, Ry, Rz)"},
        BadModel{"UnknownWordOfASupport", R"("restrained": "all")", R"("restrained": "fixed")",
                 R"(/supports/0/restrained: found "fixed", must be "all")"},
        BadModel{"MemberWithoutElements", R"("elements": [1, 2])", R"("elements": [])",
                 "/members/0/elements: found an empty list, a member needs at least one element"},
        BadModel{"MemberOfElementsThatDoNotMeet", R"("elements": [1, 2])", R"("elements": [1, 3])",
                 "/members/0/elements: element 3 does not meet element 1 at a node"}),
    name_of_bad_model);

INSTANTIATE_TEST_SUITE_P(
    Materials, BadEntity,
    testing::Values(
        BadModel{
            "UnknownAlloy", "6063-T5", "6063-T7",
            R"(/materials/0/alloy: found "6063-T7", must be one of 6061-T4, 6061-T6, 6063-T5, )"
            "6063-T6, 6063A-T5, 6063A-T6, 5083-O/F, 5083-H112, 3003-H24, 3004-H34, 3004-H36"},
        BadModel{"AlloyBesideValues", alloy, R"("alloy": "6063-T5", "fu": 160)",
                 R"(/materials/0/fu: not allowed beside "alloy", which determines it)"},
        BadModel{
            "NeitherAlloyNorValues", alloy, R"("name": "M")",
            R"(/materials/0: missing field "alloy", or "grade", "f02_thin" and "fu" for values )"
            "of your own"},
        BadModel{"ValuesWithoutStrength", alloy, R"("grade": "own", "f02_thin": 110)",
                 R"(/materials/0: missing field "fu")"},
        BadModel{"StrengthOfZero", alloy, R"("grade": "own", "f02_thin": 0, "fu": 160)",
                 "/materials/0/f02_thin: found 0, must be positive"},
        BadModel{
            "GradeThatTheCodesStandardLacks", alloy,
            R"j("grade": "6061-T5", "standard": "GB50429-07(A)", "f02_thin": 110, "fu": 160)j",
            R"j(/materials/0/grade: found "6061-T5", must be one of 6061-T4, 6061-T6, 6063-T5, )j"
            "6063-T6, 6063A-T5, 6063A-T6, 5083-O/F, 5083-H112, 3003-H24, 3004-H34, 3004-H36 "
            R"j(under the standard "GB50429-07(A)")j"},
        BadModel{"PoissonRatioOfZero", alloy,
                 R"("grade": "own", "f02_thin": 110, "fu": 160, "poisson": 0)",
                 "/materials/0/poisson: found 0, must be positive"}),
    name_of_bad_model);

INSTANTIATE_TEST_SUITE_P(
    Sections, BadEntity,
    testing::Values(
        BadModel{"UnknownShape", R"("shape": "B")", R"("shape": "BOX")",
                 R"(/sections/0/shape: found "BOX", must be one of C, H, T, B, P, 2C, SR, UP)"},
        BadModel{"MissingDimension", dimensions, R"({"H": 150, "B": 60, "tw": 3})",
                 R"(/sections/0/dimensions: missing field "tf1")"},
        BadModel{"DimensionOfAnotherShape", dimensions,
                 R"({"H": 150, "B": 60, "tw": 3, "tf1": 3, "r1": 2})",
                 "/sections/0/dimensions/r1: unknown field, allowed are H, B, tw, tf1, C, tf2"},
        BadModel{"NegativeDimension", R"("tw": 3)", R"("tw": -3)",
                 "/sections/0/dimensions/tw: found -3, must be positive"},
        BadModel{"DimensionOfZero", R"("H": 150)", R"("H": 0)",
                 "/sections/0/dimensions/H: found 0, must be positive"},
        BadModel{"MissingDimensions", R"(, "dimensions": {"H": 150, "B": 60, "tw": 3, "tf1": 3})",
                 "", R"(/sections/0: missing field "dimensions")"},
        BadModel{"DimensionsOfASectionGivenByItsProperties", R"("shape": "B")",
                 R"("shape": "UP", "properties": {"area": 1, "iyy": 1, "izz": 1,
                    "point_y": [-1,1,1,-1], "point_z": [1,1,-1,-1]})",
                 "/sections/0/dimensions/H: unknown field, none is allowed here"},
        BadModel{"MissingPropertiesOfASectionGivenByThem", R"("shape": "B")", R"("shape": "UP")",
                 R"(/sections/0: missing field "properties")"},
        BadModel{"MissingPropertyOfASectionGivenByThem", R"("shape": "B")",
                 R"("shape": "UP", "properties": {"area": 1, "iyy": 1, "izz": 1,
                    "point_y": [-1,1,1,-1]})",
                 R"(/sections/0/properties: missing field "point_z")"},
        BadModel{"NegativeArea", R"("shape": "B")", R"("shape": "B", "properties": {"area": -1})",
                 "/sections/0/properties/area: found -1, must be positive"},
        BadModel{"StressPointsOnTheWeakAxis", R"("shape": "B")",
                 R"("shape": "B", "properties": {"point_y": [0, 0, 0, 0]})",
                 "/sections/0/properties/point_y: found 0 four times, one must differ from 0"},
        BadModel{"TopFibreBelowTheCentroid", R"("shape": "B")",
                 R"("shape": "B", "properties": {"point_z": [5, -5, -5, -5]})",
                 "/sections/0/properties/point_z/1: found -5, must be positive: the top lies above "
                 "the centroid"},
        BadModel{"BottomFibreAboveTheCentroid", R"("shape": "B")",
                 R"("shape": "B", "properties": {"point_z": [5, 5, -5, 5]})",
                 "/sections/0/properties/point_z/3: found 5, must be negative: the bottom lies "
                 "below the centroid"},
        BadModel{"TopFibreAtTheCentroid", R"("shape": "B")",
                 R"("shape": "B", "properties": {"point_z": [0, 5, -5, -5]})",
                 "/sections/0/properties/point_z/0: found 0, must be positive: the top lies above "
                 "the centroid"},
        BadModel{"BottomFibreAtTheCentroid", R"("shape": "B")",
                 R"("shape": "B", "properties": {"point_z": [5, 5, 0, -5]})",
                 "/sections/0/properties/point_z/2: found 0, must be negative: the bottom lies "
                 "below the centroid"},
        BadModel{"ThreeStressPoints", R"("shape": "B")",
                 R"("shape": "B", "properties": {"point_y": [1, 2, 3]})",
                 "/sections/0/properties/point_y: found 3 numbers, must be 4, one for each stress "
                 "point"}),
    name_of_bad_model);

INSTANTIATE_TEST_SUITE_P(
    Design, BadEntity,
    testing::Values(
        BadModel{
            "MomentFactorGivenAndComputed", R"("nodes": [2, 3])",
            R"("nodes": [2, 3], "design": {"moment_factors": {"y": {"value": 1, "loading": 0}}})",
            R"(/elements/1/design/moment_factors/y/loading: not allowed beside "value", )"
            "which replaces it"},
        BadModel{"MomentFactorNeitherGivenNorComputed", R"("nodes": [2, 3])",
                 R"("nodes": [2, 3], "design": {"moment_factors": {"y": {}}})",
                 R"(/elements/1/design/moment_factors/y: missing field "value" or "loading")"},
        BadModel{"UnknownLoading", R"("nodes": [2, 3])",
                 R"("nodes": [2, 3], "design": {"moment_factors": {"z": {"loading": 4}}})",
                 "/elements/1/design/moment_factors/z/loading: found 4, must be a whole number "
                 "from 0 to 3"},
        BadModel{"LengthFactorOfZero", R"("nodes": [2, 3])",
                 R"("nodes": [2, 3], "design": {"length_factors": {"y": 0}})",
                 "/elements/1/design/length_factors/y: found 0, must be positive"},
        BadModel{"LengthFactorOfOneAxisAlone", R"("nodes": [2, 3])",
                 R"("nodes": [2, 3], "design": {"length_factors": {"z": 2}})",
                 R"(/elements/1/design/length_factors: missing field "y")"},
        BadModel{"NegativeSlendernessLimit", R"("nodes": [2, 3])",
                 R"("nodes": [2, 3], "design": {"slenderness_limits": {"tension": -1}})",
                 "/elements/1/design/slenderness_limits/tension: found -1, must not be negative"},
        BadModel{"NegativeHeatAffectedWidth", R"("nodes": [2, 3])",
                 R"("nodes": [2, 3], "design": {"haz_width": -1})",
                 "/elements/1/design/haz_width: found -1, must not be negative"}),
    name_of_bad_model);

INSTANTIATE_TEST_SUITE_P(
    Loads, BadEntity,
    testing::Values(
        BadModel{"UnknownKindOfCase", R"("name": "DL")", R"("name": "DL", "kind": "dead")",
                 R"(/load_cases/0/kind: found "dead", must be one of static, seismic_static, )"
                 "response_spectrum, eccentric_spectrum, time_history, moving, settlement, crane"},
        BadModel{"UnknownKindOfCombination", R"("number": 2, "terms")",
                 R"("number": 2, "kind": "srss", "terms")",
                 R"(/combinations/1/kind: found "srss", must be one of linear, envelope)"},
        BadModel{"TermWithCaseAndCombination", R"({"combination": 1})",
                 R"({"combination": 1, "case": 1})",
                 R"(/combinations/1/terms/0/combination: not allowed beside "case")"},
        BadModel{"TermWithoutCaseAndCombination", R"({"combination": 1})", R"({"factor": 1})",
                 R"(/combinations/1/terms/0: missing field "case" or "combination")"},
        BadModel{
            "CombinationWithoutTerms", R"([{"combination": 1}])", "[]",
            "/combinations/1/terms: found an empty list, a combination needs at least one term"},
        BadModel{
            "ForcesAtThreePositions", "[[10, 20, 30, 40, 50, 60],",
            "[[0, 0, 0, 0, 0, 0], [10, 20, 30, 40, 50, 60],",
            "/forces/0/values: found 3 rows, must be 2 (the ends) or 5 (the ends and the quarter "
            "points)"},
        BadModel{"FiveForces", "[1, 2, 3, 4, 5, 6]", "[1, 2, 3, 4, 5]",
                 "/forces/0/values/1: found 5 numbers, a row has 6: N, Fy, Fz, Mx, My, Mz"},
        BadModel{"SevenForces", "[1, 2, 3, 4, 5, 6]", "[1, 2, 3, 4, 5, 6, 7]",
                 "/forces/0/values/1: found 7 numbers, a row has 6: N, Fy, Fz, Mx, My, Mz"}),
    name_of_bad_model);

TEST(BadEntityTest, IsNoMaterialWithValuesOfItsOwn) {
  EXPECT_EQ(message_about(replaced(small_model, alloy, own_values)), "no problem");
}

/// The small model with combinations 3 to `last`, each of which contains the one before it;
/// combination 2 contains 1 there already.
std::string with_nested_combinations(int last) {
  std::string list = R"({"number": 2, "terms": [{"combination": 1}]})";
  for (int i = 3; i <= last; ++i) {
    list += R"(, {"number": )" + std::to_string(i) + R"(, "terms": [{"combination": )" +
            std::to_string(i - 1) + "}]}";
  }
  return replaced(small_model, R"({"number": 2, "terms": [{"combination": 1}]})", list);
}

TEST(BadEntityTest, CombinationsMayNestToTheLimit) {
  EXPECT_EQ(message_about(with_nested_combinations(64)), "no problem");
}

TEST(BadEntityTest, CombinationsNestedTooDeepAreRejectedAtTheFirstThatIs) {
  EXPECT_EQ(
      message_about(with_nested_combinations(10'000)),
      "post.json: /combinations/64/terms/0: contains combinations 65 levels deep (at most 64)");
}

TEST(BadEntityTest, LongCycleOfCombinationsIsCutInTheMessage) {
  const std::string message =
      message_about(replaced(with_nested_combinations(10'000), R"({"case": 2, "factor": 1.5})",
                             R"({"combination": 10000})"));
  EXPECT_TRUE(message.starts_with("post.json: /combinations/0/terms/1: contains itself: 1 → 10000"))
      << message;
  EXPECT_LT(message.size(), 300U);
}

TEST(BadEntityTest, ModelWithoutElementsIsRejected) {
  EXPECT_EQ(message_about(R"({"format": "aluframe-model", "version": 1, "materials": [],
                              "sections": [], "nodes": [], "elements": []})"),
            "post.json: /elements: found an empty list, a model needs at least one element");
}

TEST(BadEntityTest, DimensionThatContradictsAnotherIsNamedBySectionsOwnRules) {
  const std::string message = message_about(
      replaced(small_model, dimensions, R"({"H": 150, "B": 60, "tw": 3, "tf1": 80})"));
  EXPECT_TRUE(message.starts_with("post.json: /sections/0/dimensions/tf1: ")) << message;
}

TEST(BadEntityTest, DimensionLeftToItsDefaultIsNamedAtTheDimensions) {
  // C, which is not given, would be B − tw = 60 − 100.
  const std::string message = message_about(
      replaced(small_model, dimensions, R"({"H": 150, "B": 60, "tw": 100, "tf1": 3})"));
  EXPECT_TRUE(message.starts_with("post.json: /sections/0/dimensions: C is -40 mm")) << message;
}

}  // namespace
}  // namespace aluframe::io
