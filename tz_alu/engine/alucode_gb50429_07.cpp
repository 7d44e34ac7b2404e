#include "tz_alu/engine/alucode_gb50429_07.h"

#include "tz_alu/engine/design_factors.h"
#include "tz_alu/engine/design_strength.h"
#include "tz_alu/engine/member_stability.h"
#include "tz_alu/engine/section_geometry.h"
#include "tz_alu/engine/section_parameters.h"
#include "tz_alu/engine/shear.h"
#include "tz_alu/engine/slenderness.h"
#include "tz_alu/engine/strength.h"

namespace {

using namespace alu_engine;
using STATE = CALU_GB50429_07Print;

// One call of the engine: what its check groups read and write.
struct CHECK_CALL {
  const CALU_GB50429_07Print& print;
  const ALU_DGN_DATA& data;
  const AluDgnSectForce& force;
  const MATERIAL_CLASS& material;
  SLENDERNESS lambda;
  ALU_CAL_BUFF& buffer;
  T_RALU_SECT& result;

  CHECK_INPUT Input() const { return {data, force, material}; }
  double& Report(ALU_REPORT_SLOT slot) const { return buffer.report->dValue[slot]; }
  bool IsOn(RALU_ITEM_TYPE item) const { return data.nCheckFlag[item] != 0; }
  void Store(RALU_ITEM_TYPE item, double demand, double capacity) const {
    result.aItem[item].dDemand = demand;
    result.aItem[item].dCapacity = capacity;
  }
};

double StrengthFactor(const CHECK_CALL& call) {
  return ForceFactor(call.data.code.para, call.force, FORCE_FACTOR::Strength);
}

double NoteAdjustedArea(const CHECK_CALL& call) {
  const double Aen = AdjustedArea(call.buffer.sectpara, call.data.code.para);
  call.Report(ALU_REPORT_AEN) = Aen;
  return Aen;
}

double BendingDemand(const CHECK_CALL& call, const STRENGTH_INPUT& in) {
  const BENDING_STRESS stress = BendingStress(in);
  call.Report(ALU_REPORT_GAMMA_Y) = stress.dGammaY;
  call.Report(ALU_REPORT_GAMMA_Z) = in.gamma.dGammaZ;
  return stress.dDemand;
}

double CombinedDemand(const CHECK_CALL& call, const STRENGTH_INPUT& in) {
  call.Report(ALU_REPORT_GAMMA_Y) = in.gamma.dGammaY1;
  call.Report(ALU_REPORT_GAMMA_Z) = in.gamma.dGammaZ;
  return CombinedStress(in, NoteAdjustedArea(call));
}

double StrengthDemand(const CHECK_CALL& call) {
  const ALU_SECT_DATA& sect = call.data.code.sect;
  const STRENGTH_INPUT in{call.force, call.buffer.sectpara,
                          PlasticityFactors(sect.nShape, call.material.IsWeakHardening()),
                          StrengthFactor(call), IsUnsymmetric(sect)};
  if (!STATE::IsBending(call.force)) return AxialStress(in, NoteAdjustedArea(call));
  if (STATE::IsPureBending(call.force)) return BendingDemand(call, in);
  return CombinedDemand(call, in);
}

void CheckStrength(const CHECK_CALL& call) {
  const bool axial = STATE::IsTension(call.force) || STATE::IsCompression(call.force);
  if (!axial && !STATE::IsBending(call.force)) return;
  const double f = DesignStrength(call.data.code, call.material).dF;
  call.Report(ALU_REPORT_F) = f;
  call.Store(RALU_STRENGTH, StrengthDemand(call), f);
}

// kept: shear is checked in pure bending only, of a beam in bending with any axial force.
bool IsShearState(const CHECK_CALL& call) {
  return STATE::IsPureBending(call.force) ||
         (STATE::IsBending(call.force) && call.data.nMembType == ALU_MEMBER_BEAM);
}

void CheckShearY(const CHECK_CALL& call) {
  if (!IsShearState(call)) return;
  const ALU_SECT_DATA& sect = call.data.code.sect;
  const double fv = DesignStrength(call.data.code, call.material).dFv;
  call.Report(ALU_REPORT_FV) = fv;
  call.Report(ALU_REPORT_QZB) = sect.dQzb;
  call.Store(RALU_SHEAR_Y, ShearStressY(sect, call.force, StrengthFactor(call)), fv);
}

void CheckShearZ(const CHECK_CALL& call) {
  if (!IsShearState(call)) return;
  const ALU_SECT_DATA& sect = call.data.code.sect;
  const double fv = DesignStrength(call.data.code, call.material).dFv;
  call.Report(ALU_REPORT_FV) = fv;
  call.Report(ALU_REPORT_QYB) = sect.dQyb;
  call.Store(RALU_SHEAR_Z, ShearStressZ(sect, call.force, StrengthFactor(call)), fv);
}

double StabilityFactor(const CHECK_CALL& call) {
  return ForceFactor(call.data.code.para, call.force, FORCE_FACTOR::Stability);
}

void CheckAxialStability(const CHECK_CALL& call) {
  const CHECK_INPUT in = call.Input();
  const AXIAL_COEFFICIENTS phi = AxialCoefficients(in, call.buffer.sectpara, call.lambda);
  call.Report(ALU_REPORT_PHI) = phi.Governing();
  call.Report(ALU_REPORT_PHI_Y) = phi.dPhiY;
  call.Report(ALU_REPORT_PHI_Z) = phi.dPhiZ;
  call.Store(RALU_STABILITY, AxialStabilityStress(in, phi.Governing(), StabilityFactor(call)),
             DesignStrength(call.data.code, call.material).dF);
}

void CheckBendingStability(const CHECK_CALL& call) {
  const CHECK_INPUT in = call.Input();
  const ALU_CAL_SECTPARA& section = call.buffer.sectpara;
  const double f = DesignStrength(call.data.code, call.material).dF;
  const double phi_b = BendingCoefficients(in, section.dW1, f).dPhiB;
  call.Report(ALU_REPORT_PHI_B_BENDING) = phi_b;
  call.Store(RALU_STABILITY, BendingStabilityStress(in, section, phi_b, StabilityFactor(call)), f);
}

// What both checks of compression with bending leave for the report.
void NoteCoefficients(const CHECK_CALL& call, const BEAM_COLUMN& column) {
  call.Report(ALU_REPORT_GAMMA_Z) = column.gamma.dGammaZ;
  call.Report(ALU_REPORT_PHI_Y) = column.phi.dPhiY;
  call.Report(ALU_REPORT_PHI_Z) = column.phi.dPhiZ;
  call.Report(ALU_REPORT_PHI_B) = column.phi_b.dPhiB;
  call.Report(ALU_REPORT_PHI_BZ) = column.phi_b.dPhiBz;
  call.Report(ALU_REPORT_BETA_MY) = column.beta.dBetaY;
  call.Report(ALU_REPORT_BETA_MZ) = column.beta.dBetaZ;
  call.Report(ALU_REPORT_ETA) = column.eta.dEta;
  call.Report(ALU_REPORT_ETA1) = column.eta.dEta1;
  call.Report(ALU_REPORT_N_EZ) = column.dNEz;
}

void CheckInPlane(const CHECK_CALL& call, const BEAM_COLUMN& column, double f) {
  const IN_PLANE_STRESS stress = InPlaneStress(column);
  NoteCoefficients(call, column);
  call.Report(ALU_REPORT_ETA2) = column.eta.dEta2;
  call.Report(ALU_REPORT_N_EY) = column.dNEy;
  if (stress.bParts) {
    call.Report(ALU_REPORT_RMAX211) = stress.dTop;
    call.Report(ALU_REPORT_RMAX212) = stress.dBottom;
  }
  call.Store(RALU_STABILITY, stress.dDemand, f);
}

void CheckOutOfPlane(const CHECK_CALL& call, const BEAM_COLUMN& column, double f) {
  NoteCoefficients(call, column);
  call.Store(RALU_COMBINED_STABILITY, OutOfPlaneStress(column), f);
}

// The coefficients of compression with bending are formed once for both checks.
void CheckBeamColumn(const CHECK_CALL& call) {
  const bool y = call.IsOn(RALU_STABILITY);
  const bool z = call.IsOn(RALU_COMBINED_STABILITY);
  if (!y && !z) return;
  const CHECK_INPUT in = call.Input();
  const double f = DesignStrength(call.data.code, call.material).dF;
  const BEAM_COLUMN column = PrepareBeamColumn(in, call.buffer.sectpara, call.lambda, f);
  if (y) CheckInPlane(call, column, f);
  if (z) CheckOutOfPlane(call, column, f);
}

// kept: a member in tension with bending gets no stability check.
void CheckStability(const CHECK_CALL& call) {
  if (STATE::IsCompressionBending(call.force)) return CheckBeamColumn(call);
  if (!call.IsOn(RALU_STABILITY)) return;
  if (STATE::IsPureCompression(call.force)) CheckAxialStability(call);
  if (STATE::IsPureBending(call.force)) CheckBendingStability(call);
}

void CheckSlenderness(const CHECK_CALL& call) {
  const double limit = SlendernessLimit(call.data, call.force);
  call.Report(ALU_REPORT_SLENDERNESS_LIMIT) = limit;
  if (call.IsOn(RALU_SLENDERNESS_Y)) call.Store(RALU_SLENDERNESS_Y, call.lambda.dLambdaY, limit);
  if (call.IsOn(RALU_SLENDERNESS_Z)) call.Store(RALU_SLENDERNESS_Z, call.lambda.dLambdaZ, limit);
}

bool IsSlendernessOn(const CHECK_CALL& call) {
  return (call.IsOn(RALU_SLENDERNESS_Y) || call.IsOn(RALU_SLENDERNESS_Z)) &&
         IsSlendernessChecked(call.data.code.para);
}

using BLOCK = void (CALU_GB50429_07Print::*)(const ALU_REPORT_INPUT&) const;

// In report mode a group that ran appends its block, also when the force state selected no check.
void PrintBlock(const CHECK_CALL& call, BLOCK block) {
  if (call.data.IsReport() == 0) return;
  (call.print.*block)({call.data, call.force, call.buffer, call.result});
}

void RunGroup(const CHECK_CALL& call, bool on, void (*check)(const CHECK_CALL&), BLOCK block) {
  if (!on) return;
  check(call);
  PrintBlock(call, block);
}

void RunGroups(const CHECK_CALL& call) {
  using PRINT = CALU_GB50429_07Print;
  RunGroup(call, call.IsOn(RALU_STRENGTH), CheckStrength, &PRINT::PrintStrength);
  RunGroup(call, call.IsOn(RALU_SHEAR_Y), CheckShearY, &PRINT::PrintShearY);
  RunGroup(call, call.IsOn(RALU_SHEAR_Z), CheckShearZ, &PRINT::PrintShearZ);
  CheckStability(call);
  if (call.IsOn(RALU_STABILITY)) PrintBlock(call, &PRINT::PrintStability);
  if (call.IsOn(RALU_COMBINED_STABILITY)) PrintBlock(call, &PRINT::PrintCombinedStability);
  RunGroup(call, IsSlendernessOn(call), CheckSlenderness, &PRINT::PrintSlenderness);
}

// `result` and `buffer` are as reset.
int RunChecks(const CALU_GB50429_07Print& print, const ALU_DGN_DATA& data,
              const AluDgnSectForce& force, T_RALU_SECT& result, ALU_CAL_BUFF& buffer) {
  const MATERIAL_CLASS material = ClassifyMaterial(data.code.matl);
  buffer.sectpara = SectionParameters({data, force, material});
  if (!AreUsable(buffer.sectpara)) return 0;
  RunGroups({print, data, force, material, MemberSlenderness(data), buffer, result});
  return 1;
}

}  // namespace

CALUCode_GB50429_07::~CALUCode_GB50429_07() = default;

int CALUCode_GB50429_07::CheckCode(const ALU_DGN_DATA& data, const AluDgnSectForce& force,
                                   T_RALU_SECT& result) {
  result.Initial();
  ALU_CAL_BUFF buffer;
  return RunChecks(*this, data, force, result, buffer);
}

int CALUCode_GB50429_07::CheckCode(const ALU_DGN_DATA& data, const AluDgnSectForce& force,
                                   T_RALU_SECT& result, ALU_CAL_BUFF& buffer) {
  result.Initial();
  buffer.Initial();
  return RunChecks(*this, data, force, result, buffer);
}
