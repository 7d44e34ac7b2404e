#include "aluframe/run/told.h"

#include <algorithm>
#include <array>
#include <iterator>
#include <string>
#include <variant>

#include "aluframe/run/element_result.h"

namespace aluframe::run {

namespace {

/// Whether one of the rising numbers is concerned.
bool is_about_one_of(const std::vector<model::Number>& elements, const store::RemarkRow& remark) {
  const ConcernedElements concerned(remark);
  return std::ranges::any_of(
      elements, [&concerned](model::Number element) { return concerned.contains(element); });
}

services::GoverningCount count_governing(store::ResultReader& results,
                                         const std::vector<model::Number>& elements) {
  services::GoverningCount count;
  for (const ElementResult& element : by_element(results.governing())) {
    if (!std::ranges::binary_search(elements, element.element)) continue;
    std::array<T_RALU_ITEM, kResultItems> checks{};
    for (const store::GoverningRow& row : element.items) {
      checks.at(static_cast<std::size_t>(row.item)) = row.governing;
    }
    count.add(element.element, checks);
  }
  return count;
}

}  // namespace

ConcernedElements::ConcernedElements(const store::RemarkRow& remark)
    : are_all_(remark.elements.empty()) {
  if (are_all_) return;
  std::string text = remark.elements;
  std::erase(text, ' ');
  rising_ = std::get<model::NumberRanges>(model::parse_number_ranges(text)).ranges();
}

bool ConcernedElements::contains(model::Number element) const {
  if (are_all_) return true;
  const auto behind = std::ranges::upper_bound(rising_, element, {}, &model::NumberRange::first);
  return behind != rising_.begin() && element <= std::prev(behind)->last;
}

Told told_by(const CheckResult& result) {
  return {result.second_opinion,
          result.safe,
          {},
          result.remarks,
          result.summary.not_checked,
          result.buckling,
          result.buckling_factors,
          result.displacements,
          result.summary.worst,
          result.summary.elements_over_limit};
}

Told told_by(store::ResultReader& results, const std::vector<model::Number>& elements) {
  Told told{.second_opinion = second_opinion_of(results.info().setup),
            .safe = std::nullopt,
            .safe_rows = results.safe(),
            .remarks = results.remarks(),
            .not_checked = results.not_checked(),
            .buckling = buckling_of(results.info().setup),
            .buckling_factors = results.buckling(),
            .displacements = results.displacements()};
  const auto is_wanted = [&elements](std::uint32_t element) {
    return std::ranges::binary_search(elements, element);
  };
  std::erase_if(told.safe_rows, [&](const auto& row) { return !is_wanted(row.element); });
  if (!told.safe_rows.empty()) told.safe = summary_of(told.safe_rows);
  const services::GoverningCount count = count_governing(results, elements);
  told.worst = count.worst();
  told.over = count.over_limit();
  std::erase_if(told.remarks, [&](const auto& row) { return !is_about_one_of(elements, row); });
  std::erase_if(told.not_checked, [&](const auto& item) { return !is_wanted(item.element); });
  return told;
}

std::vector<store::RemarkRow> remarks_about(model::Number element, store::ResultReader& results) {
  std::vector<store::RemarkRow> remarks = results.remarks();
  std::erase_if(remarks, [element](const store::RemarkRow& row) {
    return !ConcernedElements(row).contains(element);
  });
  return remarks;
}

std::vector<store::RemarkRow> with_envelopes(std::vector<store::RemarkRow> rows,
                                             const ModelCombination& combination_of) {
  for (store::RemarkRow& row : rows) {
    if (row.combination) row.combination = combination_of(*row.combination);
  }
  return rows;
}

std::vector<store::NotChecked> with_envelopes(std::vector<store::NotChecked> rows,
                                              const ModelCombination& combination_of) {
  for (store::NotChecked& row : rows) {
    if (row.largest) row.largest->combination = combination_of(row.largest->combination);
  }
  return rows;
}

}  // namespace aluframe::run
