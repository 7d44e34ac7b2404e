#pragma once

#include <filesystem>
#include <optional>
#include <string>

namespace aluframe::cli {

/// What is wrong when the environment names no editor.
std::optional<std::string> editor_problem();

/// Opens a file in the editor that the environment names, VISUAL before EDITOR, or the one that
/// every machine has, and waits for its end. @return a message when there is none or it failed
std::optional<std::string> open_in_editor(const std::filesystem::path& file);

}  // namespace aluframe::cli
