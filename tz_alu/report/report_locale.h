#pragma once

#include <locale>

namespace alu_report {

/// The user's default locale, by which the report's characters become bytes. When the environment
/// names one that the machine does not have, UTF-8; the host's history then says so once.
/// On Windows the characters of the user's code page, and "?" for what that lacks; UTF-8 where
/// LC_ALL of the environment ends in ".UTF-8".
std::locale UserLocale();

}  // namespace alu_report
