#pragma once

#include <functional>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "aluframe/model/model.h"
#include "aluframe/run/analysis.h"
#include "aluframe/tables/output_table.h"

namespace aluframe::tables {

/// What of an analysis is shown.
enum class AnalysisTable {
  summary,
  displacements,
  reactions,
  forces,
  area_loads,
  pressures,
  line_loads
};

std::string_view name_of(AnalysisTable table);
std::optional<AnalysisTable> parse_analysis_table(std::string_view name);

/// An analysis as it is shown.
struct AnalysisView {
  const model::Model* model = nullptr;
  const run::Analysis* analysis = nullptr;
  model::Units units;
  std::function<bool(model::Number)> shows_node, shows_element;
};

/// "Element forces", above a table.
std::string_view heading_of(AnalysisTable table);

/// Summary: a line a load case or combination, with the largest displacement, what the reactions
/// add up to, the residual and the estimated error of the forces, both as shares of the largest.
/// The others: a line a node or position, in the view's units, rad for rotations. Forces of load
/// cases in CSV are what `--forces` reads. Area loads, the pressures that they follow from and the
/// line loads that they become: those of the load cases, or of all cases when combinations are
/// analysed; models without them have no lines.
OutputTable analysis_table(AnalysisTable table, const AnalysisView& view);

}  // namespace aluframe::tables
