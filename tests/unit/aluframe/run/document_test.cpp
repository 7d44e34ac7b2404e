// What the calculation document gathers, by hand-made frames whose ratios can be ordered by hand.

#include "aluframe/run/document.h"

#include <gmock/gmock.h>

#include <cmath>
#include <fstream>

#include "aluframe/run/check.h"
#include "tests/unit/aluframe/services/temporary_folder.h"

namespace aluframe::run {
namespace {

using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::SizeIs;

/// Three cantilever columns of 0.5 m, apart from each other, with a force along X on top: 1, 3 and
/// 2 kN in combination 3, twice that on the first in combination 4. The last one, of another
/// section, is two elements of one member.
constexpr const char* columns = R"({
  "format": "aluframe-model", "version": 1, "units": {"force": "kN", "length": "m"},
  "materials": [{"number": 1, "alloy": "6061-T6"}],
  "sections": [{"number": 1, "shape": "P", "dimensions": {"D": 100, "t": 8}},
               {"number": 2, "shape": "P", "dimensions": {"D": 100, "t": 9}}],
  "nodes": [{"number": 1, "x": 0, "y": 0, "z": 0}, {"number": 2, "x": 0, "y": 0, "z": 0.5},
            {"number": 3, "x": 4, "y": 0, "z": 0}, {"number": 4, "x": 4, "y": 0, "z": 0.5},
            {"number": 5, "x": 8, "y": 0, "z": 0}, {"number": 6, "x": 8, "y": 0, "z": 0.25},
            {"number": 7, "x": 8, "y": 0, "z": 0.5}],
  "supports": [{"node": 1, "restrained": "all"}, {"node": 3, "restrained": "all"},
               {"node": 5, "restrained": "all"}],
  "elements": [{"number": 11, "nodes": [1, 2], "section": 1, "material": 1},
               {"number": 12, "nodes": [3, 4], "section": 1, "material": 1},
               {"number": 13, "nodes": [5, 6], "section": 2, "material": 1},
               {"number": 14, "nodes": [6, 7], "section": 2, "material": 1}],
  "members": [{"number": 8, "elements": [13, 14]}],
  "load_cases": [{"number": 1, "nodal": [{"nodes": [2], "Fx": 1}, {"nodes": [4], "Fx": 3},
                                         {"nodes": [7], "Fx": 2}]},
                 {"number": 2, "nodal": [{"nodes": [2], "Fx": 2}]}],
  "combinations": [{"number": 3, "terms": [{"case": 1}]}, {"number": 4, "terms": [{"case": 2}]}]
})";

Selection of_elements(const std::string& numbers) {
  return {.elements = std::get<model::NumberRanges>(model::parse_number_ranges(numbers)),
          .combinations = {}};
}

class GatherDocument : public testing::Test {
 protected:
  GatherDocument() { write(columns); }

  void write(const std::string& text) const { std::ofstream(model_) << text; }
  void check_model(const Selection& selection = {}) const {
    auto prepared = prepare({.model = model_}, selection);
    if (const auto* problem = std::get_if<Problem>(&prepared)) FAIL() << problem->text;
    CheckOptions options;
    options.results = results_;
    check(std::get<Input>(prepared), options);
  }
  Result<DocumentContent> gather(const Selection& selection = {}) const {
    return gather_document(
        {.input = {.model = model_}, .results = results_, .selection = selection});
  }
  DocumentContent gathered(const Selection& selection = {}) const {
    auto content = gather(selection);
    if (const auto* problem = std::get_if<Problem>(&content)) {
      ADD_FAILURE() << problem->text;
      return {};
    }
    return std::get<DocumentContent>(std::move(content));
  }
  std::string problem(const Selection& selection = {}) const {
    const auto content = gather(selection);
    const auto* problem = std::get_if<Problem>(&content);
    return problem == nullptr ? "no problem" : problem->text;
  }

  services::TemporaryFolder folder_;
  std::filesystem::path model_ = folder_.path() / "frame.json";
  std::filesystem::path results_ = folder_.path() / "frame.aluresult";
};

std::vector<std::uint32_t> elements_of(const DocumentContent& content) {
  std::vector<std::uint32_t> numbers;
  for (const ElementResult& element : content.elements) numbers.push_back(element.element);
  return numbers;
}

TEST_F(GatherDocument, HasTheWorstElementFirst) {
  check_model();
  const DocumentContent content = gathered();
  // Moments at the feet: 1.5 kNm of element 12, then 1 kNm of 11 and of 13, whose wall is thicker,
  // and half of that of 14.
  EXPECT_THAT(elements_of(content), ElementsAre(12, 11, 13, 14));
  EXPECT_THAT(content.reservations, IsEmpty());
  EXPECT_TRUE(content.coverage.is_whole());
}

TEST_F(GatherDocument, HasTheWorstCheckOfEachCombination) {
  check_model();
  const DocumentContent content = gathered();
  ASSERT_THAT(content.combinations, SizeIs(2));
  EXPECT_EQ(content.combinations[0].number, 3U);
  EXPECT_EQ(content.combinations[0].worst.value().element, 12U);
  EXPECT_EQ(content.combinations[1].number, 4U);
  EXPECT_EQ(content.combinations[1].worst.value().element, 11U) << "the only one with a force";
  EXPECT_EQ(content.combinations[0].over, 0U);
}

