#include "aluframe/second_opinion/rules.h"

#include <gtest/gtest.h>

#include <iterator>
#include <set>
#include <utility>

namespace aluframe::second_opinion {
namespace {

TEST(RuleSet, NoRuleHasNoText) {
  EXPECT_EQ(to_text({}), "");
  EXPECT_TRUE(RuleSet().empty());
}

TEST(RuleSet, RulesHaveTheNamesOfTheDocuments) {
  EXPECT_EQ(to_text(Rule::f1), "F1");
  EXPECT_EQ(to_text(Rule::s12), "S12");
  EXPECT_EQ(to_text(Rule::between), "P");
}

TEST(RuleSet, EveryRuleHasItsOwnName) {
  const std::pair<Rule, const char*> names[] = {
      {Rule::b1, "B1"},    {Rule::b8, "B8"},   {Rule::c1, "C1"},   {Rule::c2, "C2"},
      {Rule::c3, "C3"},    {Rule::c4, "C4"},   {Rule::c5, "C5"},   {Rule::c6, "C6"},
      {Rule::c7, "C7"},    {Rule::f1, "F1"},   {Rule::f2, "F2"},   {Rule::f4, "F4"},
      {Rule::s2, "S2"},    {Rule::s3, "S3"},   {Rule::s6, "S6"},   {Rule::s8, "S8"},
      {Rule::s9, "S9"},    {Rule::s12, "S12"}, {Rule::s14, "S14"}, {Rule::w3, "W3"},
      {Rule::between, "P"}};
  EXPECT_EQ(std::size(names), static_cast<std::size_t>(rule_count));
  for (const auto& [rule, name] : names) EXPECT_EQ(name_of(rule), name);
}

TEST(RuleSet, SeveralRulesStandInTheOrderOfTheirNames) {
  EXPECT_EQ(to_text(Rule::s6 | Rule::c1), "C1, S6");
  EXPECT_EQ(to_text(Rule::between | Rule::c4 | Rule::c3), "C3, C4, P");
}

TEST(RuleSet, ARuleTwiceIsOneRule) {
  EXPECT_EQ(Rule::c1 | Rule::c1, RuleSet(Rule::c1));
}

TEST(RuleSet, HoldsWhatItIsMadeOf) {
  const RuleSet rules = Rule::c7 | Rule::s12;
  EXPECT_TRUE(rules.contains(Rule::c7));
  EXPECT_TRUE(rules.contains(Rule::s12));
  EXPECT_FALSE(rules.contains(Rule::s14));
}

TEST(RuleSet, EveryRuleHasAName) {
  std::set<std::string_view> names;
  for (int i = 0; i < rule_count; ++i) names.insert(name_of(static_cast<Rule>(i)));
  EXPECT_EQ(names.size(), static_cast<std::size_t>(rule_count));
  EXPECT_FALSE(names.contains(""));
}

}  // namespace
}  // namespace aluframe::second_opinion
