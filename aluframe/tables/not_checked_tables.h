#pragma once

#include <string>
#include <vector>

#include "aluframe/store/result_file.h"
#include "aluframe/tables/output_table.h"
#include "aluframe/tables/short_lists.h"

namespace aluframe::tables {

/// What could not be checked, grouped by reason, as lines for the user, with the largest of the
/// forces that stay without a check and where it acts.
/// `remarks`: of the same run, for the second opinion of shear and torsion.
std::string not_checked_text(const std::vector<store::NotChecked>& items,
                             const std::vector<store::RemarkRow>& remarks = {},
                             Lists lists = Lists::shortened);

/// The same as a table: a line a reason and force, magnitudes in N and N·mm.
OutputTable not_checked_table(const std::vector<store::NotChecked>& items,
                              const std::vector<store::RemarkRow>& remarks = {});

/// The same in one line, for a cell: "torsion: element 1-3, largest ...; ...".
std::string not_checked_line(const std::vector<store::NotChecked>& items);

}  // namespace aluframe::tables
