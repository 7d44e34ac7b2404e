#include "tz_alu/report/report_locale.h"

#include <cstdlib>
#include <mutex>
#include <stdexcept>
#include <string>
#include <utility>

#include "host/tz_base/tz_base.h"

namespace alu_report {

namespace {

std::locale Utf8() {
  try {
    return std::locale("C.UTF-8");
  } catch (const std::runtime_error&) {
    return std::locale::classic();
  }
}

void WarnOnce() {
  static std::once_flag warned;
  std::call_once(warned, [] {
    GSaveHistoryNF(
        L"The environment names a locale that this machine does not have; the report is "
        L"written in UTF-8.",
        0, nullptr);
  });
}

std::locale LocaleOfEnvironment() {
  try {
    return std::locale("");
  } catch (const std::runtime_error&) {
    WarnOnce();
    return Utf8();
  }
}

// What of the environment decides on the locale.
std::string EnvironmentOfLocale() {
  std::string values;
  for (const char* name : {"LC_ALL", "LC_COLLATE", "LC_CTYPE", "LC_MESSAGES", "LC_MONETARY",
                           "LC_NUMERIC", "LC_TIME", "LANG", "LOCPATH"}) {
    const char* value = std::getenv(name);
    if (value != nullptr) values += value;
    values += '\n';
  }
  return values;
}

}  // namespace

// Making a locale costs more than writing a block, so it is made once for an environment.
std::locale UserLocale() {
  static std::string known;
  static std::locale locale;
  std::string environment = EnvironmentOfLocale();
  if (environment != known) {
    locale = LocaleOfEnvironment();
    known = std::move(environment);
  }
  return locale;
}

}  // namespace alu_report
