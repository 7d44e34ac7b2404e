#include "aluframe/second_opinion/rules.h"

#include <gtest/gtest.h>

#include <set>

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
