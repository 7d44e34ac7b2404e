#include <gtest/gtest.h>

#include <cmath>

#include "tests/unit/tz_alu/engine/engine_inputs.h"
#include "tz_alu/engine/shear.h"

namespace {

using engine_inputs::Check;
using engine_inputs::Forces;
using engine_inputs::SymmetricH;

// Qzb = 400 with Izz = 2e6, Qyb = 1200 with Iyy = 2e7.
ALU_DGN_DATA Beam() {
  ALU_DGN_DATA data = SymmetricH();
  data.nMembType = ALU_MEMBER_BEAM;
  data.code.sect.dQzb = 400.0;
  data.code.sect.dQyb = 1200.0;
  return data;
}

AluDgnSectForce Shear(double Fy, double Fz, double N = 0.0, double My = 1e6) {
  AluDgnSectForce force = Forces(N, My, 0);
  force.dForce[ALU_FORCE_FY] = Fy;
  force.dForce[ALU_FORCE_FZ] = Fz;
  return force;
}

void ExpectItem(const T_RALU_RLT& item, double demand, double capacity) {
  EXPECT_DOUBLE_EQ(item.dDemand, demand);
  EXPECT_EQ(item.dCapacity, capacity);
}

TEST(ShearAlongY, StressUsesQzbAndIzz) {
  // 1e5·400/2e6 = 20
  ExpectItem(Check(Beam(), Shear(1e5, 0)).Item(RALU_SHEAR_Y), 20.0, 115.0);
}

TEST(ShearAlongZ, StressUsesQybAndIyy) {
  // 1e5·1200/2e7 = 6
  ExpectItem(Check(Beam(), Shear(0, 1e5)).Item(RALU_SHEAR_Z), 6.0, 115.0);
}

TEST(Shear, DirectionOfTheForceDoesNotMatter) {
  const auto outcome = Check(Beam(), Shear(-1e5, -1e5));
  EXPECT_DOUBLE_EQ(outcome.Item(RALU_SHEAR_Y).dDemand, 20.0);
  EXPECT_DOUBLE_EQ(outcome.Item(RALU_SHEAR_Z).dDemand, 6.0);
}

TEST(Shear, SeismicCombinationTakesTheStrengthAdjustment) {
  ALU_DGN_DATA data = Beam();
  data.code.para.bSeismicGammaRE = 1;
  AluDgnSectForce force = Shear(1e5, 1e5);
  force.nSesiType = 1;
  const auto outcome = Check(data, force);
  EXPECT_DOUBLE_EQ(outcome.Item(RALU_SHEAR_Y).dDemand, 15.0);  // 0.75·20
  EXPECT_DOUBLE_EQ(outcome.Item(RALU_SHEAR_Z).dDemand, 4.5);   // 0.75·6
}

TEST(Shear, LeavesItsValuesForTheReport) {
  const auto outcome = Check(Beam(), Shear(1e5, 1e5));
  EXPECT_EQ(outcome.Report(ALU_REPORT_FV), 115.0);
  EXPECT_EQ(outcome.Report(ALU_REPORT_QZB), 400.0);
  EXPECT_EQ(outcome.Report(ALU_REPORT_QYB), 1200.0);
}

TEST(Shear, EachDirectionReportsItsOwnFirstMoment) {
  ALU_DGN_DATA data = Beam();
  data.nCheckFlag[RALU_SHEAR_Z] = 0;
  const auto outcome = Check(data, Shear(1e5, 1e5));
  EXPECT_EQ(outcome.Report(ALU_REPORT_QZB), 400.0);
  EXPECT_EQ(outcome.Report(ALU_REPORT_QYB), 0.0);
}

TEST(Shear, ZeroInertiaDividesAsNumbersDo) {
  ALU_SECT_DATA sect;
  sect.dQzb = 400.0;
  EXPECT_EQ(alu_engine::ShearStressY(sect, Shear(1e5, 0), 1.0), INFINITY);
  EXPECT_TRUE(std::isnan(alu_engine::ShearStressZ(sect, Shear(1e5, 0), 1.0)));
}

void ExpectShearChecked(const ALU_DGN_DATA& data, double N, double My, bool checked) {
  const auto outcome = Check(data, Shear(1e5, 1e5, N, My));
  const double capacity = checked ? 115.0 : 0.0;
  ExpectItem(outcome.Item(RALU_SHEAR_Y), checked ? 20.0 : 0.0, capacity);
  ExpectItem(outcome.Item(RALU_SHEAR_Z), checked ? 6.0 : 0.0, capacity);
}

TEST(Shear, BeamIsCheckedInEveryBending) {
  for (const double N : {-1e4, 0.0, 1e4}) ExpectShearChecked(Beam(), N, 1e6, true);
}

TEST(Shear, BeamWithoutBendingIsNotChecked) {
  for (const double N : {-1e4, 0.0, 1e4}) ExpectShearChecked(Beam(), N, 0.0, false);
}

TEST(Shear, OtherMembersAreCheckedInPureBendingOnly) {
  for (const int type : {int{ALU_MEMBER_COLUMN}, int{ALU_MEMBER_BRACE}, int{ALU_MEMBER_TRUSS}, 0}) {
    ALU_DGN_DATA data = Beam();
    data.nMembType = type;
    ExpectShearChecked(data, 0.0, 1e6, true);
    ExpectShearChecked(data, -1e4, 1e6, false);
    ExpectShearChecked(data, 1e4, 1e6, false);
    ExpectShearChecked(data, 1e4, 0.0, false);
  }
}

TEST(Shear, WeakAxisMomentCountsAsBending) {
  AluDgnSectForce force = Shear(1e5, 0, 0.0, 0.0);
  force.dForce[ALU_FORCE_MZ] = -1e6;
  EXPECT_DOUBLE_EQ(Check(Beam(), force).Item(RALU_SHEAR_Y).dDemand, 20.0);
}

}  // namespace
