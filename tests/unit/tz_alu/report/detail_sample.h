#pragma once

#include <algorithm>
#include <iterator>
#include <string>

#include "tests/unit/tz_alu/report/report_fixture.h"

namespace report_test {

/// A title between rules.
inline std::string Banner(const std::string& title) {
  return Lines({Rule(), "  [[[*]]]   " + title, Rule()});
}

/// A check whose every value is another number, so that a value in the wrong place shows. Slot k of
/// the report record holds k + k/1000 where it is printed as it stands. With 2 length units in a mm
/// and 10 force units in a N:
///
///     Aen 1001·4 = 4004      f 202·2.5 = 505       fv 303·2.5 = 757.5    Ae 2001·4 = 8004
///     W1 3001·8 = 24008      W2 3002·8 = 24016     Wz 3003·8 = 24024
///     Iyy 4001·16 = 64016    Izz 4002·16 = 64032
///     N ±11·10 = ±110        Fy 12·10 = 120        Fz 13·10 = 130
///     My 15·20 = 300         Mz 16·20 = 320        N'Ey 17017, N'Ez 18018, unscaled
///     ratios: strength 0.601, shear y 0.602, z 0.603, stability 0.604, combined 0.605,
///     Rmax211 0.719, Rmax212 0.820; λy 80.081, λz 120.121, [λ] 150.15
class DetailBlockTest : public ReportTest {
 protected:
  using BLOCK = void (CALU_GB50429_07Print::*)(const ALU_REPORT_INPUT&) const;

  DetailBlockTest() {
    FillData();
    FillReport();
    FillResults();
    force_.nLComb = 42;
    force_.nPos = 2;
  }

  /// Forces of the check; shear and torsion act always.
  void SetForces(double N, double My, double Mz) {
    const double forces[] = {N, 12.0, 13.0, 14.0, My, Mz};
    std::copy(std::begin(forces), std::end(forces), std::begin(force_.dForce));
  }
  void SetSeismic() { data_.code.para.bSeismicGammaRE = 1; }
  void SetItem(RALU_ITEM_TYPE type, double demand, double capacity) {
    result_.aItem[static_cast<std::size_t>(type)] = {demand, capacity, 99999.0};
  }
  void SetSlot(ALU_REPORT_SLOT slot, double value) { buffer_.report->dValue[slot] = value; }

  /// The block as it stands in the file.
  std::string Print(BLOCK block) {
    print_.ResetReport();
    (print_.*block)({data_, force_, buffer_, result_});
    return Text();
  }

  ALU_DGN_DATA data_;
  AluDgnSectForce force_;
  ALU_CAL_BUFF buffer_;
  T_RALU_SECT result_;

 private:
  void FillData() {
    ALU_SECT_DATA& sect = data_.code.sect;
    sect.nShape = 1;  // an H with equal flanges
    const double size[] = {300.0, 8.0, 150.0, 12.0, 150.0, 12.0, 1.0, 2.0};
    std::copy(std::begin(size), std::end(size), std::begin(sect.dSize));
    sect.dArea = 5001.0;
    sect.dIyy = 4001.0;
    sect.dIzz = 4002.0;
    data_.nMembType = 1;  // column
    data_.code.para.dGamma0 = 1.1;
    data_.code.para.dGammaREStrength = 0.751;
    data_.code.para.dGammaREStability = 0.802;
    ALU_CAL_SECTPARA& used = buffer_.sectpara;
    used.dA = 2001.0;
    used.dW1 = 3001.0;
    used.dW2 = 3002.0;
    used.dWz = 3003.0;
  }
  void FillReport() {
    double(&slots)[23] = buffer_.report->dValue;
    for (int k = 0; k < 23; ++k) slots[k] = k + k / 1000.0;
    slots[0] = 150.15;
    slots[1] = 1001.0;
    slots[2] = 202.0;
    slots[3] = 303.0;
    slots[17] = 17017.0;
    slots[18] = 18018.0;
    slots[19] = 2876.0;  // 0.719 of the capacity 4000
    slots[20] = 3280.0;  // 0.820
  }
  void FillResults() {
    SetItem(RALU_STRENGTH, 601.0, 1000.0);
    SetItem(RALU_SHEAR_Y, 1204.0, 2000.0);
    SetItem(RALU_SHEAR_Z, 1809.0, 3000.0);
    SetItem(RALU_STABILITY, 2416.0, 4000.0);
    SetItem(RALU_COMBINED_STABILITY, 3025.0, 5000.0);
    SetItem(RALU_UNUSED, 3636.0, 6000.0);
    SetItem(RALU_SLENDERNESS_Y, 80.081, 161.0);
    SetItem(RALU_SLENDERNESS_Z, 120.121, 162.0);
  }
};

}  // namespace report_test
