#pragma once

#include <filesystem>

namespace aluframe::toolkit {

/// Shows a text file in the system's editor and does not wait for it. @return false when the editor
/// could not be started
bool open_text(const std::filesystem::path& file);

}  // namespace aluframe::toolkit
