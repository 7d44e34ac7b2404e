#pragma once

#include <string>

#include "host/framework/cstring.h"
#include "tz_alu/records/alu_forces.h"
#include "tz_alu/report/report_stream.h"

namespace alu_report {

/// One block of the report: it opens the file for appending and closes it when it goes.
///
///     REPORT_BLOCK block(path);
///     block.Line(L"  ", L"MEMBER NO = ", FormatInteger(7));
class REPORT_BLOCK {
 public:
  /// @param lost counts the blocks that could not be written whole; null: nobody asks
  /// @param text gets what is written as it stands, whatever the file's character set lacks; null:
  ///   nobody wants it
  explicit REPORT_BLOCK(const CString& path, int* lost = nullptr, std::wstring* text = nullptr)
      : m_out(path.GetString(), std::ios_base::app, RPT_SHARE::DenyNone),
        m_pLost(lost),
        m_pText(text) {}
  REPORT_BLOCK(const REPORT_BLOCK&) = delete;
  REPORT_BLOCK& operator=(const REPORT_BLOCK&) = delete;
  ~REPORT_BLOCK();

  /// Writes texts without ending the line.
  template <class... TEXTS>
  void Put(const TEXTS&... texts) {
    (m_out << ... << texts);
    if (m_pText != nullptr) (Append(texts), ...);
  }
  /// Writes a line, which is in the file when this returns.
  template <class... TEXTS>
  void Line(const TEXTS&... texts) {
    Put(texts...);
    EndLine();
  }
  void EndLine() {
    m_out.put(m_out.widen('\n')).flush();
    if (m_pText != nullptr) *m_pText += L'\n';
  }
  /// A line of 100 "=".
  void Rule();
  /// A title between two rules: margin, then "[[[*]]]   " and the title.
  void Banner(const CString& margin, const wchar_t* title);

 private:
  void Append(const CString& text) { *m_pText += text.GetString(); }
  void Append(const std::wstring& text) { *m_pText += text; }
  void Append(const wchar_t* text) { *m_pText += text; }

  rptbasic_ofstream<wchar_t> m_out;
  int* m_pLost;
  std::wstring* m_pText;
};

/// "(LCB=12, POS=1/2)": combination and check position of the forces.
std::wstring LoadText(const AluDgnSectForce& force);

/// "0.850<1.00 ----> OK", or ">" and "Not Acceptable!" for a ratio beyond 1 by 1e-10 or more; the
/// ratio in ten characters.
std::wstring VerdictText(double ratio);

/// A value as the detail blocks print it: three decimals in ten characters.
std::wstring Value(double value);

}  // namespace alu_report
