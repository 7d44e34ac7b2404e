#pragma once

#include <filesystem>
#include <string>
#include <string_view>

namespace aluframe::services {

/// Writes a copy of a calculation report in UTF-8 with its stored Chinese texts as the engineer
/// should see them: in the report itself they are characters that become Chinese when their bytes
/// in code page 949 are read as GBK. Everything else is the same, text by text.
/// @param charset what the report's bytes are, such as "UTF-8" or "CP949"
/// @param appendix UTF-8, set behind the report
/// @throws std::runtime_error with the path and the reason
void write_readable_report(const std::filesystem::path& report, const std::string& charset,
                           const std::filesystem::path& readable, std::string_view appendix = {});

/// The text of a report in UTF-8 with its stored Chinese texts readable.
std::string readable_text(std::string utf8);

}  // namespace aluframe::services
