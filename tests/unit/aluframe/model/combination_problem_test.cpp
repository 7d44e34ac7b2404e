#include "aluframe/model/combinations.h"
#include "models.h"

namespace aluframe::model {
namespace {

/// Combinations 1 … n, each containing the next; the last one holds a load case.
Table<Combination> chain(Number n) {
  Table<Combination> table;
  for (Number number = 1; number < n; ++number) {
    table.add(linear(number, {of_case(1), of_combination(number + 1)}));
  }
  table.add(linear(n, {of_case(1)}));
  return table;
}

TEST(CombinationProblem, IsNotFoundWithoutNesting) {
  Table<Combination> table;
  table.add(linear(1, {of_case(1), of_case(2)}));
  EXPECT_FALSE(find_combination_problem(table));
  EXPECT_FALSE(find_combination_problem({}));
}

TEST(CombinationProblem, IsNotFoundWhenCombinationsAreShared) {
  Table<Combination> table;
  table.add(linear(1, {of_combination(2), of_combination(3)}));
  table.add(linear(2, {of_combination(4)}));
  table.add(linear(3, {of_combination(4)}));
  table.add(linear(4, {of_case(1)}));
  EXPECT_FALSE(find_combination_problem(table));
}

TEST(CombinationProblem, NamesACombinationThatContainsItselfDirectly) {
  Table<Combination> table;
  table.add(linear(7, {of_case(1), of_combination(7)}));
  const auto problem = find_combination_problem(table);
  ASSERT_TRUE(problem);
  EXPECT_EQ(problem->combination, 0U);
  EXPECT_EQ(problem->term, 1U);
  EXPECT_EQ(problem->text, "contains itself: 7 → 7");
}

TEST(CombinationProblem, ShowsTheWayAroundFromTheCombinationThatItPointsAt) {
  Table<Combination> table;
  table.add(linear(9, {of_combination(3)}));  // leads into the circle and is not part of it
  table.add(linear(5, {of_case(1), of_case(2), of_combination(3)}));
  table.add(linear(3, {of_case(1), of_combination(5)}));
  const auto problem = find_combination_problem(table);
  ASSERT_TRUE(problem);
  EXPECT_EQ(problem->text, "contains itself: 3 → 5 → 3");
  EXPECT_EQ(problem->combination, 2U);
  EXPECT_EQ(problem->term, 1U);
}

TEST(CombinationProblem, CountsCirclesWithFactorZero) {
  Table<Combination> table;
  table.add(linear(1, {of_combination(1, 0.0)}));
  EXPECT_TRUE(find_combination_problem(table));
}

TEST(CombinationProblem, AllowsSixtyFourLevels) {
  EXPECT_FALSE(find_combination_problem(chain(64)));
}

TEST(CombinationProblem, IsTheFirstCombinationOfMoreThanSixtyFourLevels) {
  const auto problem = find_combination_problem(chain(66));
  ASSERT_TRUE(problem);
  EXPECT_EQ(problem->combination, 0U);
  EXPECT_EQ(problem->term, 1U);
  EXPECT_EQ(problem->text, "contains combinations 66 levels deep (at most 64)");
}

TEST(CombinationProblem, IsFoundInNestingOfAnyDepth) {
  const auto problem = find_combination_problem(chain(300'000));
  ASSERT_TRUE(problem);
  EXPECT_EQ(problem->text, "contains combinations 300000 levels deep (at most 64)");
}

}  // namespace
}  // namespace aluframe::model
