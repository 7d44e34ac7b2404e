#include "apps/cli/user_locale.h"

#include <langinfo.h>

#include <clocale>
#include <cstdlib>
#include <optional>

#include "apps/cli/terminal.h"

namespace aluframe::cli {

namespace {

/// Character set of the environment's locale; nothing when the machine does not have the locale.
std::optional<std::string> charset_of_environment() {
  const locale_t locale = newlocale(LC_ALL_MASK, "", nullptr);
  if (locale == nullptr) return std::nullopt;
  std::string charset = nl_langinfo_l(CODESET, locale);
  freelocale(locale);
  return charset;
}

void use_utf8() {
  setenv("LC_ALL", "C.UTF-8", 1);
}

}  // namespace

void prepare_user_locale() {
  const std::optional<std::string> charset = charset_of_environment();
  if (!charset) {
    print_message("the environment names a locale that this machine does not have; UTF-8 is used");
    use_utf8();
  } else if (*charset == "ANSI_X3.4-1968") {
    use_utf8();
  }
}

std::string user_charset() {
  return charset_of_environment().value_or("UTF-8");
}

}  // namespace aluframe::cli
