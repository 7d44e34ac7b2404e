#pragma once

#include <cstdint>
#include <filesystem>
#include <optional>
#include <string>
#include <vector>

namespace aluframe::services {

/// True when both paths lead to one file, also to one that does not exist yet.
bool is_same_file(const std::filesystem::path& a, const std::filesystem::path& b);

/// Why a report cannot be written there; nothing when it can. Leaves an existing file as it is.
std::optional<std::string> report_problem(const std::filesystem::path& path);

/// Why a report that was just written may lack its end, such as a full disk; nothing when the file
/// still takes more.
std::optional<std::string> incomplete_report_problem(const std::filesystem::path& path);

/// Numbers of the elements that a report has member blocks of, in order.
std::vector<std::uint32_t> reported_elements(const std::filesystem::path& path);

}  // namespace aluframe::services
