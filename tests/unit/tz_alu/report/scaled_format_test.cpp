// Values in the user's units. Factors and results are worked out by hand.

#include "tests/unit/tz_alu/report/report_fixture.h"

namespace {

using report_test::ReportTest;
using testing::ElementsAre;

class ScaledFormat : public ReportTest {};

// 1 mm = 2 length units, 1 N = 10 force units.
TEST_F(ScaledFormat, ALengthIsScaledByTheLengthFactor) {
  EXPECT_EQ(print_.FormatLength(3.0, 3, 10), L"     6.000");
}

TEST_F(ScaledFormat, AnAreaIsScaledByTheSquare) {
  EXPECT_EQ(print_.FormatArea(3.0, 3, 10), L"    12.000");
}

TEST_F(ScaledFormat, ASectionModulusIsScaledByTheCube) {
  EXPECT_EQ(print_.FormatModulus(3.0, 3, 10), L"    24.000");
}

TEST_F(ScaledFormat, ASecondMomentOfAreaIsScaledByTheFourthPower) {
  EXPECT_EQ(print_.FormatInertia(3.0, 3, 10), L"    48.000");
}

TEST_F(ScaledFormat, AForceIsScaledByTheForceFactor) {
  EXPECT_EQ(print_.FormatForce(3.0, 3, 10), L"    30.000");
}

TEST_F(ScaledFormat, AMomentIsScaledByForceTimesLength) {
  EXPECT_EQ(print_.FormatMoment(3.0, 3, 10), L"    60.000");
}

TEST_F(ScaledFormat, AStressIsScaledByForceOverArea) {
  EXPECT_EQ(print_.FormatStress(3.0, 3, 10), L"     7.500");  // 3·10/2²
}

TEST_F(ScaledFormat, SignAndPrecisionAndWidthAreHandedOn) {
  EXPECT_EQ(print_.FormatLength(-3.0, 5, 0), L"-6.00000e+00");
  EXPECT_EQ(print_.FormatArea(3.2, 0, 4), L"  12");  // 12.8 cut
  EXPECT_EQ(print_.FormatModulus(-3.0, 1, 8), L"   -24.0");
  EXPECT_EQ(print_.FormatInertia(3.0, 2, 7), L"  48.00");
  EXPECT_EQ(print_.FormatForce(-3.0, 4, 9), L" -30.0000");
  EXPECT_EQ(print_.FormatMoment(3.0, 1, 6), L"  60.0");
  EXPECT_EQ(print_.FormatStress(3.0, 2, 5), L" 7.50");
}

// The notation is chosen by the scaled value: 600,000 mm are 1,200,000 units.
TEST_F(ScaledFormat, TheExponentFollowsTheScaledValue) {
  EXPECT_EQ(print_.FormatLength(600000.0, 3, 10), L" 1.200e+06");
  EXPECT_EQ(print_.FormatStress(0.0005, 3, 10), L"     0.001");  // 0.00125
}

class ScaledToKilonewtonsAndMetres : public ReportTest {
 protected:
  ScaledToKilonewtonsAndMetres() { SetUnits(1e-3, 1e-3); }
};

TEST_F(ScaledToKilonewtonsAndMetres, EveryKindHasItsFactor) {
  EXPECT_EQ(print_.FormatLength(2500.0, 3, 10), L"     2.500");   // m
  EXPECT_EQ(print_.FormatArea(2500.0, 3, 10), L"     0.003");     // 0.0025 m²
  EXPECT_EQ(print_.FormatModulus(2.5e8, 3, 10), L"     0.250");   // m³
  EXPECT_EQ(print_.FormatInertia(2.5e11, 3, 10), L"     0.250");  // m⁴
  EXPECT_EQ(print_.FormatForce(2500.0, 3, 10), L"     2.500");    // kN
  EXPECT_EQ(print_.FormatMoment(2.5e6, 3, 10), L"     2.500");    // kNm
  EXPECT_EQ(print_.FormatStress(200.0, 3, 10), L"200000.000");    // kN/m²
}

TEST_F(ScaledToKilonewtonsAndMetres, SmallSectionPropertiesHaveExponents) {
  EXPECT_EQ(print_.FormatModulus(250000.0, 3, 10), L" 2.500e-04");
  EXPECT_EQ(print_.FormatInertia(7.5e7, 3, 10), L" 7.500e-05");
}

// --- the set-up ---

class UnitSetUp : public ReportTest {};

TEST_F(UnitSetUp, AsksForTheFactorsFromMillimetresAndNewtons) {
  host_.log.conversions.clear();
  print_.SetUnit();
  // Length index 2 is mm, force index 0 is N; kind 1 is a length, 2 a force.
  EXPECT_THAT(host_.log.conversions,
              testing::UnorderedElementsAre(std::array{2, 0, 1}, std::array{2, 0, 2}));
}

TEST_F(UnitSetUp, FactorsStayUntilTheNextSetUp) {
  host_.model.length_factor = 5.0;
  host_.model.force_factor = 7.0;
  EXPECT_EQ(print_.FormatMoment(1.0, 3, 10), L"    20.000");
  print_.SetUnit();
  EXPECT_EQ(print_.FormatMoment(1.0, 3, 10), L"    35.000");
}

TEST_F(UnitSetUp, NamesStayUntilTheNextSetUp) {
  host_.model.length_unit = L"ft";
  host_.model.force_unit = L"kip";
  print_.PrintMember({});
  EXPECT_THAT(Text(), testing::HasSubstr("\n   UNIT SYSTEM : m, kN\n"));
  print_.SetUnit();
  print_.PrintMember({});
  EXPECT_THAT(Text(), testing::HasSubstr("\n   UNIT SYSTEM : ft, kip\n"));
}

// --- the texts that lines start with ---

TEST(LineBeginnings, AreTwoAndThreeBlanks) {
  const CALUPrint print;
  EXPECT_STREQ(print.Margin().GetString(), L"  ");
  EXPECT_STREQ(print.Lead().GetString(), L"   ");
  EXPECT_STREQ(print.Gap().GetString(), L"   ");
  EXPECT_TRUE(print.ReportPath().IsEmpty());
}

}  // namespace
