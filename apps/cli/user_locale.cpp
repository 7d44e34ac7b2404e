#include "apps/cli/user_locale.h"

#include <cstdlib>
#include <optional>

#include "aluframe/services/environment_charset.h"
#include "aluframe/texts/text.h"
#include "apps/cli/terminal.h"

namespace aluframe::cli {

namespace {

void use_utf8() {
  setenv("LC_ALL", "C.UTF-8", 1);
}

}  // namespace

void prepare_user_locale() {
  const std::optional<std::string> charset = services::charset_of_environment();
  if (!charset) {
    print_message(texts::translated(
        "the environment names a locale that this machine does not have; UTF-8 is used"));
    use_utf8();
  } else if (*charset == "ANSI_X3.4-1968") {
    use_utf8();
  }
}

}  // namespace aluframe::cli
