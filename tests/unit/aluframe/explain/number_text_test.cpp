#include "aluframe/explain/number_text.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>

namespace aluframe::explain {
namespace {

TEST(NumberText, HasSoManySignificantDigitsWithoutZerosAtItsEnd) {
  EXPECT_EQ(number_text(0.7351234, 5), "0.73512");
  EXPECT_EQ(number_text(2.5, 6), "2.5");
  EXPECT_EQ(number_text(-51234.496, 6), "-51234.5");
  EXPECT_EQ(number_text(0.0, 6), "0");
  EXPECT_EQ(number_text(300.0, 5), "300");
}

TEST(NumberText, NeverCutsTheWholePartOfANumberBelowTenMillion) {
  EXPECT_EQ(number_text(5930757.4, 5), "5930757");
  EXPECT_EQ(number_text(25904768.0, 6), "2.59048e7");
}

TEST(NumberText, WritesVeryLargeAndVerySmallNumbersWithAnExponent) {
  EXPECT_EQ(number_text(1e7, 6), "1e7");
  EXPECT_EQ(number_text(-0.00001234, 3), "-1.23e-5");
  EXPECT_EQ(number_text(0.0001, 3), "0.0001");
}

TEST(NumberText, RoundsUpToTheNextPowerOfTen) {
  EXPECT_EQ(number_text(0.9999999, 5), "1");
  EXPECT_EQ(number_text(9999.9999, 5), "10000");
}

TEST(NumberText, NamesWhatIsNotFinite) {
  EXPECT_EQ(number_text(std::numeric_limits<double>::infinity(), 6), "inf");
  EXPECT_EQ(number_text(-std::numeric_limits<double>::infinity(), 6), "-inf");
  EXPECT_EQ(number_text(std::nan(""), 6), "nan");
  EXPECT_EQ(number_text(-std::nan(""), 6), "nan");
}

TEST(ExactText, IsTheShortestTextOfANumber) {
  EXPECT_EQ(exact_text(0.22), "0.22");
  EXPECT_EQ(exact_text(21.5), "21.5");
  EXPECT_EQ(exact_text(12.0), "12");
  EXPECT_EQ(number_of(exact_text(1.0 / 3.0)), 1.0 / 3.0);
  EXPECT_EQ(number_of(exact_text(6.0221e23)), 6.0221e23);
}

}  // namespace
}  // namespace aluframe::explain
