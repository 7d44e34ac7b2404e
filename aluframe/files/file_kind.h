#pragma once

#include <cstdint>
#include <filesystem>

namespace aluframe::files {

/// Files that this program reads and a user would miss. Told by their content, whatever their name.
enum class FileKind {
  model,      ///< JSON of the format "aluframe-model"
  catalogue,  ///< CSV of profiles: a header with a name and a shape
  results,    ///< the results of a check
  forces,     ///< CSV of element forces: a header with element, case and position
  other       ///< anything else, also what is no ordinary file, cannot be read or does not exist
};

/// Marks result files among the databases of SQLite: its application id.
inline constexpr std::uint32_t result_file_mark = 0x416C7552;

FileKind kind_of(const std::filesystem::path& path);

}  // namespace aluframe::files
