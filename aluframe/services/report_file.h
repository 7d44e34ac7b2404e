#pragma once

#include <cstdint>
#include <filesystem>
#include <string>
#include <vector>

namespace aluframe::services {

/// Why a report that is being written lacks some of its text: its file takes no more, such as on a
/// full disk, or in a character set other than UTF-8 perhaps a character that it cannot represent.
std::string reason_of_lost_blocks(const std::filesystem::path& report, int lost_blocks);

/// Elements by their numbers, in the order of the report.
struct ReportedElements {
  std::vector<std::uint32_t> numbers;         ///< those with a member block
  std::vector<std::uint32_t> without_checks;  ///< of them, those with nothing below it
  /// Of them, those whose last check (slenderness when it has a result) shows its title alone.
  std::vector<std::uint32_t> without_last_verdict;
};

/// The elements of a report. @throws std::runtime_error with the reason when it cannot be read back
ReportedElements reported_elements(const std::filesystem::path& path);

}  // namespace aluframe::services
