#pragma once

#include <cstdint>
#include <filesystem>
#include <optional>
#include <string>
#include <vector>

namespace aluframe::services {

/// Why a report cannot be written there; nothing when it can. Leaves an existing file as it is.
std::optional<std::string> report_problem(const std::filesystem::path& path);

/// Why a report lacks some of its text: the file takes no more, such as on a full disk, or else a
/// character that the user's character set cannot represent.
std::string incomplete_report_text(const std::filesystem::path& path, int lost_blocks);

/// Elements by their numbers, in the order of the report.
struct ReportedElements {
  std::vector<std::uint32_t> numbers;         ///< those with a member block
  std::vector<std::uint32_t> without_checks;  ///< of them, those with nothing below it
  /// Of them, those whose last check (slenderness when it has a result) shows its title alone.
  std::vector<std::uint32_t> without_last_verdict;
};

/// The elements of a report.
ReportedElements reported_elements(const std::filesystem::path& path);

}  // namespace aluframe::services
