// Printed values one by one. Texts are typed from the rule, not computed.

#include <gtest/gtest.h>

#include <cmath>
#include <limits>

#include "tz_alu/report/number_format.h"

namespace {

using alu_report::FormatFixed;
using alu_report::FormatGeneral;
using alu_report::FormatInteger;
using alu_report::FormatValue;
using alu_report::PadLeft;

constexpr double kInfinity = std::numeric_limits<double>::infinity();
constexpr double kNan = std::numeric_limits<double>::quiet_NaN();

double Below(double value) {
  return std::nextafter(value, -kInfinity);
}
double Above(double value) {
  return std::nextafter(value, kInfinity);
}

// --- the detail blocks' format: three decimals in ten characters ---

TEST(DetailFormat, AZeroIsFixed) {
  EXPECT_EQ(FormatValue(0.0, 3, 10), L"     0.000");
}

TEST(DetailFormat, ANegativeZeroKeepsItsSign) {
  EXPECT_EQ(FormatValue(-0.0, 3, 10), L"    -0.000");
}

TEST(DetailFormat, AnEverydayValueIsFixedAndRounded) {
  EXPECT_EQ(FormatValue(123.4567, 3, 10), L"   123.457");
  EXPECT_EQ(FormatValue(-123.4567, 3, 10), L"  -123.457");
}

TEST(DetailFormat, AMillionIsTheFirstLargeValueWithAnExponent) {
  EXPECT_EQ(FormatValue(999999.0, 3, 10), L"999999.000");
  EXPECT_EQ(FormatValue(1000000.0, 3, 10), L" 1.000e+06");
  EXPECT_EQ(FormatValue(Above(1000000.0), 3, 10), L" 1.000e+06");
  EXPECT_EQ(FormatValue(1234567.0, 3, 10), L" 1.235e+06");
  EXPECT_EQ(FormatValue(-1234567.0, 3, 10), L"-1.235e+06");
}

TEST(DetailFormat, AValueJustUnderAMillionIsFixedAndRoundsBeyondTheField) {
  EXPECT_EQ(FormatValue(Below(1000000.0), 3, 10), L"1000000.000");
}

TEST(DetailFormat, ANegativeValueOfSixDigitsIsWiderThanTheField) {
  EXPECT_EQ(FormatValue(-999999.0, 3, 10), L"-999999.000");
}

TEST(DetailFormat, AThousandthIsTheLastSmallValueWithoutAnExponent) {
  EXPECT_EQ(FormatValue(Above(0.001), 3, 10), L"     0.001");
  EXPECT_EQ(FormatValue(0.001, 3, 10), L"     0.001");
  EXPECT_EQ(FormatValue(Below(0.001), 3, 10), L" 1.000e-03");
  EXPECT_EQ(FormatValue(0.0004, 3, 10), L" 4.000e-04");
  EXPECT_EQ(FormatValue(-0.0004, 3, 10), L"-4.000e-04");
}

// 1e-7 cubed in doubles is the neighbour below 1e-21, and the first value that is not zero.
TEST(DetailFormat, ValuesBelowATenToTheMinus21AreZeros) {
  EXPECT_EQ(FormatValue(Above(1e-21), 3, 10), L" 1.000e-21");
  EXPECT_EQ(FormatValue(1e-21, 3, 10), L" 1.000e-21");
  EXPECT_EQ(FormatValue(Below(1e-21), 3, 10), L" 1.000e-21");
  EXPECT_EQ(FormatValue(Below(Below(1e-21)), 3, 10), L"     0.000");
  EXPECT_EQ(FormatValue(-1e-21, 3, 10), L"-1.000e-21");
  EXPECT_EQ(FormatValue(-1e-22, 3, 10), L"    -0.000");
}

TEST(DetailFormat, ValuesThatAreNotFiniteStandInTheField) {
  EXPECT_EQ(FormatValue(kInfinity, 3, 10), L"       inf");
  EXPECT_EQ(FormatValue(-kInfinity, 3, 10), L"      -inf");
  EXPECT_EQ(FormatValue(std::copysign(kNan, 1.0), 3, 10), L"       nan");
}

TEST(DetailFormat, TheLargestAndTheSmallestDoubleFit) {
  EXPECT_EQ(FormatValue(std::numeric_limits<double>::max(), 3, 10), L"1.798e+308");
  EXPECT_EQ(FormatValue(std::numeric_limits<double>::denorm_min(), 3, 10), L"     0.000");
}

// --- the section block's format: five decimals without a width ---

TEST(SectionFormat, EveryUsualValueHasAnExponentAndNoBlanks) {
  EXPECT_EQ(FormatValue(250.0, 5, 0), L"2.50000e+02");
  EXPECT_EQ(FormatValue(123.45, 5, 0), L"1.23450e+02");
  EXPECT_EQ(FormatValue(1.0, 5, 0), L"1.00000e+00");
  EXPECT_EQ(FormatValue(-0.5, 5, 0), L"-5.00000e-01");
}

// The two ranges with exponents, from 1e-6 up and below 1e-5, overlap.
TEST(SectionFormat, SmallValuesHaveAnExponentToo) {
  for (const double value : {1e-5, Below(1e-5), 1e-6, Below(1e-6), Above(1e-6)}) {
    EXPECT_EQ(FormatValue(value, 5, 0), value > 5e-6 ? L"1.00000e-05" : L"1.00000e-06");
  }
}

TEST(SectionFormat, OnlyWhatCountsAsZeroIsFixed) {
  EXPECT_EQ(FormatValue(1e-21, 5, 0), L"1.00000e-21");
  EXPECT_EQ(FormatValue(1e-22, 5, 0), L"0.00000");
  EXPECT_EQ(FormatValue(0.0, 5, 0), L"0.00000");
}

// --- whole numbers ---

TEST(WholeFormat, AValueIsCutTowardZero) {
  EXPECT_EQ(FormatValue(7.9, 0, 4), L"   7");
  EXPECT_EQ(FormatValue(-7.9, 0, 4), L"  -7");
}

TEST(WholeFormat, OneIsTheFirstWholeNumber) {
  EXPECT_EQ(FormatValue(1.0, 0, 4), L"   1");
  EXPECT_EQ(FormatValue(Below(1.0), 0, 4), L"1e+00");
  EXPECT_EQ(FormatValue(0.5, 0, 4), L"5e-01");
  EXPECT_EQ(FormatValue(-0.5, 0, 10), L"    -5e-01");
}

TEST(WholeFormat, WhatNeedsMoreDigitsThanTheFieldHasAnExponent) {
  EXPECT_EQ(FormatValue(Below(10000.0), 0, 4), L"9999");
  EXPECT_EQ(FormatValue(10000.0, 0, 4), L"1e+04");
  EXPECT_EQ(FormatValue(1e10, 0, 10), L"     1e+10");
}

TEST(WholeFormat, WithoutAWidthEveryValueHasAnExponent) {
  EXPECT_EQ(FormatValue(1.0, 0, 0), L"1e+00");
  EXPECT_EQ(FormatValue(0.0, 0, 0), L"0");
}

TEST(WholeFormat, WhatCountsAsZeroIsAZeroWithoutASign) {
  EXPECT_EQ(FormatValue(0.0, 0, 4), L"   0");
  EXPECT_EQ(FormatValue(-0.0, 0, 4), L"   0");
  EXPECT_EQ(FormatValue(1e-22, 0, 4), L"   0");
  EXPECT_EQ(FormatValue(1e-21, 0, 4), L"1e-21");
}

TEST(WholeFormat, NumbersUpToThe32BitLimitsAreExact) {
  EXPECT_EQ(FormatValue(2147483647.0, 0, 10), L"2147483647");
  EXPECT_EQ(FormatValue(2147483647.9, 0, 10), L"2147483647");
  EXPECT_EQ(FormatValue(-2147483648.0, 0, 12), L" -2147483648");
  EXPECT_EQ(FormatValue(-2147483648.9, 0, 12), L" -2147483648");
}

TEST(WholeFormat, NumbersBeyondThe32BitLimitsAreTheSmallestNumber) {
  EXPECT_EQ(FormatValue(2147483648.0, 0, 10), L"-2147483648");
  EXPECT_EQ(FormatValue(9999999999.0, 0, 10), L"-2147483648");
  EXPECT_EQ(FormatValue(-2147483649.0, 0, 12), L" -2147483648");
}

TEST(WholeFormat, AnInfiniteValueSaysSo) {
  EXPECT_EQ(FormatValue(kInfinity, 0, 10), L"       inf");
  EXPECT_EQ(FormatValue(-kInfinity, 0, 10), L"      -inf");
}

TEST(WholeFormat, AnUndefinedValueIsTheSmallestNumber) {
  EXPECT_EQ(FormatValue(kNan, 0, 12), L" -2147483648");
}

// --- texts and plain numbers ---

TEST(PadLeftTest, AShortNameIsRightAligned) {
  EXPECT_EQ(PadLeft(L"LC1", 7), L"    LC1");
  EXPECT_EQ(PadLeft(L"", 3), L"   ");
}

TEST(PadLeftTest, ANameOfTheWidthOrLongerIsLeftAlone) {
  EXPECT_EQ(PadLeft(L"LCB1234", 7), L"LCB1234");
  EXPECT_EQ(PadLeft(L"LCB12345", 7), L"LCB12345");
  EXPECT_EQ(PadLeft(L"LC", 0), L"LC");
}

TEST(PadLeftTest, CharactersCountAndNotBytes) {
  EXPECT_EQ(PadLeft(L"\u6052\u8F7D", 4), L"  \u6052\u8F7D");
}

TEST(FormatIntegerTest, DigitsArePlainAndRightAligned) {
  EXPECT_EQ(FormatInteger(0), L"0");
  EXPECT_EQ(FormatInteger(-12, 5), L"  -12");
  EXPECT_EQ(FormatInteger(123456, 3), L"123456");
  EXPECT_EQ(FormatInteger(4294967295LL), L"4294967295");
}

TEST(FormatFixedTest, DecimalsAreRoundedAndNeverAnExponent) {
  EXPECT_EQ(FormatFixed(1.2, 3), L"1.200");
  EXPECT_EQ(FormatFixed(-0.0004, 3), L"-0.000");
  EXPECT_EQ(FormatFixed(1e20, 3), L"100000000000000000000.000");
  EXPECT_EQ(FormatFixed(2.5, 0), L"2");  // to even, as printf rounds an exact half
}

TEST(FormatGeneralTest, SixDigitsWithoutTrailingZeros) {
  EXPECT_EQ(FormatGeneral(0.85), L"0.85");
  EXPECT_EQ(FormatGeneral(1234567.0), L"1.23457e+06");
}

}  // namespace
