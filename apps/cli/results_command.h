#pragma once

#include <filesystem>
#include <optional>
#include <string>

#include "aluframe/run/results.h"
#include "apps/cli/common_options.h"

namespace aluframe::cli {

struct ResultsOptions {
  std::filesystem::path input;  ///< a model, whose result file is taken, or a result file
  bool allow_outside = false;   ///< catalogues that lie outside of the model's folder
  tables::Format format = tables::Format::table;
  run::ResultsQuery query;
  model::NumberRanges combinations;      ///< of `element`; empty: all
  bool remarks = false;                  ///< what the run remarked, alone
  bool buckling = false;                 ///< how far the frame is from buckling, alone
  bool deflections = false;              ///< how far the frame is displaced in use, alone
  bool not_checked = false;              ///< what was not checked in place of what was
  std::optional<model::Number> element;  ///< one element in full
  std::optional<std::string> units;      ///< "kN,m": stresses in kN/m²
  std::optional<std::filesystem::path> output;
};

/// Prints stored results. @return the exit status
int run_results_command(const ResultsOptions& options);

}  // namespace aluframe::cli
