#include "aluframe/document/governing_tables.h"

#include <fmt/format.h>

#include <algorithm>
#include <array>

#include "aluframe/document/names.h"
#include "aluframe/document/table.h"
#include "aluframe/tables/names.h"
#include "aluframe/texts/text.h"

namespace aluframe::document {

namespace {

/// All items but the one that no check fills, with headings that leave room for the ratios.
constexpr std::array shown_items{
    std::pair{int{RALU_STRENGTH}, texts::translatable("str.")},
    std::pair{int{RALU_SHEAR_Y}, texts::translatable("Vy")},
    std::pair{int{RALU_SHEAR_Z}, texts::translatable("Vz")},
    std::pair{int{RALU_STABILITY}, texts::translatable("stab.")},
    std::pair{int{RALU_COMBINED_STABILITY}, texts::translatable("comb. stab.")},
    std::pair{int{RALU_SLENDERNESS_Y}, texts::translatable("λy")},
    std::pair{int{RALU_SLENDERNESS_Z}, texts::translatable("λz")}};

std::string verdict_of(const store::GoverningRow& row) {
  if (!run::was_judged(row)) return texts::translated("no limit");
  return run::fails(row) ? texts::translated("fails") : texts::translated("holds");
}

std::string position_text(const store::GoverningRow& row) {
  return std::string(tables::position_name(row.governing.nPos));
}

std::string combination_text(const run::DocumentContent& content, const store::GoverningRow& row) {
  return combination_label(content.info, row.governing.nLComb, row.governing.nMinSide);
}

std::vector<Column> element_columns(bool has_safe) {
  std::vector<Column> columns{{texts::translated("Element")},
                              {texts::translated("Type"), Align::left},
                              {texts::translated("Section")}};
  for (const auto& [item, heading] : shown_items) {
    columns.push_back({std::string(texts::translation_of(heading))});
  }
  columns.push_back({texts::translated("Ratio")});
  columns.push_back({texts::translated("Check"), Align::left});
  columns.push_back({texts::translated("At")});
  columns.push_back({texts::translated("Combination"), Align::left});
  if (has_safe) {
    columns.push_back({texts::translated("Safe ratio")});
    columns.push_back({texts::translated("Rules"), Align::left});
  }
  columns.push_back({texts::translated("Verdict"), Align::left});
  return columns;
}

Cell ratio_cell(const store::GoverningRow* row) {
  if (row == nullptr) return {};
  return {ratio_text(*row), run::fails(*row)};
}

void add_safe(std::vector<Cell>& cells, const run::DocumentContent& content,
              model::Number element) {
  const auto found = content.safe.find(element);
  if (found == content.safe.end()) {
    cells.resize(cells.size() + 2);
    return;
  }
  cells.push_back({tables::short_number(found->second.safe), !(found->second.safe <= 1.0)});
  cells.push_back({found->second.rules});
}

std::vector<Cell> element_cells(const run::DocumentContent& content,
                                const run::ElementResult& element) {
  const store::GoverningRow& worst = element.worst();
  std::vector<Cell> cells{
      {fmt::format("{}", element.element)},
      {member_type_label(element.member_type)},
      {fmt::format("{}", content.input.model.elements.find(element.element)->section)}};
  for (const auto& [item, heading] : shown_items) cells.push_back(ratio_cell(element.find(item)));
  cells.push_back(ratio_cell(&worst));
  cells.push_back({item_label(worst.item)});
  cells.push_back({position_text(worst)});
  cells.push_back({combination_text(content, worst)});
  if (!content.safe.empty()) add_safe(cells, content, element.element);
  cells.push_back({verdict_of(worst), run::fails(worst)});
  return cells;
}

/// The worst check of some elements, and how many there are.
struct Group {
  std::size_t elements = 0, over = 0;
  const store::GoverningRow* worst = nullptr;
};

/// @param elements the worst ratio first
Group group_of(const run::DocumentContent& content, model::Number section) {
  Group group;
  for (const run::ElementResult& element : content.elements) {
    if (content.input.model.elements.find(element.element)->section != section) continue;
    const store::GoverningRow& worst = element.worst();
    ++group.elements;
    if (run::fails(worst)) ++group.over;
    if (group.worst == nullptr && run::was_judged(worst)) group.worst = &worst;
  }
  return group;
}

/// Element, ratio, check, place and verdict of a worst check.
std::vector<Column> worst_columns() {
  return {{texts::translated("Ratio")},
          {texts::translated("Check"), Align::left},
          {texts::translated("Element")},
          {texts::translated("At")}};
}

void add_worst(std::vector<Cell>& cells, const store::GoverningRow* worst) {
  if (worst == nullptr) {
    cells.resize(cells.size() + 4);
    return;
  }
  cells.push_back(ratio_cell(worst));
  cells.push_back({item_label(worst->item)});
  cells.push_back({fmt::format("{}", worst->element)});
  cells.push_back({position_text(*worst)});
}

}  // namespace

std::string id_of_element(model::Number element) {
  return fmt::format("element-{}", element);
}

void write_by_element(HtmlWriter& html, const run::DocumentContent& content) {
  html.leaf("p", texts::translated(
                     "Governing ratio of every check, over all combinations and positions: "
                     "strength, shear along y and z, stability, combined stability, slenderness "
                     "about y and z. A dash: there is no such check."));
  write_table(html, texts::translated("Governing ratios by element, the largest first"),
              element_columns(!content.safe.empty()), [&](TableRows& rows) {
                for (const run::ElementResult& element : content.elements) {
                  rows.add(element_cells(content, element), id_of_element(element.element));
                }
              });
}

void write_by_section(HtmlWriter& html, const run::DocumentContent& content) {
  std::vector<Column> columns{{texts::translated("Section")},
                              {texts::translated("Name"), Align::left},
                              {texts::translated("Elements")},
                              {texts::translated("failing")}};
  std::ranges::move(worst_columns(), std::back_inserter(columns));
  columns.push_back({texts::translated("Combination"), Align::left});
  write_table(
      html, texts::translated("Governing ratios by section"), columns, [&](TableRows& rows) {
        for (const model::Section& section : content.input.model.sections) {
          const Group group = group_of(content, section.number);
          if (group.elements == 0) continue;
          std::vector<Cell> cells{{fmt::format("{}", section.number)},
                                  {section.name},
                                  {fmt::format("{}", group.elements)},
                                  {fmt::format("{}", group.over), group.over > 0}};
          add_worst(cells, group.worst);
          cells.push_back({group.worst == nullptr ? "" : combination_text(content, *group.worst)});
          rows.add(cells);
        }
      });
}

void write_by_combination(HtmlWriter& html, const run::DocumentContent& content) {
  std::vector<Column> columns{{texts::translated("Combination"), Align::left},
                              {texts::translated("failing")}};
  std::ranges::move(worst_columns(), std::back_inserter(columns));
  write_table(html, texts::translated("Largest ratio in each combination"), columns,
              [&](TableRows& rows) {
                for (const run::CombinationResult& of : content.combinations) {
                  const int side = of.worst ? of.worst->governing.nMinSide : 0;
                  std::vector<Cell> cells{{combination_label(content.info, of.number, side)},
                                          {fmt::format("{}", of.over), of.over > 0}};
                  add_worst(cells, of.worst ? &*of.worst : nullptr);
                  rows.add(cells);
                }
              });
}

}  // namespace aluframe::document
