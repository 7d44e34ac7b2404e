#include "apps/desktop/row_elements.h"

#include <algorithm>
#include <cstdint>
#include <string>
#include <string_view>
#include <unordered_map>
#include <variant>

#include "aluframe/model/members.h"
#include "aluframe/model/number_ranges.h"

namespace aluframe::desktop {

namespace {

using model::Number;

std::size_t column_of(const tables::OutputTable& table, std::string_view key) {
  const auto found = std::ranges::find(table.columns, key, &tables::Column::key);
  return static_cast<std::size_t>(found - table.columns.begin());
}

std::vector<Number> rising_numbers(const model::Model& model) {
  std::vector<Number> numbers;
  for (const model::Element& element : model.elements) numbers.push_back(element.number);
  std::ranges::sort(numbers);
  return numbers;
}

/// The numbers of a list that exist.
/// @param existing rising
std::vector<Number> listed(const tables::Cell& cell, const std::vector<Number>& existing) {
  const auto* list = std::get_if<std::string>(&cell);
  if (list == nullptr) return {};
  std::string text = *list;
  std::erase(text, ' ');
  const auto parsed = model::parse_number_ranges(text);
  const auto* ranges = std::get_if<model::NumberRanges>(&parsed);
  if (ranges == nullptr) return {};
  std::vector<Number> numbers;
  for (const model::NumberRange& range : ranges->ranges()) {
    numbers.insert(numbers.end(), std::ranges::lower_bound(existing, range.first),
                   std::ranges::upper_bound(existing, range.last));
  }
  return numbers;
}

}  // namespace

void RowElements::add(std::span<const Number> elements) {
  elements_.insert(elements_.end(), elements.begin(), elements.end());
  starts_.push_back(elements_.size());
}

std::span<const Number> RowElements::of(std::size_t row) const {
  return std::span(elements_).subspan(starts_[row], starts_[row + 1] - starts_[row]);
}

RowElements elements_by_number(const tables::OutputTable& table) {
  const std::size_t column = column_of(table, "element");
  RowElements out;
  for (const auto& row : table.rows) {
    const auto number = static_cast<Number>(std::get<std::int64_t>(row.at(column)));
    out.add(std::span(&number, 1));
  }
  return out;
}

RowElements elements_by_list(const tables::OutputTable& table, const model::Model& model) {
  const std::size_t column = column_of(table, "elements");
  const std::vector<Number> existing = rising_numbers(model);
  RowElements out;
  for (const auto& row : table.rows) out.add(listed(row.at(column), existing));
  return out;
}

RowElements elements_at_nodes(const model::Model& model) {
  const model::Connectivity connectivity(model);
  RowElements out;
  for (const model::Node& node : model.nodes) out.add(connectivity.elements_at(node.number));
  return out;
}

RowElements elements_with(const model::Model& model, Number model::Element::* what,
                          const std::vector<Number>& numbers) {
  std::unordered_map<Number, std::vector<Number>> found;
  for (const model::Element& element : model.elements) {
    found[element.*what].push_back(element.number);
  }
  RowElements out;
  for (const Number number : numbers) out.add(found[number]);
  return out;
}

}  // namespace aluframe::desktop
