#include "tz_alu/report/report_path.h"

#include <type_traits>

namespace alu_report {

namespace {

char32_t CodePoint(wchar_t character) {
  constexpr char32_t kReplacement = 0xFFFD;
  const auto code = static_cast<char32_t>(character);
  const bool surrogate = code >= 0xD800 && code <= 0xDFFF;
  return code > 0x10FFFF || surrogate ? kReplacement : code;
}

}  // namespace

std::filesystem::path FilePath(const std::wstring& name) {
  if constexpr (std::is_same_v<std::filesystem::path::value_type, wchar_t>) {
    return name;
  } else {
    // Of wide characters a path would make bytes by the user's locale; of code points, UTF-8.
    std::u32string codes;
    for (const wchar_t character : name) codes += CodePoint(character);
    return codes;
  }
}

}  // namespace alu_report
