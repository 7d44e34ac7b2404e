#pragma once

#include <string>
#include <string_view>

namespace aluframe::platform {

/// UTF-8 as the system's 16-bit characters and back; what is no character becomes U+FFFD.
std::wstring wide(std::string_view utf8);
std::string utf8(std::wstring_view text);

}  // namespace aluframe::platform
