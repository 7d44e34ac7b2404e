#pragma once

#include <map>
#include <string>
#include <string_view>
#include <vector>

#include "aluframe/run/element_result.h"
#include "aluframe/services/check_run.h"
#include "aluframe/store/result_file.h"
#include "aluframe/tables/output_table.h"
#include "aluframe/tables/short_lists.h"

namespace aluframe::tables {

/// "strength", "shear y", ... of a RALU_ITEM_TYPE.
std::string_view item_name(int item);
/// "I", "1/4", "1/2", "3/4", "J" of a check position; "-" of no position.
std::string_view position_name(int position);
/// "column", "beam", "brace", "truss"; "-" of no type.
std::string_view member_type_name(int type);
std::string_view outcome_name(services::RunOutcome outcome);
/// Four digits after the point, or "inf", "-inf", "nan".
std::string short_number(double value);

/// "second opinion 0.1219 (element 7, combination 2)"; empty without a ratio.
std::string second_opinion_text(const store::RemarkRow& remark);
/// Shear and torsion without a check (C5, C6) stand with what is not checked.
bool is_told_as_not_checked(const store::RemarkRow& remark);
/// The other remarks of a run, as lines for the user; empty without any.
std::string remarks_text(const std::vector<store::RemarkRow>& remarks,
                         Lists lists = Lists::shortened);

/// "1/2 of the length (1.5 m from its start)", or "whole member".
std::string place_text(const store::SafeRow& row);

/// "Safe ratio 1.083 (strength, F1), code ratio 0.241, position 1/2, combination 3 \"1.2G\"", or
/// "combination 7 Extremes: 1.2G" for a state of the envelope 7.
std::string safe_text(const store::SafeRow& row, const store::RunInfo& info);

/// Second opinions, a line an element: ratio of the checks, safe ratio, what makes it differ,
/// where.
OutputTable safe_table(const std::vector<store::SafeRow>& rows, const store::RunInfo& info);

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
