#pragma once

#include <filesystem>
#include <string_view>

namespace aluframe::files {

/// The hidden file beside another that this program keeps for a purpose:
/// ".frame.alu.aluframe-lock".
inline std::filesystem::path sibling(const std::filesystem::path& file, std::string_view purpose) {
  std::filesystem::path name = ".";
  name += file.filename();
  name += ".aluframe-";
  name += purpose;
  return file.parent_path() / name;
}

}  // namespace aluframe::files
