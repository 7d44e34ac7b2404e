#pragma once

#include <string>
#include <string_view>

#include "host/framework/cstring.h"

namespace aluframe::services {

/// UTF-8 of a wide string; what is no Unicode code point becomes U+FFFD.
std::string to_utf8(const CString& text);
/// Wide string of UTF-8 text; bytes that are not UTF-8 become U+FFFD.
CString to_wide(std::string_view text);
/// The same, one number a character also where wide characters have 16 bits.
std::u32string characters_of(std::string_view text);

}  // namespace aluframe::services
