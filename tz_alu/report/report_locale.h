#pragma once

#include <locale>

namespace alu_report {

/// The user's default locale, by which the report's characters become bytes. When the environment
/// names one that the machine does not have, UTF-8; the host's history then says so once.
///
/// On Windows the system's code page, or UTF-8 when LC_ALL in the environment ends in ".UTF-8"; a
/// character that it lacks becomes a question mark.
std::locale UserLocale();

}  // namespace alu_report
