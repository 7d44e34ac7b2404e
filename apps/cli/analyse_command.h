#pragma once

#include <set>
#include <string_view>

#include "apps/cli/analysis_tables.h"
#include "apps/cli/run_input.h"

namespace aluframe::cli {

struct AnalyseOptions {
  InputOptions input;
  NumberRanges cases;            ///< empty: all with loads
  NumberRanges combinations;     ///< shown in place of load cases when there are any
  NumberRanges elements;         ///< whose forces are shown; empty: all
  NumberRanges nodes;            ///< whose displacements and reactions are shown; empty: all
  std::set<AnalysisTable> show;  ///< empty: everything
  Format format = Format::table;
  std::optional<std::string> units;  ///< "kN,m"; the model's when not given
  std::optional<std::filesystem::path> output;
};

/// Analyses a model under its loads and shows displacements, reactions and element forces.
/// @return the exit status
int run_analyse_command(const AnalyseOptions& options);

}  // namespace aluframe::cli
