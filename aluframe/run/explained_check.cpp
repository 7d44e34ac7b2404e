#include "aluframe/run/explained_check.h"

#include <algorithm>
#include <set>
#include <utility>
#include <vector>

#include "aluframe/model/number_ranges.h"
#include "aluframe/services/run_monitor.h"
#include "aluframe/texts/text.h"

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

/// Records of the element in each combination.
Records records_of_combinations(store::ResultReader& reader, model::Number element) {
  Records records = reader.read_all(element);
  std::erase_if(records, [](const auto& record) { return record.combination == 0; });
  return records;
}

/// Records of the wanted element, combination and side.
Result<Records> wanted_records(store::ResultReader& reader, const WantedCheck& wanted) {
  Records records = records_of_combinations(reader, wanted.element);
  if (records.empty()) {
    return Problem{
        texts::translated("--element: there is no result of element {}", wanted.element)};
  }
  if (wanted.combination) {
    const auto chosen = combinations_of(reader.info(), *wanted.combination);
    std::erase_if(records, [&](const auto& row) { return !chosen.contains(row.combination); });
    if (records.empty()) {
      return Problem{texts::translated(
          "--combination: there is no result of element {} in combination {}, covered are {}",
          wanted.element, *wanted.combination, covered_text(reader.info()))};
    }
  }
  if (wanted.min_side) {
    std::erase_if(records, [&](const auto& row) { return row.min_side != *wanted.min_side; });
    if (records.empty()) {
      return Problem{
          *wanted.min_side == 0
              ? texts::translated("--side: there is no maximum side, as no combination has two")
              : texts::translated("--side: there is no minimum side, as no combination has two")};
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

/// A stored check and where it stands.
struct Found {
  CheckPlace place;
  T_RALU_RLT check;
};

/// Keeps the check in place of the one found before when it is to be shown before it.
void keep(std::optional<Found>& worst, const CheckPlace& place, const T_RALU_RLT& check) {
  if (RaluIsEmpty(check.dDemand, check.dCapacity)) return;
  if (!worst || goes_before(check, worst->check)) worst = Found{place, check};
}

void keep_worst_of_item(std::optional<Found>& worst, const Records& records, int item,
                        const WantedCheck& wanted) {
  for (const store::StoredRecord& row : records) {
    for (int p = 0; p < kCheckPositions; ++p) {
      if (wanted.position && p != *wanted.position) continue;
      const T_RALU_SECT& at = row.record.aSect[static_cast<std::size_t>(p)];
      const T_RALU_RLT& check = at.aItem[static_cast<std::size_t>(item)];
      keep(worst, {item, row.combination, row.min_side, p, check}, check);
    }
  }
}

}  // namespace

Result<CheckPlace> find_check(store::ResultReader& reader, const WantedCheck& wanted) {
  auto found = wanted_records(reader, wanted);
  if (auto* problem = std::get_if<Problem>(&found)) return std::move(*problem);
  const auto& records = std::get<Records>(found);
  std::optional<Found> worst;
  for (int item = 0; item < kResultItems; ++item) {
    if (!wanted.item || item == *wanted.item) keep_worst_of_item(worst, records, item, wanted);
  }
  if (worst) return worst->place;
  return CheckPlace{wanted.item.value_or(RALU_STRENGTH), records.front().combination,
                    records.front().min_side, wanted.position.value_or(0), std::nullopt};
}

std::optional<CheckPlace> governing_check(store::ResultReader& reader, model::Number element) {
  const Records records = records_of_combinations(reader, element);
  std::optional<Found> worst;
  for (int item = 0; item < kResultItems; ++item) {
    keep_worst_of_item(worst, records, item, {.element = element});
  }
  return worst ? std::optional(worst->place) : std::nullopt;
}

std::vector<CheckPlace> worst_checks(store::ResultReader& reader, model::Number element) {
  const Records records = records_of_combinations(reader, element);
  std::vector<CheckPlace> places;
  for (int item = 0; item < kResultItems; ++item) {
    std::optional<Found> worst;
    keep_worst_of_item(worst, records, item, {.element = element});
    if (worst) places.push_back(worst->place);
  }
  return places;
}

}  // namespace aluframe::run
