#pragma once

#include <string>
#include <vector>

#include "aluframe/store/result_file.h"
#include "aluframe/tables/output_table.h"

namespace aluframe::tables {

/// The worst ratio of the checks, "0.2410", or "none" where they have none.
std::string code_text(const store::SafeRow& row);

/// "1/2 of the length (1.5 m from its start)", or "whole member".
std::string safe_place_text(const store::SafeRow& row);

/// "Safe ratio 1.083 (strength, F1), code ratio 0.241, position 1/2, combination 3 \"1.2G\"", or
/// "combination 7 Extremes: 1.2G" for a state of the envelope 7.
std::string safe_text(const store::SafeRow& row, const store::RunInfo& info);

/// Second opinions, a line an element: ratio of the checks, safe ratio, what makes it differ,
/// where.
OutputTable safe_table(const std::vector<store::SafeRow>& rows, const store::RunInfo& info);

}  // namespace aluframe::tables
