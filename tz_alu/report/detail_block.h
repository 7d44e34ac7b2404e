#pragma once

#include <string>

#include "tz_alu/report/aluprint.h"
#include "tz_alu/report/report_block.h"

namespace alu_report {

/// Block of one check: its values, forces, formula and verdict.
class DETAIL_BLOCK {
 public:
  /// `gammaRE`: the seismic factor of the kind of check, shown when the settings ask for it.
  DETAIL_BLOCK(const CALUPrint& print, const ALU_REPORT_INPUT& in, double gammaRE)
      : m_print(print),
        m_in(in),
        m_dGammaRE(gammaRE),
        m_block(print.ReportPath(), print.LostBlockCount(), print.ReportText()) {}

  void Banner(const wchar_t* title) { m_block.Banner(m_print.Margin(), title); }
  /// A line of values or forces.
  template <class... TEXTS>
  void Line(const TEXTS&... texts) {
    m_block.Line(m_print.Gap(), texts...);
  }
  /// A line that tells what follows.
  void Describe(const wchar_t* text) { m_block.Line(m_print.Lead(), text); }
  /// The combination and position of the forces.
  void LoadLine() { Line(LoadText(m_in.force)); }
  /// The formula with its ratio, and whether it passes.
  void Verdict(const wchar_t* formula, double ratio) { Line(formula, VerdictText(ratio)); }

  const ALU_REPORT_INPUT& In() const { return m_in; }
  const CALUPrint& Print() const { return m_print; }
  const ALU_CAL_SECTPARA& Section() const { return m_in.buffer.sectpara; }
  double Noted(ALU_REPORT_SLOT slot) const { return m_in.buffer.report->dValue[slot]; }
  /// A value that the check noted, unscaled.
  std::wstring Text(ALU_REPORT_SLOT slot) const { return Value(Noted(slot)); }
  /// Demand over capacity, by plain division.
  double Ratio(RALU_ITEM_TYPE item) const;

  std::wstring Area(double value) const { return m_print.FormatArea(value, 3, 10); }
  std::wstring Modulus(double value) const { return m_print.FormatModulus(value, 3, 10); }
  std::wstring Inertia(double value) const { return m_print.FormatInertia(value, 3, 10); }
  std::wstring Stress(double value) const { return m_print.FormatStress(value, 3, 10); }
  /// N, Fy or Fz.
  std::wstring Force(ALU_FORCE force) const;
  /// My or Mz.
  std::wstring Moment(ALU_FORCE force) const;

  /// Whether the settings ask for the seismic factor.
  bool IsSeismic() const { return m_in.data.code.para.bSeismicGammaRE == 1; }
  /// ", γRE=" with the factor; empty when the settings do not ask for it.
  std::wstring SeismicText() const;

 private:
  const CALUPrint& m_print;
  const ALU_REPORT_INPUT& m_in;
  double m_dGammaRE;
  REPORT_BLOCK m_block;
};

}  // namespace alu_report
