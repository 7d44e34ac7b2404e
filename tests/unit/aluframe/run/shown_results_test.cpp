// Stored results as a window shows them, by hand-made columns whose ratios are proportional to the
// force on them.

#include "aluframe/run/shown_results.h"

#include <gmock/gmock.h>

#include <algorithm>
#include <fstream>
#include <stdexcept>

#include "aluframe/run/check.h"
#include "tests/unit/aluframe/services/temporary_folder.h"

namespace aluframe::run {
namespace {

using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::Key;
using testing::UnorderedElementsAre;

/// Cantilever columns of 0.5 m with a force along X on top, nothing else, so that all their demands
/// grow in proportion to it: on column 11 case 1 is 5 kN and case 2 is 10 kN, on column 12 case 1
/// is 15 kN. Column 16 has a section that no check is for.
constexpr const char* columns = R"({
  "format": "aluframe-model", "version": 1, "units": {"force": "kN", "length": "m"},
  "materials": [{"number": 1, "alloy": "6061-T6"}],
  "sections": [{"number": 1, "shape": "P", "dimensions": {"D": 100, "t": 8}},
               {"number": 2, "shape": "UP", "dimensions": {},
                "properties": {"area": 1000, "it": 1e6, "iyy": 1e6, "izz": 1e6,
                               "point_y": [-50, 50, 50, -50], "point_z": [50, 50, -50, -50]}}],
  "nodes": [{"number": 1, "x": 0, "y": 0, "z": 0}, {"number": 2, "x": 0, "y": 0, "z": 0.5},
            {"number": 3, "x": 4, "y": 0, "z": 0}, {"number": 4, "x": 4, "y": 0, "z": 0.5},
            {"number": 5, "x": 8, "y": 0, "z": 0}, {"number": 6, "x": 8, "y": 0, "z": 0.5}],
  "supports": [{"node": 1, "restrained": "all"}, {"node": 3, "restrained": "all"},
               {"node": 5, "restrained": "all"}],
  "elements": [{"number": 11, "nodes": [1, 2], "section": 1, "material": 1},
               {"number": 12, "nodes": [3, 4], "section": 1, "material": 1},
               {"number": 16, "nodes": [5, 6], "section": 2, "material": 1}],
  "load_cases": [{"number": 1, "nodal": [{"nodes": [2], "Fx": 5}, {"nodes": [4], "Fx": 15},
                                         {"nodes": [6], "Fx": 1}]},
                 {"number": 2, "nodal": [{"nodes": [2], "Fx": 10}]}],
  "combinations": [{"number": 3, "terms": [{"case": 1}]}, {"number": 4, "terms": [{"case": 2}]},
                   {"number": 5, "kind": "envelope",
                    "terms": [{"combination": 3}, {"case": 2, "factor": 1.5}]}]
})";

/// Forces are single precision in the model, and ratios are made of them.
constexpr double tolerance = 1e-5;

std::string replaced(std::string text, const std::string& what, const std::string& by) {
  const std::size_t place = text.find(what);
  if (place == std::string::npos) throw std::invalid_argument(what);
  return text.replace(place, what.size(), by);
}

/// The columns with element forces of their two cases in place of loads.
std::string with_given_forces(const std::string& forces) {
  std::string out = columns;
  const std::size_t begin = out.find("\"load_cases\""), end = out.find("\"combinations\"");
  return out.replace(
      begin, end - begin,
      R"("load_cases": [{"number": 1}, {"number": 2}], "forces": [)" + forces + "], ");
}

class ShownResultsTest : public testing::Test {
 protected:
  ShownResultsTest() { write(columns); }

  void write(const std::string& text) const { std::ofstream(model_) << text; }
  void check_model(const InputOptions& options, const Selection& selection = {}) const {
    auto prepared = prepare(options, selection);
    if (const auto* problem = std::get_if<Problem>(&prepared)) FAIL() << problem->text;
    CheckOptions to;
    to.results = results_;
    check(std::get<Input>(prepared), to);
  }
  void check_model(const Selection& selection = {}) const {
    check_model({.model = model_}, selection);
  }
  std::string digest() const {
    const auto input = read_input({.model = model_});
    return std::get<Input>(input).digest;
  }
  ShownResults shown() const {
    auto found = shown_results({.model = model_}, digest());
    if (const auto* problem = std::get_if<Problem>(&found)) throw std::runtime_error(problem->text);
    return std::get<std::optional<ShownResults>>(std::move(found)).value();
  }

  services::TemporaryFolder folder_;
  std::filesystem::path model_ = folder_.path() / "frame.json";
  std::filesystem::path results_ = folder_.path() / "frame.aluresult";
};

double worst_of(const ShownResults& results, model::Number element) {
  const ElementResult* found = results.find(element);
  if (found == nullptr) {
    ADD_FAILURE() << "no result of element " << element;
    return 0.0;
  }
  return found->worst().governing.Ratio();
}

