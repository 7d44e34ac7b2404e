#include "aluframe/services/report_verdicts.h"

#include <algorithm>
#include <map>

#include "aluframe/services/governing_count.h"

namespace aluframe::services {

namespace {

using Rows = std::vector<store::GoverningRow>;

bool is_slenderness(const store::GoverningRow& row) {
  return row.item == RALU_SLENDERNESS_Y || row.item == RALU_SLENDERNESS_Z;
}

bool fails(const store::GoverningRow& row) {
  const T_RALU_ITEM& check = row.governing;
  return was_judged(check.dDemand, check.dCapacity) && exceeds_limit(check.Ratio());
}

/// Of the stored checks of an element those that have a block: of the two slendernesses, which come
/// last, the one that governs.
Rows with_a_block(Rows rows) {
  const std::size_t count = rows.size();
  if (count < 2 || !is_slenderness(rows[count - 2])) return rows;
  const bool is_last_worse = rows[count - 1].governing.ComPair(rows[count - 2].governing) != 0;
  rows.erase(rows.end() - (is_last_worse ? 2 : 1));
  return rows;
}

void add_failures(const Rows& rows, const std::vector<Verdict>& verdicts, UnprintedFailures& out) {
  const bool says_so = std::ranges::find(verdicts, Verdict::fails) != verdicts.end();
  const std::uint32_t element = rows.front().element;
  if (rows.size() != verdicts.size()) {
    if (std::ranges::any_of(rows, fails)) out.unclear.push_back(element);
    return;
  }
  bool any = false;
  for (std::size_t i = 0; i < rows.size(); ++i) {
    if (!fails(rows[i])) continue;
    any = true;
    if (verdicts[i] != Verdict::fails) out.checks.push_back(rows[i]);
  }
  if (any && !says_so) out.elements.push_back(element);
}

}  // namespace

UnprintedFailures unprinted_failures(const Rows& governing, const ReportedElements& reported) {
  std::map<std::uint32_t, Rows> stored;
  for (const store::GoverningRow& row : governing) stored[row.element].push_back(row);
  UnprintedFailures out;
  for (std::size_t i = 0; i < reported.numbers.size(); ++i) {
    const auto found = stored.find(reported.numbers[i]);
    if (found == stored.end()) continue;
    add_failures(with_a_block(found->second), reported.verdicts[i], out);
  }
  return out;
}

}  // namespace aluframe::services
