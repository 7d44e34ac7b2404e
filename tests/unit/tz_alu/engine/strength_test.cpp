#include "tz_alu/engine/strength.h"

#include <gtest/gtest.h>

#include "tests/unit/tz_alu/engine/engine_inputs.h"

namespace {

using engine_inputs::Check;
using engine_inputs::Forces;
using engine_inputs::SymmetricH;
using engine_inputs::Tee;

double Demand(const ALU_DGN_DATA& data, double N, double My, double Mz) {
  return Check(data, Forces(N, My, Mz)).Item(RALU_STRENGTH).dDemand;
}

ALU_DGN_DATA Seismic(ALU_DGN_DATA data) {
  data.code.para.dGamma0 = 1.1;
  data.code.para.bSeismicGammaRE = 1;
  return data;
}

double SeismicDemand(const ALU_DGN_DATA& data, double N, double My, double Mz) {
  AluDgnSectForce force = Forces(N, My, Mz);
  force.nSesiType = 1;
  return Check(Seismic(data), force).Item(RALU_STRENGTH).dDemand;
}

// 1e5 / (2000·0.5) = 100.
TEST(AxialStrength, StressIsForceOverAdjustedArea) {
  EXPECT_DOUBLE_EQ(Demand(SymmetricH(), 1e5, 0, 0), 100.0);
}

TEST(AxialStrength, CompressionGivesTheSameStressAsTension) {
  EXPECT_DOUBLE_EQ(Demand(SymmetricH(), -1e5, 0, 0), 100.0);
}

TEST(AxialStrength, CapacityIsTheDesignStrength) {
  EXPECT_EQ(Check(SymmetricH(), Forces(1e5, 0, 0)).Item(RALU_STRENGTH).dCapacity, 200.0);
}

TEST(AxialStrength, ImportanceFactorMultipliesTheForce) {
  ALU_DGN_DATA data = SymmetricH();
  data.code.para.dGamma0 = 1.1;
  EXPECT_DOUBLE_EQ(Demand(data, 1e5, 0, 0), 110.0);
}

TEST(AxialStrength, SeismicCombinationTakesTheStrengthAdjustment) {
  EXPECT_DOUBLE_EQ(SeismicDemand(SymmetricH(), 1e5, 0, 0), 75.0);  // 0.75·100
}

TEST(AxialStrength, WithoutAreaTheDemandIsZeroAndTheCapacityStays) {
  ALU_DGN_DATA data = SymmetricH();
  data.code.para.dCoef085 = 0.0;
  const auto outcome = Check(data, Forces(1e5, 0, 0));
  EXPECT_EQ(outcome.Item(RALU_STRENGTH).dDemand, 0.0);
  EXPECT_EQ(outcome.Item(RALU_STRENGTH).dCapacity, 200.0);
}

TEST(AxialStrength, NegativeAreaKeepsTheSignOfTheFormula) {
  ALU_DGN_DATA data = SymmetricH();
  data.code.para.dCoef085 = -0.5;
  EXPECT_DOUBLE_EQ(Demand(data, 1e5, 0, 0), -100.0);
}

TEST(AxialStrength, LeavesAreaAndStrengthForTheReport) {
  const auto outcome = Check(SymmetricH(), Forces(1e5, 0, 0));
  EXPECT_EQ(outcome.Report(ALU_REPORT_AEN), 1000.0);
  EXPECT_EQ(outcome.Report(ALU_REPORT_F), 200.0);
  EXPECT_EQ(outcome.Report(ALU_REPORT_GAMMA_Y), 0.0);
}

// Symmetric H, weakly hardening: 1.6e7/(1.0·200,000) = 80; 2.1e6/(1.05·40,000) = 50.
TEST(BendingStrength, PositiveWeakAxisMomentLowersTheStressOfASymmetricSection) {
  EXPECT_NEAR(Demand(SymmetricH(), 0, 1.6e7, 2.1e6), 30.0, 1e-12);
}

TEST(BendingStrength, NegativeWeakAxisMomentRaisesTheStressOfASymmetricSection) {
  EXPECT_DOUBLE_EQ(Demand(SymmetricH(), 0, 1.6e7, -2.1e6), 130.0);
}

TEST(BendingStrength, StrongAxisMomentOfASymmetricSectionCountsByMagnitude) {
  EXPECT_NEAR(Demand(SymmetricH(), 0, -1.6e7, 2.1e6), 30.0, 1e-12);
}

TEST(BendingStrength, WeakAxisMomentAloneGivesItsMagnitude) {
  EXPECT_DOUBLE_EQ(Demand(SymmetricH(), 0, 0, 2.1e6), 50.0);
}

TEST(BendingStrength, StronglyHardeningHTakesNoPlasticity) {
  ALU_DGN_DATA data = SymmetricH();
  data.code.matl.strGrade = L"6061-T4";
  EXPECT_DOUBLE_EQ(Demand(data, 0, 0, 2.1e6), 52.5);  // 2.1e6/40,000
}

TEST(BendingStrength, SymmetricSectionReportsTheTopFactors) {
  const auto outcome = Check(SymmetricH(), Forces(0, 1.6e7, 2.1e6));
  EXPECT_EQ(outcome.Report(ALU_REPORT_GAMMA_Y), 1.0);
  EXPECT_EQ(outcome.Report(ALU_REPORT_GAMMA_Z), 1.05);
  EXPECT_EQ(outcome.Report(ALU_REPORT_F), 200.0);
  EXPECT_EQ(outcome.Report(ALU_REPORT_AEN), 0.0);
}

// Tee, weakly hardening: top 1.1025e7/(1.0·315,000) = 35, bottom 1.1025e7/(1.05·105,000) = 100,
// weak axis 2.1e6/(1.05·40,000) = 50.
TEST(BendingStrength, WorseFibreOfAnUnsymmetricSectionGoverns) {
  EXPECT_DOUBLE_EQ(Demand(Tee(), 0, 1.1025e7, 2.1e6), 150.0);
}

TEST(BendingStrength, MomentSignsDoNotMatterForAnUnsymmetricSection) {
  for (const double My : {1.1025e7, -1.1025e7}) {
    for (const double Mz : {2.1e6, -2.1e6}) EXPECT_DOUBLE_EQ(Demand(Tee(), 0, My, Mz), 150.0);
  }
}

TEST(BendingStrength, GoverningBottomFibreReportsItsFactor) {
  EXPECT_EQ(Check(Tee(), Forces(0, 1.1025e7, 2.1e6)).Report(ALU_REPORT_GAMMA_Y), 1.05);
}

// Upside down: top 1.1025e7/105,000 = 105, plus 50.
TEST(BendingStrength, GoverningTopFibreReportsItsFactor) {
  ALU_DGN_DATA data = Tee();
  data.code.sect.dPtZ[0] = 75.0;
  data.code.sect.dPtZ[2] = -25.0;
  for (const double Mz : {2.1e6, -2.1e6}) {
    const auto outcome = Check(data, Forces(0, 1.1025e7, Mz));
    EXPECT_DOUBLE_EQ(outcome.Item(RALU_STRENGTH).dDemand, 155.0);
    EXPECT_EQ(outcome.Report(ALU_REPORT_GAMMA_Y), 1.0);
  }
}

// Seismic: 0.75·150.
TEST(BendingStrength, ForceFactorScalesBothFibres) {
  EXPECT_DOUBLE_EQ(SeismicDemand(Tee(), 0, 1.1025e7, 2.1e6), 112.5);
  EXPECT_DOUBLE_EQ(SeismicDemand(SymmetricH(), 0, 1.6e7, -2.1e6), 97.5);  // 0.75·130
}

// 100 + 80 + 50.
TEST(CombinedStrength, PartsOfASymmetricSectionAddByMagnitude) {
  EXPECT_DOUBLE_EQ(Demand(SymmetricH(), 1e5, 1.6e7, 2.1e6), 230.0);
  EXPECT_DOUBLE_EQ(Demand(SymmetricH(), -1e5, -1.6e7, 2.1e6), 230.0);
  EXPECT_DOUBLE_EQ(Demand(SymmetricH(), -1e5, 1.6e7, -2.1e6), 230.0);
}

// Tee: |100 + 100 ± 50|.
TEST(CombinedStrength, TensionAddsToTheBottomFibreOfAnUnsymmetricSection) {
  EXPECT_DOUBLE_EQ(Demand(Tee(), 1e5, 1.1025e7, 2.1e6), 250.0);
  EXPECT_DOUBLE_EQ(Demand(Tee(), 1e5, 1.1025e7, -2.1e6), 250.0);
}

// |-100 + 100 ± 50|.
TEST(CombinedStrength, CompressionRelievesTheBottomFibreOfAnUnsymmetricSection) {
  EXPECT_NEAR(Demand(Tee(), -1e5, 1.1025e7, 2.1e6), 50.0, 1e-12);
}

TEST(CombinedStrength, TopModulusOfAnUnsymmetricSectionDoesNotMatter) {
  ALU_DGN_DATA data = Tee();
  data.code.sect.dPtZ[0] = 5.0;
  EXPECT_DOUBLE_EQ(Demand(data, 1e5, 1.1025e7, 2.1e6), 250.0);
}

TEST(CombinedStrength, ForceFactorScalesTheSum) {
  EXPECT_DOUBLE_EQ(SeismicDemand(SymmetricH(), 1e5, 1.6e7, 2.1e6), 172.5);  // 0.75·230
  EXPECT_DOUBLE_EQ(SeismicDemand(Tee(), 1e5, 1.1025e7, 2.1e6), 187.5);      // 0.75·250
}

TEST(CombinedStrength, WithoutAreaTheDemandIsZeroAndTheCapacityStays) {
  ALU_DGN_DATA data = SymmetricH();
  data.code.para.dCoef085 = 0.0;
  const auto outcome = Check(data, Forces(1e5, 1.6e7, 0));
  EXPECT_EQ(outcome.Item(RALU_STRENGTH).dDemand, 0.0);
  EXPECT_EQ(outcome.Item(RALU_STRENGTH).dCapacity, 200.0);
}

TEST(CombinedStrength, LeavesAreaAndTopFactorForTheReport) {
  const auto outcome = Check(Tee(), Forces(1e5, 1.1025e7, 0));
  EXPECT_EQ(outcome.Report(ALU_REPORT_AEN), 1000.0);
  EXPECT_EQ(outcome.Report(ALU_REPORT_F), 200.0);
  EXPECT_EQ(outcome.Report(ALU_REPORT_GAMMA_Y), 1.0);
  EXPECT_EQ(outcome.Report(ALU_REPORT_GAMMA_Z), 1.05);
}

// The formulas themselves, for moduli that no usable section has. Stresses are 100, 80 and 50.
class StrengthFormula : public testing::Test {
 protected:
  StrengthFormula() {
    section.dA = 1000.0;
    section.dW1 = section.dW2 = 1000.0;
    section.dWz = 1000.0;
  }
  alu_engine::STRENGTH_INPUT Input(bool unsymmetric) const {
    return {force, section, {1.0, 1.0, 1.0}, 1.0, unsymmetric};
  }
  AluDgnSectForce force = Forces(1e5, 8e4, 5e4);
  ALU_CAL_SECTPARA section;
};

TEST_F(StrengthFormula, BendingIsZeroWithoutATopModulus) {
  section.dW1 = 9e-11;
  EXPECT_EQ(BendingStress(Input(true)).dDemand, 0.0);
  EXPECT_EQ(BendingStress(Input(false)).dDemand, 0.0);
}

TEST_F(StrengthFormula, BendingIsZeroWithoutAWeakModulus) {
  section.dWz = -9e-11;
  EXPECT_EQ(BendingStress(Input(true)).dDemand, 0.0);
  EXPECT_EQ(BendingStress(Input(false)).dDemand, 0.0);
}

TEST_F(StrengthFormula, BendingWithoutABottomModulusIsThatOfTheTop) {
  section.dW2 = 0.0;
  EXPECT_DOUBLE_EQ(BendingStress(Input(true)).dDemand, 130.0);
}

TEST_F(StrengthFormula, CombinedIsZeroWithoutAnyOfItsDenominators) {
  for (double ALU_CAL_SECTPARA::* value : {&ALU_CAL_SECTPARA::dW1, &ALU_CAL_SECTPARA::dWz}) {
    const double kept = section.*value;
    section.*value = 0.0;
    EXPECT_EQ(CombinedStress(Input(true), 1000.0), 0.0);
    EXPECT_EQ(CombinedStress(Input(false), 1000.0), 0.0);
    section.*value = kept;
  }
  EXPECT_EQ(CombinedStress(Input(true), 0.0), 0.0);
}

TEST_F(StrengthFormula, CombinedWithoutABottomModulusLeavesMyOut) {
  section.dW2 = 0.0;
  EXPECT_DOUBLE_EQ(CombinedStress(Input(true), 1000.0), 150.0);  // 100 + 50
}

// 105,000·1.0 = 100,000·1.05 exactly in binary: both fibres carry the same stress.
TEST_F(StrengthFormula, TieOfTheFibresReportsTheTopFactor) {
  section.dW1 = 105000.0;
  section.dW2 = 100000.0;
  ASSERT_EQ(1.05 * section.dW2, section.dW1);
  const alu_engine::STRENGTH_INPUT in{force, section, {1.0, 1.05, 1.0}, 1.0, true};
  EXPECT_EQ(BendingStress(in).dGammaY, 1.0);
}

}  // namespace
