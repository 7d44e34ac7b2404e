// Which force state gets which stability check, what the checks store, and what they leave for the
// report.

#include <gtest/gtest.h>

#include <cmath>
#include <numbers>
#include <set>

#include "tests/unit/tz_alu/engine/engine_inputs.h"
#include "tz_alu/engine/lateral_torsional.h"

namespace {

using engine_inputs::Check;
using engine_inputs::Forces;
using engine_inputs::OUTCOME;
using engine_inputs::POINT;
using engine_inputs::SymmetricH;
using engine_inputs::Tee;

using SLOTS = std::set<int>;

const SLOTS kInPlaneSlots{5, 7, 8, 10, 11, 12, 13, 14, 15, 16, 17, 18};
const SLOTS kOutOfPlaneSlots{5, 7, 8, 10, 11, 12, 13, 14, 15, 18};

// The H with iz = √(1.25e6/2000) = 25: λy = 4000/100 = 40 and λz = 1000/25 = 40, φ = 0.82 each;
// Wz = 1.25e6/50 = 25,000. φb and φbz are the user's 0.8 and 0.5, the moment factors 0.6 and 0.9.
// Only the two stability checks are on.
ALU_DGN_DATA StabilityOnly(ALU_DGN_DATA data = SymmetricH()) {
  data.SetCheckFlagAll(0);
  data.nCheckFlag[RALU_STABILITY] = data.nCheckFlag[RALU_COMBINED_STABILITY] = 1;
  data.code.sect.dIzz = 1.25e6;
  data.code.sect.dIw = 1e10;
  data.code.sect.dIxx = 1e5;
  ALU_PARA_DATA& para = data.code.para;
  para.dKz = 0.25;
  para.bUserPhi = 1;
  para.dUserPhi[0] = 0.8;
  para.dUserPhi[1] = 0.5;
  para.nBetaMOpt[0] = para.nBetaMOpt[1] = 0;
  para.dBetaM[0] = 0.6;
  para.dBetaM[1] = 0.9;
  return data;
}

ALU_DGN_DATA OnlyItem(RALU_ITEM_TYPE item, ALU_DGN_DATA data = StabilityOnly()) {
  data.SetCheckFlagAll(0);
  data.nCheckFlag[item] = 1;
  return data;
}

// N_E' = π²·70,000·2000/(1.2·40²) about both axes. A third of it makes 1 - 0.75/3 = 0.75.
const double kEulerForce = std::numbers::pi * std::numbers::pi * 140e6 / 1920.0;
const double kThird = kEulerForce / 3.0;
const double kAxialStress = kThird / (0.82 * 2000.0);
constexpr double kTight = 1e-10;  // stresses of some hundred

void ExpectItem(const T_RALU_RLT& item, double demand, double capacity) {
  EXPECT_NEAR(item.dDemand, demand, kTight);
  EXPECT_EQ(item.dCapacity, capacity);
}

void ExpectEmpty(const OUTCOME& outcome, RALU_ITEM_TYPE item) {
  EXPECT_EQ(outcome.Item(item).dDemand, 0.0) << item;
  EXPECT_EQ(outcome.Item(item).dCapacity, 0.0) << item;
}

// Every slot of the set holds something, every other one is 0.
void ExpectSlots(const OUTCOME& outcome, const SLOTS& filled) {
  for (int slot = 0; slot < 23; ++slot) {
    EXPECT_EQ(outcome.buffer.report->dValue[slot] != 0.0, filled.contains(slot)) << "slot " << slot;
  }
}

TEST(StabilityGroup, InAxialCompressionFillsItemAndCoefficients) {
  const auto outcome = Check(StabilityOnly(), Forces(-1e5, 0, 0));
  ExpectItem(outcome.Item(RALU_STABILITY), 50.0 / 0.82, 200.0);  // 1e5/(2000·0.82)
  ExpectEmpty(outcome, RALU_COMBINED_STABILITY);
  ExpectSlots(outcome, {6, 7, 8});
}

TEST(StabilityGroup, InAxialCompressionTakesTheSmallerCoefficient) {
  ALU_DGN_DATA data = StabilityOnly();
  data.code.para.dKz = 0.5;  // λz = 80, φz = 0.377
  const auto outcome = Check(data, Forces(-1e5, 0, 0));
  ExpectItem(outcome.Item(RALU_STABILITY), 50.0 / 0.377, 200.0);
  EXPECT_EQ(outcome.Report(ALU_REPORT_PHI), 0.377);
  EXPECT_EQ(outcome.Report(ALU_REPORT_PHI_Y), 0.82);
  EXPECT_EQ(outcome.Report(ALU_REPORT_PHI_Z), 0.377);
}

// Kept: the user's coefficients replace those of bending, never those of compression.
TEST(StabilityGroup, InAxialCompressionDoesNotKnowTheUsersCoefficients) {
  EXPECT_EQ(Check(StabilityOnly(), Forces(-1e5, 0, 0)).Report(ALU_REPORT_PHI_Y), 0.82);
}

TEST(StabilityGroup, OfAWeldedSectionReducesTheCoefficientOnly) {
  ALU_DGN_DATA data = StabilityOnly();
  data.code.sect.bWelded = 1;
  const auto outcome = Check(data, Forces(-1e5, 0, 0));
  EXPECT_EQ(outcome.Report(ALU_REPORT_PHI_Y), 0.41);             // 0.5·0.82
  ExpectItem(outcome.Item(RALU_STABILITY), 50.0 / 0.41, 200.0);  // the gross area stays
}

// A·φ = A·(Ae/A)·φ: the effective area acts once.
TEST(StabilityGroup, OfASlenderSectionTakesTheEffectiveArea) {
  ALU_DGN_DATA data = StabilityOnly();
  data.code.sect.dSize[1] = 2.0;  // web 60/2 = 30 above 21.5
  const auto outcome = Check(data, Forces(-1e5, 0, 0));
  const double area = outcome.buffer.sectpara.dA;
  EXPECT_LT(area, 1900.0);
  ExpectItem(outcome.Item(RALU_STABILITY), 1e5 / (area * 0.82), 200.0);
}

TEST(StabilityGroup, InPureBendingFillsItemAndBendingCoefficient) {
  const auto outcome = Check(StabilityOnly(), Forces(0, 1.6e7, 0));
  ExpectItem(outcome.Item(RALU_STABILITY), 100.0, 200.0);  // 1.6e7/(0.8·200,000)
  ExpectEmpty(outcome, RALU_COMBINED_STABILITY);
  ExpectSlots(outcome, {9});
  EXPECT_EQ(outcome.Report(ALU_REPORT_PHI_B_BENDING), 0.8);
}

TEST(StabilityGroup, InPureNegativeBendingHasANegativeDemand) {
  ExpectItem(Check(StabilityOnly(), Forces(0, -1.6e7, 0)).Item(RALU_STABILITY), -100.0, 200.0);
}

// Kept: bending about z alone is a state of its own that stores no stress.
TEST(StabilityGroup, InBendingAboutZAloneStoresADemandOfZero) {
  ExpectItem(Check(StabilityOnly(), Forces(0, 0, 1e6)).Item(RALU_STABILITY), 0.0, 200.0);
}

TEST(StabilityGroup, InPureBendingWithoutCriticalMomentShowsIt) {
  ALU_DGN_DATA data = StabilityOnly();
  data.code.para.bUserPhi = 0;
  data.nMembType = ALU_MEMBER_TRUSS;
  const auto outcome = Check(data, Forces(0, 1.6e7, 0));
  EXPECT_TRUE(std::isnan(outcome.Item(RALU_STABILITY).dDemand));
  EXPECT_TRUE(std::isnan(outcome.Report(ALU_REPORT_PHI_B_BENDING)));
  EXPECT_EQ(outcome.Item(RALU_STABILITY).dCapacity, 200.0);
}

TEST(StabilityGroup, InPureBendingTakesTheCriticalMomentOfTheMember) {
  ALU_DGN_DATA data = StabilityOnly();
  data.code.para.bUserPhi = 0;
  POINT point{data, Forces(0, 1.6e7, 0)};
  const double phi_b = alu_engine::BendingCoefficients(point.Input(), 200000.0, 200.0).dPhiB;
  ASSERT_LT(phi_b, 1.0);
  ExpectItem(Check(data, point.force).Item(RALU_STABILITY), 80.0 / phi_b, 200.0);
}

// Kept: the top modulus decides φb, whichever fibre is compressed.
TEST(StabilityGroup, FormsTheBendingCoefficientWithTheTopModulus) {
  ALU_DGN_DATA data = StabilityOnly(Tee());
  data.code.para.bUserPhi = 0;
  POINT point{data, Forces(0, -1e7, 0)};
  const double phi_b = alu_engine::BendingCoefficients(point.Input(), 315000.0, 200.0).dPhiB;
  ASSERT_LT(phi_b, 1.0);
  EXPECT_EQ(Check(data, point.force).Report(ALU_REPORT_PHI_B_BENDING), phi_b);
  EXPECT_EQ(Check(data, Forces(-1e4, -1e7, 0)).Report(ALU_REPORT_PHI_B), phi_b);
}

TEST(StabilityGroup, InTensionFillsNothing) {
  for (const double My : {0.0, 1e7}) {
    const auto outcome = Check(StabilityOnly(), Forces(1e5, My, My));
    ExpectEmpty(outcome, RALU_STABILITY);
    ExpectEmpty(outcome, RALU_COMBINED_STABILITY);
    ExpectSlots(outcome, {});
  }
}

TEST(StabilityGroup, WithoutForcesFillsNothing) {
  const auto outcome = Check(StabilityOnly(), Forces(-1e-10, 9e-11, 0));
  ExpectEmpty(outcome, RALU_STABILITY);
  ExpectEmpty(outcome, RALU_COMBINED_STABILITY);
  ExpectSlots(outcome, {});
}

TEST(StabilityGroup, NeedsTheStabilitySwitchForAxialForceOrBendingAlone) {
  const ALU_DGN_DATA data = OnlyItem(RALU_COMBINED_STABILITY);
  for (const auto& force : {Forces(-1e5, 0, 0), Forces(0, 1e7, 0)}) {
    ExpectEmpty(Check(data, force), RALU_STABILITY);
    ExpectEmpty(Check(data, force), RALU_COMBINED_STABILITY);
    ExpectSlots(Check(data, force), {});
  }
}

// About y: axial + 0.6·2.5e7/(200,000·0.75) + 1.0·1e6/(0.5·25,000) = axial + 100 + 80.
TEST(CompressionWithBending, FillsTheCheckAboutY) {
  const auto outcome = Check(StabilityOnly(), Forces(-kThird, 2.5e7, 1e6));
  ExpectItem(outcome.Item(RALU_STABILITY), kAxialStress + 180.0, 200.0);
}

// About z: axial + 0.9·1e6/(1.05·25,000·0.75) + 1.0·2.5e7/(0.8·200,000).
TEST(CompressionWithBending, FillsTheCheckAboutZ) {
  const auto outcome = Check(StabilityOnly(), Forces(-kThird, 2.5e7, 1e6));
  ExpectItem(outcome.Item(RALU_COMBINED_STABILITY), kAxialStress + 9e5 / 19687.5 + 156.25, 200.0);
}

TEST(CompressionWithBending, LeavesEveryCoefficientForTheReport) {
  const auto outcome = Check(StabilityOnly(), Forces(-kThird, 2.5e7, 1e6));
  constexpr std::pair<ALU_REPORT_SLOT, double> kExpected[] = {
      {ALU_REPORT_GAMMA_Z, 1.05}, {ALU_REPORT_PHI_Y, 0.82}, {ALU_REPORT_PHI_Z, 0.82},
      {ALU_REPORT_PHI_B, 0.8},    {ALU_REPORT_PHI_BZ, 0.5}, {ALU_REPORT_BETA_MY, 0.6},
      {ALU_REPORT_BETA_MZ, 0.9},  {ALU_REPORT_ETA, 1.0},    {ALU_REPORT_ETA1, 0.75},
      {ALU_REPORT_ETA2, 1.15}};
  for (const auto& [slot, value] : kExpected) EXPECT_EQ(outcome.Report(slot), value) << slot;
  EXPECT_NEAR(outcome.Report(ALU_REPORT_N_EY), kEulerForce, 1e-12 * kEulerForce);
  EXPECT_NEAR(outcome.Report(ALU_REPORT_N_EZ), kEulerForce, 1e-12 * kEulerForce);
}

TEST(CompressionWithBending, EulerForcesTakeTheSlendernessOfTheirAxis) {
  ALU_DGN_DATA data = StabilityOnly();
  data.code.para.dKz = 0.5;
  const auto outcome = Check(data, Forces(-1e4, 1e6, 0));
  EXPECT_NEAR(outcome.Report(ALU_REPORT_N_EY), kEulerForce, 1e-12 * kEulerForce);
  EXPECT_NEAR(outcome.Report(ALU_REPORT_N_EZ), kEulerForce / 4.0, 1e-12 * kEulerForce);
}

TEST(CompressionWithBending, AboutYAloneFillsItsSlotsOnly) {
  const auto outcome = Check(OnlyItem(RALU_STABILITY), Forces(-kThird, 2.5e7, 1e6));
  ExpectSlots(outcome, kInPlaneSlots);
  ExpectEmpty(outcome, RALU_COMBINED_STABILITY);
}

TEST(CompressionWithBending, AboutZAloneFillsItsSlotsOnly) {
  const auto outcome = Check(OnlyItem(RALU_COMBINED_STABILITY), Forces(-kThird, 2.5e7, 1e6));
  ExpectSlots(outcome, kOutOfPlaneSlots);
  ExpectEmpty(outcome, RALU_STABILITY);
}

TEST(CompressionWithBending, WithBothSwitchesOffFillsNothing) {
  ALU_DGN_DATA data = StabilityOnly();
  data.SetCheckFlagAll(0);
  const auto outcome = Check(data, Forces(-kThird, 2.5e7, 1e6));
  ExpectEmpty(outcome, RALU_STABILITY);
  ExpectEmpty(outcome, RALU_COMBINED_STABILITY);
  ExpectSlots(outcome, {});
}

TEST(CompressionWithBending, IsCheckedForAMomentAboutEitherAxis) {
  for (const auto& force : {Forces(-1e4, 1e-10, 0), Forces(-1e4, 0, -1e-10)}) {
    EXPECT_EQ(Check(StabilityOnly(), force).Item(RALU_COMBINED_STABILITY).dCapacity, 200.0);
  }
}

TEST(CompressionWithBending, IsCheckedForEveryMemberType) {
  for (const int type : {1, 2, 3, 5, 0}) {
    ALU_DGN_DATA data = StabilityOnly();
    data.nMembType = type;
    const auto outcome = Check(data, Forces(-kThird, 2.5e7, 1e6));
    ExpectItem(outcome.Item(RALU_STABILITY), kAxialStress + 180.0, 200.0);
  }
}

ALU_DGN_DATA StabilityTee() {
  return StabilityOnly(Tee());
}

TEST(CompressionWithBending, OfAnUnsymmetricSectionStoresTheLargerPartInPositiveBending) {
  for (const double My : {1e6, 2e7}) {
    const auto outcome = Check(OnlyItem(RALU_STABILITY, StabilityTee()), Forces(-1e4, My, 0));
    SLOTS slots = kInPlaneSlots;
    slots.insert({19, 20});
    ExpectSlots(outcome, slots);
    EXPECT_EQ(outcome.Item(RALU_STABILITY).dDemand,
              std::fmax(outcome.Report(ALU_REPORT_RMAX211), outcome.Report(ALU_REPORT_RMAX212)));
  }
}

TEST(CompressionWithBending, OfAnUnsymmetricSectionStoresNoPartsInOtherBending) {
  for (const auto& force : {Forces(-1e4, -1e6, 0), Forces(-1e4, 1e-10, 0), Forces(-1e4, 0, 1e6)}) {
    ExpectSlots(Check(OnlyItem(RALU_STABILITY, StabilityTee()), force), kInPlaneSlots);
  }
}

TEST(CompressionWithBending, OfAnUnsymmetricSectionAboutZStoresNoParts) {
  const auto outcome =
      Check(OnlyItem(RALU_COMBINED_STABILITY, StabilityTee()), Forces(-1e4, 1e6, 0));
  ExpectSlots(outcome, kOutOfPlaneSlots);
}

// Kept: bending about z is ignored by both checks of an unsymmetric section.
TEST(CompressionWithBending, OfAnUnsymmetricSectionAboutZAloneLeavesMzOut) {
  const auto outcome = Check(StabilityTee(), Forces(-1e4, 0, 1e6));
  const double phi_y = outcome.Report(ALU_REPORT_PHI_Y);
  const double phi_z = outcome.Report(ALU_REPORT_PHI_Z);
  ExpectItem(outcome.Item(RALU_STABILITY), 5.0 / phi_y, 200.0);  // 1e4/2000/φ
  ExpectItem(outcome.Item(RALU_COMBINED_STABILITY), 5.0 / phi_z, 200.0);
}

// A shear centre that couples both modes raises the slenderness about z to λyz.
TEST(CompressionWithBending, OfAnUnsymmetricSectionTakesTheTwistingSlendernessAboutZ) {
  const auto forces = Forces(-1e4, 1e6, 0);
  ALU_DGN_DATA data = StabilityTee();
  const double straight = Check(data, forces).Report(ALU_REPORT_N_EZ);
  data.code.sect.dShearCtr = 40.0;
  const auto twisting = Check(data, forces);
  data.SetCheckFlagAll(1);
  const double lambda = Check(data, forces).Item(RALU_SLENDERNESS_Z).dDemand;
  EXPECT_LT(twisting.Report(ALU_REPORT_N_EZ), straight);
  const double expected = std::numbers::pi * std::numbers::pi * 140e6 / (1.2 * lambda * lambda);
  EXPECT_NEAR(twisting.Report(ALU_REPORT_N_EZ), expected, 1e-12 * expected);
}

void ExpectFactor(ALU_DGN_DATA data, const AluDgnSectForce& force, double factor) {
  const auto outcome = Check(data, force);
  EXPECT_NEAR(outcome.Item(RALU_STABILITY).dDemand, factor * (kAxialStress + 180.0), kTight);
  EXPECT_NEAR(outcome.Item(RALU_COMBINED_STABILITY).dDemand,
              factor * (kAxialStress + 9e5 / 19687.5 + 156.25), kTight);
}

TEST(CompressionWithBending, TakesTheImportanceFactor) {
  ALU_DGN_DATA data = StabilityOnly();
  data.code.para.dGamma0 = 1.1;
  ExpectFactor(data, Forces(-kThird, 2.5e7, 1e6), 1.1);
}

TEST(CompressionWithBending, TakesTheStabilityAdjustmentOfSeismicCombinations) {
  ALU_DGN_DATA data = StabilityOnly();
  data.code.para.dGamma0 = 1.1;
  AluDgnSectForce force = Forces(-kThird, 2.5e7, 1e6);
  force.nSesiType = 1;
  ExpectFactor(data, force, 1.1);
  data.code.para.bSeismicGammaRE = 1;
  ExpectFactor(data, force, 0.8);
}

TEST(StabilityGroup, TakesTheStabilityAdjustmentOfSeismicCombinations) {
  ALU_DGN_DATA data = StabilityOnly();
  data.code.para.bSeismicGammaRE = 1;
  AluDgnSectForce bending = Forces(0, 1.6e7, 0);
  AluDgnSectForce axial = Forces(-1e5, 0, 0);
  bending.nSesiType = axial.nSesiType = 1;
  EXPECT_NEAR(Check(data, bending).Item(RALU_STABILITY).dDemand, 80.0, kTight);
  EXPECT_NEAR(Check(data, axial).Item(RALU_STABILITY).dDemand, 0.8 * 50.0 / 0.82, kTight);
}

TEST(CompressionWithBending, WithoutAModulusShowsIt) {
  ALU_DGN_DATA data = StabilityOnly();
  data.code.matl.nElast = 0;
  const auto outcome = Check(data, Forces(-1e4, 1e6, 1e6));
  EXPECT_EQ(outcome.ret, 1);
  EXPECT_EQ(outcome.Report(ALU_REPORT_N_EY), 0.0);
  // 1 - η1·N/0 = -∞: the moments drop out, 1e4/(0.82·2000) and Mz or My alone remain
  ExpectItem(outcome.Item(RALU_STABILITY), 5.0 / 0.82 + 80.0, 200.0);
  ExpectItem(outcome.Item(RALU_COMBINED_STABILITY), 5.0 / 0.82 + 6.25, 200.0);
}

}  // namespace
