#pragma once

#include <filesystem>
#include <optional>
#include <string>

#include "apps/cli/report_command.h"

namespace aluframe::cli {

/// The files of a report: what it goes by, and where it goes.
struct ReportFiles {
  std::filesystem::path results;
  /// Nothing: the readable text goes to standard output alone.
  std::optional<std::filesystem::path> report;
  std::optional<std::filesystem::path> readable;
};

/// The named files, and those beside the model and the report in place of the others.
ReportFiles report_files(const ReportOptions& options);

/// Why these options or files do not go together, or what would be overwritten that the user cannot
/// mean; or nothing.
std::optional<std::string> problem_of_files(const ReportOptions& options, const ReportFiles& files);

}  // namespace aluframe::cli
