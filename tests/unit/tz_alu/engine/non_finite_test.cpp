// A value that is not finite must show in the results: it must never turn into an ordinary number
// that passes the check.

#include <gtest/gtest.h>

#include <cmath>
#include <limits>

#include "tests/unit/tz_alu/engine/engine_inputs.h"

namespace {

using engine_inputs::Check;
using engine_inputs::Forces;
using engine_inputs::SymmetricH;
using engine_inputs::Tee;

constexpr double kInf = std::numeric_limits<double>::infinity();
constexpr double kNan = std::numeric_limits<double>::quiet_NaN();

double Demand(const ALU_DGN_DATA& data, const AluDgnSectForce& force,
              RALU_ITEM_TYPE item = RALU_STRENGTH) {
  return Check(data, force).Item(item).dDemand;
}

TEST(NonFinite, InfiniteAxialForceGivesInfiniteStress) {
  EXPECT_EQ(Demand(SymmetricH(), Forces(-kInf, 0, 0)), kInf);
}

TEST(NonFinite, UndefinedMomentCountsAsBendingAndGivesUndefinedStress) {
  EXPECT_TRUE(std::isnan(Demand(SymmetricH(), Forces(0, kNan, 0))));
  EXPECT_TRUE(std::isnan(Demand(Tee(), Forces(0, 0, kNan))));
  EXPECT_TRUE(std::isnan(Demand(Tee(), Forces(1e5, kNan, 0))));
}

TEST(NonFinite, UndefinedAxialForceWithBendingIsJudgedAsPureBending) {
  EXPECT_DOUBLE_EQ(Demand(SymmetricH(), Forces(kNan, 1.6e7, 0)), 80.0);  // 1.6e7/200,000
}

TEST(NonFinite, UndefinedImportanceFactorGivesUndefinedStress) {
  ALU_DGN_DATA data = SymmetricH();
  data.code.para.dGamma0 = kNan;
  EXPECT_TRUE(std::isnan(Demand(data, Forces(1e5, 0, 0))));
}

TEST(NonFinite, UndefinedBottomFibreOfAnUnsymmetricSectionIsNotHiddenByTheTop) {
  ALU_DGN_DATA data = Tee();
  data.code.sect.dPtZ[2] = kNan;
  EXPECT_TRUE(std::isnan(Demand(data, Forces(0, 1e7, 0))));
}

TEST(NonFinite, UndefinedStressPointIsNotHiddenByTheOthers) {
  for (int point = 0; point < 4; ++point) {
    ALU_DGN_DATA data = SymmetricH();
    data.code.sect.dPtZ[point] = kNan;
    EXPECT_TRUE(std::isnan(Demand(data, Forces(0, 1e7, 0)))) << point;
  }
}

TEST(NonFinite, InfiniteShearForceGivesInfiniteStress) {
  ALU_DGN_DATA data = SymmetricH();
  data.code.sect.dQyb = 1200.0;
  AluDgnSectForce force = Forces(0, 1e6, 0);
  force.dForce[ALU_FORCE_FZ] = kInf;
  EXPECT_EQ(Demand(data, force, RALU_SHEAR_Z), kInf);
}

// A column in pure bending needs its warping constant.
TEST(NonFinite, MissingWarpingStiffnessGivesUndefinedStability) {
  ALU_DGN_DATA data = SymmetricH();
  data.code.sect.dIw = 0.0;
  EXPECT_TRUE(std::isnan(Demand(data, Forces(0, 1e7, 0), RALU_STABILITY)));
  EXPECT_TRUE(std::isnan(Demand(data, Forces(-1e5, 1e7, 0), RALU_COMBINED_STABILITY)));
}

TEST(NonFinite, UndefinedTorsionOfATeeShowsInSlendernessAndStability) {
  ALU_DGN_DATA data = Tee();
  data.code.sect.dIxx = kNan;
  EXPECT_TRUE(std::isnan(Demand(data, Forces(-1e5, 0, 0), RALU_SLENDERNESS_Z)));
  EXPECT_TRUE(std::isnan(Demand(data, Forces(-1e5, 0, 0), RALU_STABILITY)));
}

TEST(NonFinite, InfiniteLengthTakesTheLastColumnCoefficient) {
  ALU_DGN_DATA data = SymmetricH();
  data.dMembLength = kInf;
  EXPECT_DOUBLE_EQ(Demand(data, Forces(-1e5, 0, 0), RALU_STABILITY), 50.0 / 0.119);  // 1e5/2000/φ
}

TEST(NonFinite, UndefinedLengthGivesUndefinedStability) {
  ALU_DGN_DATA data = SymmetricH();
  data.dMembLength = kNan;
  EXPECT_TRUE(std::isnan(Demand(data, Forces(-1e5, 0, 0), RALU_STABILITY)));
  EXPECT_TRUE(std::isnan(Demand(data, Forces(-1e5, 1e7, 0), RALU_COMBINED_STABILITY)));
}

TEST(NonFinite, MissingModulusIsNoErrorInAxialCompression) {
  ALU_DGN_DATA data = SymmetricH();
  data.code.matl.nElast = 0;
  EXPECT_TRUE(std::isfinite(Demand(data, Forces(-1e5, 0, 0), RALU_STABILITY)));
}

TEST(NonFinite, InfiniteAxialForceGivesInfiniteStability) {
  EXPECT_EQ(Demand(SymmetricH(), Forces(-kInf, 0, 0), RALU_STABILITY), kInf);
}

TEST(NonFinite, NegativeInertiaGivesUndefinedSlenderness) {
  ALU_DGN_DATA data = SymmetricH();
  data.code.sect.dIyy = -2e7;
  EXPECT_TRUE(std::isnan(Demand(data, Forces(1e5, 0, 0), RALU_SLENDERNESS_Y)));
}

}  // namespace
