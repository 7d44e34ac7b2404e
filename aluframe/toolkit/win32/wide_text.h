#pragma once

#include <string>
#include <string_view>

namespace aluframe::toolkit {

/// UTF-8 as the system's wide characters; what is no UTF-8 becomes U+FFFD.
std::wstring wide_text(std::string_view utf8);

}  // namespace aluframe::toolkit
