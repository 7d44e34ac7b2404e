#pragma once

// Inputs that the engine's tests share. Sections have round properties rather than consistent
// ones, so that expected stresses follow by mental arithmetic.

#include <array>

#include "tz_alu/engine/alucode_gb50429_07.h"
#include "tz_alu/engine/check_input.h"

namespace engine_inputs {

/// An unwelded H of 6061-T6 (f = 200, fv = 115): A = 2000 with ηA = 0.5 gives Aen = 1000;
/// W1 = W2 = 2e7/100 = 200,000; Wz = 2e6/50 = 40,000. No plate is slender in any alloy or shape:
/// flange 90/30 = 3 against a limit of at least 4, web 60/10 = 6 against at least 15 (less in
/// tension with bending).
inline ALU_DGN_DATA SymmetricH() {
  ALU_DGN_DATA data;
  ALU_SECT_DATA& sect = data.code.sect;
  sect.nShape = ALU_SHAPE_H;
  constexpr std::array kSize{120.0, 10.0, 100.0, 30.0, 100.0, 30.0};
  for (std::size_t i = 0; i < kSize.size(); ++i) sect.dSize[i] = kSize[i];
  sect.dArea = 2000.0;
  sect.dIyy = 2.0e7;
  sect.dIzz = 2.0e6;
  constexpr double kY[] = {-50.0, 50.0, 50.0, -50.0};
  constexpr double kZ[] = {100.0, 100.0, -100.0, -100.0};
  for (int i = 0; i < 4; ++i) {
    sect.dPtY[i] = kY[i];
    sect.dPtZ[i] = kZ[i];
  }
  sect.bWelded = 0;
  data.code.matl.strStandard = L"GB50429-07(A)";
  data.code.matl.strGrade = L"6061-T6";
  data.code.matl.nElast = 70000;
  data.code.matl.dPoisson = 0.3;
  data.code.matl.dF02Thin = data.code.matl.dF02Thick = 240.0;
  data.code.para.dCoef085 = 0.5;
  data.code.para.dKy = data.code.para.dKz = 1.0;
  data.dMembLength = 4000.0;
  data.nMembType = ALU_MEMBER_COLUMN;
  return data;
}

/// The same area and material as an unwelded tee: W1 = 7.875e6/25 = 315,000,
/// W2 = 7.875e6/75 = 105,000, Wz = 40,000.
inline ALU_DGN_DATA Tee() {
  ALU_DGN_DATA data = SymmetricH();
  ALU_SECT_DATA& sect = data.code.sect;
  sect.nShape = ALU_SHAPE_T;
  sect.dSize[4] = sect.dSize[5] = 0.0;
  sect.dIyy = 7.875e6;
  sect.dPtZ[0] = sect.dPtZ[1] = 25.0;
  sect.dPtZ[2] = sect.dPtZ[3] = -75.0;
  return data;
}

inline AluDgnSectForce Forces(double N, double My, double Mz) {
  AluDgnSectForce force;
  force.dForce[ALU_FORCE_N] = N;
  force.dForce[ALU_FORCE_MY] = My;
  force.dForce[ALU_FORCE_MZ] = Mz;
  return force;
}

/// One check position: what the formulas read, open to changes.
///
///     POINT point{SymmetricH(), Forces(-1e5, 0, 0)};
///     point.Section().bWelded = 1;
///     ... WeldFactor(point.Input()) ...
struct POINT {
  ALU_DGN_DATA data;
  AluDgnSectForce force;
  alu_engine::MATERIAL_CLASS material{};

  ALU_SECT_DATA& Section() { return data.code.sect; }
  ALU_MATL_DATA& Material() { return data.code.matl; }
  ALU_PARA_DATA& Parameters() { return data.code.para; }
  void SetSize(const std::array<double, 8>& size) {
    for (std::size_t i = 0; i < size.size(); ++i) data.code.sect.dSize[i] = size[i];
  }
  alu_engine::CHECK_INPUT Input() {
    material = alu_engine::ClassifyMaterial(data.code.matl);
    return {data, force, material};
  }
};

/// One engine call with everything that it leaves.
struct OUTCOME {
  int ret = -1;
  T_RALU_SECT result;
  ALU_CAL_BUFF buffer;

  const T_RALU_RLT& Item(RALU_ITEM_TYPE type) const { return result.aItem[type]; }
  double Report(ALU_REPORT_SLOT slot) const { return buffer.report->dValue[slot]; }
};

inline OUTCOME Check(const ALU_DGN_DATA& data, const AluDgnSectForce& force) {
  OUTCOME outcome;
  CALUCode_GB50429_07 engine;
  outcome.ret = engine.CheckCode(data, force, outcome.result, outcome.buffer);
  return outcome;
}

}  // namespace engine_inputs
