#pragma once

#include <filesystem>
#include <system_error>

namespace aluframe::platform {

/// Removes a file; none is no error.
std::error_code remove_file(const std::filesystem::path& path);

/// Gives a file the name of another in the same folder, whose place it takes in one step.
std::error_code replace_file(const std::filesystem::path& from, const std::filesystem::path& to);

/// Whether a file can be replaced that somebody has open. Where it cannot, nobody can be writing a
/// file that is replaced.
bool open_files_are_replaced();

/// Waits until the disk has the name of a file, which stands in its folder. Nothing is lost when
/// that fails: a power cut could bring back the earlier file, which is whole as well.
void sync_name(const std::filesystem::path& file);

}  // namespace aluframe::platform
