#pragma once

#include <string>

namespace aluframe::cli {

/// Makes sure that the user's locale can take every character of a report. One that the machine
/// does not have is replaced by UTF-8 with a message; plain ASCII, which no one chooses for a
/// report, is replaced by UTF-8.
void prepare_user_locale();

/// Character set of the user's locale, such as "UTF-8".
std::string user_charset();

}  // namespace aluframe::cli
