#include "tz_alu/engine/design_factors.h"

#include <gtest/gtest.h>

#include <string>

namespace {

using namespace alu_engine;

struct PLASTICITY_CASE {
  const char* shape;
  std::int32_t nShape;
  PLASTICITY weak;
  PLASTICITY strong;
};

void PrintTo(const PLASTICITY_CASE& row, std::ostream* os) {
  *os << row.shape;
}

void ExpectFactors(const PLASTICITY& actual, const PLASTICITY& expected) {
  EXPECT_EQ(actual.dGammaY1, expected.dGammaY1);
  EXPECT_EQ(actual.dGammaY2, expected.dGammaY2);
  EXPECT_EQ(actual.dGammaZ, expected.dGammaZ);
}

class PlasticityOfShape : public testing::TestWithParam<PLASTICITY_CASE> {};

TEST_P(PlasticityOfShape, WeakHardeningAlloyTakesItsRow) {
  ExpectFactors(PlasticityFactors(GetParam().nShape, true), GetParam().weak);
}

TEST_P(PlasticityOfShape, StrongHardeningAlloyTakesItsRow) {
  ExpectFactors(PlasticityFactors(GetParam().nShape, false), GetParam().strong);
}

// γy1, γy2, γz from the table of plasticity factors, GB 50429-2007, chapter 6.
constexpr PLASTICITY kOne{1.0, 1.0, 1.0};
INSTANTIATE_TEST_SUITE_P(
    AllShapes, PlasticityOfShape,
    testing::Values(PLASTICITY_CASE{"C", ALU_SHAPE_C, {1.0, 1.05, 1.0}, kOne},
                    PLASTICITY_CASE{"H", ALU_SHAPE_H, {1.0, 1.0, 1.05}, kOne},
                    PLASTICITY_CASE{"T", ALU_SHAPE_T, {1.0, 1.05, 1.05}, kOne},
                    PLASTICITY_CASE{"B", ALU_SHAPE_B, kOne, kOne},
                    PLASTICITY_CASE{"P", ALU_SHAPE_P, kOne, kOne},
                    PLASTICITY_CASE{"DoubleC", ALU_SHAPE_2C, {1.0, 1.0, 1.05}, kOne},
                    PLASTICITY_CASE{"SR", ALU_SHAPE_SR, {1.1, 1.0, 1.1}, {1.05, 1.0, 1.05}},
                    PLASTICITY_CASE{"Unknown", 7, {1.1, 1.0, 1.1}, {1.05, 1.0, 1.05}},
                    PLASTICITY_CASE{"Negative", -1, {1.1, 1.0, 1.1}, {1.05, 1.0, 1.05}}),
    [](const auto& row) { return std::string(row.param.shape); });

class ForceFactorTest : public testing::Test {
 protected:
  ForceFactorTest() {
    para.dGamma0 = 1.1;
    para.dGammaREStrength = 0.75;
    para.dGammaREStability = 0.8;
  }
  void ExpectFactor(double strength, double stability) const {
    EXPECT_EQ(ForceFactor(para, force, FORCE_FACTOR::Strength), strength);
    EXPECT_EQ(ForceFactor(para, force, FORCE_FACTOR::Stability), stability);
  }
  ALU_PARA_DATA para;
  AluDgnSectForce force;
};

TEST_F(ForceFactorTest, OrdinaryCombinationTakesTheImportanceFactor) {
  ExpectFactor(1.1, 1.1);
}

TEST_F(ForceFactorTest, OrdinaryCombinationIgnoresTheSeismicSwitch) {
  para.bSeismicGammaRE = 1;
  ExpectFactor(1.1, 1.1);
}

TEST_F(ForceFactorTest, SeismicCombinationWithTheSwitchOffTakesTheImportanceFactor) {
  force.nSesiType = 1;
  ExpectFactor(1.1, 1.1);
}

TEST_F(ForceFactorTest, SeismicCombinationWithTheSwitchOnTakesTheAdjustmentOfTheCheck) {
  force.nSesiType = 1;
  para.bSeismicGammaRE = 1;
  ExpectFactor(0.75, 0.8);
}

TEST_F(ForceFactorTest, AnyNonzeroSeismicTypeAndSwitchCount) {
  force.nSesiType = -2;
  para.bSeismicGammaRE = 4;
  ExpectFactor(0.75, 0.8);
}

}  // namespace
