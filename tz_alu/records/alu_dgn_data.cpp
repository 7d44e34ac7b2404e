#include "tz_alu/records/alu_dgn_data.h"

#include <algorithm>
#include <iterator>

namespace {

template <class T, std::size_t N>
void Fill(T (&values)[N], T value) {
  std::fill(std::begin(values), std::end(values), value);
}

}  // namespace

void ALU_SECT_DATA::Initialize() {
  nShape = ALU_SHAPE_C;
  Fill(dSize, 0.0);
  dArea = dIw = dIxx = dIyy = dIzz = dQyb = dQzb = 0.0;
  dShearCtr = 0.0;
  Fill(dPtY, 0.0);
  Fill(dPtZ, 0.0);
  bWelded = 1;
}

void ALU_MATL_DATA::Initialize() {
  strStandard.Empty();
  strGrade.Empty();
  nElast = 0;
  dPoisson = dFu = dF02Thin = dF02Thick = 0.0;
}

void ALU_PARA_DATA::Initialize() {
  dGamma0 = 1.0;
  bSeismicGammaRE = 0;
  dGammaREStrength = 0.75;
  dGammaREStability = 0.8;
  dCoef085 = 0.85;
  bRib = 0;
  dRibRatio = 1.2;
  dHazWidth = 30.0;
  dWeldCoef = 0.5;
  bUserPhi = 0;
  Fill(dUserPhi, 1.0);
  dLimitTension = dLimitCompr = 0.0;
  bUserLimit = 0;
  dKy = dKz = 0.0;
  bMidSupport = 0;
  bUserBetaM = 0;
  Fill(nBetaMOpt, 1);
  Fill(dBetaM, 1.0);
  Fill(nBetaMOpt2, 0);
  Fill(bSway, 0);
}

void ALU_DGN_DATA_CODE::Initialize() {
  sect.Initialize();
  matl.Initialize();
  para.Initialize();
}

void ALU_DGN_DATA::Initial() {
  SetCheckFlagAll(1);
  bWriteResult = 1;
  bReport = 0;
  nElem = 0;
  code.Initialize();
  dMembLength = 0.0;
  nMembType = 0;
  for (auto& end : nEndCond) Fill(end, 0);
}

void ALU_DGN_DATA::SetCheckFlagAll(std::int32_t flag) {
  Fill(nCheckFlag, flag);
}
