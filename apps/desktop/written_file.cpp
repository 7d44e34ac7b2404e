#include "apps/desktop/written_file.h"

#include <stdexcept>

namespace aluframe::desktop {

std::optional<std::string> problem_of_writing(const std::filesystem::path& path,
                                              const std::function<void()>& write) {
  try {
    write();
  } catch (const std::runtime_error& error) {
    const std::string text = error.what();
    const bool names_it = text.find(path.string()) != std::string::npos;
    return names_it ? text : path.string() + ": " + text;
  }
  return std::nullopt;
}

}  // namespace aluframe::desktop
