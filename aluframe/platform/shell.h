#pragma once

#include <filesystem>
#include <optional>
#include <string>

namespace aluframe::platform {

/// The editor that every machine has; nothing where there is none.
std::optional<std::string> usual_editor();

/// Runs a command, as the user's shell understands it, with a file as its last argument, and waits
/// for its end. @return its status, or -1 when it could not be started
int run_with_file(const std::string& command, const std::filesystem::path& file);

}  // namespace aluframe::platform
