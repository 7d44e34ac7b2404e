#pragma once

#include <string>

namespace aluframe::services {

/// The text of a calculation report in UTF-8 with its stored Chinese texts as the engineer should
/// see them: in the report itself they are characters that become Chinese when their bytes in code
/// page 949 are read as GBK. Everything else is the same, text by text.
std::string readable_text(std::string utf8);

}  // namespace aluframe::services