/// Elements that some combination has no check of, besides those with a force that no check is for.
std::vector<std::uint32_t> not_checked(const ShownResults& results) {
  std::vector<std::uint32_t> elements;
  for (const store::NotChecked& item : results.told.not_checked) {
    if (!item.largest) elements.push_back(item.element);
  }
  std::ranges::sort(elements);
  elements.erase(std::ranges::unique(elements).begin(), elements.end());
  return elements;
}

TEST_F(ShownResultsTest, AreNothingBesideAModelThatWasNotChecked) {
  const auto found = shown_results({.model = model_}, digest());
  ASSERT_TRUE(std::holds_alternative<std::optional<ShownResults>>(found));
  EXPECT_FALSE(std::get<std::optional<ShownResults>>(found).has_value());
}

TEST_F(ShownResultsTest, AreAProblemWhereTheFileHoldsNone) {
  std::ofstream(results_) << "notes";
  const auto found = shown_results({.model = model_}, digest());
  const auto* problem = std::get_if<Problem>(&found);
  ASSERT_NE(problem, nullptr);
  EXPECT_THAT(problem->text, HasSubstr(results_.string()));
}

TEST_F(ShownResultsTest, HaveTheLargestRatioOfAllCombinationsForEachElement) {
  check_model();
  const ShownResults results = shown();
  // Column 11 bears 5, 10 and, as a state of the envelope, 1.5·10 kN; column 12 bears 15 kN, none
  // and, as a state, 15 kN.
  const picture::Ratios of_5_kn = ratios_in_combination(results, 3);
  ASSERT_GT(of_5_kn.at(11), 0.01) << "a ratio that says something";
  EXPECT_NEAR(worst_of(results, 11) / of_5_kn.at(11), 3.0, 3 * tolerance);
  EXPECT_NEAR(worst_of(results, 12) / of_5_kn.at(12), 1.0, tolerance);
  EXPECT_EQ(results.find(12)->worst().governing.nLComb, 3);
}

TEST_F(ShownResultsTest, ListEachElementThatWasNotChecked) {
  check_model();
  const ShownResults results = shown();
  EXPECT_THAT(results.elements, UnorderedElementsAre(Key(11U), Key(12U)));
  EXPECT_EQ(results.find(16), nullptr) << "no check is for its section";
  EXPECT_EQ(results.find(99), nullptr) << "no such element";
  EXPECT_THAT(not_checked(results), ElementsAre(16));
  EXPECT_EQ(results.coverage.elements, 3U) << "it was taken up all the same";
  EXPECT_TRUE(results.coverage.is_whole());
}

TEST_F(ShownResultsTest, CoverThePartThatWasChecked) {
  check_model({.elements = std::get<model::NumberRanges>(model::parse_number_ranges("12")),
               .combinations = {}});
  const ShownResults results = shown();
  EXPECT_THAT(results.elements, ElementsAre(Key(12U)));
  EXPECT_EQ(results.coverage.elements, 1U);
  EXPECT_EQ(results.coverage.of_elements, 3U);
  EXPECT_FALSE(results.coverage.is_whole());
  EXPECT_THAT(results.cautions, IsEmpty()) << "they are of this model";
}

TEST_F(ShownResultsTest, HaveNoCautionsWhileTheModelIsTheSame) {
  check_model();
  EXPECT_THAT(shown().cautions, IsEmpty());
  EXPECT_EQ(shown().file, results_);
}

TEST_F(ShownResultsTest, HaveNoCautionsAfterACheckOfSecondOrderOnRequest) {
  check_model({.model = model_, .second_order = true});
  EXPECT_THAT(shown().cautions, IsEmpty()) << "compared as they were made";
}

TEST_F(ShownResultsTest, SayThatTheyAreOfAnotherStateOfTheModel) {
  check_model();
  write(replaced(columns, R"("Fx": 15)", R"("Fx": 16)"));
  EXPECT_THAT(shown().cautions, ElementsAre(HasSubstr("these results are of another state of ")));
}

TEST_F(ShownResultsTest, SayThatALaterRunLeftAPart) {
  check_model();
  std::ofstream(store::partial_path_of(results_)) << "part";
  EXPECT_THAT(shown().cautions, ElementsAre(HasSubstr("a later run is going on or ended early")));
}

TEST_F(ShownResultsTest, HaveASecondOpinionNeverBelowTheChecks) {
  check_model();
  const ShownResults results = shown();
  EXPECT_THAT(results.safe, UnorderedElementsAre(Key(11U), Key(12U)));
  for (const auto& [element, row] : results.safe) {
    // It is kept in double precision, the ratio of a check is made of what the file keeps.
    EXPECT_GE(row.safe, worst_of(results, element) * (1 - 1e-12)) << element;
  }
}

TEST_F(ShownResultsTest, OfACombinationAreInProportionToItsForces) {
  check_model();
  const ShownResults results = shown();
  const picture::Ratios in_3 = ratios_in_combination(results, 3);
  const picture::Ratios in_4 = ratios_in_combination(results, 4);
  EXPECT_NEAR(in_3.at(12) / in_3.at(11), 3.0, 3 * tolerance) << "15 and 5 kN, on equal columns";
  EXPECT_NEAR(in_4.at(11) / in_3.at(11), 2.0, 2 * tolerance) << "10 and 5 kN";
  EXPECT_THAT(in_3, ElementsAre(Key(11U), Key(12U))) << "16 was not checked";
  EXPECT_THAT(in_4, ElementsAre(Key(11U))) << "12 has no force there that a check is for";
}

