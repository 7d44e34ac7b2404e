#pragma once

#include <filesystem>
#include <string>
#include <string_view>

namespace aluframe::files {

/// The hidden file beside another that this program keeps for a purpose:
/// ".frame.alu.aluframe-lock".
inline std::filesystem::path sibling(const std::filesystem::path& file, std::string_view purpose) {
  return file.parent_path() /
         ("." + file.filename().string() + ".aluframe-" + std::string(purpose));
}

}  // namespace aluframe::files
