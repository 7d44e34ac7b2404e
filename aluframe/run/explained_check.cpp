#include "aluframe/run/explained_check.h"

#include <fmt/format.h>

#include <algorithm>
#include <set>
#include <utility>
#include <vector>

#include "aluframe/model/number_ranges.h"
#include "aluframe/services/run_monitor.h"

namespace aluframe::run {

namespace {

using Records = std::vector<store::StoredRecord>;

/// Combinations of the run that a number stands for: its own, or the states of an envelope.
std::set<std::uint32_t> combinations_of(const store::RunInfo& info, model::Number number) {
  std::set<std::uint32_t> found;
  for (const store::CombinationRow& row : info.combinations) {
    if (row.number == number) found.insert(row.number);
  }
  for (const store::EnvelopeState& row : info.envelope_states) {
    if (row.envelope == number) found.insert(row.combination);
  }
  return found;
}

std::string covered_text(const store::RunInfo& info) {
  std::set<model::Number> numbers;
  for (const store::CombinationRow& row : info.combinations) {
    numbers.insert(row.state_of.value_or(row.number));
  }
  for (const store::EnvelopeState& row : info.envelope_states) numbers.insert(row.envelope);
  return model::join_as_ranges({numbers.begin(), numbers.end()});
}

/// Records of the wanted element, combination and side.
Result<Records> wanted_records(store::ResultReader& reader, const WantedCheck& wanted) {
  Records records = reader.read_all(wanted.element);
  std::erase_if(records, [](const auto& record) { return record.combination == 0; });
  if (records.empty()) {
    return Problem{fmt::format("--element: there is no result of element {}", wanted.element)};
  }
  if (wanted.combination) {
    const auto chosen = combinations_of(reader.info(), *wanted.combination);
    std::erase_if(records, [&](const auto& row) { return !chosen.contains(row.combination); });
    if (records.empty()) {
      return Problem{fmt::format(
          "--combination: there is no result of element {} in combination {}, covered are {}",
          wanted.element, *wanted.combination, covered_text(reader.info()))};
    }
  }
  if (wanted.min_side) {
    std::erase_if(records, [&](const auto& row) { return row.min_side != *wanted.min_side; });
    if (records.empty()) {
      return Problem{fmt::format("--side: there is no {} side, as no combination has two",
                                 *wanted.min_side == 0 ? "maximum" : "minimum")};
    }
  }
  return records;
}

/// True when the first check is to be shown before the second: a judged one before others, then the
/// worse one.
bool goes_before(const T_RALU_RLT& a, const T_RALU_RLT& b) {
  const bool is_judged = services::was_judged(a.dDemand, a.dCapacity);
  if (is_judged != services::was_judged(b.dDemand, b.dCapacity)) return is_judged;
  return RaluGoverns(a.dDemand, a.dCapacity, b.dDemand, b.dCapacity);
}

std::optional<CheckPlace> worst_of_item(const Records& records, int item,
                                        std::optional<int> position) {
  std::optional<CheckPlace> worst;
  for (const store::StoredRecord& row : records) {
    for (int p = 0; p < kCheckPositions; ++p) {
      if (position && p != *position) continue;
      const T_RALU_RLT& check =
          row.record.aSect[static_cast<std::size_t>(p)].aItem[static_cast<std::size_t>(item)];
      if (RaluIsEmpty(check.dDemand, check.dCapacity)) continue;
      if (worst && !goes_before(check, *worst->stored)) continue;
      worst = CheckPlace{item, row.combination, row.min_side, p, check};
    }
  }
  return worst;
}

}  // namespace

Result<CheckPlace> find_check(store::ResultReader& reader, const WantedCheck& wanted) {
  auto found = wanted_records(reader, wanted);
  if (auto* problem = std::get_if<Problem>(&found)) return std::move(*problem);
  const auto& records = std::get<Records>(found);
  std::optional<CheckPlace> worst;
  for (int item = 0; item < kResultItems; ++item) {
    if (wanted.item && item != *wanted.item) continue;
    const auto of_item = worst_of_item(records, item, wanted.position);
    if (!of_item || (worst && !goes_before(*of_item->stored, *worst->stored))) continue;
    worst = of_item;
  }
  if (worst) return *worst;
  return CheckPlace{wanted.item.value_or(RALU_STRENGTH), records.front().combination,
                    records.front().min_side, wanted.position.value_or(0), std::nullopt};
}

}  // namespace aluframe::run
