#pragma once

#include <filesystem>
#include <string>
#include <string_view>

namespace aluframe::platform {

/// The path of a text in UTF-8. A path that is made of the text itself takes it by the C library's
/// characters, which on Windows are others; the way back, `string()`, is UTF-8 everywhere.
inline std::filesystem::path path_of(std::string_view utf8) {
  return std::u8string(utf8.begin(), utf8.end());
}

}  // namespace aluframe::platform
