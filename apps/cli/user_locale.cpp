#include "apps/cli/user_locale.h"

#include <optional>

#include "aluframe/platform/code_page.h"
#include "aluframe/texts/text.h"
#include "apps/cli/terminal.h"

namespace aluframe::cli {

void prepare_user_locale() {
  const std::optional<std::string> charset = platform::user_charset();
  if (!charset) {
    print_message(texts::translated(
        "the environment names a locale that this machine does not have; UTF-8 is used"));
    platform::use_utf8();
  } else if (*charset == "ANSI_X3.4-1968") {
    platform::use_utf8();
  }
}

}  // namespace aluframe::cli
