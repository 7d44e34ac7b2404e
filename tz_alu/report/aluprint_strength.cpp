// The strength block.

#include "tz_alu/report/detail_block.h"
#include "tz_alu/report/report_literals.h"

using namespace alu_report;

namespace {

void AxialLines(DETAIL_BLOCK& block) {
  block.Line(L"Aen = ", block.Area(block.Noted(ALU_REPORT_AEN)));
  block.Line(L"f = ", block.Stress(block.Noted(ALU_REPORT_F)));
  block.LoadLine();
  block.Line(L"N=", block.Force(ALU_FORCE_N), block.SeismicText());
  block.Verdict(L"Rmax1=N/(f*Aen)=", block.Ratio(RALU_STRENGTH));
}

void StrengthAndPlasticityLines(DETAIL_BLOCK& block) {
  block.Line(L"f = ", block.Stress(block.Noted(ALU_REPORT_F)));
  block.Line(L"Gammay=", block.Text(ALU_REPORT_GAMMA_Y), L",  Gammaz=",
             block.Text(ALU_REPORT_GAMMA_Z));
  block.LoadLine();
}

void BendingLines(DETAIL_BLOCK& block) {
  block.Line(L"Weny=", block.Modulus(block.Section().dW1), L",  Wenz=",
             block.Modulus(block.Section().dWz));
  StrengthAndPlasticityLines(block);
  // kept: the seismic variant has a stray "<".
  block.Line(block.IsSeismic() ? L"<My=" : L"My=", block.Moment(ALU_FORCE_MY), L", Mz=",
             block.Moment(ALU_FORCE_MZ), block.SeismicText());
  block.Verdict(L"Rmax1=My/(Gammay*f*Weny)+Mz/(Gammaz*f*Wenz)=", block.Ratio(RALU_STRENGTH));
}

void CombinedLines(DETAIL_BLOCK& block) {
  block.Line(L"Aen = ", block.Area(block.Noted(ALU_REPORT_AEN)), L",  Weny=",
             block.Modulus(block.Section().dW1), L",  Wenz=", block.Modulus(block.Section().dWz));
  StrengthAndPlasticityLines(block);
  block.Line(L"N=", block.Force(ALU_FORCE_N), L",  My=", block.Moment(ALU_FORCE_MY), L",  Mz=",
             block.Moment(ALU_FORCE_MZ), block.SeismicText());
  block.Verdict(L"Rmax1=N/(f*Aen)+My/(Gammay*f*Weny)+Mz/(Gammaz*f*Wenz)=",
                block.Ratio(RALU_STRENGTH));
}

}  // namespace

void CALU_GB50429_07Print::PrintStrength(const ALU_REPORT_INPUT& in) const {
  DETAIL_BLOCK block(*this, in, in.data.code.para.dGammaREStrength);
  block.Banner(kStrengthTitle);
  if (IsPureCompression(in.force) || IsPureTension(in.force)) {
    AxialLines(block);
  } else if (IsPureBending(in.force)) {
    BendingLines(block);
  } else if (IsCompressionBending(in.force) || IsTensionBending(in.force)) {
    CombinedLines(block);
  }
}
