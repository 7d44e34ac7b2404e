#include "aluframe/platform/code_page.h"

#include <windows.h>

#include "aluframe/platform/environment.h"
#include "aluframe/platform/windows/wide_text.h"

namespace aluframe::platform {

namespace {

constexpr wchar_t first_beyond_ascii = 0x80;

/// As the report's stream (tz_alu/report/report_locale.h) has it.
UINT user_code_page() {
  const auto locale = environment_variable("LC_ALL");
  return locale && locale->ends_with(".UTF-8") ? CP_UTF8 : GetACP();
}

/// Whether a code page has no bytes for a character, as the report's stream finds.
bool lacks(UINT page, std::wstring_view character) {
  char bytes[8];
  BOOL lacks_it = FALSE;
  WideCharToMultiByte(page, WC_NO_BEST_FIT_CHARS, character.data(),
                      static_cast<int>(character.size()), bytes, sizeof bytes, nullptr, &lacks_it);
  return lacks_it != FALSE;
}

}  // namespace

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
  const UINT page = user_code_page();
  return page == CP_UTF8 ? "UTF-8" : "CP" + std::to_string(page);
}

std::size_t replaced_characters(const std::string& utf8) {
  const UINT page = user_code_page();
  if (page == CP_UTF8) return 0;
  const std::wstring text = wide(utf8);
  std::size_t count = 0;
  for (std::size_t i = 0, units = 1; i < text.size(); i += units) {
    units = i + 1 < text.size() && IS_SURROGATE_PAIR(text[i], text[i + 1]) ? 2 : 1;
    if (text[i] >= first_beyond_ascii && lacks(page, {text.data() + i, units})) ++count;
  }
  return count;
}

// The code page is the system's.
void use_utf8() {}

}  // namespace aluframe::platform
