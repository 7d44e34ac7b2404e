#pragma once

#include <filesystem>
#include <optional>
#include <string>

#include "aluframe/document/document_file.h"
#include "aluframe/run/strictness.h"
#include "apps/cli/common_options.h"

namespace aluframe::cli {

struct ReportOptions {
  run::InputOptions input;
  CommonOptions common;
  std::optional<std::filesystem::path> results;  ///< result file; beside the model when not given
  /// Report; beside the model when not given; "-": its readable text goes to standard output alone.
  std::optional<std::filesystem::path> output;
  /// Copy in UTF-8; beside the report when not given.
  std::optional<std::filesystem::path> readable;
  std::optional<std::filesystem::path> html;  ///< in place of the report; see document_command.h
  document::DocumentDetail detail = document::DocumentDetail::governing;  ///< of the document
  std::string units = "N,mm";
  bool open = false;  ///< the readable copy, in the user's editor
  run::Strictness strict = run::Strictness::none;
};

/// Writes the calculation report of a model and says where it is.
/// @return the exit status
int run_report_command(const ReportOptions& options);

}  // namespace aluframe::cli
