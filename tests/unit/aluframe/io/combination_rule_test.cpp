#include <gtest/gtest.h>

#include <algorithm>

#include "tests/unit/aluframe/io/edited_text.h"
#include "tests/unit/aluframe/io/io_texts.h"

namespace aluframe::io {
namespace {

constexpr std::string_view written_cases =
    R"("load_cases": [{"number": 1, "name": "DL"}, {"number": 2, "name": "WIND"}])";
constexpr std::string_view written_list =
    R"("combinations": [{"number": 1, "terms": [{"case": 1}, {"case": 2, "factor": 1.5}]},
{"number": 2, "terms": [{"combination": 1}]}])";

/// The small model with actions, and these combinations.
std::string with_actions(std::string_view combinations) {
  const std::string text =
      replaced(small_model, written_cases,
               R"("load_cases": [{"number": 1, "name": "G", "action": {"kind": "permanent"}},
{"number": 2, "name": "W", "action": {"kind": "wind", "reversible": true}}])");
  return replaced(text, written_list, combinations);
}

constexpr std::string_view rule_alone =
    R"("combinations": {"rule": "GB 50068-2018", "types": ["fundamental"]})";
constexpr std::string_view rule_with_all =
    R"("combinations": {"rule": "GB 50068-2018", "seismic": "GB 55002-2021",
"types": ["fundamental", "characteristic"], "wind_with_earthquake": true, "design_life": 100,
"table": [{"kind": "wind", "gamma": 1.6, "psi_c": 0.5, "source": "brief"},
{"kind": "live", "category": "crowd", "psi_e": 0.4, "gamma_e": 1.1}],
"also": [{"number": 5, "terms": [{"case": 1}]}, {"number": 6, "terms": [{"combination": 5}]}]})";

TEST(CombinationRuleInFile, CombinationsOfTheRuleAreOnesOfTheModel) {
  const model::Model model = model_of(with_actions(rule_alone));
  ASSERT_EQ(model.combinations.size(), 4u);
  const model::Combination& first = model.combinations[0];
  EXPECT_EQ(first.number, 1001u);
  EXPECT_EQ(first.name, "1.3G+1.5W");
  EXPECT_TRUE(first.by_rule);
  EXPECT_TRUE(first.design);
}

TEST(CombinationRuleInFile, AnActionIsReadWithAllItsFields) {
  const model::Model model = model_of(
      replaced(small_model, written_cases,
               R"("load_cases": [{"number": 1, "action": {"kind": "live", "category": "office",
"exclusive": "a", "favourable": "never"}}, {"number": 2,
"action": {"kind": "live", "together_with": 1, "reversible": false}}])"));
  const model::Action first{.kind = model::ActionKind::live,
                            .category = "office",
                            .exclusive = "a",
                            .favourable = model::Favourable::never};
  const model::Action second{
      .kind = model::ActionKind::live, .together_with = 1, .reversible = false};
  EXPECT_EQ(model.load_cases[0].action, first);
  EXPECT_EQ(model.load_cases[1].action, second);
}

TEST(CombinationRuleInFile, WritingAndReadingGivesTheSameRuleAndCombinations) {
  const model::Model model = model_of(with_actions(rule_with_all));
  const model::Model again = model_of(write_model(model));
  ASSERT_TRUE(model.combination_rule);
  EXPECT_EQ(again.combination_rule, model.combination_rule);
  EXPECT_TRUE(std::ranges::equal(again.load_cases, model.load_cases));
  EXPECT_TRUE(std::ranges::equal(again.combinations, model.combinations));
  EXPECT_EQ(model.combinations[0].number, 5u);
  EXPECT_EQ(model.combinations[2].name, "1.3G+1.6W");
}

TEST(CombinationRuleInFile, TheSameCombinationsWrittenByHandHaveTheSameDigest) {
  const std::string text = with_actions(rule_alone);
  const model::Model model = model_of(text);
  std::vector<model::Combination> list(model.combinations.begin(), model.combinations.end());
  for (model::Combination& each : list) each.by_rule = false;
  ModelChanges changes;
  changes.combinations = list;
  const model::Model written = model_of(edited(text, changes));
  EXPECT_FALSE(written.combination_rule);
  EXPECT_EQ(model_digest(written), model_digest(model));
}

TEST(CombinationRuleInFile, AChangedRuleHasAnotherDigest) {
  const model::Model model = model_of(with_actions(rule_alone));
  const model::Model other =
      model_of(replaced(with_actions(rule_alone), "GB 50068-2018", "JGJ 102-2003"));
  EXPECT_NE(model_digest(other), model_digest(model));
}

TEST(CombinationRuleInFile, AFileWithoutCombinationsGetsThemBehindItsLoadCases) {
  const std::string text = replaced(with_actions("HERE"), "HERE,\n", "");
  ModelChanges changes;
  model::Combination one;
  one.number = 9;
  one.terms = {{model::CombinationTerm::Source::load_case, 1, 1.0}};
  changes.combinations = {one};
  EXPECT_EQ(edited(text, changes),
            replaced(text, "\"forces\"",
                     "\"combinations\": [\n    {\"number\": 9, \"terms\": [{\"case\": 1}]}\n  ],\n"
                     "\"forces\""));
}

TEST(CombinationRuleInFile, FaultsAreToldWithTheirPlace) {
  const auto message = [](std::string_view combinations) {
    return message_about(with_actions(combinations));
  };
  EXPECT_EQ(message(R"("combinations": {"rule": "GB 1"})"),
            "post.json: /combinations/rule: found \"GB 1\", must be one of GB 50068-2018, JGJ "
            "102-2003");
  EXPECT_EQ(message(R"("combinations": {})"), "post.json: /combinations: missing field \"rule\"");
  EXPECT_EQ(message(R"("combinations": {"rule": "GB 50068-2018", "table": [{"kind": "wind",
"psi_c": -1}]})"),
            "post.json: /combinations/table/0/psi_c: found -1, must be between 0 and 1");
  EXPECT_EQ(message(R"("combinations": {"rule": "GB 50068-2018", "also": [{"number": 1,
"terms": [{"combination": 1}]}]})"),
            "post.json: /combinations/also/0/terms/0: contains itself: 1 → 1");
}

}  // namespace
}  // namespace aluframe::io
