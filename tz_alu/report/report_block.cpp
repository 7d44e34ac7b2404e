#include "tz_alu/report/report_block.h"

#include "host/tz_db/keys.h"
#include "tz_alu/report/number_format.h"
#include "tz_alu/tolerance.h"

namespace alu_report {

namespace {

constexpr std::size_t kRuleWidth = 100;

const wchar_t* PositionText(std::int32_t nPos) {
  constexpr const wchar_t* kTexts[] = {L"I", L"1/4", L"1/2", L"3/4", L"J"};
  return nPos >= 0 && nPos < 5 ? kTexts[nPos] : L"--";
}

}  // namespace

REPORT_BLOCK::~REPORT_BLOCK() {
  m_out.flush();
  if (m_out.fail() && m_pLost != nullptr) ++*m_pLost;
}

void REPORT_BLOCK::Rule() {
  Line(std::wstring(kRuleWidth, L'='));
}

void REPORT_BLOCK::Banner(const CString& margin, const wchar_t* title) {
  Rule();
  Line(margin, L"[[[*]]]   ", title);
  Rule();
}

std::wstring LoadText(const AluDgnSectForce& force) {
  return L"(LCB=" + FormatInteger(LcombNumber(force.nLComb)) + L", POS=" +
         PositionText(force.nPos) + L")";
}

std::wstring VerdictText(double ratio) {
  const bool passes = ratio - 1.0 < alu_engine::kTolerance;
  return Value(ratio) + (passes ? L"<" : L">") + L"1.00 ----> " +
         (passes ? L"OK" : L"Not Acceptable!");
}

std::wstring Value(double value) {
  return FormatValue(value, 3, 10);
}

}  // namespace alu_report
