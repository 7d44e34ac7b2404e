#include "aluframe/run/results.h"

#include "aluframe/texts/text.h"

#include <algorithm>
#include <cmath>
#include <functional>
#include <limits>
#include <set>
#include <string_view>
#include <utility>
#include <variant>

namespace aluframe::run {

namespace {

namespace fs = std::filesystem;

/// Check items by the names that they are asked for with.
constexpr std::pair<std::string_view, int> items_by_name[] = {
    {"strength", RALU_STRENGTH},
    {"shear-y", RALU_SHEAR_Y},
    {"shear-z", RALU_SHEAR_Z},
    {"stability", RALU_STABILITY},
    {"combined-stability", RALU_COMBINED_STABILITY},
    {"slenderness-y", RALU_SLENDERNESS_Y},
    {"slenderness-z", RALU_SLENDERNESS_Z},
};

/// True when the first element goes before the second by the check item.
bool goes_before(const ElementResult& a, const ElementResult& b, int item) {
  const store::GoverningRow* first = a.find(item);
  const store::GoverningRow* second = b.find(item);
  if (first == nullptr || second == nullptr) return first != nullptr && second == nullptr;
  return first->governing.ComPair(second->governing) != 0;
}

using SafeByElement = std::map<std::uint32_t, store::SafeRow>;

/// The safe ratio, what is not finite before anything, nothing last.
double safe_rank(const SafeByElement& safe, std::uint32_t element) {
  const auto found = safe.find(element);
  if (found == safe.end()) return -std::numeric_limits<double>::infinity();
  const double ratio = found->second.safe;
  return std::isfinite(ratio) ? ratio : std::numeric_limits<double>::infinity();
}

void sort_elements(std::vector<ElementResult>& elements, const std::string& key,
                   const SafeByElement& safe) {
  if (key == "element") {
    std::ranges::stable_sort(elements, {}, &ElementResult::element);
  } else if (key == "ratio") {
    std::ranges::stable_sort(elements, [](const ElementResult& a, const ElementResult& b) {
      return a.worst().governing.ComPair(b.worst().governing) != 0;
    });
  } else if (key == "safe") {
    std::ranges::stable_sort(elements, std::greater<>(), [&](const ElementResult& element) {
      return safe_rank(safe, element.element);
    });
  } else if (const std::optional<int> item = parse_item(key)) {
    std::ranges::stable_sort(elements, [&](const ElementResult& a, const ElementResult& b) {
      return goes_before(a, b, *item);
    });
  }
}

/// The combinations of the run that the user names by their own numbers or by their envelope's.
Result<std::set<model::Number>> chosen_combinations(const store::RunInfo& info,
                                                    const model::NumberRanges& ranges) {
  std::vector<model::Number> existing;
  existing.reserve(info.combinations.size() + info.envelope_states.size());
  for (const store::CombinationRow& row : info.combinations) existing.push_back(row.number);
  for (const store::EnvelopeState& row : info.envelope_states) existing.push_back(row.envelope);
  const auto selected =
      model::select(ranges, existing, texts::translated("result of a combination"));
  if (const auto* text = std::get_if<std::string>(&selected)) {
    return Problem{"--combinations: " + *text};
  }
  const auto& numbers = std::get<std::vector<model::Number>>(selected);
  std::set<model::Number> chosen(numbers.begin(), numbers.end());
  for (const store::EnvelopeState& row : info.envelope_states) {
    if (ranges.contains(row.envelope)) chosen.insert(row.combination);
  }
  return chosen;
}

}  // namespace

fs::path result_path_of(fs::path model) {
  return model.replace_extension(".aluresult");
}

fs::path result_file_of(const fs::path& input) {
  const std::string name = input.filename().string();
  const bool is_result_file =
      name.ends_with(".aluresult") || name.ends_with(store::partial_path_of(".aluresult").string());
  return is_result_file ? input : result_path_of(input);
}

SafeByElement safe_by_element(store::ResultReader& reader) {
  SafeByElement safe;
  for (store::SafeRow& row : reader.safe()) safe.emplace(row.element, std::move(row));
  return safe;
}

std::optional<int> parse_item(std::string_view name) {
  const auto* const found =
      std::ranges::find(items_by_name, name, &std::pair<std::string_view, int>::first);
  return found == std::end(items_by_name) ? std::nullopt : std::optional(found->second);
}

std::string_view item_name(int item) {
  const auto* const found =
      std::ranges::find(items_by_name, item, &std::pair<std::string_view, int>::second);
  return found == std::end(items_by_name) ? "" : found->first;
}

std::string item_names() {
  std::string names;
  for (const auto& [name, item] : items_by_name) {
    names += (names.empty() ? "" : ", ") + std::string(name);
  }
  return names;
}

std::string sort_names() {
  return "element, ratio, safe, " + item_names();
}

bool is_sort_name(const std::string& name) {
  return name == "element" || name == "ratio" || name == "safe" || parse_item(name);
}

Result<std::vector<ElementResult>> elements_of(store::ResultReader& reader,
                                               const ResultsQuery& query) {
  std::vector<ElementResult> elements = by_element(reader.governing());
  if (!query.elements.empty()) {
    auto selected =
        model::select(query.elements, reader.elements(), texts::translated("result of an element"));
    if (const auto* text = std::get_if<std::string>(&selected)) {
      return Problem{"--elements: " + *text};
    }
    std::erase_if(elements, [&](const ElementResult& element) {
      return !query.elements.contains(element.element);
    });
  }
  const SafeByElement safe = safe_by_element(reader);
  if (query.over) {
    std::erase_if(elements, [&](const ElementResult& element) {
      const double ratio = element.worst().governing.Ratio();
      return std::isfinite(ratio) && ratio <= *query.over &&
             safe_rank(safe, element.element) <= *query.over;
    });
  }
  sort_elements(elements, query.sort, safe);
  if (query.top && elements.size() > *query.top) elements.resize(*query.top);
  return elements;
}

Result<std::vector<store::StoredRecord>> records_of(store::ResultReader& reader,
                                                    model::Number element,
                                                    const model::NumberRanges& combinations) {
  std::vector<store::StoredRecord> records = reader.read_all(element);
  if (records.empty()) {
    return Problem{texts::translated("--element: there is no result of element {}", element)};
  }
  if (combinations.empty()) return records;
  auto chosen = chosen_combinations(reader.info(), combinations);
  if (auto* problem = std::get_if<Problem>(&chosen)) return std::move(*problem);
  const auto& numbers = std::get<std::set<model::Number>>(chosen);
  std::erase_if(records, [&](const store::StoredRecord& record) {
    return record.combination != 0 && !numbers.contains(record.combination);
  });
  return records;
}

}  // namespace aluframe::run
