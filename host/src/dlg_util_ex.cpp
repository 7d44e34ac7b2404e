#include "host/tz_common/dlg_util_ex.h"

#include <charconv>
#include <cmath>
#include <string>

namespace {

// Longest text of a double in fixed notation: 309 digits, sign and point, and 30 decimals.
constexpr std::size_t kLongestNumber = 350;

// Magnitudes that read well without an exponent.
constexpr double kSmallestFixed = 1e-5;
constexpr double kLargestFixed = 1e15;

std::wstring NumberText(double value, int decimals) {
  char text[kLongestNumber];
  const double magnitude = std::fabs(value);
  const bool fixed = value == 0.0 || (magnitude >= kSmallestFixed && magnitude < kLargestFixed);
  const auto format = fixed ? std::chars_format::fixed : std::chars_format::scientific;
  const auto end = decimals < 0 ? std::to_chars(text, text + sizeof text, value, format)
                                : std::to_chars(text, text + sizeof text, value, format, decimals);
  return {text, end.ptr};
}

std::string WithoutBlanks(const std::wstring& text) {
  const std::size_t first = text.find_first_not_of(L" \t");
  if (first == std::wstring::npos) return {};
  const std::size_t last = text.find_last_not_of(L" \t");
  std::string ascii;
  for (std::size_t i = first; i <= last; ++i) {
    const wchar_t c = text[i];
    ascii += c > 0 && c < 128 ? static_cast<char>(c) : '?';
  }
  const bool has_plus = ascii.starts_with('+') && !ascii.starts_with("+-");
  return has_plus ? ascii.substr(1) : ascii;
}

}  // namespace

void CDlgUtilEx::CtrlCheck(CDialog* dialog, int id, BOOL check) {
  dialog->CheckDlgButton(id, check != FALSE ? BST_CHECKED : BST_UNCHECKED);
}

BOOL CDlgUtilEx::CtrlIsCheck(CDialog* dialog, int id) {
  return dialog->IsDlgButtonChecked(id) == BST_CHECKED ? TRUE : FALSE;
}

void CDlgUtilEx::SetWindowVal(CDialog* dialog, int id, double value, int decimals) {
  dialog->SetDlgItemText(id, NumberText(value, decimals));
}

double CDlgUtilEx::GetWindowVal(CDialog* dialog, int id) {
  const std::string text = WithoutBlanks(dialog->GetDlgItemText(id).GetString());
  double value = 0.0;
  const auto end = std::from_chars(text.data(), text.data() + text.size(), value);
  const bool whole = end.ec == std::errc() && end.ptr == text.data() + text.size();
  return whole && std::isfinite(value) ? value : 0.0;
}
