#pragma once

#include <filesystem>
#include <optional>
#include <string>

#include "aluframe/model/units.h"
#include "apps/cli/common_options.h"

namespace aluframe::cli {

struct ResultsOptions {
  std::filesystem::path input;  ///< a model, whose result file is taken, or a result file
  CommonOptions common;
  std::string sort = "element";
  std::optional<std::size_t> top;
  std::optional<double> over;
  std::optional<model::Number> element;  ///< one element in full
  std::optional<std::string> units;      ///< "kN,m": stresses in kN/m²
  std::optional<std::filesystem::path> output;
};

/// Prints stored results. @return the exit status
int run_results_command(const ResultsOptions& options);

/// What results can be sorted by: "element", "ratio", or a check item.
std::string sort_names();
bool is_sort_name(const std::string& name);

}  // namespace aluframe::cli
