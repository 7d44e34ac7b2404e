#pragma once

#include <filesystem>
#include <optional>
#include <string>

#include "aluframe/platform/path_text.h"

namespace CLI::detail {

/// Words of the command line that are paths. In front of the parser, so that it goes by this
/// instead of making a path of the bytes.
inline bool lexical_cast(const std::string& word, std::filesystem::path& path) {
  path = aluframe::platform::path_of(word);
  return true;
}
inline bool lexical_cast(const std::string& word, std::optional<std::filesystem::path>& path) {
  path = aluframe::platform::path_of(word);
  return true;
}

}  // namespace CLI::detail

#include <CLI/CLI.hpp>
