#include "tz_alu/report/report_locale.h"

#include <cstdlib>
#include <mutex>
#include <stdexcept>

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

}  // namespace

std::locale UserLocale() {
  try {
    return std::locale("");
  } catch (const std::runtime_error&) {
    WarnOnce();
    return Utf8();
  }
}

}  // namespace alu_report
