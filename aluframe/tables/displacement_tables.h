#pragma once

#include <string>
#include <vector>

#include "aluframe/store/result_file.h"
#include "aluframe/tables/output_table.h"

namespace aluframe::tables {

/// "L/412", of a drift "h/412"; empty where nothing moves or has a length.
std::string share_text(const store::DisplacementRow& row);

/// Displacements under the combinations for serviceability as a terminal shows them: what, along
/// which axis, how far, as a share of the span, against its limit, when and where. In mm.
OutputTable displacement_overview(const std::vector<store::DisplacementRow>& rows);

/// The same with every value in a column of its own, for JSON and CSV.
OutputTable displacement_table(const std::vector<store::DisplacementRow>& rows);

/// One of the two, as the format asks for.
std::string render_displacements(const std::vector<store::DisplacementRow>& rows, Format format,
                                 bool colour);

/// The one nearest to its limit or furthest over it, or without limits the one with the largest
/// share of its span; how many pass theirs: "0.87 (member 3 (nodes 1 to 5) moves 17.4 mm along z,
/// limit 20 mm, combination 12), 0 over the limit". Empty without rows.
std::string displacement_line(const std::vector<store::DisplacementRow>& rows);

}  // namespace aluframe::tables
