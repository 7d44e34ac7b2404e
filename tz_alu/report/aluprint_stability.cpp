// The stability blocks.

#include "tz_alu/report/detail_block.h"
#include "tz_alu/report/report_literals.h"

using namespace alu_report;

namespace {

bool HasPositiveMy(const DETAIL_BLOCK& block) {
  return block.In().force.dForce[ALU_FORCE_MY] > alu_engine::kTolerance;
}

void AxialForceAndMomentLine(DETAIL_BLOCK& block) {
  block.Line(L"N=", block.Force(ALU_FORCE_N), L",  My=", block.Moment(ALU_FORCE_MY),
             block.SeismicText());
}

void AllForcesLine(DETAIL_BLOCK& block) {
  block.Line(L"N=", block.Force(ALU_FORCE_N), L",  My=", block.Moment(ALU_FORCE_MY), L",  Mz=",
             block.Moment(ALU_FORCE_MZ), block.SeismicText());
}

void AxialLines(DETAIL_BLOCK& block) {
  block.Banner(kStabilityTitle);
  block.Line(L"Phi=", block.Text(ALU_REPORT_PHI));
  block.LoadLine();
  block.Line(L"N=", block.Force(ALU_FORCE_N), block.SeismicText());
  block.Verdict(L"Rmax2=N/(Phi*f*A)=", block.Ratio(RALU_STABILITY));
}

void BendingLines(DETAIL_BLOCK& block) {
  block.Banner(kStabilityTitle);
  block.Line(L"Phi_b=", block.Text(ALU_REPORT_PHI_B_BENDING));
  block.LoadLine();
  block.Line(L"My=", block.Moment(ALU_FORCE_MY), block.SeismicText());
  block.Verdict(L"Rmax2=My/(Phi_b*f*Wey)=", block.Ratio(RALU_STABILITY));
}

// What both checks of a symmetric section show.
void SymmetricCoefficientLines(DETAIL_BLOCK& block) {
  block.Line(L"Phi_y=", block.Text(ALU_REPORT_PHI_Y), L", Phi_z=", block.Text(ALU_REPORT_PHI_Z));
  block.Line(L"Phi_by=", block.Text(ALU_REPORT_PHI_B), L", Phi_bz=", block.Text(ALU_REPORT_PHI_BZ));
  block.Line(L"Beta_my=", block.Text(ALU_REPORT_BETA_MY), L", Beta_mz=",
             block.Text(ALU_REPORT_BETA_MZ));
  block.Line(L"Eta=", block.Text(ALU_REPORT_ETA), L", Eta1=", block.Text(ALU_REPORT_ETA1));
}

void SymmetricYLines(DETAIL_BLOCK& block) {
  SymmetricCoefficientLines(block);
  block.Line(L"N_Ey'=", block.Text(ALU_REPORT_N_EY));
  block.LoadLine();
  AllForcesLine(block);
  block.Verdict(
      L"Rmax21=N/(Phi_y*f*A)+Beta_my*My/{Gammay*f*Wey*[1-Eta1*(N/N_Ey')]}+Eta*Mz/(Phi_bz*f*Wez)=",
      block.Ratio(RALU_STABILITY));
}

void MonoSymmetricYCoefficients(DETAIL_BLOCK& block) {
  block.Line(L"Phi_y=", block.Text(ALU_REPORT_PHI_Y), L",  Beta_my=",
             block.Text(ALU_REPORT_BETA_MY));
}

// Compression and tension side apart; kept: the brackets of their formulas do not match.
void TwoSidesYLines(DETAIL_BLOCK& block) {
  const double f = block.In().result.aItem[RALU_STABILITY].dCapacity;
  const double r211 = block.Noted(ALU_REPORT_RMAX211) / f;
  const double r212 = block.Noted(ALU_REPORT_RMAX212) / f;
  // kept: no decimals here.
  block.Line(L"Ae=", block.Print().FormatArea(block.Section().dA, 0, 10));
  MonoSymmetricYCoefficients(block);
  block.Line(L"Eta1=", block.Text(ALU_REPORT_ETA1), L",  Eta2=", block.Text(ALU_REPORT_ETA2));
  block.Line(L"N_Ey'=", block.Text(ALU_REPORT_N_EY));
  block.LoadLine();
  AxialForceAndMomentLine(block);
  block.Line(L"Rmax211=N/(Phi_y*f*A)+Beta_my*My/{Gammay*f*W1ey*[1-Eta1*(N/N_Ey')}=", Value(r211));
  block.Line(L"Rmax212=|N/(f*Ae)-Beta_my*My/{Gammay*f*W2ey*[1-Eta2*(N/N_Ey')}=", Value(r212));
  block.Verdict(L"Rmax21=MAX[Rmax211, Rmax212]=", r211 > r212 ? r211 : r212);
}

void OneSideYLines(DETAIL_BLOCK& block) {
  MonoSymmetricYCoefficients(block);
  block.Line(L"Eta1=", block.Text(ALU_REPORT_ETA1));
  block.Line(L"N_Ey'=", block.Text(ALU_REPORT_N_EY));
  block.LoadLine();
  AllForcesLine(block);
  block.Verdict(L"Rmax21=N/(Phi_y*f*A)+Beta_my*My/{Gammay*f*Wey*[1-Eta1*(N/N_Ey')]}=",
                block.Ratio(RALU_STABILITY));
}

void CompressionBendingYLines(DETAIL_BLOCK& block) {
  block.Banner(kStabilityYTitle);
  if (!CALU_GB50429_07Print::IsMonoSymmetric(block.In().data.code.sect)) {
    SymmetricYLines(block);
    return;
  }
  block.Describe(kInPlaneText);
  if (HasPositiveMy(block)) {
    TwoSidesYLines(block);
  } else {
    OneSideYLines(block);
  }
}

void SymmetricZLines(DETAIL_BLOCK& block) {
  SymmetricCoefficientLines(block);
  block.Line(L"N_Ez'=", block.Text(ALU_REPORT_N_EZ));
  block.LoadLine();
  AllForcesLine(block);
  block.Verdict(
      L"Rmax22=N/(Phi_z*f*A)+Eta*My/(Phi_by*f*Wey)+Beta_mz*Mz/{Gammaz*f*Wez*[1-Eta1*(N/N_Ez')]}=",
      block.Ratio(RALU_COMBINED_STABILITY));
}

void MonoSymmetricZLines(DETAIL_BLOCK& block) {
  block.Describe(kOutOfPlaneText);
  block.Line(L"Phi_z=", block.Text(ALU_REPORT_PHI_Z), L",  Phi_b=", block.Text(ALU_REPORT_PHI_B));
  block.Line(L"Eta=", block.Text(ALU_REPORT_ETA));
  block.LoadLine();
  if (HasPositiveMy(block)) {
    AxialForceAndMomentLine(block);
    block.Verdict(L"Rmax22=N/(Phi_z*f*A)+Eta*My/(Phi_b*f*W1ey)=",
                  block.Ratio(RALU_COMBINED_STABILITY));
  } else {
    AllForcesLine(block);
    block.Verdict(L"Rmax22=N/(Phi_z*f*A)+Eta*My/(Phi_b*f*Wey)=",
                  block.Ratio(RALU_COMBINED_STABILITY));
  }
}

}  // namespace

void CALU_GB50429_07Print::PrintStability(const ALU_REPORT_INPUT& in) const {
  DETAIL_BLOCK block(*this, in, in.data.code.para.dGammaREStability);
  if (IsPureCompression(in.force)) AxialLines(block);
  if (IsPureBending(in.force)) BendingLines(block);
  if (IsCompressionBending(in.force)) CompressionBendingYLines(block);
}

void CALU_GB50429_07Print::PrintCombinedStability(const ALU_REPORT_INPUT& in) const {
  DETAIL_BLOCK block(*this, in, in.data.code.para.dGammaREStability);
  block.Banner(kStabilityZTitle);
  if (!IsCompressionBending(in.force)) return;
  if (IsMonoSymmetric(in.data.code.sect)) {
    MonoSymmetricZLines(block);
  } else {
    SymmetricZLines(block);
  }
}
