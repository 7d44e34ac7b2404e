// What a model holds when a file gives a field, and when it leaves it out.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <fstream>
#include <sstream>

#include "tests/unit/aluframe/io/io_texts.h"

namespace aluframe::io {
namespace {

using testing::ElementsAre;

/// The first block of JSON in the description of the format.
std::string documented_example() {
  const std::ifstream file(ALUFRAME_SOURCE_DIR "/docs/model-file.md");
  std::stringstream content;
  content << file.rdbuf();
  const std::string text = content.str();
  const std::string opening = "```json\n";
  const std::size_t begin = text.find(opening) + opening.size();
  return text.substr(begin, text.find("```", begin) - begin);
}

std::string with_design(const std::string& design) {
  return replaced(small_model, R"("nodes": [1, 2])",
                  R"("nodes": [1, 2], "design": {)" + design + "}");
}

model::ElementDesign design_of(const std::string& design) {
  return model_of(with_design(design)).elements[0].design;
}

TEST(DocumentedExample, HasTheStructureItDescribes) {
  const model::Model model = model_of(documented_example());
  EXPECT_EQ(model.title, "Mullion over two storeys");
  ASSERT_EQ(model.nodes.size(), 2U);
  EXPECT_EQ(model.nodes[1], (model::Node{.number = 2, .name = "", .x = 0, .y = 0, .z = 3600}));
  ASSERT_EQ(model.elements.size(), 1U);
  EXPECT_THAT(model.elements[0].nodes, ElementsAre(1, 2));
  ASSERT_EQ(model.supports.size(), 2U);
  EXPECT_THAT(model.supports[0].restrained, ElementsAre(true, true, true, false, false, true));
}

TEST(DocumentedExample, HasItsSectionAndMaterial) {
  const model::Model model = model_of(documented_example());
  ASSERT_EQ(model.sections.size(), 1U);
  EXPECT_EQ(model.sections[0].name, "Mullion");
  EXPECT_EQ(model.sections[0].shape, model::Shape::box);
  // C = 60 − 3 and tf2 = tf1 are the defaults of a box.
  EXPECT_THAT(model.sections[0].dimensions, ElementsAre(150, 60, 3, 3, 57, 3, 0, 0));
  ASSERT_EQ(model.materials.size(), 1U);
  EXPECT_EQ(model.materials[0].grade, "6063-T5");
  EXPECT_EQ(model.materials[0].standard, "GB50429-07(A)");
  EXPECT_EQ(model.materials[0].f02_thin, 110.0);  // GB 50429-2007, table of alloys
  EXPECT_EQ(model.materials[0].fu, 160.0);
}

TEST(DocumentedExample, HasItsForcesAndCombination) {
  const model::Model model = model_of(documented_example());
  const model::CaseForces* dead = model.forces.find(0, 0);
  ASSERT_NE(dead, nullptr);
  EXPECT_TRUE(dead->inner);
  EXPECT_FLOAT_EQ(dead->at[0][0], -1200.0F);
  EXPECT_FLOAT_EQ(dead->at[4][0], -900.0F);
  const model::CaseForces* wind = model.forces.find(0, 1);
  ASSERT_NE(wind, nullptr);
  EXPECT_TRUE(wind->inner);
  EXPECT_FLOAT_EQ(wind->at[2][4], 2.8e6F);  // 2.8 kN·m in N·mm
  EXPECT_FLOAT_EQ(wind->at[4][2], -3100.0F);
  ASSERT_EQ(model.combinations.size(), 1U);
  EXPECT_EQ(model.combinations[0].name, "ULS1");
  ASSERT_EQ(model.combinations[0].terms.size(), 2U);
  EXPECT_EQ(model.combinations[0].terms[1].number, 2U);
  EXPECT_EQ(model.combinations[0].terms[1].factor, 1.5);
}

TEST(Settings, HaveTheDocumentedDefaults) {
  const model::DesignSettings settings =
      model_of(replaced(small_model, R"({"safety_class": 2})", "{}")).design.value();
  EXPECT_EQ(settings.code, "GB50429-07(A)");
  EXPECT_TRUE(settings.rib);
  EXPECT_EQ(settings.rib_ratio, 1.2);
  EXPECT_EQ(settings.safety_class, 2);
  EXPECT_EQ(settings.strength_ratio, 0.85);
  EXPECT_FALSE(settings.seismic);
  EXPECT_EQ(settings.gamma_re_strength, 0.75);
  EXPECT_EQ(settings.gamma_re_stability, 0.8);
}

TEST(Settings, AreTakenFromTheFile) {
  const std::string given =
      R"({"code": "GB50429-2007", "rib": false, "rib_ratio": 1.1, "safety_class": 1,
      "strength_ratio": 0.9, "seismic": true, "gamma_re_strength": 0.7, "gamma_re_stability": 0.85})";
  const model::DesignSettings settings =
      model_of(replaced(small_model, R"({"safety_class": 2})", given)).design.value();
  EXPECT_EQ(settings.code, "GB50429-07(A)");  // the name shown stands for the internal one
  EXPECT_FALSE(settings.rib);
  EXPECT_EQ(settings.rib_ratio, 1.1);
  EXPECT_EQ(settings.safety_class, 1);
  EXPECT_EQ(settings.strength_ratio, 0.9);
  EXPECT_TRUE(settings.seismic);
  EXPECT_EQ(settings.gamma_re_strength, 0.7);
  EXPECT_EQ(settings.gamma_re_stability, 0.85);
}

