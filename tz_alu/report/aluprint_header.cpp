// The report's header and its list of load combinations.

#include "host/tz_db/services.h"
#include "tz_alu/report/aluprint.h"
#include "tz_alu/report/load_case_names.h"
#include "tz_alu/report/number_format.h"
#include "tz_alu/report/report_block.h"
#include "tz_alu/report/report_literals.h"

using namespace alu_report;

namespace {

constexpr std::size_t kCombinationNameWidth = 7;
constexpr std::size_t kTypeWidth = 3;
constexpr std::size_t kContinuationIndent = 15;
constexpr int kEntriesOnALine = 3;

// The terms of one combination, gathered line by line.
class ENTRY_LINES {
 public:
  ENTRY_LINES(REPORT_BLOCK& block, const CString& lead) : m_block(block), m_lead(lead) {}

  void Add(const T_LCOM_ENTRY_D& entry, bool last) {
    const auto name = EntryName(entry);
    // kept: a term without its moving-load case leaves out the tests for the end of the line, so
    // that the row of a combination that ends with it goes on.
    if (!name) return;
    if (entry.dFactor != 0.0) Append(*name, entry.dFactor);
    if (m_nCount == kEntriesOnALine && !last) BreakLine();
    if (last) m_block.Line(m_strLine);
  }

 private:
  void Append(const std::wstring& name, double factor) {
    ++m_nCount;
    m_strLine += m_bFirst ? std::wstring(m_lead.GetString()) : std::wstring(L" +");
    m_bFirst = false;
    m_strLine += name + L"(" + (factor >= 0.0 ? L" " : L"") + FormatFixed(factor, 3) + L")";
  }

  // kept: the first term of the next line has a plus sign before it as well.
  void BreakLine() {
    m_block.Line(m_strLine);
    m_block.Put(std::wstring(kContinuationIndent, L' '));
    m_nCount = 0;
    m_strLine.clear();
  }

  REPORT_BLOCK& m_block;
  const CString& m_lead;
  std::wstring m_strLine;
  int m_nCount = 0;
  bool m_bFirst = true;
};

// kept: a combination without terms leaves its row open for the next one.
void PutCombination(REPORT_BLOCK& block, const T_LCOM_D& lcomb, const CString& gap,
                    const CString& lead) {
  block.Put(gap, PadLeft(lcomb.strName.GetString(), kCombinationNameWidth),
            FormatInteger(lcomb.nType, kTypeWidth), L" ");
  ENTRY_LINES lines(block, lead);
  const auto count = lcomb.aEntry.GetSize();
  for (std::ptrdiff_t i = 0; i < count; ++i) lines.Add(lcomb.aEntry[i], i == count - 1);
}

}  // namespace

void CALUPrint::PrintHeader(const LCOMBS& lcombs) {
  REPORT_BLOCK block(m_strPath, &m_nLostBlocks, &m_strText);
  block.Rule();
  block.Line(m_strMargin, L"Aluminum Alloy Code Checking [ GB 50429 ", kDash, L" 2007 ]");
  block.Banner(m_strMargin, kCombinationsTitle);
  block.Line(m_strMargin, m_strGap, L"LCB", m_strGap,
             L" C      Loadcase Name(Factor)+  Loadcase Name(Factor)+  Loadcase Name(Factor)");
  for (const T_LCOM_MAXMIN_K key : lcombs) {
    if (LcombMinSide(key) != 0) continue;
    T_LCOM_D lcomb;
    if (CDBDoc::GetDocPoint()->GetAttrCtrl().GetLcom(kAluDesignKind, LcombNumber(key), lcomb) == 0)
      continue;
    PutCombination(block, lcomb, m_strGap, m_strLead);
  }
}
