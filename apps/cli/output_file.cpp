#include "apps/cli/output_file.h"

#include <fmt/format.h>

#include <exception>

#include "aluframe/files/publication.h"
#include "aluframe/texts/text.h"
#include "apps/cli/terminal.h"
#include "apps/exit_status.h"

namespace aluframe::cli {

int write_output(const std::string& text, const std::optional<std::filesystem::path>& path) {
  if (!path) {
    print_text(text);
    return exit_done;
  }
  try {
    files::publish_text(*path, text);
    return exit_done;
  } catch (const std::exception& error) {
    print_message(texts::translated("{}: cannot be written: {}", path->string(), error.what()));
    return exit_failure;
  }
}

}  // namespace aluframe::cli