TEST(Settings, AreAbsentWhenTheFileHasNone) {
  const std::string text = replaced(small_model, R"("settings": {"safety_class": 2},)", "");
  EXPECT_FALSE(model_of(text).design.has_value());
}

TEST(Frame, DirectionThatIsNotSaidToBeBracedSways) {
  const model::FrameSettings frame = model_of(small_model).frame.value();
  EXPECT_TRUE(frame.braced_a);
  EXPECT_FALSE(frame.braced_b);
}

TEST(Envelopes, AreCheckedByTheirStatesUnlessTheFileSaysOtherwise) {
  EXPECT_EQ(model_of(small_model).envelopes, model::Envelopes::states);
  const auto with = [](const char* value) {
    return replaced(small_model, R"("frame": {)",
                    std::string("\"envelopes\": ") + value + R"(, "frame": {)");
  };
  EXPECT_EQ(model_of(with(R"("states")")).envelopes, model::Envelopes::states);
  EXPECT_EQ(model_of(with(R"("extremes")")).envelopes, model::Envelopes::extremes);
}

TEST(OwnMaterial, HasTheDocumentedDefaults) {
  const model::Material material = model_of(replaced(small_model, R"("alloy": "6063-T5")",
                                                     R"("grade": "X", "f02_thin": 120, "fu": 180)"))
                                       .materials[0];
  EXPECT_EQ(material.standard, "user");
  EXPECT_EQ(material.f02_thick, 120.0);
  EXPECT_EQ(material.e, 70000.0);
  EXPECT_EQ(material.poisson, 0.3);
  EXPECT_EQ(material.density, 2.7e-6);
  EXPECT_EQ(material.thermal_expansion, 2.3e-5);
}

