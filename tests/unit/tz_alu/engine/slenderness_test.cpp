#include "tz_alu/engine/slenderness.h"

#include <gtest/gtest.h>

#include <cmath>
#include <string>

#include "tests/unit/tz_alu/engine/engine_inputs.h"

namespace {

using namespace alu_engine;
using engine_inputs::Check;
using engine_inputs::Forces;
using engine_inputs::SymmetricH;

// A = 2000, iy = √(2e7/2000) = 100, iz = √(1.25e6/2000) = 25, L = 4000.
ALU_DGN_DATA Member() {
  ALU_DGN_DATA data = SymmetricH();
  data.code.sect.dIzz = 1.25e6;
  data.code.para.dKy = 1.0;
  data.code.para.dKz = 0.5;
  return data;
}

TEST(Slenderness, OfASymmetricSectionIsBucklingLengthOverRadius) {
  const SLENDERNESS lambda = MemberSlenderness(Member());
  EXPECT_DOUBLE_EQ(lambda.dLambdaY, 40.0);  // 4000/100
  EXPECT_DOUBLE_EQ(lambda.dLambdaZ, 80.0);  // 0.5·4000/25
}

TEST(Slenderness, EqualFlangesIgnoreTheShearCentre) {
  ALU_DGN_DATA data = Member();
  data.code.sect.dShearCtr = 50.0;
  EXPECT_DOUBLE_EQ(MemberSlenderness(data).dLambdaZ, 80.0);
}

// A = 2000, iy² = 5000, iz = 50, e0 = 50: i0² = 5000+2500+2500 = 10,000; λz = 4000/50 = 80.
// It/25.7 = 2500 and Iω/L² = 625: λω² = 10,000·2000/3125 = 6400 = λz². Then
// (λz²+λω²)² - 4·(1-2500/10,000)·λz²·λω² = (4-3)·6400², λyz² = (12,800+6400)/2 = 9600.
ALU_DGN_DATA TwistingMember() {
  ALU_DGN_DATA data = engine_inputs::Tee();
  data.code.sect.dIyy = 1.0e7;
  data.code.sect.dIzz = 5.0e6;
  data.code.sect.dShearCtr = -50.0;
  data.code.sect.dIxx = 25.7 * 2500.0;
  data.code.sect.dIw = 625.0 * 4000.0 * 4000.0;
  return data;
}

const double kTwistingLambda = std::sqrt(9600.0);

TEST(Slenderness, OfAnUnsymmetricSectionIncludesTwist) {
  const SLENDERNESS lambda = MemberSlenderness(TwistingMember());
  EXPECT_NEAR(lambda.dLambdaZ, kTwistingLambda, 1e-11);
  EXPECT_DOUBLE_EQ(lambda.dLambdaY, 4000.0 / std::sqrt(5000.0));
}

TEST(Slenderness, HWithUnequalFlangesTwistsToo) {
  ALU_DGN_DATA data = TwistingMember();
  data.code.sect.nShape = ALU_SHAPE_H;
  data.code.sect.dSize[4] = 80.0;
  EXPECT_NEAR(MemberSlenderness(data).dLambdaZ, kTwistingLambda, 1e-11);
}

TEST(Slenderness, TwistNeverLowersIt) {
  ALU_DGN_DATA data = TwistingMember();
  for (const double It : {1e3, 1e5, 1e7}) {
    data.code.sect.dIxx = It;
    EXPECT_GE(MemberSlenderness(data).dLambdaZ, 80.0) << It;
  }
}

// Only warping, over a length of 8000: Iω/8000² = 3125 gives the same λω² = 6400.
TEST(Slenderness, FreeEndDoublesTheWarpingLength) {
  ALU_DGN_DATA data = TwistingMember();
  data.nEndCond[1][0] = data.nEndCond[1][1] = ALU_END_FREE;
  data.code.sect.dIxx = 0.0;
  data.code.sect.dIw = 3125.0 * 8000.0 * 8000.0;
  EXPECT_NEAR(MemberSlenderness(data).dLambdaZ, kTwistingLambda, 1e-11);
}

ALU_DGN_DATA WithEnds(int iy, int iz, int jy, int jz) {
  ALU_DGN_DATA data = Member();
  data.nEndCond[0][0] = iy;
  data.nEndCond[0][1] = iz;
  data.nEndCond[1][0] = jy;
  data.nEndCond[1][1] = jz;
  return data;
}

TEST(TorsionalBucklingLength, IsTheMemberLengthBetweenHeldEnds) {
  EXPECT_EQ(TorsionalBucklingLength(WithEnds(0, 1, 1, 0)), 4000.0);
}

TEST(TorsionalBucklingLength, IsDoubledByAnEndThatIsFreeAboutBothAxes) {
  EXPECT_EQ(TorsionalBucklingLength(WithEnds(0, 0, 2, 2)), 8000.0);
  EXPECT_EQ(TorsionalBucklingLength(WithEnds(2, 2, 0, 0)), 8000.0);
}

TEST(TorsionalBucklingLength, IsNotDoubledByAnEndThatIsFreeAboutOneAxis) {
  EXPECT_EQ(TorsionalBucklingLength(WithEnds(0, 0, 2, 1)), 4000.0);
  EXPECT_EQ(TorsionalBucklingLength(WithEnds(0, 2, 0, 0)), 4000.0);
}

TEST(TorsionalBucklingLength, IsNotDoubledByFreedomSpreadOverBothEnds) {
  EXPECT_EQ(TorsionalBucklingLength(WithEnds(2, 0, 0, 2)), 4000.0);
  EXPECT_EQ(TorsionalBucklingLength(WithEnds(2, 0, 2, 0)), 4000.0);
}

struct LIMIT_CASE {
  const char* name;
  int nMembType;
  double compression;
  double tension;
};

void PrintTo(const LIMIT_CASE& row, std::ostream* os) {
  *os << row.name;
}

class LimitOfMember : public testing::TestWithParam<LIMIT_CASE> {
 protected:
  static double Limit(double N) {
    ALU_DGN_DATA data = Member();
    data.nMembType = GetParam().nMembType;
    return SlendernessLimit(data, Forces(N, 0, 0));
  }
};

TEST_P(LimitOfMember, InCompression) {
  EXPECT_EQ(Limit(-1e3), GetParam().compression);
}

TEST_P(LimitOfMember, InTension) {
  EXPECT_EQ(Limit(1e3), GetParam().tension);
}

TEST_P(LimitOfMember, WithoutAxialForceIsZero) {
  EXPECT_EQ(Limit(0.0), 0.0);
  EXPECT_EQ(Limit(-9e-11), 0.0);
}

TEST_P(LimitOfMember, AxialForceOfExactlyTheToleranceCountsAsTension) {
  EXPECT_EQ(Limit(1e-10), GetParam().tension);
  EXPECT_EQ(Limit(-1e-10), GetParam().tension);
}

// Limiting slenderness by member type, GB 50429-2007.
INSTANTIATE_TEST_SUITE_P(AllTypes, LimitOfMember,
                         testing::Values(LIMIT_CASE{"Column", ALU_MEMBER_COLUMN, 150, 400},
                                         LIMIT_CASE{"Beam", ALU_MEMBER_BEAM, 200, 350},
                                         LIMIT_CASE{"Brace", ALU_MEMBER_BRACE, 200, 400},
                                         LIMIT_CASE{"Truss", ALU_MEMBER_TRUSS, 150, 350},
                                         LIMIT_CASE{"Other", 0, 200, 350}),
                         [](const auto& row) { return std::string(row.param.name); });

class UserLimit : public testing::Test {
 protected:
  UserLimit() {
    data.code.para.bUserLimit = 1;
    data.code.para.dLimitTension = 250.0;
    data.code.para.dLimitCompr = 120.0;
  }
  double Limit(double N) const { return SlendernessLimit(data, Forces(N, 0, 0)); }
  ALU_DGN_DATA data = Member();
};

TEST_F(UserLimit, OfCompressionHoldsInCompression) {
  EXPECT_EQ(Limit(-1e3), 120.0);
}

TEST_F(UserLimit, OfTensionHoldsElsewhere) {
  EXPECT_EQ(Limit(1e3), 250.0);
  EXPECT_EQ(Limit(0.0), 250.0);
  EXPECT_EQ(Limit(-1e-10), 250.0);
}

TEST_F(UserLimit, NegativeCompressionLimitIsStoredAsItStands) {
  data.code.para.dLimitCompr = -1.0;
  EXPECT_EQ(Check(data, Forces(-1e3, 0, 0)).Item(RALU_SLENDERNESS_Y).dCapacity, -1.0);
}

TEST(SlendernessGroup, StoresSlendernessAndLimitOfBothAxes) {
  const auto outcome = Check(Member(), Forces(-1e3, 0, 0));
  EXPECT_DOUBLE_EQ(outcome.Item(RALU_SLENDERNESS_Y).dDemand, 40.0);
  EXPECT_DOUBLE_EQ(outcome.Item(RALU_SLENDERNESS_Z).dDemand, 80.0);
  EXPECT_EQ(outcome.Item(RALU_SLENDERNESS_Y).dCapacity, 150.0);
  EXPECT_EQ(outcome.Item(RALU_SLENDERNESS_Z).dCapacity, 150.0);
}

TEST(SlendernessGroup, LeavesTheLimitForTheReport) {
  EXPECT_EQ(Check(Member(), Forces(-1e3, 0, 0)).Report(ALU_REPORT_SLENDERNESS_LIMIT), 150.0);
}

TEST(SlendernessGroup, WithoutAxialForceStoresSlendernessWithAZeroLimit) {
  const auto outcome = Check(Member(), Forces(0, 0, 0));
  EXPECT_DOUBLE_EQ(outcome.Item(RALU_SLENDERNESS_Z).dDemand, 80.0);
  EXPECT_EQ(outcome.Item(RALU_SLENDERNESS_Z).dCapacity, 0.0);
}

TEST(SlendernessGroup, UsesTheGrossAreaOfAWeldedSection) {
  ALU_DGN_DATA data = Member();
  data.code.sect.bWelded = 1;
  EXPECT_DOUBLE_EQ(Check(data, Forces(-1e3, 0, 0)).Item(RALU_SLENDERNESS_Y).dDemand, 40.0);
}

TEST(SlendernessGroup, NegativeTensionLimitSwitchesItOff) {
  for (const int own : {0, 1}) {
    ALU_DGN_DATA data = Member();
    data.code.para.bUserLimit = own;
    data.code.para.dLimitTension = -1.0;
    data.code.para.dLimitCompr = 200.0;
    const auto outcome = Check(data, Forces(-1e3, 0, 0));
    EXPECT_EQ(outcome.ret, 1);
    EXPECT_EQ(outcome.Item(RALU_SLENDERNESS_Y).dDemand, 0.0);
    EXPECT_EQ(outcome.Item(RALU_SLENDERNESS_Z).dCapacity, 0.0);
    EXPECT_EQ(outcome.Report(ALU_REPORT_SLENDERNESS_LIMIT), 0.0);
  }
}

}  // namespace
