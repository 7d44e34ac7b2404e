#pragma once

#include <filesystem>
#include <string_view>

namespace aluframe::files {

/// Gives an existing file a new content in one step: whoever reads it meets the old or the new one,
/// also after a full disk or a power cut. Its permissions stay, a symbolic link to it stays one.
/// Its owner becomes the user, and another hard link to it keeps the old content.
///
/// @throws std::runtime_error with the reason, the file being as it was: it does not exist, is no
///         ordinary file or may not be written, its folder takes no new file, the disk is full
void replace_file(const std::filesystem::path& path, std::string_view content);

}  // namespace aluframe::files
