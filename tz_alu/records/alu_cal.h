#pragma once

#include <memory>

#include "tz_alu/tz_alu_api.h"

// What the engine calculates on the way to its results.

/// Section parameters of one check.
struct TZ_ALU_API ALU_CAL_SECTPARA {
  double dA;   ///< area used by the checks: gross, heat-affected or effective
  double dW1;  ///< strong-axis modulus of the top fibre
  double dW2;  ///< strong-axis modulus of the bottom fibre
  double dWz;  ///< weak-axis modulus
  double dR1;  ///< plate slenderness over its limit: top flange
  double dR2;  ///< the same of the bottom flange
  double dRw;  ///< the same of the web

  ALU_CAL_SECTPARA() { Initialize(); }
  void Initialize() { dA = dW1 = dW2 = dWz = dR1 = dR2 = dRw = 0.0; }
};

/// Places of `ALU_CAL_REPORT::dValue`.
enum ALU_REPORT_SLOT : int {
  ALU_REPORT_SLENDERNESS_LIMIT = 0,
  ALU_REPORT_AEN = 1,
  ALU_REPORT_F = 2,
  ALU_REPORT_FV = 3,
  ALU_REPORT_GAMMA_Y = 4,
  ALU_REPORT_GAMMA_Z = 5,
  ALU_REPORT_PHI = 6,
  ALU_REPORT_PHI_Y = 7,
  ALU_REPORT_PHI_Z = 8,
  ALU_REPORT_PHI_B_BENDING = 9,  ///< φb of bending alone
  ALU_REPORT_PHI_B = 10,         ///< φb of compression with bending, printed as φby too
  ALU_REPORT_PHI_BZ = 11,
  ALU_REPORT_BETA_MY = 12,
  ALU_REPORT_BETA_MZ = 13,
  ALU_REPORT_ETA = 14,
  ALU_REPORT_ETA1 = 15,
  ALU_REPORT_ETA2 = 16,
  ALU_REPORT_N_EY = 17,
  ALU_REPORT_N_EZ = 18,
  ALU_REPORT_RMAX211 = 19,  ///< as a stress
  ALU_REPORT_RMAX212 = 20,  ///< as a stress
  ALU_REPORT_QZB = 21,
  ALU_REPORT_QYB = 22,
};

/// Intermediate values that the checks leave for the report.
struct TZ_ALU_API ALU_CAL_REPORT {
  double dValue[23];  ///< by ALU_REPORT_SLOT

  ALU_CAL_REPORT() { Initial(); }
  void Initial();
};

/// Calculation buffer of one engine call. It owns its report record.
struct TZ_ALU_API ALU_CAL_BUFF {
  ALU_CAL_SECTPARA sectpara;
  std::unique_ptr<ALU_CAL_REPORT> report;

  ALU_CAL_BUFF() : report(std::make_unique<ALU_CAL_REPORT>()) {}
  void Initial();
};
