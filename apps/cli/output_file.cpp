#include "apps/cli/output_file.h"

#include <fmt/format.h>

#include <fstream>

#include "apps/cli/exit_status.h"
#include "apps/cli/terminal.h"

namespace aluframe::cli {

int write_output(const std::string& text, const std::optional<std::filesystem::path>& path) {
  if (!path) {
    fmt::print("{}", text);
    return exit_done;
  }
  std::ofstream file(*path, std::ios::binary);
  file << text;
  file.close();
  if (file.fail()) {
    print_message(path->string() + ": cannot be written");
    return exit_failure;
  }
  return exit_done;
}

}  // namespace aluframe::cli
