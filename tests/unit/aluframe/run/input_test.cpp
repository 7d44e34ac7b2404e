// What a run begins with: the input as a value, or one problem.

#include "aluframe/run/input.h"

#include <gtest/gtest.h>

#include <fstream>

#include "tests/unit/aluframe/services/temporary_folder.h"

namespace aluframe::run {
namespace {

/// A cantilever of two elements in a row; 1 kN hangs on its end, 2 m from the support.
constexpr const char* cantilever = R"({
  "format": "aluframe-model", "version": 1,
  "materials": [{"number": 1, "alloy": "6061-T6"}],
  "sections": [{"number": 1, "shape": "P", "dimensions": {"D": 60, "t": 3}}],
  "nodes": [{"number": 1, "x": 0, "y": 0, "z": 0}, {"number": 2, "x": 1, "y": 0, "z": 0},
            {"number": 3, "x": 2, "y": 0, "z": 0}],
  "supports": [{"node": 1, "restrained": "all"}],
  "elements": [{"number": 1, "nodes": [1, 2], "section": 1, "material": 1},
               {"number": 2, "nodes": [2, 3], "section": 1, "material": 1}],
  "load_cases": [{"number": 1, "nodal": [{"nodes": [3], "Fz": -1}]}],
  "combinations": [{"number": 4, "terms": [{"case": 1}]},
                   {"number": 5, "terms": [{"case": 1, "factor": 1.5}]}]
})";

class RunInput : public testing::Test {
 protected:
  InputOptions written(const std::string& text = cantilever) {
    std::ofstream(file_) << text;
    return {.model = file_};
  }
  std::string message(const Result<Input>& read) const {
    const auto* problem = std::get_if<Problem>(&read);
    return problem == nullptr ? "no problem" : problem->text;
  }
  Selection only(const char* elements, const char* combinations) {
    Selection selection;
    if (*elements != '\0') {
      selection.elements = std::get<model::NumberRanges>(model::parse_number_ranges(elements));
    }
    if (*combinations != '\0') {
      selection.combinations =
          std::get<model::NumberRanges>(model::parse_number_ranges(combinations));
    }
    return selection;
  }

  services::TemporaryFolder folder_;
  std::filesystem::path file_ = folder_.path() / "frame.json";
};

TEST_F(RunInput, MembersThatTheFileLeavesOpenAreFound) {
  const auto read = read_input(written());
  ASSERT_TRUE(std::holds_alternative<Input>(read)) << message(read);
  EXPECT_EQ(std::get<Input>(read).found_members, 1U);
}

// Statics: N·mm at the support of a cantilever of 2000 mm under 1000 N; tension at the top.
TEST_F(RunInput, PreparedInputHasTheForcesOfItsLoads) {
  const auto prepared = prepare(written());
  ASSERT_TRUE(std::holds_alternative<Input>(prepared)) << message(prepared);
  const auto& input = std::get<Input>(prepared);
  EXPECT_EQ(input.forces.load_cases, 1U);
  const auto* forces = input.model.forces.find(0, 0);
  ASSERT_NE(forces, nullptr);
  EXPECT_NEAR(forces->at[0][4], -2e6, 1.0);  // single precision of 2e6
}

TEST_F(RunInput, SecondOrderCanBeAskedForWhateverTheModelSays) {
  InputOptions options = written();
  options.second_order = true;
  const auto prepared = prepare(options);
  ASSERT_TRUE(std::holds_alternative<Input>(prepared)) << message(prepared);
  EXPECT_EQ(std::get<Input>(prepared).forces.second_order_analyses, 2U);
}

TEST_F(RunInput, ARunIsLimitedToWhatTheUserNames) {
  const auto read = read_input(written(), only("2", "5"));
  ASSERT_TRUE(std::holds_alternative<Input>(read)) << message(read);
  EXPECT_EQ(std::get<Input>(read).elements, std::vector<model::Number>{2});
  EXPECT_EQ(std::get<Input>(read).combinations, std::set<model::Number>{5});
}

TEST_F(RunInput, WhatDoesNotExistIsAProblemThatNamesTheFile) {
  EXPECT_EQ(message(read_input(written(), only("3", ""))),
            file_.string() + ": --elements: there is no element 3");
  EXPECT_EQ(message(read_input(written(), only("", "1"))),
            file_.string() + ": --combinations: there is no design combination 1");
}

TEST_F(RunInput, AMissingModelIsAProblemOfTheInput) {
  const auto read = read_input({.model = folder_.path() / "none.json"});
  ASSERT_TRUE(std::holds_alternative<Problem>(read));
  EXPECT_EQ(std::get<Problem>(read).kind, Problem::Kind::input);
}

TEST_F(RunInput, AMechanismIsAProblemOfTheInput) {
  std::string loose = cantilever;
  loose.replace(loose.find("\"all\""), 5, "[\"Dz\"]");
  const auto prepared = prepare(written(loose));
  ASSERT_TRUE(std::holds_alternative<Problem>(prepared));
  EXPECT_EQ(std::get<Problem>(prepared).kind, Problem::Kind::input);
}

}  // namespace
}  // namespace aluframe::run
