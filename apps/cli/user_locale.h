#pragma once

namespace aluframe::cli {

/// Makes sure that the user's locale can take every character of a report. One that the machine
/// does not have is replaced by UTF-8 with a message; plain ASCII, which no one chooses for a
/// report, is replaced by UTF-8.
void prepare_user_locale();

}  // namespace aluframe::cli
