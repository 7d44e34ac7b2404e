#include "aluframe/tables/result_tables.h"

#include <fmt/format.h>

#include <algorithm>
#include <array>
#include <cmath>
#include <utility>

#include "aluframe/services/run_monitor.h"
#include "aluframe/texts/sentence.h"
#include "aluframe/texts/text.h"

namespace aluframe::tables {

namespace {

/// Check items with a place in the tables: all but the one that no check fills.
constexpr std::array shown_items{
    RALU_STRENGTH,           RALU_SHEAR_Y,       RALU_SHEAR_Z,      RALU_STABILITY,
    RALU_COMBINED_STABILITY, RALU_SLENDERNESS_Y, RALU_SLENDERNESS_Z};

bool is_slenderness(int item) {
  return item == RALU_SLENDERNESS_Y || item == RALU_SLENDERNESS_Z;
}

std::string heading_of(int item) {
  switch (item) {
    case RALU_COMBINED_STABILITY:
      return texts::translatable("combined");
    case RALU_SLENDERNESS_Y:
      return texts::translatable("slender y");
    case RALU_SLENDERNESS_Z:
      return texts::translatable("slender z");
    default:
      return std::string(item_name(item));
  }
}

/// "max", "min", or nothing for a combination with one side.
Cell side_of(const store::RunInfo& info, std::uint32_t number, int min_side) {
  const auto found = std::ranges::find(info.combinations, number, &store::CombinationRow::number);
  if (found == info.combinations.end() || !found->two_sides) return {};
  return std::string(min_side != 0 ? "min" : "max");
}

Cell whole(std::uint32_t value) {
  return static_cast<std::int64_t>(value);
}

Cell text(std::string_view value) {
  return std::string(value);
}

Cell phrase(std::string_view value) {
  return Phrase{std::string(value)};
}

double shown(int item, double value, const ResultView& view) {
  return is_slenderness(item) ? value : value * view.stress_scale;
}

/// The ratio, or nothing where the demand was not set against a limit.
Cell ratio_cell(double demand, double capacity) {
  if (!services::was_judged(demand, capacity)) return {};
  return RaluRatio(demand, capacity);
}

std::vector<Cell> ratios_of(const T_RALU_SECT& position) {
  std::vector<Cell> cells;
  for (const int item : shown_items) {
    const T_RALU_RLT& check = position.aItem[static_cast<std::size_t>(item)];
    cells.push_back(ratio_cell(check.dDemand, check.dCapacity));
  }
  return cells;
}

bool is_empty(const std::vector<Cell>& cells) {
  return std::ranges::all_of(
      cells, [](const Cell& cell) { return std::holds_alternative<std::monostate>(cell); });
}

void add_ratio_columns(OutputTable& table) {
  for (const int item : shown_items) {
    table.columns.push_back({.key = std::string(item_name(item)) + " ratio",
                             .heading = heading_of(item),
                             .is_ratio = true});
  }
}

void add_check_columns(OutputTable& table) {
  table.columns.push_back({.key = "item", .heading = texts::translatable("check")});
  table.columns.push_back({.key = "demand", .heading = texts::translatable("demand")});
  table.columns.push_back({.key = "capacity", .heading = texts::translatable("capacity")});
  table.columns.push_back({.key = "unit", .heading = texts::translatable("unit")});
  table.columns.push_back(
      {.key = "ratio", .heading = texts::translatable("ratio"), .decimals = 4, .is_ratio = true});
}

void add_check(std::vector<Cell>& row, int item, double demand, double capacity,
               const ResultView& view) {
  row.push_back(phrase(item_name(item)));
  row.push_back(shown(item, demand, view));
  row.push_back(capacity == 0.0 ? Cell() : Cell(shown(item, capacity, view)));
  row.push_back(is_slenderness(item) ? Cell() : Cell(view.stress_unit));
  row.push_back(ratio_cell(demand, capacity));
}

/// The safe ratio and its rules; nothing for an element without a second opinion.
void add_safe(std::vector<Cell>& row, const SafeByElement& safe, std::uint32_t element) {
  const auto found = safe.find(element);
  row.push_back(found == safe.end() ? Cell() : Cell(found->second.safe));
  row.push_back(found == safe.end() || found->second.rules.empty() ? Cell()
                                                                   : text(found->second.rules));
}

void add_safe_columns(OutputTable& table) {
  table.columns.push_back(
      {.key = "safe_ratio", .heading = texts::translatable("safe ratio"), .is_ratio = true});
  for (const auto& [key, heading] :
       {std::pair{"safe_rules", texts::translatable("rules")},
        std::pair{"safe_item", texts::translatable("safe check")},
        std::pair{"safe_combination", texts::translatable("safe comb")},
        std::pair{"safe_combination_name", texts::translatable("name of safe comb")},
        std::pair{"safe_fraction", texts::translatable("share of the length")},
        std::pair{"safe_from_start_mm", texts::translatable("mm from the start")}}) {
    table.columns.push_back({.key = key, .heading = heading});
  }
}

void add_safe_in_full(std::vector<Cell>& row, const SafeByElement& safe, std::uint32_t element,
                      const store::RunInfo& info) {
  add_safe(row, safe, element);
  const auto found = safe.find(element);
  if (found == safe.end()) {
    row.insert(row.end(), 5, Cell());
    return;
  }
  const store::SafeRow& of = found->second;
  row.push_back(phrase(item_name(of.item)));
  row.push_back(whole(number_of_combination(info, of.combination)));
  row.push_back(name_of_combination(info, of.combination));
  row.push_back(of.fraction ? Cell(*of.fraction) : Cell());
  row.push_back(of.fraction ? Cell(of.from_start) : Cell());
}

}  // namespace

std::string second_opinion_text(const store::RemarkRow& remark) {
  if (!remark.ratio) return "";
  const std::string ratio = short_number(*remark.ratio);
  if (!remark.element) return texts::translated("second opinion {}", ratio);
  return remark.combination
             ? texts::translated("second opinion {} (element {}, combination {})", ratio,
                                 *remark.element, *remark.combination)
             : texts::translated("second opinion {} (element {})", ratio, *remark.element);
}

bool is_told_as_not_checked(const store::RemarkRow& remark) {
  return remark.kind == "C5" || remark.kind == "C6";
}

std::string remarks_text(const std::vector<store::RemarkRow>& remarks, Lists lists) {
  std::string out;
  for (const store::RemarkRow& remark : remarks) {
    if (is_told_as_not_checked(remark)) continue;
    const std::string text = texts::sentence_in_words(remark.text);
    const std::string_view kind = texts::translation_of(remark.kind);
    out += remark.elements.empty() ? texts::translated("    {}: {}", kind, text)
                                   : texts::translated("    {}, element {}: {}", kind,
                                                       shown_list(remark.elements, lists), text);
    if (remark.ratio) out += texts::translated("; {}", second_opinion_text(remark));
    out += "\n";
  }
  return out.empty() ? out : texts::translated("  remarks\n") + out;
}

OutputTable overview_table(const std::vector<run::ElementResult>& elements,
                           const store::RunInfo& info, const SafeByElement& safe) {
  OutputTable table;
  table.columns = {{.key = "element", .heading = texts::translatable("element")},
                   {.key = "type", .heading = texts::translatable("type")}};
  add_ratio_columns(table);
  table.columns.push_back(
      {.key = "ratio", .heading = texts::translatable("worst"), .decimals = 4, .is_ratio = true});
  table.columns.push_back({.key = "item", .heading = texts::translatable("check")});
  table.columns.push_back({.key = "position", .heading = texts::translatable("pos")});
  table.columns.push_back({.key = "combination", .heading = texts::translatable("comb")});
  table.columns.push_back({.key = "name", .heading = texts::translatable("name")});
  table.columns.push_back({.key = "side", .heading = texts::translatable("side")});
  if (!safe.empty()) {
    table.columns.push_back(
        {.key = "safe", .heading = texts::translatable("safe"), .decimals = 4, .is_ratio = true});
    table.columns.push_back({.key = "rules", .heading = texts::translatable("rules")});
  }
  for (const run::ElementResult& element : elements) {
    std::vector<Cell> row{whole(element.element), phrase(member_type_name(element.member_type))};
    for (const int item : shown_items) {
      const store::GoverningRow* check = element.find(item);
      row.push_back(check == nullptr
                        ? Cell()
                        : ratio_cell(check->governing.dDemand, check->governing.dCapacity));
    }
    const store::GoverningRow& worst = element.worst();
    row.push_back(ratio_cell(worst.governing.dDemand, worst.governing.dCapacity));
    row.push_back(phrase(item_name(worst.item)));
    row.push_back(text(position_name(worst.governing.nPos)));
    row.push_back(whole(number_of_combination(info, worst.governing.nLComb)));
    row.push_back(name_of_combination(info, worst.governing.nLComb));
    row.push_back(side_of(info, worst.governing.nLComb, worst.governing.nMinSide));
    if (!safe.empty()) add_safe(row, safe, element.element);
    table.rows.push_back(std::move(row));
  }
  return table;
}

OutputTable governing_table(const std::vector<run::ElementResult>& elements,
                            const store::RunInfo& info, const ResultView& view,
                            const SafeByElement& safe) {
  OutputTable table;
  table.columns = {{.key = "element", .heading = texts::translatable("element")},
                   {.key = "member_type", .heading = texts::translatable("type")}};
  add_check_columns(table);
  table.columns.push_back({.key = "position", .heading = texts::translatable("pos")});
  table.columns.push_back({.key = "combination", .heading = texts::translatable("comb")});
  table.columns.push_back({.key = "combination_name", .heading = texts::translatable("name")});
  table.columns.push_back({.key = "side", .heading = texts::translatable("side")});
  if (!safe.empty()) add_safe_columns(table);
  for (const run::ElementResult& element : elements) {
    for (const store::GoverningRow& check : element.items) {
      std::vector<Cell> row{whole(element.element), phrase(member_type_name(element.member_type))};
      add_check(row, check.item, check.governing.dDemand, check.governing.dCapacity, view);
      row.push_back(text(position_name(check.governing.nPos)));
      row.push_back(whole(number_of_combination(info, check.governing.nLComb)));
      row.push_back(name_of_combination(info, check.governing.nLComb));
      row.push_back(side_of(info, check.governing.nLComb, check.governing.nMinSide));
      if (!safe.empty()) add_safe_in_full(row, safe, element.element, info);
      table.rows.push_back(std::move(row));
    }
  }
  return table;
}

OutputTable position_ratios_table(const std::vector<store::StoredRecord>& records,
                                  const store::RunInfo& info) {
  OutputTable table;
  table.columns = {{.key = "combination", .heading = texts::translatable("comb")},
                   {.key = "name", .heading = texts::translatable("name")},
                   {.key = "side", .heading = texts::translatable("side")},
                   {.key = "position", .heading = texts::translatable("pos")}};
  add_ratio_columns(table);
  for (const store::StoredRecord& stored : records) {
    if (stored.combination == 0) continue;
    for (int p = 0; p < kCheckPositions; ++p) {
      std::vector<Cell> ratios = ratios_of(stored.record.aSect[static_cast<std::size_t>(p)]);
      if (is_empty(ratios)) continue;
      std::vector<Cell> row{whole(number_of_combination(info, stored.combination)),
                            name_of_combination(info, stored.combination),
                            side_of(info, stored.combination, stored.min_side),
                            text(position_name(p))};
      row.insert(row.end(), ratios.begin(), ratios.end());
      table.rows.push_back(std::move(row));
    }
  }
  return table;
}

OutputTable all_checks_table(std::uint32_t element, const std::vector<store::StoredRecord>& records,
                             const store::RunInfo& info, const ResultView& view) {
  OutputTable table;
  table.columns = {{.key = "element", .heading = texts::translatable("element")},
                   {.key = "combination", .heading = texts::translatable("comb")},
                   {.key = "combination_name", .heading = texts::translatable("name")},
                   {.key = "side", .heading = texts::translatable("side")},
                   {.key = "position", .heading = texts::translatable("pos")}};
  add_check_columns(table);
  for (const store::StoredRecord& stored : records) {
    if (stored.combination == 0) continue;
    for (int p = 0; p < kCheckPositions; ++p) {
      for (const int item : shown_items) {
        const T_RALU_RLT& check =
            stored.record.aSect[static_cast<std::size_t>(p)].aItem[static_cast<std::size_t>(item)];
        if (RaluIsEmpty(check.dDemand, check.dCapacity)) continue;
        std::vector<Cell> row{
            whole(element), whole(number_of_combination(info, stored.combination)),
            name_of_combination(info, stored.combination),
            side_of(info, stored.combination, stored.min_side), text(position_name(p))};
        add_check(row, item, check.dDemand, check.dCapacity, view);
        table.rows.push_back(std::move(row));
      }
    }
  }
  return table;
}

}  // namespace aluframe::tables
