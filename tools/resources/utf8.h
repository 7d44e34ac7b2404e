#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace resources {

/// Code points of a UTF-8 text; nothing when the bytes are none. Overlong forms, surrogates and
/// code points above U+10FFFF are refused.
std::optional<std::u32string> decode_utf8(std::string_view bytes);

}  // namespace resources