TEST(OwnMaterial, MayHaveAGradeOfTheTableUnderTheTablesStandard) {
  const model::Material material =
      model_of(replaced(small_model, R"("alloy": "6063-T5")",
                        R"json("grade": "6063-T5", "standard": "GB50429-07(A)", "f02_thin": 100,
                               "fu": 150)json"))
          .materials[0];
  EXPECT_EQ(material.standard, "GB50429-07(A)");
  EXPECT_EQ(material.f02_thin, 100.0);
}

TEST(GivenStressPoints, MayLieOnTheWeakAxisWhenOneDoesNot) {
  const model::Model model = model_of(replaced(
      small_model, R"("shape": "B")", R"("shape": "B", "properties": {"point_y": [0, 0, 0, -2]})"));
  EXPECT_EQ(model.sections[0].given.point_y, (std::array{0.0, 0.0, 0.0, -2.0}));
}

TEST(OwnMaterial, IsTakenFromTheFile) {
  const model::Material material =
      model_of(replaced(small_model, R"("alloy": "6063-T5")",
                        R"("name": "M", "grade": "X", "standard": "EN 1999", "f02_thin": 120,
                           "f02_thick": 110, "fu": 180, "e": 69000, "poisson": 0.33,
                           "density": 2.8e-6, "thermal_expansion": 2.4e-5)"))
          .materials[0];
  EXPECT_EQ(material, (model::Material{.number = 1,
                                       .name = "M",
                                       .standard = "EN 1999",
                                       .grade = "X",
                                       .e = 69000,
                                       .poisson = 0.33,
                                       .density = 2.8e-6,
                                       .thermal_expansion = 2.4e-5,
                                       .f02_thin = 120,
                                       .f02_thick = 110,
                                       .fu = 180}));
}

struct Dimensions {
  const char* name;
  const char* shape;
  const char* given;
  std::array<double, 8> expected;  ///< in the documented order, defaults by the documented rules
};

class ShapeDimensions : public testing::TestWithParam<Dimensions> {};

TEST_P(ShapeDimensions, AreReadByNameWithTheirDefaults) {
  const Dimensions& row = GetParam();
  std::string text =
      replaced(small_model, R"("shape": "B")", R"("shape": ")" + std::string(row.shape) + '"');
  text = replaced(text, R"({"H": 150, "B": 60, "tw": 3, "tf1": 3})", row.given);
  EXPECT_EQ(model_of(text).sections[0].dimensions, row.expected);
}

INSTANTIATE_TEST_SUITE_P(
    All, ShapeDimensions,
    testing::Values(
        Dimensions{"Channel",
                   "C",
                   R"({"tf1": 8, "tw": 6, "B1": 80, "H": 200})",
                   {200, 80, 6, 8, 80, 8, 0, 0}},
        Dimensions{
            "HWithAllDimensions",
            "H",
            R"({"H": 200, "B1": 100, "tw": 6, "tf1": 8, "B2": 80, "tf2": 10, "r1": 4, "r2": 2})",
            {200, 100, 6, 8, 80, 10, 4, 2}},
        Dimensions{"HWithOtherLowerWidth",
                   "H",
                   R"({"H": 200, "B1": 100, "tw": 6, "tf1": 8, "B2": 80})",
                   {200, 100, 6, 8, 80, 8, 0, 0}},
        Dimensions{
            "Tee", "T", R"({"H": 100, "B": 80, "tw": 6, "tf": 8})", {100, 80, 6, 8, 0, 0, 0, 0}},
        Dimensions{"BoxWithInnerWebs",
                   "B",
                   R"({"H": 200, "B": 100, "tw": 4, "tf1": 6, "C": 80, "tf2": 5})",
                   {200, 100, 4, 6, 80, 5, 0, 0}},
        Dimensions{"Pipe", "P", R"({"D": 100, "t": 5})", {100, 5, 0, 0, 0, 0, 0, 0}},
        Dimensions{"DoubleChannel",
                   "2C",
                   R"({"H": 200, "B": 80, "tw": 6, "tf": 8})",
                   {200, 80, 6, 8, 0, 0, 0, 0}},
        Dimensions{"DoubleChannelWithGap",
                   "2C",
                   R"({"H": 200, "B": 80, "tw": 6, "tf": 8, "C": 10})",
                   {200, 80, 6, 8, 10, 0, 0, 0}},
        Dimensions{"SolidRound", "SR", R"({"D": 50})", {50, 0, 0, 0, 0, 0, 0, 0}}),
    [](const auto& test) { return std::string(test.param.name); });

TEST(Element, IsABeamWithoutAttributesByDefault) {
  const model::Element element = model_of(small_model).elements[1];
  EXPECT_EQ(element, (model::Element{.number = 2,
                                     .name = "",
                                     .nodes = {2, 3},
                                     .section = 1,
                                     .material = 1,
                                     .beta = 0.0,
                                     .kind = model::ElementKind::beam,
                                     .member_type = std::nullopt,
                                     .released = {},
                                     .design = {}}));
}

TEST(Element, HasWhatTheFileGives) {
  const std::string text = replaced(
      small_model, R"("nodes": [1, 2])",
      R"("nodes": [1, 2], "name": "C1", "kind": "truss", "member_type": "brace", "beta": -90,
         "releases": {"start": ["Fy", "Mz"], "end": ["N", "My"]})");
  const model::Element element = model_of(text).elements[0];
  EXPECT_EQ(element.name, "C1");
  EXPECT_EQ(element.kind, model::ElementKind::truss);
  EXPECT_EQ(element.member_type, model::MemberType::brace);
  EXPECT_EQ(element.beta, -90.0);
  EXPECT_THAT(element.released, ElementsAre(false, true, false, false, false, true,  //
                                            true, false, false, false, true, false));
}

TEST(Element, TakesItsOrientationFromAVectorOrANode) {
  using Vector = std::array<double, 3>;
  const auto orientation = [](std::string_view text) {
    const std::string field = R"("nodes": [2, 3], "orientation": )" + std::string(text);
    return model_of(replaced(small_model, R"("nodes": [2, 3])", field)).elements[1].orientation;
  };
  EXPECT_EQ(orientation(R"({"vector": [1, -2, 0.5]})"),
            (model::Orientation{Vector{1.0, -2.0, 0.5}}));
  // From node 2 of the upright element to a node aside of it.
  const std::string aside =
      replaced(small_model, R"("number": 4, "x": 0)", R"("number": 4, "x": 9)");
  const std::string text =
      replaced(aside, R"("nodes": [2, 3])", R"("nodes": [2, 3], "orientation": {"node": 4})");
  EXPECT_EQ(model_of(text).elements[1].orientation, model::Orientation{model::Number{4}});
}

TEST(ElementDesignAttributes, AreTakenFromTheFile) {
  const model::ElementDesign design = design_of(
      R"("stability_coefficients": {"y": 0.5, "z": 0.6}, "rib": {"stiffened": false, "ratio": 1.5},
         "weld_coefficient": 0.7, "haz_width": 25,
         "moment_factors": {"y": {"value": -0.4}, "z": {"loading": 3}},
         "length_factors": {"y": 2, "z": 0.7},
         "slenderness_limits": {"checked": false, "compression": 150, "tension": 0})");
  EXPECT_EQ(design.stability_coefficients, (model::ElementDesign::AxisPair{0.5, 0.6}));
  EXPECT_EQ(design.rib, (model::ElementDesign::Rib{false, 1.5}));
  EXPECT_EQ(design.weld_coefficient, 0.7);
  EXPECT_EQ(design.haz_width, 25.0);
  EXPECT_EQ(design.moment_factors, (model::ElementDesign::MomentFactors{{-0.4, 0}, {{}, 3}}));
  EXPECT_EQ(design.length_factors, (model::ElementDesign::AxisPair{2.0, 0.7}));
  EXPECT_EQ(design.slenderness_limits, (model::ElementDesign::Slenderness{false, 150.0, 0.0}));
}

TEST(ElementDesignAttributes, HaveTheirDefaultsOneByOne) {
  const model::ElementDesign design = design_of(
      R"("rib": {}, "moment_factors": {"z": {"value": 1}}, "stability_coefficients": {"z": 2},
         "slenderness_limits": {})");
  EXPECT_EQ(design.rib, (model::ElementDesign::Rib{true, 1.2}));
  EXPECT_EQ(design.moment_factors, (model::ElementDesign::MomentFactors{{{}, 0}, {1.0, 0}}));
  EXPECT_EQ(design.stability_coefficients, (model::ElementDesign::AxisPair{1.0, 2.0}));
  EXPECT_EQ(design.slenderness_limits, (model::ElementDesign::Slenderness{true, 200.0, 300.0}));
  EXPECT_FALSE(design.length_factors.has_value());
  EXPECT_FALSE(design.haz_width.has_value());
}

TEST(Members, HaveTheirElementsAndLengthFactors) {
  const std::string text = replaced(
      small_model, R"({"number": 1, "elements": [1, 2]})",
      R"({"number": 5, "name": "Post", "elements": [1, 2], "length_factors": {"y": 0.7, "z": 1}})");
  const model::Model model = model_of(text);
  ASSERT_EQ(model.members.size(), 1U);
  EXPECT_EQ(model.members[0].number, 5U);
  EXPECT_EQ(model.members[0].name, "Post");
  EXPECT_THAT(model.members[0].elements, ElementsAre(1, 2));
  EXPECT_EQ(model.members[0].length_factors, (model::ElementDesign::AxisPair{0.7, 1.0}));
}

TEST(Members, AreToBeFoundOnlyWhenTheFileHasNoListOfThem) {
  const std::string named = R"("members": [{"number": 1, "elements": [1, 2]}],)";
  EXPECT_FALSE(model_of(small_model).finds_members);
  EXPECT_FALSE(model_of(replaced(small_model, named, R"("members": [],)")).finds_members);
  EXPECT_TRUE(model_of(replaced(small_model, named, "")).finds_members);
}

TEST(FrameSettings, TakeLengthFactorsAsOneWhenTheFileSaysSo) {
  const model::Model asking = model_of(
      replaced(small_model, R"("braced_a": true)", R"("braced_a": true, "length_factors": "one")"));
  EXPECT_EQ(asking.frame->length_factors, model::LengthFactors::one);
  EXPECT_EQ(model_of(small_model).frame->length_factors, model::LengthFactors::computed);
}

TEST(LoadCases, AreOfTheKindThatTheFileGives) {
  const std::string text = replaced(
      small_model, R"({"number": 2, "name": "WIND"}])",
      R"({"number": 2, "kind": "seismic_static"}, {"number": 3, "kind": "response_spectrum"},
         {"number": 4, "kind": "time_history"}, {"number": 5, "kind": "settlement"}])");
  std::vector<model::LoadCaseKind> kinds;
  for (const model::LoadCase& load_case : model_of(text).load_cases)
    kinds.push_back(load_case.kind);
  EXPECT_THAT(kinds,
              ElementsAre(model::LoadCaseKind::static_load, model::LoadCaseKind::seismic_static,
                          model::LoadCaseKind::response_spectrum, model::LoadCaseKind::time_history,
                          model::LoadCaseKind::settlement));
}

TEST(Combinations, AreLinearForDesignWithFactorOneByDefault) {
  const model::Combination combination = model_of(small_model).combinations[1];
  EXPECT_EQ(combination.kind, model::CombinationKind::linear);
  EXPECT_FALSE(combination.seismic);
  EXPECT_TRUE(combination.design);
  ASSERT_EQ(combination.terms.size(), 1U);
  EXPECT_EQ(combination.terms[0].source, model::CombinationTerm::Source::combination);
  EXPECT_EQ(combination.terms[0].number, 1U);
  EXPECT_EQ(combination.terms[0].factor, 1.0);
}

TEST(Combinations, MayNameOnesThatComeLater) {
  const std::string text =
      replaced(small_model, R"({"number": 1, "terms": [{"case": 1}, )",
               R"({"number": 3, "kind": "envelope", "seismic": true, "design": false,
                   "terms": [{"combination": 1, "factor": -1}]},
                  {"number": 1, "terms": [{"case": 1}, )");
  const model::Combination combination = model_of(text).combinations[0];
  EXPECT_EQ(combination.kind, model::CombinationKind::envelope);
  EXPECT_TRUE(combination.seismic);
  EXPECT_FALSE(combination.design);
  EXPECT_EQ(combination.terms[0].factor, -1.0);
}

TEST(Forces, AreMissingForPairsThatTheFileDoesNotGive) {
  const model::Model model = model_of(small_model);
  EXPECT_NE(model.forces.find(0, 0), nullptr);
  EXPECT_EQ(model.forces.find(0, 1), nullptr);
  EXPECT_EQ(model.forces.find(2, 0), nullptr);
}

TEST(Fields, MayComeInAnyOrder) {
  // The units stand behind all that they scale.
  const std::string units = R"("units": {"force": "kN", "length": "cm"})";
  std::string text =
      replaced(small_model, R"("units": {"force": "N", "length": "mm", "section": "mm"},)", "");
  text.replace(text.rfind('}'), 1, ", " + units + "}");
  const model::Model model = model_of(text);
  EXPECT_EQ(model.nodes[1].z, 30000.0);
  EXPECT_EQ(model.forces.find(0, 0)->at[0][0], 10000.0F);
}

TEST(Fields, SchemaReferenceIsIgnored) {
  EXPECT_EQ(message_about(replaced(small_model, R"("version": 1,)",
                                   R"("version": 1, "$schema": "aluframe-model.schema.json",)")),
            "no problem");
}

TEST(Fields, WholeNumberMayBeWrittenWithADecimalPoint) {
  EXPECT_EQ(message_about(replaced(small_model, R"("number": 2, "x")", R"("number": 2.0, "x")")),
            "no problem");
}

}  // namespace
}  // namespace aluframe::io
