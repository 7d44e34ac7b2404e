#include "tz_alu/engine/member_stability.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>

#include "tests/unit/tz_alu/engine/engine_inputs.h"

namespace {

using namespace alu_engine;
using engine_inputs::Forces;
using engine_inputs::POINT;
using engine_inputs::SymmetricH;

constexpr double kInf = std::numeric_limits<double>::infinity();
constexpr double kNan = std::numeric_limits<double>::quiet_NaN();

double Axial(double N, double phi, double k = 1.0) {
  POINT point{SymmetricH(), Forces(N, 0, 0)};
  return AxialStabilityStress(point.Input(), phi, k);
}

TEST(AxialStabilityStress, IsForceOverReducedArea) {
  EXPECT_DOUBLE_EQ(Axial(-1e5, 0.4), 125.0);  // 1e5/(2000·0.4)
  EXPECT_DOUBLE_EQ(Axial(-1e5, 0.4, 1.1), 137.5);
}

TEST(AxialStabilityStress, WithoutACoefficientIsZero) {
  EXPECT_EQ(Axial(-1e5, 0.0), 0.0);
  EXPECT_EQ(Axial(-1e5, 9e-11), 0.0);
}

// Kept: only φ is guarded, not the area it is multiplied by.
TEST(AxialStabilityStress, WithoutAnAreaIsInfinite) {
  POINT point{SymmetricH(), Forces(-1e5, 0, 0)};
  point.Section().dArea = 0.0;
  EXPECT_EQ(AxialStabilityStress(point.Input(), 0.4, 1.0), kInf);
}

TEST(AxialStabilityStress, OfAnUndefinedCoefficientIsUndefined) {
  EXPECT_TRUE(std::isnan(Axial(-1e5, kNan)));
}

// A calculated section of area 1000, W1 = 200,000, W2 = 100,000, Wz = 40,000.
ALU_CAL_SECTPARA CalculatedSection() {
  ALU_CAL_SECTPARA section;
  section.dA = 1000.0;
  section.dW1 = 200000.0;
  section.dW2 = 100000.0;
  section.dWz = 40000.0;
  return section;
}

double Bending(double My, double phi_b, double Mz = 0.0, double k = 1.0) {
  POINT point{SymmetricH(), Forces(0, My, Mz)};
  return BendingStabilityStress(point.Input(), CalculatedSection(), phi_b, k);
}

TEST(BendingStabilityStress, OfAPositiveMomentTakesTheTopModulus) {
  EXPECT_DOUBLE_EQ(Bending(1.6e7, 0.8), 100.0);  // 1.6e7/(0.8·200,000)
  EXPECT_DOUBLE_EQ(Bending(1.6e7, 0.8, 0.0, 1.1), 110.0);
}

// Kept: the sign stays.
TEST(BendingStabilityStress, OfANegativeMomentTakesTheBottomModulusAndIsNegative) {
  EXPECT_DOUBLE_EQ(Bending(-8e6, 0.8), -100.0);  // -8e6/(0.8·100,000)
}

TEST(BendingStabilityStress, OfANegativeMomentOfExactlyTheToleranceTakesTheTopModulus) {
  EXPECT_DOUBLE_EQ(Bending(-1e-10, 0.5), -1e-15);      // /(0.5·200,000)
  EXPECT_DOUBLE_EQ(Bending(-1.1e-10, 0.5), -2.2e-15);  // /(0.5·100,000)
}

TEST(BendingStabilityStress, LeavesMzOut) {
  EXPECT_EQ(Bending(1.6e7, 0.8, 5e6), Bending(1.6e7, 0.8, 0.0));
  EXPECT_EQ(Bending(0.0, 0.8, 5e6), 0.0);
}

TEST(BendingStabilityStress, WithoutEitherReducedModulusIsZero) {
  EXPECT_EQ(Bending(1.6e7, 0.0), 0.0);
  EXPECT_EQ(Bending(-1.6e7, 4e-16), 0.0);  // W1: 8e-11, W2: 4e-11
  EXPECT_EQ(Bending(1.6e7, 7e-16), 0.0);   // W1: 1.4e-10, but W2: 7e-11
}

TEST(BendingStabilityStress, OfAnUndefinedCoefficientIsUndefined) {
  EXPECT_TRUE(std::isnan(Bending(1.6e7, kNan)));
}

// N = -1e5 on a gross area of 2000: 100 with φy = 0.5, 125 with φz = 0.4, and 100 on the calculated
// area. N/N_Ey' = 1/3 and N/N_Ez' = 2/3: with η1 = 0.75 the moduli keep 0.75 and 0.5 of their size,
// with η2 = 1.2 the tension side 0.6.
class Compression : public testing::Test {
 protected:
  BEAM_COLUMN Column(double My, double Mz, bool unsymmetric) {
    point.force = Forces(-1e5, My, Mz);
    return {input,      section,    unsymmetric,      factor, gamma, {0.5, 0.4},
            {0.8, 0.5}, {0.6, 0.9}, {0.7, 0.75, 1.2}, 3e5,    1.5e5};
  }
  POINT point{SymmetricH(), Forces(-1e5, 0, 0)};
  CHECK_INPUT input{point.data, point.force, point.material};
  ALU_CAL_SECTPARA section = CalculatedSection();
  PLASTICITY gamma{1.0, 1.0, 1.0};
  double factor = 1.0;
};

// 0.6·2e7/(0.75·200,000) = 80 and 0.7·1e6/(0.5·40,000) = 35.
TEST_F(Compression, InPlaneOfASymmetricSectionAddsBothMoments) {
  EXPECT_DOUBLE_EQ(InPlaneStress(Column(2e7, 1e6, false)).dDemand, 215.0);
}

TEST_F(Compression, InPlaneOfASymmetricSectionTakesMomentsByMagnitude) {
  EXPECT_DOUBLE_EQ(InPlaneStress(Column(-2e7, -1e6, false)).dDemand, 215.0);
}

TEST_F(Compression, InPlaneOfASymmetricSectionHasNoParts) {
  EXPECT_FALSE(InPlaneStress(Column(2e7, 1e6, false)).bParts);
}

TEST_F(Compression, InPlaneIsScaledByTheForceFactor) {
  factor = 1.1;
  EXPECT_DOUBLE_EQ(InPlaneStress(Column(2e7, 1e6, false)).dDemand, 236.5);
  EXPECT_DOUBLE_EQ(InPlaneStress(Column(2e7, 0, true)).dDemand, 198.0);
}

TEST_F(Compression, InPlaneTakesThePlasticityOfTheTopModulus) {
  gamma.dGammaY1 = 2.0;
  EXPECT_DOUBLE_EQ(InPlaneStress(Column(2e7, 0, false)).dDemand, 140.0);
  EXPECT_DOUBLE_EQ(InPlaneStress(Column(-2e7, 0, true)).dDemand, 60.0);
}

// Compression side 100 + 80; tension side |100 - 0.6·2e7/(0.6·100,000)| = |100 - 200|.
TEST_F(Compression, InPlaneOfAnUnsymmetricSectionIsTheCompressionSideWhenThatIsWorse) {
  const IN_PLANE_STRESS stress = InPlaneStress(Column(2e7, 0, true));
  EXPECT_TRUE(stress.bParts);
  EXPECT_DOUBLE_EQ(stress.dTop, 180.0);
  EXPECT_DOUBLE_EQ(stress.dBottom, 100.0);
  EXPECT_DOUBLE_EQ(stress.dDemand, 180.0);
}

// Compression side 100 + 160, tension side |100 - 400|.
TEST_F(Compression, InPlaneOfAnUnsymmetricSectionIsTheTensionSideWhenThatIsWorse) {
  const IN_PLANE_STRESS stress = InPlaneStress(Column(4e7, 0, true));
  EXPECT_DOUBLE_EQ(stress.dTop, 260.0);
  EXPECT_DOUBLE_EQ(stress.dBottom, 300.0);
  EXPECT_DOUBLE_EQ(stress.dDemand, 300.0);
}

TEST_F(Compression, TensionSideTakesThePlasticityOfTheBottomModulus) {
  gamma.dGammaY2 = 2.0;
  EXPECT_NEAR(InPlaneStress(Column(4e7, 0, true)).dBottom, 100.0, 1e-12);  // |100 - 200|
}

TEST_F(Compression, TensionSideTakesTheAreaOfTheCalculatedSection) {
  section.dA = 500.0;
  EXPECT_NEAR(InPlaneStress(Column(4e7, 0, true)).dBottom, 200.0, 1e-12);  // |200 - 400|
}

TEST_F(Compression, TensionSideWithoutAModulusIsTheAxialStress) {
  section.dW2 = 0.0;
  EXPECT_DOUBLE_EQ(InPlaneStress(Column(4e7, 0, true)).dBottom, 100.0);
}

TEST_F(Compression, InPlaneOfAnUnsymmetricSectionTakesANegativeMomentByItsSign) {
  const IN_PLANE_STRESS stress = InPlaneStress(Column(-2e7, 0, true));
  EXPECT_FALSE(stress.bParts);
  EXPECT_NEAR(stress.dDemand, 20.0, 1e-12);  // 100 - 80
}

TEST_F(Compression, InPlaneOfAnUnsymmetricSectionHasPartsAboveTheTolerance) {
  EXPECT_FALSE(InPlaneStress(Column(1e-10, 0, true)).bParts);
  EXPECT_TRUE(InPlaneStress(Column(1.1e-10, 0, true)).bParts);
}

// Kept: without a term of Mz.
TEST_F(Compression, InPlaneOfAnUnsymmetricSectionLeavesMzOut) {
  for (const double My : {-2e7, 0.0, 2e7}) {
    EXPECT_EQ(InPlaneStress(Column(My, 1e6, true)).dDemand,
              InPlaneStress(Column(My, 0, true)).dDemand);
  }
  EXPECT_DOUBLE_EQ(InPlaneStress(Column(0, 1e6, true)).dDemand, 100.0);
}

// 125 + 0.9·1e6/(0.5·40,000) = 45 + 0.7·1e7/(0.8·200,000) = 43.75.
TEST_F(Compression, OutOfPlaneOfASymmetricSectionAddsBothMoments) {
  EXPECT_DOUBLE_EQ(OutOfPlaneStress(Column(1e7, 1e6, false)), 213.75);
}

TEST_F(Compression, OutOfPlaneOfASymmetricSectionTakesMomentsByMagnitude) {
  EXPECT_DOUBLE_EQ(OutOfPlaneStress(Column(-1e7, -1e6, false)), 213.75);
}

TEST_F(Compression, OutOfPlaneIsScaledByTheForceFactor) {
  factor = 1.2;
  EXPECT_DOUBLE_EQ(OutOfPlaneStress(Column(1e7, 1e6, false)), 256.5);
  EXPECT_DOUBLE_EQ(OutOfPlaneStress(Column(1e7, 1e6, true)), 202.5);
}

TEST_F(Compression, OutOfPlaneTakesThePlasticityOfTheWeakModulus) {
  gamma.dGammaZ = 2.0;
  EXPECT_DOUBLE_EQ(OutOfPlaneStress(Column(0, 1e6, false)), 147.5);  // 125 + 22.5
}

// Kept: My with its sign over W1, and no Mz.
TEST_F(Compression, OutOfPlaneOfAnUnsymmetricSectionTakesMyByItsSign) {
  EXPECT_DOUBLE_EQ(OutOfPlaneStress(Column(1e7, 0, true)), 168.75);
  EXPECT_DOUBLE_EQ(OutOfPlaneStress(Column(-1e7, 0, true)), 81.25);
}

TEST_F(Compression, OutOfPlaneOfAnUnsymmetricSectionLeavesMzOut) {
  EXPECT_DOUBLE_EQ(OutOfPlaneStress(Column(0, 1e6, true)), 125.0);
}

// η1·|N| = N_E': no stiffness is left. Beyond it the formula turns negative and is followed.
TEST_F(Compression, AtItsEulerForceHasAnInfiniteStress) {
  BEAM_COLUMN column = Column(1e7, 1e6, false);
  column.dNEy = column.dNEz = 0.75e5;
  EXPECT_EQ(InPlaneStress(column).dDemand, kInf);
  EXPECT_EQ(OutOfPlaneStress(column), kInf);
}

TEST_F(Compression, BeyondItsEulerForceFollowsTheFormula) {
  BEAM_COLUMN column = Column(2e7, 1e6, false);
  column.dNEy = column.dNEz = 0.5e5;  // 1 - 0.75·2 = -0.5
  // 100 - 0.6·2e7/100,000 + 35 and 125 - 0.9·1e6/20,000 + 0.7·2e7/160,000
  EXPECT_NEAR(InPlaneStress(column).dDemand, 15.0, 1e-12);
  EXPECT_NEAR(OutOfPlaneStress(column), 167.5, 1e-12);
}

TEST_F(Compression, WithAnUndefinedBendingCoefficientIsUndefinedOutOfPlane) {
  BEAM_COLUMN column = Column(1e7, 1e6, false);
  column.phi_b.dPhiB = kNan;
  EXPECT_TRUE(std::isnan(OutOfPlaneStress(column)));
  EXPECT_TRUE(std::isfinite(InPlaneStress(column).dDemand));
}

TEST_F(Compression, WithoutAnAxialCoefficientIsInfinite) {
  BEAM_COLUMN column = Column(1e7, 1e6, false);
  column.phi = {0.0, 0.0};
  EXPECT_EQ(InPlaneStress(column).dDemand, kInf);
  EXPECT_EQ(OutOfPlaneStress(column), kInf);
}

TEST_F(Compression, AnUndefinedCompressionSideIsNotHiddenByTheTensionSide) {
  BEAM_COLUMN column = Column(2e7, 0, true);
  column.phi.dPhiY = kNan;
  EXPECT_TRUE(std::isnan(InPlaneStress(column).dDemand));
}

}  // namespace
