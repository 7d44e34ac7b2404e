#pragma once

#include <array>
#include <cstdint>
#include <vector>

#include "aluframe/model/table.h"
#include "aluframe/store/result_file.h"

namespace aluframe::run {

/// Whether a demand was set against a limit (services::was_judged).
bool was_judged(const T_RALU_RLT& check);
bool was_judged(const store::GoverningRow& row);
/// Whether a check fails (services::exceeds_limit).
bool fails(const store::GoverningRow& row);

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

/// The largest ratio of each check position of an element in all combinations; no number where no
/// check has a limit.
std::array<double, kCheckPositions> ratios_along(store::ResultReader& reader,
                                                 model::Number element);

}  // namespace aluframe::run
