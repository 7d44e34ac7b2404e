#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "aluframe/services/check_run.h"
#include "aluframe/store/result_file.h"
#include "apps/cli/output_table.h"

namespace aluframe::cli {

/// "strength", "shear y", ... of a RALU_ITEM_TYPE.
std::string_view item_name(int item);
/// "I", "1/4", "1/2", "3/4", "J" of a check position; "-" of no position.
std::string_view position_name(int position);
/// "column", "beam", "brace", "truss"; "-" of no type.
std::string_view member_type_name(int type);
std::string_view outcome_name(services::RunOutcome outcome);
/// Four digits after the point, or "inf", "-inf", "nan".
std::string short_number(double value);

/// What could not be checked, grouped by reason, as lines for the user.
std::string not_checked_text(const std::vector<store::NotChecked>& items);

/// The governing checks of one element.
struct ElementResult {
  std::uint32_t element = 0;
  int member_type = 0;
  std::vector<store::GoverningRow> items;

  /// The worst of them; a slenderness without a limit only when there is nothing else.
  const store::GoverningRow& worst() const;
  /// The check of an item type, or null.
  const store::GoverningRow* find(int item) const;
};

/// Governing rows put together per element, in the order of the rows.
std::vector<ElementResult> by_element(const std::vector<store::GoverningRow>& rows);

/// How results are shown.
struct ResultView {
  double stress_scale = 1.0;  ///< what a stress in N/mm² is multiplied by
  std::string stress_unit = "N/mm²";
};

/// One line an element: the ratio of every check item, and which one governs, where.
OutputTable overview_table(const std::vector<ElementResult>& elements, const store::RunInfo& info);
/// One line an element and check item, with demand and capacity.
OutputTable governing_table(const std::vector<ElementResult>& elements, const store::RunInfo& info,
                            const ResultView& view);
/// All ratios of one element: one line a combination, side and position.
OutputTable position_ratios_table(const std::vector<store::StoredRecord>& records,
                                  const store::RunInfo& info);
/// All checks of one element: one line a combination, side, position and check item.
OutputTable all_checks_table(std::uint32_t element, const std::vector<store::StoredRecord>& records,
                             const store::RunInfo& info, const ResultView& view);

}  // namespace aluframe::cli
