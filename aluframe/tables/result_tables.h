#pragma once

#include <map>
#include <string>
#include <vector>

#include "aluframe/run/element_result.h"
#include "aluframe/store/result_file.h"
#include "aluframe/tables/names.h"
#include "aluframe/tables/output_table.h"
#include "aluframe/tables/safe_tables.h"
#include "aluframe/tables/short_lists.h"

namespace aluframe::tables {

/// "second opinion 0.1219 (element 7, combination 2)"; empty without a ratio.
std::string second_opinion_text(const store::RemarkRow& remark);
/// Shear and torsion without a check (C5, C6) stand with what is not checked.
bool is_told_as_not_checked(const store::RemarkRow& remark);
/// The other remarks of a run, as lines for the user; empty without any.
std::string remarks_text(const std::vector<store::RemarkRow>& remarks,
                         Lists lists = Lists::shortened);

/// Second opinions by element.
using SafeByElement = std::map<std::uint32_t, store::SafeRow>;

/// How results are shown.
struct ResultView {
  double stress_scale = 1.0;  ///< what a stress in N/mm² is multiplied by
  std::string stress_unit = "N/mm²";
};

/// One line an element: the ratio of every check item, and which one governs, where.
/// With second opinions also the safe ratio and the rules that make it differ.
OutputTable overview_table(const std::vector<run::ElementResult>& elements,
                           const store::RunInfo& info, const SafeByElement& safe = {});
/// One line an element and check item, with demand and capacity.
OutputTable governing_table(const std::vector<run::ElementResult>& elements,
                            const store::RunInfo& info, const ResultView& view,
                            const SafeByElement& safe = {});
/// All ratios of one element: one line a combination, side and position.
OutputTable position_ratios_table(const std::vector<store::StoredRecord>& records,
                                  const store::RunInfo& info);
/// All checks of one element: one line a combination, side, position and check item.
OutputTable all_checks_table(std::uint32_t element, const std::vector<store::StoredRecord>& records,
                             const store::RunInfo& info, const ResultView& view);

}  // namespace aluframe::tables
