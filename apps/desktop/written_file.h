#pragma once

#include <filesystem>
#include <functional>
#include <optional>
#include <string>

namespace aluframe::desktop {

/// Writes a file. @param write throws std::runtime_error when it cannot
/// @return why it could not be written, with the path
std::optional<std::string> problem_of_writing(const std::filesystem::path& path,
                                              const std::function<void()>& write);

}  // namespace aluframe::desktop
