#pragma once

// Random inputs of the engine: sections of any shape, any grade and option, forces that are zero or
// far from zero.

#include <rapidcheck.h>

#include <algorithm>
#include <cmath>

#include "tests/property/engine_sections.h"
#include "tz_alu/engine/alucode_gb50429_07.h"

namespace engine_generators {

inline constexpr const wchar_t* kStandards[] = {L"GB50429-07(A)", L"another standard"};
inline constexpr const wchar_t* kGrades[] = {L"6061-T4", L"6061-T6", L"6063A-T5", L"5083-H112"};

template <std::size_t N>
const wchar_t* OneOf(const wchar_t* const (&texts)[N]) {
  return texts[*rc::gen::inRange(std::size_t{0}, N)];
}

inline ALU_MATL_DATA AnyMaterial() {
  ALU_MATL_DATA matl;
  matl.strStandard = OneOf(kStandards);
  matl.strGrade = OneOf(kGrades);
  matl.nElast = 70000;
  matl.dPoisson = 0.3;
  matl.dF02Thin = Between(320, 1000);
  matl.dF02Thick = Between(320, 1000);
  return matl;
}

inline void SetAnyStabilityParameters(ALU_PARA_DATA& para) {
  para.bMidSupport = *rc::gen::element(0, 1);
  para.bUserPhi = *rc::gen::element(0, 0, 0, 1);
  para.dUserPhi[0] = Between(1, 5);
  para.bUserBetaM = *rc::gen::element(0, 1);
  for (int axis = 0; axis < 2; ++axis) {
    para.nBetaMOpt[axis] = *rc::gen::element(0, 1, 1);
    para.dBetaM[axis] = Between(1, 8);
    para.nBetaMOpt2[axis] = *rc::gen::inRange(0, 5);
    para.bSway[axis] = *rc::gen::element(0, 1);
  }
}

inline ALU_PARA_DATA AnyParameters() {
  ALU_PARA_DATA para;
  para.dGamma0 = *rc::gen::element(0.9, 1.0, 1.1);
  para.bSeismicGammaRE = *rc::gen::element(0, 1);
  para.bRib = *rc::gen::element(0, 1);
  para.dRibRatio = Between(4, 12);
  para.dHazWidth = Between(0, 160);
  para.dKy = Between(2, 12);
  para.dKz = Between(2, 12);
  SetAnyStabilityParameters(para);
  return para;
}

inline ALU_DGN_DATA AnyData(std::int32_t nShape) {
  ALU_DGN_DATA data;
  data.code.sect = AnySection(nShape);
  data.code.matl = AnyMaterial();
  data.code.para = AnyParameters();
  data.dMembLength = Between(2000, 40000);
  data.nMembType = *rc::gen::element(1, 2, 3, 5);
  for (auto& end : data.nEndCond) {
    for (auto& condition : end) condition = *rc::gen::inRange(0, 3);
  }
  return data;
}

/// 0, or a force whose magnitude stays far above the tolerance when it is scaled.
inline double AnyForce(double unit) {
  const int sign = *rc::gen::element(-1, 0, 1);
  return sign * unit * Between(4, 4000);
}

inline AluDgnSectForce AnyForces() {
  AluDgnSectForce force;
  constexpr double kUnit[] = {100.0, 10.0, 10.0, 1e3, 1e4, 1e4};
  for (int i = 0; i < 6; ++i) force.dForce[i] = AnyForce(kUnit[i]);
  force.nSesiType = *rc::gen::element(0, 1);
  force.bEndSect = *rc::gen::element(0, 1);
  for (double* moment : {&force.end.dMyI, &force.end.dMyJ, &force.end.dMzI, &force.end.dMzJ}) {
    *moment = AnyForce(1e4);
  }
  return force;
}

/// Runs a property for each shape, so that none is left to chance.
template <class PROPERTY>
void ForEveryShape(PROPERTY property) {
  for (std::int32_t shape = ALU_SHAPE_C; shape <= ALU_SHAPE_SR; ++shape) property(shape);
}

/// One engine call with everything that it leaves.
struct OUTCOME {
  int ret = -1;
  T_RALU_SECT result;
  ALU_CAL_BUFF buffer;
};

inline OUTCOME Check(const ALU_DGN_DATA& data, const AluDgnSectForce& force) {
  OUTCOME outcome;
  CALUCode_GB50429_07 engine;
  outcome.ret = engine.CheckCode(data, force, outcome.result, outcome.buffer);
  return outcome;
}

}  // namespace engine_generators
