#pragma once

#include <set>
#include <string_view>

#include "aluframe/run/analysis.h"
#include "aluframe/tables/analysis_tables.h"
#include "apps/cli/common_options.h"

namespace aluframe::cli {

struct AnalyseOptions {
  run::InputOptions input;
  run::AnalysisOptions subjects;
  model::NumberRanges elements;  ///< whose forces are shown; empty: all
  model::NumberRanges nodes;     ///< whose displacements and reactions are shown; empty: all
  std::set<tables::AnalysisTable> show;  ///< empty: everything
  tables::Format format = tables::Format::table;
  std::optional<std::string> units;  ///< "kN,m"; the model's when not given
  std::optional<std::filesystem::path> output;
};

/// Analyses a model under its loads and shows displacements, reactions and element forces.
/// @return the exit status
int run_analyse_command(const AnalyseOptions& options);

}  // namespace aluframe::cli
