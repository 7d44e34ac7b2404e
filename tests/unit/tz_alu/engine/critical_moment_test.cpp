#include <gtest/gtest.h>

#include <array>
#include <cmath>
#include <numbers>
#include <string>

#include "tests/unit/tz_alu/engine/engine_inputs.h"
#include "tz_alu/engine/lateral_torsional.h"

namespace {

using namespace alu_engine;
using engine_inputs::POINT;
using engine_inputs::SymmetricH;

constexpr double kPiSquare = std::numbers::pi * std::numbers::pi;
// π² of the rules lies 4e-14 of it below the exact one; the rest is rounding.
constexpr double kShare = 1e-12;

void ExpectNear(double actual, double expected) {
  EXPECT_NEAR(actual, expected, kShare * std::fabs(expected));
}

struct COEFFICIENT_CASE {
  const char* name;
  std::int32_t nMembType;
  bool restrained;
  CRITICAL_MOMENT_COEFFICIENTS whole;
  CRITICAL_MOMENT_COEFFICIENTS supported;
};

void PrintTo(const COEFFICIENT_CASE& row, std::ostream* os) {
  *os << row.name;
}

ALU_DGN_DATA Member(std::int32_t nMembType, std::array<int, 4> ends, std::int32_t support) {
  ALU_DGN_DATA data = SymmetricH();
  data.nMembType = nMembType;
  for (int i = 0; i < 4; ++i) data.nEndCond[i / 2][i % 2] = ends[static_cast<std::size_t>(i)];
  data.code.para.bMidSupport = support;
  return data;
}

void ExpectCoefficients(const ALU_DGN_DATA& data, const CRITICAL_MOMENT_COEFFICIENTS& expected) {
  const auto actual = CriticalMomentCoefficients(data);
  EXPECT_EQ(actual.b1, expected.b1);
  EXPECT_EQ(actual.b2, expected.b2);
  EXPECT_EQ(actual.b3, expected.b3);
}

class CoefficientsOfMember : public testing::TestWithParam<COEFFICIENT_CASE> {
 protected:
  static ALU_DGN_DATA Data(std::int32_t support) {
    const int end = GetParam().restrained ? 1 : 0;
    return Member(GetParam().nMembType, {end, end, 0, 0}, support);
  }
};

TEST_P(CoefficientsOfMember, OverTheWholeLength) {
  ExpectCoefficients(Data(0), GetParam().whole);
}

TEST_P(CoefficientsOfMember, WithASupportBetweenTheEnds) {
  ExpectCoefficients(Data(1), GetParam().supported);
}

TEST_P(CoefficientsOfMember, KnowOnlyTheSupportFlagOne) {
  ExpectCoefficients(Data(2), GetParam().whole);
}

// Critical moment of GB 50429-2007, appendix C.
constexpr CRITICAL_MOMENT_COEFFICIENTS kColumn{2.752, 0, 0};
constexpr CRITICAL_MOMENT_COEFFICIENTS kColumnHeld{3.149, 0, 0};
constexpr CRITICAL_MOMENT_COEFFICIENTS kNone{0, 0, 0};
INSTANTIATE_TEST_SUITE_P(
    AllMembers, CoefficientsOfMember,
    testing::Values(COEFFICIENT_CASE{"Beam", 2, false, {1.285, 1.562, 0.753}, {0.712, 0.652, 1.07}},
                    COEFFICIENT_CASE{
                        "RestrainedBeam", 2, true, {1.132, 0.459, 0.525}, {0.972, 0.304, 0.98}},
                    COEFFICIENT_CASE{"Column", 1, false, kColumn, kColumnHeld},
                    COEFFICIENT_CASE{"RestrainedColumn", 1, true, kColumn, kColumnHeld},
                    COEFFICIENT_CASE{"Brace", 3, false, kColumn, kColumnHeld},
                    COEFFICIENT_CASE{"RestrainedBrace", 3, true, kColumn, kColumnHeld},
                    COEFFICIENT_CASE{"Truss", 5, true, kNone, kNone},
                    COEFFICIENT_CASE{"Unknown", 4, true, kNone, kNone},
                    COEFFICIENT_CASE{"None", 0, false, kNone, kNone}),
    [](const auto& row) { return std::string(row.param.name); });

void ExpectRestrained(std::array<int, 4> ends, bool restrained) {
  const ALU_DGN_DATA data = Member(ALU_MEMBER_BEAM, ends, 0);
  EXPECT_EQ(CriticalMomentCoefficients(data).b1, restrained ? 1.132 : 1.285);
}

TEST(CriticalMomentCoefficients, TakeEitherEndOfABeamAsRestrained) {
  ExpectRestrained({1, 1, 0, 0}, true);
  ExpectRestrained({0, 0, 1, 1}, true);
  ExpectRestrained({2, 1, 0, 0}, true);
}

TEST(CriticalMomentCoefficients, TakeAnEndWithOneZeroConditionAsNotRestrained) {
  ExpectRestrained({1, 0, 0, 1}, false);
  ExpectRestrained({1, 0, 1, 0}, false);
  ExpectRestrained({0, 2, 2, 0}, false);
}

// z from 4 downwards to z3, Iyy = 1, e = 0.25; sizes H, tw, B, tf, B2, tf2. So a = 4 - 2/2 = 3.
ALU_SECT_DATA Section(std::int32_t nShape, const std::array<double, 6>& size, double z3) {
  ALU_SECT_DATA sect;
  sect.nShape = nShape;
  for (std::size_t i = 0; i < size.size(); ++i) sect.dSize[i] = size[i];
  sect.dIyy = 1.0;
  sect.dShearCtr = 0.25;
  sect.dPtZ[0] = 4.0;
  sect.dPtZ[2] = z3;
  return sect;
}

// Kept: the shear centre's distance is subtracted at an end of the member and added elsewhere.
void ExpectMonosymmetry(const ALU_SECT_DATA& sect, double shape) {
  EXPECT_NEAR(Monosymmetry(sect, true), shape - 0.25, 1e-13);  // terms up to 83
  EXPECT_NEAR(Monosymmetry(sect, false), shape + 0.25, 1e-13);
}

// b = 4 - 4/2 = 2: (4³·2·3 - 3³·4·2)/24 - 2·(3⁴ - 2⁴)/8 - (4·2·3³ - 3·4·2³)/24
//  = (168 - 390 - 120)/24
TEST(Monosymmetry, OfChannelAndHHasOneWeb) {
  for (const auto shape : {ALU_SHAPE_C, ALU_SHAPE_H}) {
    ExpectMonosymmetry(Section(shape, {9, 2, 4, 2, 3, 4}, -4), -342.0 / 24.0);
  }
}

TEST(Monosymmetry, TakesTheBottomFibreByMagnitude) {
  ExpectMonosymmetry(Section(ALU_SHAPE_H, {9, 2, 4, 2, 3, 4}, 4), -342.0 / 24.0);
}

TEST(Monosymmetry, FallsWithTheInertia) {
  ALU_SECT_DATA sect = Section(ALU_SHAPE_H, {9, 2, 4, 2, 3, 4}, -4);
  sect.dIyy = 6.0;
  ExpectMonosymmetry(sect, -57.0 / 24.0);
}

// Kept: b = |z3| = 1 without half a thickness, and no terms of a bottom flange:
// 4³·2·3/24 - 2·(3⁴ - 1)/8 - 4·2·3³/24 = 16 - 20 - 9
TEST(Monosymmetry, OfATeeHasNoBottomFlange) {
  ExpectMonosymmetry(Section(ALU_SHAPE_T, {9, 2, 4, 2}, -1), -13.0);
  ExpectMonosymmetry(Section(ALU_SHAPE_T, {9, 2, 4, 2, 7, 7}, -1), -13.0);
}

// (168 - 2·390 - 120)/24
TEST(Monosymmetry, OfABoxHasTwoWebsAndTheWebDistanceAsBottomWidth) {
  ExpectMonosymmetry(Section(ALU_SHAPE_B, {9, 2, 4, 2, 3, 4}, -4), -732.0 / 24.0);
}

// Kept: w = 2·4 + 2 = 10 and tf = 2 for both flanges, b = 2 - 2/2 = 1:
// 10³·2·(3 - 1)/24 - 2·2·(3⁴ - 1)/8 - 10·2·(3³ - 1)/24 = (4000 - 960 - 520)/24
TEST(Monosymmetry, OfADoubleChannelTakesItsWholeWidthForBothFlanges) {
  ExpectMonosymmetry(Section(ALU_SHAPE_2C, {9, 2, 4, 2, 2}, -2), 105.0);
  ExpectMonosymmetry(Section(ALU_SHAPE_2C, {9, 2, 4, 2, 2, 1}, -2), 105.0);
}

TEST(Monosymmetry, OfOtherShapesIsZeroWhateverTheShearCentre) {
  for (const int shape : {int{ALU_SHAPE_P}, int{ALU_SHAPE_SR}, -1, 7}) {
    EXPECT_EQ(Monosymmetry(Section(shape, {9, 1, 4, 2, 2, 2}, -3), true), 0.0) << shape;
    EXPECT_EQ(Monosymmetry(Section(shape, {9, 1, 4, 2, 2, 2}, -3), false), 0.0) << shape;
  }
}

// An H column of E = 70,000, Izz = 1e6, L = 1000, Iω/Izz = 1e4 and no torsional stiffness:
// π²·E·Izz/L² = 70,000·π², and the bracket is √1e4 = 100.
POINT Column() {
  POINT point{SymmetricH(), AluDgnSectForce{}};
  point.data.nMembType = ALU_MEMBER_COLUMN;
  point.data.dMembLength = 1000.0;
  point.Section().dIzz = 1.0e6;
  point.Section().dIw = 1.0e10;
  return point;
}

// The torsion constant that gives G·It·lω²/(π²·E·Iω) = 3 and so doubles the root.
double DoublingTorsion(double l_w) {
  return 3.0 * kPiSquare * 70000.0 * 1.0e10 / (27000.0 * l_w * l_w);
}

TEST(CriticalMoment, OfAColumnComesFromWarping) {
  ExpectNear(CriticalMoment(Column().Input()), 2.752 * 70000.0 * kPiSquare * 100.0);
}

// 4e-14 of it below the exact one.
TEST(CriticalMoment, TakesThePiSquaredOfTheRules) {
  const double expected = 2.752 * 70000.0 * 9.869604401088976 * 100.0;
  EXPECT_NEAR(CriticalMoment(Column().Input()), expected, 1e-14 * expected);
}

TEST(CriticalMoment, GrowsWithTorsionalStiffness) {
  POINT point = Column();
  point.Section().dIxx = DoublingTorsion(1000.0);
  ExpectNear(CriticalMoment(point.Input()), 2.752 * 70000.0 * kPiSquare * 200.0);
}

TEST(CriticalMoment, TakesTwiceTheLengthForTwistOfAMemberWithAFreeEnd) {
  POINT point = Column();
  point.data.nEndCond[1][0] = point.data.nEndCond[1][1] = ALU_END_FREE;
  point.Section().dIxx = DoublingTorsion(2000.0);
  ExpectNear(CriticalMoment(point.Input()), 2.752 * 70000.0 * kPiSquare * 200.0);
}

TEST(CriticalMoment, TakesHalfTheLengthForBendingOfAMemberWithAMidSupport) {
  POINT point = Column();
  point.Parameters().bMidSupport = 1;
  point.Section().dIxx = DoublingTorsion(1000.0);  // twist keeps the whole length
  ExpectNear(CriticalMoment(point.Input()), 3.149 * 4.0 * 70000.0 * kPiSquare * 200.0);
}

TEST(CriticalMoment, IgnoresEffectiveLengthFactors) {
  POINT point = Column();
  point.Parameters().dKy = point.Parameters().dKz = 7.0;
  ExpectNear(CriticalMoment(point.Input()), 2.752 * 70000.0 * kPiSquare * 100.0);
}

// Iω/Izz = (4/3·c)², so that √(c² + Iω/Izz) = 5/3·|c|.
POINT Beam(double c) {
  POINT point = Column();
  point.data.nMembType = ALU_MEMBER_BEAM;
  point.Section().dIw = 1.0e6 * 16.0 / 9.0 * c * c;
  return point;
}

// a = 0 - 100, βy = 0: β2·a = -156.2 and the bracket is 156.2·(-1 + 5/3).
TEST(CriticalMoment, OfABeamFallsWithTheHeightOfTheLoad) {
  POINT point = Beam(156.2);
  ExpectNear(CriticalMoment(point.Input()), 1.285 * 70000.0 * kPiSquare * 156.2 * 2.0 / 3.0);
}

// e0 = z1 = 100: a = 0 and β3·βy = ∓0.753·100.
TEST(CriticalMoment, OfABeamSubtractsTheShearCentreAtAnEndSection) {
  POINT point = Beam(75.3);
  point.Section().dShearCtr = 100.0;
  point.force.bEndSect = 1;
  ExpectNear(CriticalMoment(point.Input()), 1.285 * 70000.0 * kPiSquare * 75.3 * 2.0 / 3.0);
}

TEST(CriticalMoment, OfABeamAddsTheShearCentreElsewhere) {
  for (const std::int32_t flag : {0, 2}) {
    POINT point = Beam(75.3);
    point.Section().dShearCtr = 100.0;
    point.force.bEndSect = flag;
    ExpectNear(CriticalMoment(point.Input()), 1.285 * 70000.0 * kPiSquare * 75.3 * 8.0 / 3.0);
  }
}

TEST(CriticalMoment, OfARestrainedBeamTakesItsOwnCoefficients) {
  POINT point = Beam(45.9);
  point.data.nEndCond[0][0] = point.data.nEndCond[0][1] = 1;
  ExpectNear(CriticalMoment(point.Input()), 1.132 * 70000.0 * kPiSquare * 45.9 * 2.0 / 3.0);
}

TEST(CriticalMoment, OfATrussIsZero) {
  POINT point = Column();
  point.data.nMembType = ALU_MEMBER_TRUSS;
  EXPECT_EQ(CriticalMoment(point.Input()), 0.0);
}

TEST(CriticalMoment, WithoutWarpingStiffnessIsUndefined) {
  for (const double torsion : {0.0, 1.0e4}) {
    POINT point = Column();
    point.Section().dIw = 0.0;
    point.Section().dIxx = torsion;
    EXPECT_TRUE(std::isnan(CriticalMoment(point.Input()))) << torsion;
  }
}

TEST(CriticalMoment, OfANegativeRootIsUndefined) {
  POINT point = Column();
  point.Section().dIw = -1.0e10;
  EXPECT_TRUE(std::isnan(CriticalMoment(point.Input())));
}

// With a vanishing warping constant the root tends to √(G·It·L²/(π²·E·Izz)), here √3; 1e-9 is left.
TEST(CriticalMoment, OfATinyWarpingConstantIsThatOfTorsionAlone) {
  POINT point = Column();
  point.Section().dIw = 1e-3;
  point.Section().dIxx = 3.0 * kPiSquare * 70000.0 / 27000.0;
  const double expected = 2.752 * 70000.0 * kPiSquare * std::numbers::sqrt3;
  EXPECT_NEAR(CriticalMoment(point.Input()), expected, 1e-9 * expected);
}

}  // namespace
