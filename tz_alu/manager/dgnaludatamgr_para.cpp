#include <algorithm>
#include <cmath>
#include <cstdint>

#include "tz_alu/manager/dgnaludatamgr.h"
#include "tz_alu/manager/release_assertion.h"

namespace {

constexpr int kLineNoMemberForPara = 620;
constexpr int kLineUnknownLcomb = 644;
constexpr double kAngleTolerance = 0.01;
constexpr double kNoFactor = 1e-12;
constexpr double kDefaultLimitCompr = 200.0;
constexpr double kDefaultLimitTension = 300.0;
constexpr double kNotChecked = -1.0;

double Gamma0(int nSafetyClass) {
  switch (nSafetyClass) {
    case 0:
      return 1.1;
    case 2:
      return 0.9;
    default:
      return 1.0;
  }
}

void TakeSettings(const T_DALU_D& settings, ALU_PARA_DATA& out) {
  out.dGamma0 = Gamma0(settings.nSafetyClass);
  out.dCoef085 = settings.dStrengthRatio;
  out.bRib = settings.bRib;
  out.dRibRatio = settings.dRibRatio;
  out.bSeismicGammaRE = settings.bSeismic;
  out.dGammaREStrength = settings.dGammaREStrength;
  out.dGammaREStability = settings.dGammaREStability;
}

void TakeAttributes(const CAttrCtrl& attributes, UINT elem, ALU_PARA_DATA& out) {
  if (T_APHI_D phi; attributes.GetAphi(elem, phi) != 0) {
    out.bUserPhi = 1;
    out.dUserPhi[0] = phi.dPhiY;
    out.dUserPhi[1] = phi.dPhiZ;
  }
  if (T_ARIB_D rib; attributes.GetArib(elem, rib) != 0) {
    // kept: the option word 0 switches the ribs on.
    out.bRib = rib.nOption == 0 ? 1 : 0;
    out.dRibRatio = rib.dRatio;
  }
  if (T_AWED_D weld; attributes.GetAwed(elem, weld) != 0) out.dWeldCoef = weld.dCoef;
  if (T_AHTR_D zone; attributes.GetAhtr(elem, zone) != 0) out.dHazWidth = zone.dWidth;
}

void TakeMomentFactors(const T_CMFT_D& factors, ALU_PARA_DATA& out) {
  out.bUserBetaM = 1;
  for (std::size_t axis = 0; axis < 2; ++axis) {
    out.nBetaMOpt[axis] = factors.aAuto[axis];
    out.dBetaM[axis] = factors.aBetaM[axis];
    out.nBetaMOpt2[axis] = factors.aLoadType[axis];
  }
}

// β in [0, 360) degrees, up to its fraction: whole turns are taken off by whole degrees.
double NormalisedBeta(double beta) {
  if (!std::isfinite(beta)) return beta;
  constexpr double kWholeLimit = 9.0e18;
  const auto whole = static_cast<std::int64_t>(std::clamp(beta, -kWholeLimit, kWholeLimit));
  const std::int64_t turns = whole / 360;
  const double a = beta - 360.0 * static_cast<double>(turns);
  return a < 0.0 ? a + 360.0 : a;
}

bool IsNear(double a, double angle) {
  return std::fabs(a - angle) < kAngleTolerance;
}

// kept: an element along the frame's axes takes the negated flags, a turned one the flags as they
// stand, a skewed one sways unless both are set.
void SwayOf(double a, const T_DCTL_D& control, int* swayY, int* swayZ) {
  if (IsNear(a, 0.0) || IsNear(a, 180.0) || IsNear(a, 360.0)) {
    *swayY = control.nSwayA == 0 ? 1 : 0;
    *swayZ = control.nSwayB == 0 ? 1 : 0;
  } else if (IsNear(a, 90.0) || IsNear(a, 270.0)) {
    *swayY = control.nSwayA;
    *swayZ = control.nSwayB;
  } else {
    *swayY = *swayZ = control.nSwayA != 0 && control.nSwayB != 0 ? 0 : 1;
  }
}

}  // namespace

int IAluDgnDataMgr::GetPara(UINT elem, ALU_PARA_DATA& out) {
  const CAttrCtrl& attributes = GetDoc()->GetAttrCtrl();
  out.Initialize();
  T_DALU_D settings;
  attributes.GetDalu(settings);
  TakeSettings(settings, out);
  TakeAttributes(attributes, elem, out);
  T_CMFT_D factors;
  if (GetBetaM(elem, &out.bSway[0], &out.bSway[1], factors) == 1) TakeMomentFactors(factors, out);
  GetKFator(elem, &out.dKy, &out.dKz);
  GetSlender(elem, &out.dLimitCompr, &out.dLimitTension, &out.bUserLimit);
  const ALU_DGN_MEMB* memb = GetMembInfo(elem);
  if (memb == nullptr) {
    AssertDgnAluDataMgr(kLineNoMemberForPara);
    return 0;
  }
  out.bMidSupport = memb->bMidSupport;
  return 1;
}

int IAluDgnDataMgr::GetBetaM(UINT elem, int* swayY, int* swayZ, T_CMFT_D& cmft) const {
  const CAttrCtrl& attributes = GetDoc()->GetAttrCtrl();
  T_ELEM_D element;
  T_NODE_D node;
  if (attributes.GetElem(elem, element) == 0) return 0;
  if (attributes.GetNode(element.aNode[0], node) == 0) return 0;
  if (attributes.GetNode(element.aNode[1], node) == 0) return 0;
  T_DCTL_D control;
  attributes.GetDctl(control);
  SwayOf(NormalisedBeta(element.dBeta), control, swayY, swayZ);
  return attributes.GetCmft(elem, cmft) != 0 ? 1 : 0;
}

int IAluDgnDataMgr::GetKFator(UINT elem, double* ky, double* kz) {
  if (T_KFAC_D own; GetDoc()->GetAttrCtrl().GetKfac(elem, own) != 0) {
    *ky = own.dKy;
    *kz = own.dKz;
    return 1;
  }
  const ALU_DGN_MEMB* memb = GetMembInfo(elem);
  const auto factor = [](double k) { return k < kNoFactor ? 1.0 : k; };
  *ky = memb != nullptr ? factor(memb->dKy) : 1.0;
  *kz = memb != nullptr ? factor(memb->dKz) : 1.0;
  return 1;
}

int IAluDgnDataMgr::GetSlender(UINT elem, double* limitCompr, double* limitTension,
                               int* fromAttribute) const {
  *limitCompr = kDefaultLimitCompr;
  *limitTension = kDefaultLimitTension;
  *fromAttribute = 0;
  T_LTSR_D limits;
  if (GetDoc()->GetAttrCtrl().GetLtsr(elem, limits) == 0) return 1;
  *fromAttribute = 1;
  *limitCompr = limits.bNoCheck != 0 ? kNotChecked : limits.dLimitCompr;
  *limitTension = limits.bNoCheck != 0 ? kNotChecked : limits.dLimitTension;
  return 1;
}

int IAluDgnDataMgr::GetSesiType(const T_LCOM_MAXMIN_K& key) const {
  int type = 0;
  if (m_mapLcomb.Lookup(LcombNumber(key), type)) return type;
  AssertDgnAluDataMgr(kLineUnknownLcomb);
  return GetDoc()->GetAluDgnTool().Get_SesiType(key, GetDoc(), kAluDesignKind);
}
