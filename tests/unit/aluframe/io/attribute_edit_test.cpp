// Changes of sections and of the design attributes of elements and members in a model's file.
#include <fmt/format.h>
#include <gmock/gmock.h>

#include <chrono>
#include <limits>

#include "aluframe/io/model_edit.h"
#include "tests/unit/aluframe/io/edited_text.h"
#include "tests/unit/aluframe/io/io_texts.h"

namespace aluframe::io {
namespace {

using model::ElementDesign;
using model::MemberType;
using testing::ElementsAre;
using testing::IsEmpty;

constexpr double not_a_number = std::numeric_limits<double>::quiet_NaN();

ElementDesign welded(double coefficient) {
  ElementDesign design;
  design.weld_coefficient = coefficient;
  return design;
}

ModelChanges element_change(model::Number number, const ElementDesign& design,
                            std::optional<MemberType> type = std::nullopt) {
  return {.elements = {{number, design, type}}};
}

ModelChanges factors_change(model::Number number, std::optional<ElementDesign::AxisPair> factors) {
  return {.members = {{number, factors}}};
}

/// The second element of the small model in its file.
constexpr std::string_view second =
    R"({"number": 2, "nodes": [2, 3], "section": 1, "material": 1})";

std::string with_second(std::string_view element) {
  return replaced(small_model, second, element);
}

TEST(DesignOfAnElement, ComesBehindItsLastField) {
  EXPECT_EQ(edited(small_model, element_change(2, welded(0.9))),
            with_second(R"({"number": 2, "nodes": [2, 3], "section": 1, "material": 1, )"
                        R"("design": {"weld_coefficient": 0.9}})"));
}

TEST(DesignOfAnElement, ComesBehindItsMemberTypeWhenBothAreNew) {
  EXPECT_EQ(edited(small_model, element_change(2, welded(0.9), MemberType::brace)),
            with_second(R"({"number": 2, "nodes": [2, 3], "section": 1, "material": 1, )"
                        R"("member_type": "brace", "design": {"weld_coefficient": 0.9}})"));
}

TEST(DesignOfAnElement, KeepsTheLayoutOfAnElementOfManyLines) {
  const std::string_view before =
      "{\r\n\t\t\"material\": 1,\r\n\t\t\"section\" : 1,\r\n\t\t\"number\": 2,\r\n\t\t\"nodes\": "
      "[\r\n\t\t\t2, 3\r\n\t\t]\r\n\t}";
  const std::string_view after =
      "{\r\n\t\t\"material\": 1,\r\n\t\t\"section\" : 1,\r\n\t\t\"number\": 2,\r\n\t\t\"nodes\": "
      "[\r\n\t\t\t2, 3\r\n\t\t],\r\n\t\t\"member_type\": \"column\",\r\n\t\t\"design\": "
      "{\"weld_coefficient\": 0.9}\r\n\t}";
  const std::string mark = "\xEF\xBB\xBF";
  EXPECT_EQ(edited(mark + with_second(before), element_change(2, welded(0.9), MemberType::column)),
            mark + with_second(after));
  EXPECT_EQ(edited(mark + with_second(after), element_change(2, {})), mark + with_second(before));
}

TEST(DesignOfAnElement, IsReplacedWhereItStands) {
  const std::string text = with_second(
      "{\"number\": 2, \"d\\u0065sign\": {\n  \"weld_coefficient\": 1\n}, \"nodes\" :[2,3],\n"
      "\"section\": 1, \"material\": 1.0e0}");
  EXPECT_EQ(edited(text, element_change(2, welded(0.9))),
            with_second("{\"number\": 2, \"d\\u0065sign\": {\"weld_coefficient\": 0.9}, "
                        "\"nodes\" :[2,3],\n\"section\": 1, \"material\": 1.0e0}"));
}

TEST(DesignOfAnElement, StaysAsItIsWrittenWhenTheTypeAloneChanges) {
  const std::string text =
      with_second(R"({"number": 2, "design": { "weld_coefficient":0.90 }, "member_type": "beam", )"
                  R"("nodes": [2, 3], "section": 1, "material": 1})");
  EXPECT_EQ(edited(text, element_change(2, welded(0.9), MemberType::truss)),
            replaced(text, "\"beam\"", "\"truss\""));
  EXPECT_EQ(edited(text, element_change(2, welded(0.9))),
            replaced(text, ", \"member_type\": \"beam\"", ""));
}

TEST(DesignOfAnElement, LeavesTheFileWithItsCommaWhenItIsEmpty) {
  const std::string_view design = R"("design": {"weld_coefficient": 0.9})";
  const std::string_view type = R"("member_type": "beam")";
  const auto joined = [](std::initializer_list<std::string_view> fields) {
    std::string text;
    for (const std::string_view field : fields) {
      text.append(text.empty() ? "{" : ", ").append(field);
    }
    return with_second(text + "}");
  };
  const std::string_view number = R"("number": 2, "nodes": [2, 3])";
  const std::string_view section = R"("section": 1, "material": 1)";
  for (const std::string& text :
       {joined({design, type, number, section}), joined({design, number, type, section}),
        joined({design, number, section, type}), joined({number, type, design, section}),
        joined({number, design, section, type}), joined({number, section, design, type})}) {
    EXPECT_EQ(edited(text, element_change(2, {})), small_model) << text;
  }
}

TEST(DesignOfAnElement, GivenAsNothingStaysAsItIsWritten) {
  const std::string text =
      with_second(R"({"number": 2, "nodes": [2, 3], "section": 1, "material": 1, "design": { }})");
  EXPECT_EQ(edited(text, element_change(2, {})), text);
}

TEST(DesignOfAnElement, IsWrittenInTheUnitsOfTheFile) {
  const std::string text = replaced(
      replaced(small_model, R"("section": "mm")", R"("section": "cm")"),
      R"({"H": 150, "B": 60, "tw": 3, "tf1": 3})", R"({"H": 15, "B": 6, "tw": 0.3, "tf1": 0.3})");
  ElementDesign design;
  design.stability_coefficients = {0.75, 0.5};
  design.rib = ElementDesign::Rib{false, 1.25};
  design.weld_coefficient = 0.85;
  design.haz_width = 30;
  design.moment_factors = ElementDesign::MomentFactors{{.value = 0.6, .loading = 0},
                                                       {.value = std::nullopt, .loading = 2}};
  design.length_factors = {1.5, 0.7};
  design.slenderness_limits = ElementDesign::Slenderness{true, 150, 250};
  EXPECT_EQ(
      edited(text, element_change(3, design)),
      replaced(text, R"([3, 4], "section": 1, "material": 1)",
               R"([3, 4], "section": 1, "material": 1, "design": {)"
               R"("stability_coefficients": {"y": 0.75, "z": 0.5}, )"
               R"("rib": {"stiffened": false, "ratio": 1.25}, "weld_coefficient": 0.85, )"
               R"("haz_width": 3, "moment_factors": {"y": {"value": 0.6}, "z": {"loading": 2}}, )"
               R"("length_factors": {"y": 1.5, "z": 0.7}, )"
               R"("slenderness_limits": {"checked": true, "compression": 150, "tension": 250}})"));
}

/// Widths in mm of which no number of inches is exactly one: 25.4 times it rounds to a neighbour.
TEST(DesignOfAnElement, MayHaveAWidthThatTheUnitOfTheFileRounds) {
  const std::string text = replaced(small_model, R"("section": "mm")", R"("section": "in")");
  int rounded = 0;
  for (int i = 1; i <= 40; ++i) {
    model::Model model = model_of(text);
    const Editable before = editable_of(model);
    model::Element element = *model.elements.find(2);
    element.design.haz_width = 0.7 * i;
    model.elements.replace(element);
    const ModelChanges changes = changes_since(before, model);
    const model::Model read = model_of(edited(text, changes));
    const double width = read.elements.find(2)->design.haz_width.value_or(0);
    EXPECT_DOUBLE_EQ(width, 0.7 * i);
    if (width != 0.7 * i) ++rounded;
    EXPECT_TRUE(changes_since(editable_of(read), model).empty()) << i;
  }
  EXPECT_GT(rounded, 0);
}

TEST(DesignOfAnElement, ThatTheReaderRefusesIsAProblemWithItsPath) {
  EXPECT_EQ(problem_of(small_model, element_change(2, welded(-0.5))),
            "post.json: /elements/1/design/weld_coefficient: found -0.5, must be positive");
  ElementDesign design;
  design.moment_factors = ElementDesign::MomentFactors{{}, {.value = std::nullopt, .loading = 4}};
  EXPECT_THAT(problem_of(small_model, element_change(1, design)),
              testing::StartsWith("post.json: /elements/0/design/moment_factors/z/loading: "));
}

TEST(DesignOfAnElement, ThatAFileHasNoWordsForIsAProblemWithItsPath) {
  EXPECT_EQ(problem_of(small_model, element_change(2, welded(not_a_number))),
            "post.json: /elements/1/design: a model file cannot hold these design attributes");
  // A factor that is given leaves no place for the loading that it would follow from.
  ElementDesign design;
  design.moment_factors = ElementDesign::MomentFactors{{.value = 0.6, .loading = 2}, {}};
  EXPECT_EQ(problem_of(small_model, element_change(3, design)),
            "post.json: /elements/2: a model file cannot hold these design attributes");
}

TEST(DesignOfAnElement, ThatDoesNotExistIsAProblem) {
  EXPECT_EQ(problem_of(small_model, element_change(9, welded(0.9))),
            "post.json: /elements: element 9 does not exist");
}

TEST(DesignOfAnElement, IsChangedOnceAtATime) {
  ModelChanges changes = element_change(2, welded(0.9));
  changes.elements.push_back({2, welded(0.8)});
  EXPECT_EQ(problem_of(small_model, changes),
            "post.json: /elements/1: found two changes, one is allowed");
}

/// A chain of elements along X; every third has a design of its own.
std::string long_model(int elements, bool is_edited) {
  std::string nodes = R"({"number": 1, "x": 0, "y": 0, "z": 0})";
  std::string list;
  for (int i = 1; i <= elements; ++i) {
    nodes += fmt::format(",\n{{\"number\": {}, \"x\": {}, \"y\": 0, \"z\": 0}}", i + 1, i);
    list += fmt::format("{}{{\"number\": {}, \"nodes\": [{}, {}], \"section\": 1, \"material\": 1",
                        i == 1 ? "" : ",\n", i, i, i + 1);
    if (is_edited) {
      list += R"(, "design": {"weld_coefficient": 0.9})";
    } else if (i % 3 == 0) {
      list += R"(, "design": { "haz_width": 20 })";
    }
    list += "}";
  }
  return R"({"format": "aluframe-model", "version": 1,
"materials": [{"number": 1, "alloy": "6063-T5"}],
"sections": [{"number": 1, "shape": "SR", "dimensions": {"D": 20}}],
"nodes": [)" +
         nodes + "],\n\"elements\": [" + list + "]}";
}

double seconds_since(std::chrono::steady_clock::time_point start) {
  return std::chrono::duration<double>(std::chrono::steady_clock::now() - start).count();
}

/// Takes the text to be read twice, and a pass over it. What was quadratic in the number of
/// elements would take hundreds of times as long as reading.
TEST(DesignOfAnElement, IsChangedForTwentyThousandAtOnceInLinearTime) {
  constexpr int count = 20'000;
  const std::string text = long_model(count, false);
  ModelChanges changes;
  for (model::Number number = count; number >= 1; --number) {
    changes.elements.push_back({number, welded(0.9)});
  }
  const auto start = std::chrono::steady_clock::now();
  EXPECT_EQ(model_of(text).elements.size(), count);
  const double reading = seconds_since(start);
  const auto editing_start = std::chrono::steady_clock::now();
  const std::string result = edited(text, changes);
  const double editing = seconds_since(editing_start);
  EXPECT_EQ(result, long_model(count, true));
  EXPECT_LT(editing, 20 * reading);
  RecordProperty("reading_ms", static_cast<int>(1000 * reading));
  RecordProperty("editing_ms", static_cast<int>(1000 * editing));
}

constexpr std::string_view member = R"({"number": 1, "elements": [1, 2]})";

TEST(LengthFactorsOfAMember, AreAddedReplacedAndRemoved) {
  const std::string given =
      replaced(small_model, member,
               R"({"number": 1, "elements": [1, 2], "length_factors": {"y": 2, "z": 0.7}})");
  EXPECT_EQ(edited(small_model, factors_change(1, ElementDesign::AxisPair{2, 0.7})), given);
  EXPECT_EQ(edited(given, factors_change(1, ElementDesign::AxisPair{1, 1.25})),
            replaced(given, R"({"y": 2, "z": 0.7})", R"({"y": 1, "z": 1.25})"));
  EXPECT_EQ(edited(given, factors_change(1, std::nullopt)), small_model);
}

TEST(LengthFactorsOfAMember, ThatAreRefusedAreAProblemWithTheirPath) {
  EXPECT_EQ(problem_of(small_model, factors_change(1, ElementDesign::AxisPair{0, 1})),
            "post.json: /members/0/length_factors/y: found 0, must be positive");
  EXPECT_EQ(problem_of(small_model, factors_change(1, ElementDesign::AxisPair{1, not_a_number})),
            "post.json: /members/0/length_factors: a model file cannot hold these length factors");
  EXPECT_EQ(problem_of(small_model, factors_change(4, std::nullopt)),
            "post.json: /members: member 4 does not exist");
}

TEST(LengthFactorsOfAMember, ThatTheFileDoesNotNameAreAProblem) {
  const std::string text =
      replaced(small_model, "\"members\": [" + std::string(member) + "],\n", "");
  EXPECT_EQ(problem_of(text, factors_change(1, ElementDesign::AxisPair{})),
            "post.json: /members: the file names no members, and those that are found in the frame "
            "have no length factors of their own");
}

constexpr std::string_view box =
    R"({"number": 1, "shape": "B", "dimensions": {"H": 150, "B": 60, "tw": 3, "tf1": 3}})";

model::Section pipe() {
  return {.number = 1,
          .name = "Pipe",
          .shape = model::Shape::pipe,
          .dimensions = {60, 4},
          .welded = false,
          .given = {}};
}

constexpr std::string_view pipe_text =
    R"({"number": 1, "name": "Pipe", "shape": "P", "dimensions": {"D": 60, "t": 4}})";

TEST(ChangedSection, TakesThePlaceOfItsObject) {
  EXPECT_EQ(edited(small_model, {.sections = {pipe()}}), replaced(small_model, box, pipe_text));
}

TEST(ChangedSection, IsWrittenWithItsDimensionsInPlaceOfItsProfile) {
  const std::string text =
      replaced(small_model, box, "{\"profile\": \"H 300x150x8x12\",\n \"number\": 1}");
  model::Section section = model_of(text).sections[0];
  section.welded = true;
  EXPECT_EQ(edited(text, {.sections = {section}}),
            replaced(small_model, box,
                     R"({"number": 1, "name": "H 300x150x8x12", "shape": "H", "dimensions": )"
                     R"({"H": 300, "B1": 150, "tw": 8, "tf1": 12}, "welded": true})"));
}

TEST(ChangedSection, ThatCannotBeHeldIsAProblemWithItsPath) {
  model::Section section = pipe();
  section.dimensions[1] = -4;
  EXPECT_EQ(problem_of(small_model, {.sections = {section}}),
            "post.json: /sections/0/dimensions/t: found -4, must be positive");
  section = pipe();
  section.name = "\xFF";
  EXPECT_EQ(problem_of(small_model, {.sections = {section}}),
            "post.json: /sections/0: a model file cannot hold this section");
  section = pipe();
  section.given.area = not_a_number;
  EXPECT_EQ(problem_of(small_model, {.sections = {section}}),
            "post.json: /sections/0: a model file cannot hold this section");
  section.number = 5;
  EXPECT_EQ(problem_of(small_model, {.sections = {section}}),
            "post.json: /sections: section 5 does not exist");
}

TEST(ChangesOfAModel, AreWhatItsFileHoldsOtherwise) {
  model::Model now = model_of(small_model);
  const Editable saved = editable_of(now);
  now.sections.replace(pipe());
  model::Element element = *now.elements.find(3);
  element.member_type = MemberType::truss;
  element.beta = 90;  // no attribute that can be changed in the file
  now.elements.replace(element);
  model::Member changed = *now.members.find(1);
  changed.length_factors = {2, 1};
  now.members.replace(changed);
  const ModelChanges changes = changes_since(saved, now);
  EXPECT_THAT(changes.sections, ElementsAre(pipe()));
  EXPECT_THAT(changes.elements, ElementsAre(ElementAttributes{3, {}, MemberType::truss}));
  EXPECT_THAT(changes.members, ElementsAre(MemberFactors{1, ElementDesign::AxisPair{2, 1}}));
  EXPECT_THAT(changes.materials, IsEmpty());
  EXPECT_FALSE(changes.empty());
}

TEST(ChangesOfAModel, LeaveMembersAloneThatItFindsItself) {
  model::Model now =
      model_of(replaced(small_model, "\"members\": [" + std::string(member) + "],\n", ""));
  const Editable saved = editable_of(now);
  now.members.add({.number = 1, .name = {}, .elements = {1, 2}, .length_factors = {{2, 1}}});
  EXPECT_TRUE(changes_since(saved, now).empty());
  EXPECT_TRUE(editable_of(now).members.empty());
}

}  // namespace
}  // namespace aluframe::io
