#pragma once

#include <cstdint>
#include <filesystem>
#include <string>
#include <vector>

namespace aluframe::services {

/// Why a report that is being written lacks some of its text: its file takes no more, such as on a
/// full disk, or in a character set other than UTF-8 perhaps a character that it cannot represent.
std::string reason_of_lost_blocks(const std::filesystem::path& report, int lost_blocks);

/// What the block of a check ends with.
enum class Verdict {
  none,    ///< no verdict: a title alone
  passes,  ///< "OK"
  fails    ///< "Not Acceptable!"
};

/// Elements by their numbers, in the order of the report.
struct ReportedElements {
  std::vector<std::uint32_t> numbers;          ///< those with a member block
  std::vector<std::vector<Verdict>> verdicts;  ///< of each, a verdict a check, in their order
};

/// The elements of a report's text.
ReportedElements reported_elements(const std::string& text);

}  // namespace aluframe::services
