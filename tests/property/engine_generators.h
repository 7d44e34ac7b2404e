#pragma once

// Random inputs of the engine: positive dimensions of any shape, any grade, forces that are zero or
// far from zero.

#include <rapidcheck.h>

#include <algorithm>
#include <cmath>

#include "tz_alu/engine/alucode_gb50429_07.h"

namespace engine_generators {

inline double Between(int low, int high) {
  return *rc::gen::inRange(low, high) / 4.0;
}

inline constexpr const wchar_t* kStandards[] = {L"GB50429-07(A)", L"another standard"};
inline constexpr const wchar_t* kGrades[] = {L"6061-T4", L"6061-T6", L"6063A-T5", L"5083-H112"};

template <std::size_t N>
const wchar_t* OneOf(const wchar_t* const (&texts)[N]) {
  return texts[*rc::gen::inRange(std::size_t{0}, N)];
}

inline ALU_SECT_DATA AnySection(std::int32_t nShape) {
  ALU_SECT_DATA sect;
  sect.nShape = nShape;
  sect.dSize[0] = Between(400, 2000);                  // H or diameter
  sect.dSize[1] = Between(4, 60);                      // tw
  sect.dSize[2] = sect.dSize[4] = Between(200, 1200);  // flange widths
  sect.dSize[3] = sect.dSize[5] = Between(4, 80);      // flange thicknesses
  if (*rc::gen::arbitrary<bool>()) sect.dSize[4] = Between(200, 1200);
  sect.dArea = Between(2000, 80000);
  sect.dIyy = 1e3 * Between(400, 400000);
  sect.dIzz = 1e3 * Between(400, 400000);
  sect.dIxx = Between(400, 4000000);
  sect.dIw = 1e3 * Between(400, 4000000);
  sect.dQyb = Between(40, 40000);
  sect.dQzb = Between(40, 40000);
  sect.dShearCtr = Between(-400, 400);
  for (int i = 0; i < 4; ++i) {
    sect.dPtY[i] = Between(40, 600);
    sect.dPtZ[i] = i < 2 ? Between(100, 1000) : -Between(100, 1000);
  }
  sect.bWelded = *rc::gen::element(0, 1);
  return sect;
}

inline ALU_DGN_DATA AnyData(std::int32_t nShape) {
  ALU_DGN_DATA data;
  data.code.sect = AnySection(nShape);
  data.code.matl.strStandard = OneOf(kStandards);
  data.code.matl.strGrade = OneOf(kGrades);
  data.code.matl.dF02Thin = data.code.matl.dF02Thick = Between(320, 1000);
  data.code.para.dGamma0 = *rc::gen::element(0.9, 1.0, 1.1);
  data.code.para.bSeismicGammaRE = *rc::gen::element(0, 1);
  data.code.para.dKy = Between(2, 12);
  data.code.para.dKz = Between(2, 12);
  data.dMembLength = Between(2000, 40000);
  data.nMembType = *rc::gen::element(1, 2, 3, 5);
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
