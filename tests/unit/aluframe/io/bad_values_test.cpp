// Wrong types, unknown, missing and repeated fields, and numbers out of range, one fault a model.
#include "tests/unit/aluframe/io/bad_model.h"

namespace aluframe::io {
namespace {

using BadValue = RejectedModel;

TEST_P(BadValue, IsNamedByItsPath) {
  expect_message();
}

INSTANTIATE_TEST_SUITE_P(
    Types, BadValue,
    testing::Values(
        BadModel{"TextForANumber", R"("z": 3000)", R"("z": "3000")",
                 R"(/nodes/1/z: found "3000", must be a number)"},
        BadModel{"NumberForAText", R"("name": "DL")", R"("name": 5)",
                 "/load_cases/0/name: found 5, must be a text"},
        BadModel{"NumberForATruthValue", R"("braced_a": true)", R"("braced_a": 1)",
                 "/frame/braced_a: found 1, must be true or false"},
        BadModel{"NullForANumber", R"("z": 3000)", R"("z": null)",
                 "/nodes/1/z: found null, must be a number"},
        BadModel{"ObjectForAList", R"([{"node": 1, "restrained": "all"}])", "{}",
                 "/supports: found an object, must be a list"},
        BadModel{"ListForAnObject", R"({"safety_class": 2})", "[2]",
                 "/settings: found a list, must be an object"},
        BadModel{"TextForAWholeNumber", R"("number": 2, "x")", R"("number": "2", "x")",
                 R"(/nodes/1/number: found "2", must be a whole number from 1 to 134217727)"},
        BadModel{"FractionForAWholeNumber", R"("number": 2, "x")", R"("number": 2.5, "x")",
                 "/nodes/1/number: found 2.5, must be a whole number from 1 to 134217727"}),
    name_of_bad_model);

INSTANTIATE_TEST_SUITE_P(
    Fields, BadValue,
    testing::Values(BadModel{"MisspeltField", R"("material": 1})", R"("materiel": 1})",
                             R"(/elements/0/materiel: unknown field, did you mean "material"?)"},
                    BadModel{"FieldInTheWrongCase", R"("section": 1, "material")",
                             R"("Section": 1, "material")",
                             R"(/elements/0/Section: unknown field, did you mean "section"?)"},
                    BadModel{"UnknownFieldLikeNoOther", R"("z": 3000)", R"("z": 3000, "colour": 1)",
                             "/nodes/1/colour: unknown field, allowed are number, name, x, y, z"},
                    BadModel{"UnknownFieldWithSlashAndTilde", R"("z": 3000)",
                             R"("z": 3000, "a/b~c": 1)",
                             "/nodes/1/a~1b~0c: unknown field, allowed are number, name, x, y, z"},
                    BadModel{"MisspeltList", R"("load_cases")", R"("loadcases")",
                             R"(/loadcases: unknown field, did you mean "load_cases"?)"},
                    BadModel{"MissingField", R"("z": 3000)", R"("name": "top")",
                             R"(/nodes/1: missing field "z")"},
                    BadModel{"FieldGivenTwice", R"("z": 3000)", R"("z": 3000, "z": 3000)",
                             "/nodes/1/z: this field is given twice"},
                    BadModel{"ListGivenTwice", R"("load_cases": [)",
                             R"("elements": [], "load_cases": [)",
                             "/elements: this field is given twice"}),
    name_of_bad_model);

INSTANTIATE_TEST_SUITE_P(
    Ranges, BadValue,
    testing::Values(
        BadModel{"NumberZeroOfAnEntity", R"("number": 2, "x")", R"("number": 0, "x")",
                 "/nodes/1/number: found 0, must be a whole number from 1 to 134217727"},
        BadModel{"NumberOfAnEntityBeyondTheLimit", R"("number": 2, "x")",
                 R"("number": 134217728, "x")",
                 "/nodes/1/number: found 134217728, must be a whole number from 1 to 134217727"},
        BadModel{"NegativeNumberOfAnEntity", R"("number": 2, "x")", R"("number": -2, "x")",
                 "/nodes/1/number: found -2, must be a whole number from 1 to 134217727"},
        BadModel{"NumberOfAnEntityBeyond64Bits", R"("number": 2, "x")",
                 R"("number": 99999999999999999999, "x")",
                 "/nodes/1/number: found 1e+20, must be a whole number from 1 to 134217727"},
        BadModel{"NumberBeyondTheLargest", R"("z": 3000)", R"("z": -1.5e30)",
                 "/nodes/1/z: found -1.5e+30, must be between -1e30 and 1e30"},
        BadModel{"NumberThatOverflows", R"("z": 3000)", R"("z": 1e999)",
                 "/nodes/1/z: found 1e999, too large for a number"},
        BadModel{"NegativeNumberThatOverflowsInAList", "[1, 2, 3, 4, 5, 6]",
                 "[1, 2, 3, 4, 5, -1e999]",
                 "/forces/0/values/1/5: found -1e999, too large for a number"},
        BadModel{"UnknownSafetyClass", R"("safety_class": 2)", R"("safety_class": 4)",
                 "/settings/safety_class: found 4, must be a whole number from 1 to 3"},
        BadModel{"SettingOfZero", R"("safety_class": 2)", R"("rib_ratio": 0)",
                 "/settings/rib_ratio: found 0, must be positive"},
        BadModel{"UnknownCode", R"("safety_class": 2)", R"("code": "GB50017-2017")",
                 R"(/settings/code: found "GB50017-2017", must be "GB50429-2007")"},
        BadModel{"InternalNameOfTheCode", R"("safety_class": 2)",
                 R"json("code": "GB50429-07(A)")json",
                 R"json(/settings/code: found "GB50429-07(A)", must be "GB50429-2007")json"},
        BadModel{"UnknownForceUnit", R"("force": "N")", R"("force": "kg")",
                 R"(/units/force: found "kg", must be one of N, kN, kgf, tonf, lbf, kip)"},
        BadModel{"UnknownLengthUnit", R"("length": "mm")", R"("length": "km")",
                 R"(/units/length: found "km", must be one of m, cm, mm, ft, in)"},
        BadModel{"UnknownSectionUnit", R"("section": "mm"})", R"("section": "MM"})",
                 R"(/units/section: found "MM", must be one of m, cm, mm, ft, in)"}),
    name_of_bad_model);

INSTANTIATE_TEST_SUITE_P(
    Dimensions, BadValue,
    testing::Values(
        BadModel{"DimensionTooLarge", R"("H": 150)", R"("H": 1e20)",
                 "/sections/0/dimensions/H: H is 1e+20 mm: must be between 0.001 and 100000 mm"},
        BadModel{"DimensionTooSmall", R"("tw": 3)", R"("tw": 1e-308)",
                 "/sections/0/dimensions/tw: tw is 1e-308 mm: must be between 0.001 and 100000 mm"},
        BadModel{"DimensionTooLargeInMetres", R"("section": "mm")", R"("section": "m")",
                 "/sections/0/dimensions/H: H is 150000 mm: must be between 0.001 and 100000 mm"},
        BadModel{"ProfileTooLarge",
                 R"("shape": "B", "dimensions": {"H": 150, "B": 60, "tw": 3, "tf1": 3})",
                 R"("profile": "B 1000000000000x60x3x3")",
                 "/sections/0/profile: found 'B 1000000000000x60x3x3', which cannot be built: H is "
                 "1000000000000 mm: must be between 0.001 and 100000 mm"}),
    name_of_bad_model);

/// The section of the small model with a property of its own.
#define PROPERTY_OF_SECTION(property) R"("tf1": 3}, "properties": {)" property "}}"

INSTANTIATE_TEST_SUITE_P(
    Properties, BadValue,
    testing::Values(
        BadModel{
            "AreaTooLarge", R"("tf1": 3}})", PROPERTY_OF_SECTION(R"("area": 1e11)"),
            "/sections/0/properties/area: found 100000000000, must be between 1e-06 and 1e+10"},
        BadModel{"AreaTooSmall", R"("tf1": 3}})", PROPERTY_OF_SECTION(R"("area": 1e-308)"),
                 "/sections/0/properties/area: found 1e-308, must be between 1e-06 and 1e+10"},
        BadModel{"SecondMomentTooSmall", R"("tf1": 3}})", PROPERTY_OF_SECTION(R"("izz": 1e-13)"),
                 "/sections/0/properties/izz: found 1e-13, must be between 1e-12 and 1e+20"},
        BadModel{"SecondMomentTooLarge", R"("tf1": 3}})", PROPERTY_OF_SECTION(R"("iyy": 1e21)"),
                 "/sections/0/properties/iyy: found 1e+21, must be between 1e-12 and 1e+20"},
        BadModel{"TorsionConstantTooLarge", R"("tf1": 3}})", PROPERTY_OF_SECTION(R"("it": 1e21)"),
                 "/sections/0/properties/it: found 1e+21, must be between 0 and 1e+20"},
        BadModel{"ShearPropertyTooLarge", R"("tf1": 3}})", PROPERTY_OF_SECTION(R"("qyb": 1e11)"),
                 "/sections/0/properties/qyb: found 100000000000, must be between 0 and 1e+10"},
        BadModel{"ShearCentreTooFar", R"("tf1": 3}})",
                 PROPERTY_OF_SECTION(R"("shear_centre_z": -1e6)"),
                 "/sections/0/properties/shear_centre_z: found -1000000, must be between -100000 "
                 "and 100000"},
        BadModel{"StressPointTooFar", R"("tf1": 3}})",
                 PROPERTY_OF_SECTION(R"("point_y": [-1, 1, 1e6, -1])"),
                 "/sections/0/properties/point_y/2: found 1000000, must be between -100000 and "
                 "100000"},
        BadModel{"StressPointsOnTheWeakAxis", R"("tf1": 3}})",
                 PROPERTY_OF_SECTION(R"("point_y": [-1e-5, 0, 1e-308, 0])"),
                 "/sections/0/properties/point_y: found four numbers near 0, one must be at least "
                 "0.001 from it"},
        BadModel{"StressPointAtTheCentroid", R"("tf1": 3}})",
                 PROPERTY_OF_SECTION(R"("point_z": [1, 1, -1e-4, -1])"),
                 "/sections/0/properties/point_z/2: found -0.0001, must be at least 0.001 from the "
                 "centroid"}),
    name_of_bad_model);

TEST(PropertiesOfSections, HaveBoundsInTheUnitOfTheFile) {
  std::string text = replaced(small_model, R"("section": "mm")", R"("section": "m")");
  text = replaced(text, R"("H": 150, "B": 60, "tw": 3, "tf1": 3}})",
                  R"("H": 0.15, "B": 0.06, "tw": 0.003, "tf1": 0.003},
                     "properties": {"area": 20000}})");
  EXPECT_EQ(message_about(text),
            "post.json: /sections/0/properties/area: found 20000, must be between 1e-12 and 10000");
}

INSTANTIATE_TEST_SUITE_P(
    Names, BadValue,
    testing::Values(
        BadModel{"LineFeedInTheTitle", R"("Post")", R"("Post\n  MEMBER NO = 77")",
                 "/title: found U+000A behind \"Post\", must be one line of text without control "
                 "characters"},
        BadModel{"TabInTheNameOfALoadCase", R"("DL")", R"("\tDL")",
                 "/load_cases/0/name: found U+0009 at the beginning, must be one line of text "
                 "without control characters"},
        BadModel{"NextLineInTheNameOfACombination", R"({"number": 2, "terms")",
                 R"({"number": 2, "name": "A\u0085", "terms")",
                 "/combinations/1/name: found U+0085 behind \"A\", must be one line of text "
                 "without control characters"},
        BadModel{"SeparatorInTheNameOfANode", R"("x": 0, "y": 0, "z": 3000)",
                 R"("name": "N\u2028", "x": 0, "y": 0, "z": 3000)",
                 "/nodes/1/name: found U+2028 behind \"N\", must be one line of text without "
                 "control characters"},
        BadModel{"TurnInTheNameOfAnElement", R"({"number": 2, "nodes")",
                 R"({"number": 2, "name": "E\u202e", "nodes")",
                 "/elements/1/name: found U+202E behind \"E\", must be one line of text without "
                 "control characters"},
        BadModel{"IsolateInTheNameOfAMember", R"("members": [{"number": 1,)",
                 R"("members": [{"number": 1, "name": "M\u2066",)",
                 "/members/0/name: found U+2066 behind \"M\", must be one line of text without "
                 "control characters"},
        BadModel{
            "NulInTheNameOfASection", R"("shape": "B")", R"("name": "\u0000", "shape": "B")",
            "/sections/0/name: found U+0000 at the beginning, must be one line of text without "
            "control characters"},
        BadModel{"ReturnInTheNameOfAMaterial", R"("alloy": "6063-T5")",
                 R"("name": "M\r", "alloy": "6063-T5")",
                 "/materials/0/name: found U+000D behind \"M\", must be one line of text without "
                 "control characters"},
        BadModel{"LineFeedInAGrade", R"("alloy": "6063-T5")",
                 R"("grade": "G\n", "f02_thin": 100, "fu": 150)",
                 "/materials/0/grade: found U+000A behind \"G\", must be one line of text without "
                 "control characters"},
        BadModel{"EscapeInAStandard", R"("alloy": "6063-T5")",
                 R"("grade": "G", "standard": "S\u001b[2J", "f02_thin": 100, "fu": 150)",
                 "/materials/0/standard: found U+001B behind \"S\", must be one line of text "
                 "without control characters"}),
    name_of_bad_model);

INSTANTIATE_TEST_SUITE_P(
    Projects, BadValue,
    testing::Values(BadModel{"LineFeedInTheClient", R"("title": "Post")",
                             R"("project": {"client": "City\nHall"})",
                             "/project/client: found U+000A behind \"City\", must be one line of "
                             "text without control characters"},
                    BadModel{"TurnInTheRevision", R"("title": "Post")",
                             R"("project": {"revision": "\u202e1"})",
                             "/project/revision: found U+202E at the beginning, must be one line "
                             "of text without control characters"},
                    BadModel{"NumberForAText", R"("title": "Post")", R"("project": {"date": 2026})",
                             "/project/date: found 2026, must be a text"},
                    BadModel{"MisspeltField", R"("title": "Post")",
                             R"("project": {"enginer": "A"})",
                             "/project/enginer: unknown field, did you mean \"engineer\"?"},
                    BadModel{"NoObject", R"("title": "Post")", R"("project": "Hall")",
                             "/project: found \"Hall\", must be an object"}),
    name_of_bad_model);

TEST(ProjectOfAModel, HasTheTextsOfTheFileAndNothingElse) {
  const model::Project project =
      model_of(replaced(small_model, R"("title": "Post")",
                        R"("project": {"name": "Hall", "checker": "B"})"))
          .project;
  model::Project expected;
  expected.name = "Hall";
  expected.checker = "B";
  EXPECT_EQ(project, expected);
  EXPECT_EQ(model_of(small_model).project, model::Project());
}

TEST(DescriptionOfAModel, MayHaveLines) {
  EXPECT_EQ(model_of(replaced(small_model, R"("title")", R"("description": "one\ntwo", "title")"))
                .description,
            "one\ntwo");
}

INSTANTIATE_TEST_SUITE_P(
    Head, BadValue,
    testing::Values(BadModel{"OtherFormat", R"("aluframe-model")", R"("other-model")",
                             R"(/format: found "other-model", must be "aluframe-model")"},
                    BadModel{"NoFormat", R"("format": "aluframe-model",)", "",
                             R"(missing field "format")"},
                    BadModel{"LaterVersion", R"("version": 1)", R"("version": 2, "new_field": 0)",
                             "/version: found 2, must be 1"},
                    BadModel{"VersionAsText", R"("version": 1)", R"("version": "1")",
                             R"(/version: found "1", must be 1)"},
                    BadModel{"NoVersion", R"("version": 1,)", "", R"(missing field "version")"}),
    name_of_bad_model);

TEST(BadValueTest, MissingRequiredListIsNamed) {
  // The whole text, as no single replacement takes a list away.
  EXPECT_EQ(message_about(R"({"format": "aluframe-model", "version": 1, "materials": []})"),
            "post.json: missing field \"sections\"\npost.json: missing field \"nodes\"\n"
            "post.json: missing field \"elements\"");
}

TEST(BadValueTest, ListAtTheTopIsRejected) {
  EXPECT_EQ(message_about("[]"), "post.json: found an empty list, must be an object");
}

TEST(BadValueTest, LongTextIsCutInTheMessageBetweenCharacters) {
  // 59 letters, then a character of two bytes across the limit of 60 bytes.
  const std::string start(59, 'x');
  EXPECT_EQ(message_about(
                replaced(small_model, R"("z": 3000)", R"("z": ")" + start + "\xC3\xA4" + R"(bc")")),
            "post.json: /nodes/1/z: found \"" + start + "...\", must be a number");
}

TEST(BadValueTest, MessageStaysOnOneLineWhateverTheFileHolds) {
  EXPECT_EQ(message_about(replaced(small_model, R"("z": 3000)", R"("z": "a\nb\u007fc")")),
            R"(post.json: /nodes/1/z: found "a b c", must be a number)");
  EXPECT_EQ(message_about(replaced(small_model, R"("z": 3000)", R"("z": 0, "new\r\nline": 1)")),
            "post.json: /nodes/1/new  line: unknown field, allowed are number, name, x, y, z");
}

}  // namespace
}  // namespace aluframe::io
