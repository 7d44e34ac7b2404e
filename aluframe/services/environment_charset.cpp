#include "aluframe/services/environment_charset.h"

#include <langinfo.h>

#include <clocale>

namespace aluframe::services {

std::optional<std::string> charset_of_environment() {
  const locale_t locale = newlocale(LC_ALL_MASK, "", nullptr);
  if (locale == nullptr) return std::nullopt;
  std::string charset = nl_langinfo_l(CODESET, locale);
  freelocale(locale);
  return charset;
}

}  // namespace aluframe::services
