#pragma once

#include <vector>

#include "aluframe/run/element_result.h"
#include "aluframe/run/told.h"
#include "aluframe/store/result_file.h"
#include "aluframe/tables/output_table.h"

namespace aluframe::tables {

/// Remarks of a run, a line each, with all elements that they concern.
OutputTable remarks_table(const std::vector<store::RemarkRow>& remarks);

/// Adds to a table with a line an element and check (`governing_table`) whether the run had a
/// second opinion, and the kinds of the remarks on the element: "B12, C1".
void add_told_columns(OutputTable& table, const std::vector<run::ElementResult>& elements,
                      run::SecondOpinion second_opinion,
                      const std::vector<store::RemarkRow>& remarks);

}  // namespace aluframe::tables
