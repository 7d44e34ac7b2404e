#pragma once

#include <filesystem>

#include "apps/cli/report_command.h"

namespace aluframe::cli {

/// Writes the calculation document of a model as HTML, by its stored results, in place of the
/// report, and says where it is.
/// @param html "-": standard output
/// @return the exit status
int run_document_command(const ReportOptions& options, const std::filesystem::path& html);

}  // namespace aluframe::cli
