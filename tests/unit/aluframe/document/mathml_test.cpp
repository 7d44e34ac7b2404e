#include "aluframe/document/mathml.h"

#include <gtest/gtest.h>

namespace aluframe::document {
namespace {

using explain::Term;

const Term a = Term::symbol("a", 2.0), b = Term::symbol("b", -3.0), c = Term::symbol("c", 4.0);

TEST(SymbolMarkup, LettersBehindTheFirstStandBelowIt) {
  EXPECT_EQ(symbol_markup("N"), "<mi>N</mi>");
  EXPECT_EQ(symbol_markup("φby"), "<msub><mi>φ</mi><mi>by</mi></msub>");
  EXPECT_EQ(symbol_markup("σcr"), "<msub><mi>σ</mi><mi>cr</mi></msub>");
  EXPECT_EQ(symbol_markup("W1"), "<msub><mi>W</mi><mn>1</mn></msub>");
  EXPECT_EQ(symbol_markup("φ_weak"), "<msub><mi>φ</mi><mi>weak</mi></msub>");
}

TEST(SymbolMarkup, BarsPrimesAndDifferencesBelongToTheLetter) {
  EXPECT_EQ(symbol_markup("λ̄y"),
            "<msub><mover><mi>λ</mi><mo stretchy=\"false\">¯</mo></mover><mi>y</mi></msub>");
  EXPECT_EQ(symbol_markup("N_Ey'"), "<msubsup><mi>N</mi><mi>Ey</mi><mo>′</mo></msubsup>");
  EXPECT_EQ(symbol_markup("ΔA1"), "<msub><mi>ΔA</mi><mn>1</mn></msub>");
}

TEST(SymbolMarkup, WordsStayWordsAndF02IsThatOfTheCode) {
  EXPECT_EQ(symbol_markup("ratio"), "<mi>ratio</mi>");
  EXPECT_EQ(symbol_markup("limw"), "<msub><mi>lim</mi><mi>w</mi></msub>");
  EXPECT_EQ(symbol_markup("f02"), "<msub><mi>f</mi><mn>0.2</mn></msub>");
}

TEST(NumberMarkup, HasPowersOfTenAndTheSignOfAMinus) {
  EXPECT_EQ(number_markup("20.4082"), "<mn>20.4082</mn>");
  EXPECT_EQ(number_markup("1.2e7"), "<mn>1.2</mn><mo>·</mo><msup><mn>10</mn><mn>7</mn></msup>");
  EXPECT_EQ(number_markup("-2e-5"),
            "<mrow><mo>−</mo><mn>2</mn><mo>·</mo><msup><mn>10</mn>"
            "<mrow><mo>−</mo><mn>5</mn></mrow></msup></mrow>");
  EXPECT_EQ(number_markup("-inf"), "<mrow><mo>−</mo><mi>∞</mi></mrow>");
}

TEST(FormulaMarkup, AQuotientIsAFractionAndNeedsNoBrackets) {
  EXPECT_EQ(formula_markup((a + c) / (a * c)),
            "<mfrac><mrow><mi>a</mi><mo form=\"infix\">+</mo><mi>c</mi></mrow>"
            "<mrow><mi>a</mi><mo>·</mo><mi>c</mi></mrow></mfrac>");
}

TEST(FormulaMarkup, BracketsStandAroundSumsInProductsAndFractionsInPowers) {
  EXPECT_EQ(formula_markup(a * (b - c)),
            "<mi>a</mi><mo>·</mo><mrow><mo>(</mo><mi>b</mi><mo form=\"infix\">−</mo>"
            "<mi>c</mi><mo>)</mo></mrow>");
  EXPECT_EQ(formula_markup(squared(a / b)),
            "<msup><mrow><mo>(</mo><mfrac><mi>a</mi><mi>b</mi></mfrac><mo>)</mo></mrow><mn>2</mn></"
            "msup>");
}

TEST(FormulaMarkup, AnExponentStandsOverWhatStandsBelow) {
  EXPECT_EQ(formula_markup(cubed(Term::symbol("tf", 8.0))),
            "<msubsup><mi>t</mi><mi>f</mi><mn>3</mn></msubsup>");
}

TEST(FormulaMarkup, TheGreatestOfManyIsOne) {
  EXPECT_EQ(formula_markup(greater(greater(a, b), c)),
            "<mrow><mi>max</mi><mo>\u2061</mo><mrow><mo>(</mo><mi>a</mi><mo>,</mo><mi>b</mi>"
            "<mo>,</mo><mi>c</mi><mo>)</mo></mrow></mrow>");
}

TEST(FormulaMarkup, AFactorThatIsTooWideHasARowOfItsOwn) {
  EXPECT_EQ(formula_markup(a * c, 2),
            "<mtable displaystyle=\"true\"><mtr><mtd><mi>a</mi></mtd></mtr><mtr><mtd><mo>·</mo>"
            "<mi>c</mi></mtd></mtr></mtable>");
}

TEST(FormulaMarkup, LongArgumentsHaveRowsOfTheirOwn) {
  Term sum = Term::number(123456789.0);
  for (int i = 0; i < 2; ++i) sum = sum + Term::number(123456789.0);
  const std::string markup = formula_markup(greater(sum, sum));
  EXPECT_NE(markup.find("<mo>,</mo></mtd></mtr><mtr><mtd><mn>1.23456789</mn>"), std::string::npos)
      << markup;
}

TEST(NumbersMarkup, ANegativeNumberHasBracketsBehindAnOperator) {
  EXPECT_EQ(numbers_markup(a * b, 5),
            "<mn>2</mn><mo>·</mo><mrow><mo>(</mo><mrow><mo>−</mo><mn>3</mn></mrow><mo>)</mo>"
            "</mrow>");
  EXPECT_EQ(numbers_markup(a + b * c, 5),
            "<mn>2</mn><mo form=\"infix\">+</mo><mrow><mo>(</mo><mrow><mo>−</mo><mn>3</mn>"
            "</mrow><mo>·</mo><mn>4</mn><mo>)</mo></mrow>");
}

TEST(FormulaMarkup, ALongSumGoesOverRows) {
  Term sum = Term::number(123456789.0);
  for (int i = 0; i < 8; ++i) sum = sum + Term::number(123456789.0);
  const std::string markup = formula_markup(sum);
  EXPECT_NE(markup.find("<mtable displaystyle=\"true\"><mtr><mtd>"), std::string::npos);
  EXPECT_NE(markup.find("</mtd></mtr><mtr><mtd><mo form=\"infix\">+</mo>"), std::string::npos)
      << markup;
}

}  // namespace
}  // namespace aluframe::document
