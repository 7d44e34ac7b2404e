#include "aluframe/platform/environment.h"

#include <cstdlib>
#include <initializer_list>

namespace aluframe::platform {

std::vector<std::string> command_line(int argc, char** argv) {
  return {argv, argv + argc};
}

std::optional<std::string> environment_variable(const char* name) {
  const char* value = std::getenv(name);
  return value != nullptr ? std::optional<std::string>(value) : std::nullopt;
}

std::string locale_of_messages() {
  // The first of its variables that is not empty (POSIX, "Environment Variables").
  for (const char* name : {"LC_ALL", "LC_MESSAGES", "LANG"}) {
    const char* value = std::getenv(name);
    if (value != nullptr && *value != '\0') return value;
  }
  return "";
}

}  // namespace aluframe::platform
