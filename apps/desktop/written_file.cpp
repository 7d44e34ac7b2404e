#include "apps/desktop/written_file.h"

#include <exception>

#include "aluframe/files/error_text.h"
#include "aluframe/files/output_guard.h"

namespace aluframe::desktop {

std::optional<std::string> write_chosen_file(std::string_view what,
                                             const std::filesystem::path& path,
                                             const std::function<void()>& write) {
  if (auto problem = files::find_overwriting({{what, path}}, {})) return problem;
  try {
    write();
  } catch (const std::exception& error) {
    const std::string text = files::error_text(error);
    const bool names_it = text.find(path.string()) != std::string::npos;
    return names_it ? text : path.string() + ": " + text;
  }
  return std::nullopt;
}

}  // namespace aluframe::desktop
