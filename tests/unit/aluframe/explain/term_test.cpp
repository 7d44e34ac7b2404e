#include "aluframe/explain/term.h"

#include <gtest/gtest.h>

#include <cmath>

namespace aluframe::explain {
namespace {

const Term a = Term::symbol("a", 8.0);
const Term b = Term::symbol("b", -4.0);
const Term c = Term::symbol("c", 2.0);

TEST(Term, IsWrittenWithSymbolsAndWithNumbers) {
  const Term stress = magnitude(b) / (a * c);
  EXPECT_EQ(formula(stress), "|b| / (a·c)");
  EXPECT_EQ(numbers(stress, 5), "|-4| / (8·2)");
  EXPECT_EQ(value(stress), 0.25);
}

TEST(Term, BracketsSumsInProductsAndQuotients) {
  EXPECT_EQ(formula((a + b) * c), "(a + b)·c");
  EXPECT_EQ(formula(a * (b - c)), "a·(b - c)");
  EXPECT_EQ(formula((a - b) / (c + a)), "(a - b) / (c + a)");
}

TEST(Term, BracketsQuotientsBesideProductsSoThatNobodyMisreadsThem) {
  EXPECT_EQ(formula(a / b * c), "(a / b)·c");
  EXPECT_EQ(formula(a / b / c), "(a / b) / c");
  EXPECT_EQ(formula(a * (b / c)), "a·(b / c)");
  EXPECT_EQ(formula(a * b / c), "a·b / c");
}

TEST(Term, BracketsWhatIsTakenOffOrAdded) {
  EXPECT_EQ(formula(a - (b - c)), "a - (b - c)");
  EXPECT_EQ(formula(a + (b + c)), "a + (b + c)");
  EXPECT_EQ(formula(a - b / c - a * b), "a - b / c - a·b");
}

TEST(Term, BracketsNegativeNumbersBehindAnOperatorAndUnderAPower) {
  EXPECT_EQ(numbers(a + b, 5), "8 + (-4)");
  EXPECT_EQ(numbers(a - b, 5), "8 - (-4)");
  EXPECT_EQ(numbers(b + a, 5), "-4 + 8");
  EXPECT_EQ(numbers(a * b, 5), "8·(-4)");
  EXPECT_EQ(numbers(a / b, 5), "8 / (-4)");
  EXPECT_EQ(numbers(squared(b), 5), "(-4)²");
  EXPECT_EQ(numbers(magnitude(b), 5), "|-4|");
}

TEST(Term, BracketsThePowersOfWhatIsNoSymbol) {
  EXPECT_EQ(formula(squared(a + b)), "(a + b)²");
  EXPECT_EQ(formula(cubed(a * b)), "(a·b)³");
  EXPECT_EQ(formula(power(a, 4)), "a⁴");
  EXPECT_EQ(numbers(squared(Term::symbol("I", 1.5e8)), 5), "(1.5e8)²");
  EXPECT_EQ(value(cubed(b)), -64.0);
  EXPECT_EQ(value(power(b, 4)), 256.0);
}

TEST(Term, WritesRootsExtremesFunctionsAndConstants) {
  const auto half = [](double x) { return x / 2.0; };
  EXPECT_EQ(formula(root(a / c)), "√(a / c)");
  EXPECT_EQ(formula(greater(a, smaller(b, c))), "max(a, min(b, c))");
  EXPECT_EQ(formula(Term::function("half", half, a + c)), "half(a + c)");
  EXPECT_EQ(numbers(Term::function("half", half, a + c), 5), "half(8 + 2)");
  EXPECT_EQ(value(Term::function("half", half, a + c)), 5.0);
  const Term pi = Term::constant("π²", 9.8696);
  EXPECT_EQ(numbers(pi * a, 5), "π²·8");
  EXPECT_EQ(value(pi * a), 9.8696 * 8.0);
}

TEST(Term, KeepsNumbersOfTheFormulaInFull) {
  EXPECT_EQ(numbers(0.578 / (c + 0.34), 5), "0.578 / (2 + 0.34)");
  EXPECT_EQ(formula(1.2 * squared(a)), "1.2·a²");
}

TEST(Term, EvaluatesInTheOrderInWhichItIsWritten) {
  const double x = 0.1, y = 0.7, z = 1.3;
  const Term p = Term::symbol("x", x), q = Term::symbol("y", y), r = Term::symbol("z", z);
  EXPECT_EQ(value(p * q * r), x * y * z);
  EXPECT_EQ(value(p - q - r), x - y - z);
  EXPECT_EQ(value(p / q / r), x / y / z);
}

TEST(Term, OfWhichAPartIsNoNumberIsNone) {
  const Term none = Term::symbol("n", std::nan(""));
  EXPECT_TRUE(std::isnan(value(greater(a, none))));
  EXPECT_TRUE(std::isnan(value(greater(none, a))));
}

TEST(SymbolsOf, AreThoseOfTheFormulaEachOnce) {
  EXPECT_EQ(symbols_of(a * b / (a + c)), (std::vector<std::string>{"a", "b", "c"}));
}

TEST(NumberLine, HasTheFewestDigitsThatGiveItsResult) {
  const Term third = Term::symbol("t", 1.0 / 3.0);
  // 3·0.33333 is 0.99999, 3·0.333333 is 0.999999: seven digits are needed for 1.
  EXPECT_EQ(number_line(3.0 * third).numbers, "3·0.3333333");
  EXPECT_EQ(number_line(3.0 * third).result, "1");
}

TEST(NumberLine, TakesMoreDigitsWhereTheyCancel) {
  const Term large = Term::symbol("l", 1.0000001234), one = Term::symbol("o", 1.0);
  EXPECT_EQ(number_line(large - one).result, "1.234e-7");
  EXPECT_EQ(number_line(large - one).numbers, "1.0000001234 - 1");
}

TEST(NumberLine, ShowsAtLeastFiveDigits) {
  const Term x = Term::symbol("x", 1.23456789);
  EXPECT_EQ(number_line(greater(x, Term::number(5.0))).numbers, "max(1.2346, 5)");
}

}  // namespace
}  // namespace aluframe::explain