TEST_F(GatherDocument, CountsTheElementsThatFailInEachCombination) {
  std::string loaded = columns;
  loaded.replace(loaded.find("\"Fx\": 3"), 7, "\"Fx\": 300");
  write(loaded);
  check_model();
  const DocumentContent content = gathered();
  // 150 kNm on a section of some 5e4 mm³ is far above any strength of the alloy; the others bear.
  EXPECT_EQ(content.combinations[0].over, 1U);
  EXPECT_EQ(content.combinations[1].over, 0U);
}

TEST_F(GatherDocument, ShowsTheGoverningMemberOfEachSection) {
  check_model();
  const DocumentContent content = gathered();
  ASSERT_THAT(content.governing_members, SizeIs(2));
  const GoverningMember &alone = content.governing_members[0],
                        &member = content.governing_members[1];
  EXPECT_EQ(alone.section, 1U);
  EXPECT_THAT(alone.elements, ElementsAre(12));
  EXPECT_EQ(member.section, 2U);
  EXPECT_EQ(member.member, 8U);
  EXPECT_THAT(member.elements, ElementsAre(13, 14)) << "from its start to its end";
  EXPECT_EQ(member.worst.element, 13U) << "at the foot";
  ASSERT_THAT(member.ratios, SizeIs(2));
  EXPECT_GT(member.ratios[0].front(), member.ratios[0].back()) << "less moment further up";
}

TEST_F(GatherDocument, ShowsTheForcesOfAGoverningMember) {
  check_model();
  const DocumentContent content = gathered();
  const auto& lines = content.governing_members.at(1).forces;
  double largest = 0.0;
  for (const auto& of_component : lines) {
    ASSERT_THAT(of_component, SizeIs(2));
  }
  for (const picture::ForceComponent moment :
       {picture::ForceComponent::my, picture::ForceComponent::mz}) {
    const auto& foot = lines.at(static_cast<std::size_t>(moment)).at(0).values.front();
    largest = std::max(largest, std::abs(foot.value));
  }
  EXPECT_NEAR(largest, 1e6, 1.0) << "2 kN times 0.5 m, in N·mm";
}

TEST_F(GatherDocument, HasReactionsAndDisplacementsWhereLoadsAreAnalysed) {
  check_model();
  const DocumentContent content = gathered();
  ASSERT_TRUE(content.analysis);
  EXPECT_EQ(content.no_analysis, "");
  EXPECT_THAT(content.analysis->subjects, ElementsAre(1, 2)) << "load cases";
}

TEST_F(GatherDocument, SaysWhyThereIsNoAnalysisOfGivenForces) {
  std::string given = columns;
  const std::size_t begin = given.find("\"load_cases\""), end = given.find("\"combinations\"");
  given.replace(begin, end - begin, R"("load_cases": [{"number": 1}, {"number": 2}],
    "forces": [{"element": 11, "case": 1, "values": [[1, 0, 0, 0, 0, 0], [1, 0, 0, 0, 0, 0]]}],
    )");
  write(given);
  check_model();
  const DocumentContent content = gathered();
  EXPECT_FALSE(content.analysis);
  EXPECT_THAT(content.no_analysis, HasSubstr("no loads to analyse"));
}

TEST_F(GatherDocument, OfAPartOfTheElementsSaysSo) {
  check_model();
  const DocumentContent content = gathered(of_elements("13,11"));
  EXPECT_THAT(elements_of(content), ElementsAre(11, 13));
  EXPECT_THAT(content.reservations,
              ElementsAre("The document is of a part of the elements: 11, 13"));
}

TEST_F(GatherDocument, OfResultsOfAPartSaysSo) {
  check_model(of_elements("11-12"));
  const DocumentContent content = gathered();
  EXPECT_THAT(elements_of(content), ElementsAre(12, 11));
  EXPECT_THAT(content.reservations,
              ElementsAre(HasSubstr("The results cover a part of the model: ")));
}

TEST_F(GatherDocument, RefusesElementsWithoutResults) {
  check_model(of_elements("11-12"));
  EXPECT_THAT(problem(of_elements("13-14")),
              HasSubstr("there are no results of element 13-14; check it first"));
}

TEST_F(GatherDocument, RefusesResultsThatAreMissingOrOfAnotherState) {
  EXPECT_THAT(problem(), HasSubstr("there is no such file; check the model first"));
  check_model();
  std::string loaded = columns;
  loaded.replace(loaded.find("\"Fx\": 3"), 7, "\"Fx\": 4");
  write(loaded);
  EXPECT_THAT(problem(), HasSubstr("these results are of another state of "));
}

TEST_F(GatherDocument, ThrowsOnAFileThatHoldsNoResults) {
  std::ofstream(results_) << "notes";
  EXPECT_THROW(gather(), std::runtime_error);
}

}  // namespace
}  // namespace aluframe::run
