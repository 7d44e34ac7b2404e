#include "tz_alu/engine/alucode_gb50429_07.h"

#include "tz_alu/engine/design_factors.h"
#include "tz_alu/engine/design_strength.h"
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
  const ALU_DGN_DATA& data;
  const AluDgnSectForce& force;
  const MATERIAL_CLASS& material;
  ALU_CAL_BUFF& buffer;
  T_RALU_SECT& result;

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

void CheckSlenderness(const CHECK_CALL& call) {
  if (!IsSlendernessChecked(call.data.code.para)) return;
  const SLENDERNESS lambda = MemberSlenderness(call.data);
  const double limit = SlendernessLimit(call.data, call.force);
  call.Report(ALU_REPORT_SLENDERNESS_LIMIT) = limit;
  if (call.IsOn(RALU_SLENDERNESS_Y)) call.Store(RALU_SLENDERNESS_Y, lambda.dLambdaY, limit);
  if (call.IsOn(RALU_SLENDERNESS_Z)) call.Store(RALU_SLENDERNESS_Z, lambda.dLambdaZ, limit);
}

// Member stability is not checked yet: its items stay as reset.
void RunGroups(const CHECK_CALL& call) {
  if (call.IsOn(RALU_STRENGTH)) CheckStrength(call);
  if (call.IsOn(RALU_SHEAR_Y)) CheckShearY(call);
  if (call.IsOn(RALU_SHEAR_Z)) CheckShearZ(call);
  if (call.IsOn(RALU_SLENDERNESS_Y) || call.IsOn(RALU_SLENDERNESS_Z)) CheckSlenderness(call);
}

}  // namespace

CALUCode_GB50429_07::~CALUCode_GB50429_07() = default;

int CALUCode_GB50429_07::CheckCode(const ALU_DGN_DATA& data, const AluDgnSectForce& force,
                                   T_RALU_SECT& result) {
  ALU_CAL_BUFF buffer;
  return CheckCode(data, force, result, buffer);
}

int CALUCode_GB50429_07::CheckCode(const ALU_DGN_DATA& data, const AluDgnSectForce& force,
                                   T_RALU_SECT& result, ALU_CAL_BUFF& buffer) {
  result.Initial();
  buffer.Initial();
  const MATERIAL_CLASS material = ClassifyMaterial(data.code.matl);
  buffer.sectpara = SectionParameters(data.code, material);
  if (!AreUsable(buffer.sectpara)) return 0;
  RunGroups({data, force, material, buffer, result});
  return 1;
}