TEST_F(ShownResultsTest, OfAnEnvelopeAreTheLargestOfItsStates) {
  check_model();
  const ShownResults results = shown();
  const picture::Ratios in_3 = ratios_in_combination(results, 3);
  const picture::Ratios in_5 = ratios_in_combination(results, 5);
  EXPECT_NEAR(in_5.at(11) / in_3.at(11), 3.0, 3 * tolerance) << "1.5·10 kN, its own state";
  EXPECT_EQ(in_5.at(12), in_3.at(12)) << "combination 3, which stands for a state of it";
}

TEST_F(ShownResultsTest, OfAnEnvelopeAreThoseOfTheOneStateThatWasChecked) {
  // 5002: the second state of combination 5, its own one.
  check_model({.elements = {},
               .combinations = std::get<model::NumberRanges>(model::parse_number_ranges("5002"))});
  const ShownResults results = shown();
  const picture::Ratios in_5 = ratios_in_combination(results, 5);
  EXPECT_THAT(in_5, ElementsAre(Key(11U))) << "nothing acts on 12 in it";
  EXPECT_EQ(in_5.at(11), worst_of(results, 11));
  EXPECT_THAT(ratios_in_combination(results, 3), IsEmpty()) << "its other state, left out";
}

TEST_F(ShownResultsTest, OfAnEnvelopeOfExtremesAreTheLargestOfItsTwoSides) {
  const std::string terms = R"({"combination": 3}, {"case": 2, "factor": 1.5})";
  write(replaced(replaced(columns, R"("version": 1,)", R"("version": 1, "envelopes": "extremes",)"),
                 terms, R"({"combination": 3}, {"case": 2, "factor": -1.5})"));
  check_model();
  const ShownResults results = shown();
  const picture::Ratios in_3 = ratios_in_combination(results, 3);
  const picture::Ratios in_5 = ratios_in_combination(results, 5);
  EXPECT_NEAR(in_5.at(11) / in_3.at(11), 3.0, 3 * tolerance) << "-15 kN, of its minima";
  EXPECT_NEAR(in_5.at(12) / in_3.at(12), 1.0, tolerance) << "15 kN, of its maxima";
}

TEST_F(ShownResultsTest, OfACombinationLeaveOutElementsThatLackForcesInIt) {
  write(with_given_forces(R"(
      {"element": 11, "case": 1, "values": [[0, 0, 5, 0, -2.5, 0], [0, 0, 5, 0, 0, 0]]},
      {"element": 12, "case": 1, "values": [[0, 0, 5, 0, -2.5, 0], [0, 0, 5, 0, 0, 0]]},
      {"element": 12, "case": 2, "values": [[0, 0, 10, 0, -5, 0], [0, 0, 10, 0, 0, 0]]})"));
  check_model();
  const ShownResults results = shown();
  const picture::Ratios in_3 = ratios_in_combination(results, 3);
  EXPECT_THAT(in_3, ElementsAre(Key(11U), Key(12U)));
  EXPECT_THAT(ratios_in_combination(results, 4), ElementsAre(Key(12U)));
  EXPECT_NEAR(worst_of(results, 11) / in_3.at(11), 1.0, tolerance)
      << "the only one it has forces in";
  EXPECT_THAT(not_checked(results), ElementsAre(11, 16));
}

TEST_F(ShownResultsTest, ListAnElementWithoutForcesInAnyCombination) {
  write(with_given_forces(R"(
      {"element": 12, "case": 1, "values": [[0, 0, 5, 0, -2.5, 0], [0, 0, 5, 0, 0, 0]]},
      {"element": 12, "case": 2, "values": [[0, 0, 10, 0, -5, 0], [0, 0, 10, 0, 0, 0]]})"));
  check_model();
  const ShownResults results = shown();
  EXPECT_THAT(results.elements, ElementsAre(Key(12U)));
  EXPECT_THAT(not_checked(results), ElementsAre(11, 16));
}

TEST_F(ShownResultsTest, OfACombinationThatWasNotCheckedAreNone) {
  check_model({.elements = {},
               .combinations = std::get<model::NumberRanges>(model::parse_number_ranges("4"))});
  const ShownResults results = shown();
  EXPECT_THAT(ratios_in_combination(results, 4), ElementsAre(Key(11U)));
  EXPECT_THAT(ratios_in_combination(results, 3), IsEmpty()) << "left out";
  EXPECT_THAT(ratios_in_combination(results, 99), IsEmpty()) << "there is no such combination";
}

TEST_F(ShownResultsTest, OfACombinationCannotBeReadWhenTheFileIsGone) {
  check_model();
  const ShownResults results = shown();
  std::filesystem::remove(results_);
  EXPECT_THROW(ratios_in_combination(results, 3), std::runtime_error);
}

}  // namespace
}  // namespace aluframe::run
