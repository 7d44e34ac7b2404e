#include "aluframe/platform/code_page.h"

#include <windows.h>

#include "aluframe/platform/windows/wide_text.h"

namespace aluframe::platform {

std::optional<std::string> utf8_of(const std::string& text, CodePage page) {
  const auto number = static_cast<UINT>(page);
  const int length = static_cast<int>(text.size());
  std::wstring out(text.size() * 2, L'\0');
  const int units = MultiByteToWideChar(number, MB_ERR_INVALID_CHARS, text.data(), length,
                                        out.data(), static_cast<int>(out.size()));
  if (units == 0 && length != 0) return std::nullopt;
  return utf8({out.data(), static_cast<std::size_t>(units)});
}

std::optional<std::string> in_code_page(const std::string& utf8, CodePage page) {
  const std::wstring text = wide(utf8);
  const auto number = static_cast<UINT>(page);
  std::string out(text.size() * 4, '\0');
  BOOL lacks_one = FALSE;
  const int bytes =
      WideCharToMultiByte(number, WC_NO_BEST_FIT_CHARS, text.data(), static_cast<int>(text.size()),
                          out.data(), static_cast<int>(out.size()), nullptr, &lacks_one);
  if (lacks_one != FALSE || (bytes == 0 && !text.empty())) return std::nullopt;
  out.resize(static_cast<std::size_t>(bytes));
  return out;
}

std::optional<std::string> user_charset() {
  const UINT page = GetACP();
  return page == CP_UTF8 ? "UTF-8" : "CP" + std::to_string(page);
}

// The code page is the system's.
void use_utf8() {}

}  // namespace aluframe::platform
