#include "aluframe/platform/code_page.h"

#include <iconv.h>
#include <langinfo.h>

#include <clocale>
#include <cstdlib>

namespace aluframe::platform {

namespace {

/// @return nothing when the conversion does not exist or the text has no place in it
std::optional<std::string> convert(std::string text, const char* to, const char* from) {
  const iconv_t conversion = iconv_open(to, from);
  // NOLINTNEXTLINE(performance-no-int-to-ptr): how iconv_open says that it failed
  if (conversion == reinterpret_cast<iconv_t>(-1)) return std::nullopt;
  constexpr std::size_t longest_growth = 4;
  std::string out(text.size() * longest_growth, '\0');
  char* in = text.data();
  std::size_t in_left = text.size();
  char* end = out.data();
  std::size_t out_left = out.size();
  const std::size_t failed = iconv(conversion, &in, &in_left, &end, &out_left);
  iconv_close(conversion);
  if (failed == static_cast<std::size_t>(-1)) return std::nullopt;
  out.resize(out.size() - out_left);
  return out;
}

std::string name_of(CodePage page) {
  return page == 936 ? "GBK" : "CP" + std::to_string(page);
}

}  // namespace

std::optional<std::string> utf8_of(const std::string& text, CodePage page) {
  return convert(text, "UTF-8", name_of(page).c_str());
}

std::optional<std::string> in_code_page(const std::string& utf8, CodePage page) {
  return convert(utf8, name_of(page).c_str(), "UTF-8");
}

std::optional<std::string> user_charset() {
  const locale_t locale = newlocale(LC_ALL_MASK, "", nullptr);
  if (locale == nullptr) return std::nullopt;
  std::string charset = nl_langinfo_l(CODESET, locale);
  freelocale(locale);
  return charset;
}

std::size_t replaced_characters(const std::string&) {
  return 0;
}

void use_utf8() {
  setenv("LC_ALL", "C.UTF-8", 1);
}

}  // namespace aluframe::platform
