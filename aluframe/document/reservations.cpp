#include "aluframe/document/reservations.h"

#include <fmt/format.h>

#include "aluframe/document/figure.h"
#include "aluframe/document/names.h"
#include "aluframe/document/table.h"
#include "aluframe/document/views.h"
#include "aluframe/run/deflections.h"
#include "aluframe/run/not_checked.h"
#include "aluframe/tables/displacement_tables.h"
#include "aluframe/tables/names.h"
#include "aluframe/texts/sentence.h"
#include "aluframe/texts/text.h"

namespace aluframe::document {

namespace {

/// The number of the model's combination that a stored one is.
model::Number of_model(const run::DocumentContent& content, std::uint32_t number) {
  return tables::number_of_combination(content.info, number);
}

Cell ratio_cell(const std::optional<double>& ratio) {
  if (!ratio) return {};
  return {tables::short_number(*ratio), !(*ratio <= 1.0)};
}

std::string number_text(const std::optional<std::uint32_t>& number) {
  return number ? fmt::format("{}", *number) : "";
}

/// "12.5" in the user's unit, and the unit.
std::string magnitude_text(const store::LargestForce& force, const Scale& scale) {
  return run::is_moment(force)
             ? fmt::format("{:.4g} {}", force.magnitude / scale.moment(), scale.moment_unit())
             : fmt::format("{:.4g} {}", force.magnitude / scale.force, scale.force_unit);
}

std::string position_text(const store::LargestForce& force) {
  return force.position < 0 ? texts::translated("between positions")
                            : std::string(tables::position_name(force.position));
}

void add_forces(const run::DocumentContent& content, const run::NotCheckedGroup& group,
                TableRows& rows) {
  const Scale scale(content.input.model.units);
  std::vector<Cell> cells{{texts::sentence_in_words(group.reason)},
                          {model::join_as_ranges(group.elements)},
                          {group.combinations.empty() ? texts::translated("all")
                                                      : model::join_as_ranges(group.combinations)}};
  if (group.largest.empty()) {
    cells.resize(cells.size() + 5);
    rows.add(cells);
    return;
  }
  for (const auto& [element, force] : group.largest) {
    std::vector<Cell> line = cells;
    line.insert(line.end(), {{force.component},
                             {magnitude_text(force, scale)},
                             {fmt::format("{}", element)},
                             {combination_label(content.info, force.combination, force.min_side)},
                             {position_text(force)}});
    rows.add(line);
  }
}

Cell factor_cell(const store::BucklingRow& row) {
  if (row.factor) return {fmt::format("{:.4g}", *row.factor), *row.factor < 1.0};
  return {};
}

std::string shape_text(const store::BucklingRow& row) {
  if (!row.unknown.empty()) {
    return texts::translated("unknown: {}", texts::sentence_in_words(row.unknown));
  }
  return row.factor ? texts::sentence_in_words(row.shape)
                    : texts::translated("nothing is compressed, or next to nothing");
}

std::string millimetres(const std::optional<double>& value) {
  return value ? fmt::format("{:.2f}", *value) : "";
}

std::vector<Cell> displacement_cells(const store::DisplacementRow& row) {
  return {{texts::sentence_in_words(run::subject_text(row))},
          {row.name},
          {row.direction},
          {row.value ? millimetres(row.value) : texts::translated("unknown")},
          {tables::share_text(row)},
          {millimetres(row.limit)},
          ratio_cell(run::ratio_of(row)),
          {number_text(row.combination)},
          {number_text(row.element)}};
}

/// The frame by its deflections over what they are limited to; nothing where none is.
void write_deflections(HtmlWriter& html, const run::DocumentContent& content) {
  picture::Content shown;
  shown.colour = picture::ColourBy::deflection;
  shown.ratios = run::deflection_ratios(content.told.displacements);
  if (shown.ratios.empty()) return;
  const model::Model& model = content.input.model;
  for (const picture::View view : views_of(model)) {
    shown.view = view;
    write_picture(html, model, shown, fmt::format("deflections-{}", picture::name_of(view)));
  }
}

}  // namespace

void write_remarks(HtmlWriter& html, const run::DocumentContent& content) {
  if (content.told.remarks.empty()) {
    html.leaf("p", texts::translated("The check had nothing to remark."));
    return;
  }
  write_table(html, texts::translated("Remarks of the check and of its second opinion"),
              {{texts::translated("Kind"), Align::left},
               {texts::translated("Elements"), Align::left},
               {texts::translated("Remark"), Align::left},
               {texts::translated("Safe ratio")},
               {texts::translated("Element")},
               {texts::translated("Combination")}},
              [&](TableRows& rows) {
                for (const store::RemarkRow& remark : content.told.remarks) {
                  std::optional<std::uint32_t> combination;
                  if (remark.combination) combination = of_model(content, *remark.combination);
                  rows.add({{std::string(texts::translation_of(remark.kind))},
                            {remark.elements},
                            {texts::sentence_in_words(remark.text)},
                            ratio_cell(remark.ratio),
                            {number_text(remark.element)},
                            {number_text(combination)}});
                }
              });
}

void write_not_checked(HtmlWriter& html, const run::DocumentContent& content) {
  if (content.told.not_checked.empty()) {
    html.leaf("p", texts::translated("No force acts that no check is for."));
    return;
  }
  write_table(html, texts::translated("What no check is for, and the largest forces of it"),
              {{texts::translated("What"), Align::left},
               {texts::translated("Elements"), Align::left},
               {texts::translated("Combinations"), Align::left},
               {texts::translated("Force"), Align::left},
               {texts::translated("Largest")},
               {texts::translated("Element")},
               {texts::translated("Combination"), Align::left},
               {texts::translated("At")}},
              [&](TableRows& rows) {
                for (const auto& group : run::group_not_checked(content.told.not_checked)) {
                  add_forces(content, group, rows);
                }
              });
}

void write_buckling(HtmlWriter& html, const run::DocumentContent& content) {
  if (content.told.buckling == run::FrameBuckling::off) {
    html.leaf("p", texts::translated("The check did not look at the buckling of the frame."));
    return;
  }
  write_table(html, texts::translated("Factors of the loads at which the whole frame buckles"),
              {{texts::translated("Combination"), Align::left},
               {texts::translated("Factor")},
               {texts::translated("What moves"), Align::left},
               {texts::translated("Elements"), Align::left}},
              [&](TableRows& rows) {
                for (const store::BucklingRow& row : content.told.buckling_factors) {
                  rows.add({{with_name(row.combination, row.name)},
                            factor_cell(row),
                            {shape_text(row)},
                            {row.elements}});
                }
              });
}

void write_serviceability(HtmlWriter& html, const run::DocumentContent& content) {
  if (content.told.displacements.empty()) {
    html.leaf("p",
              texts::translated("The model has no combination for serviceability: nobody looked "
                                "at how far it is displaced."));
    return;
  }
  write_table(html,
              texts::translated("Largest displacements under the combinations for serviceability"),
              {{texts::translated("What"), Align::left},
               {texts::translated("Name"), Align::left},
               {texts::translated("Along"), Align::left},
               {texts::translated("Displaced (mm)")},
               {texts::translated("Share of the span")},
               {texts::translated("Limit (mm)")},
               {texts::translated("Ratio")},
               {texts::translated("Combination")},
               {texts::translated("Element")}},
              [&](TableRows& rows) {
                for (const store::DisplacementRow& row : content.told.displacements) {
                  rows.add(displacement_cells(row));
                }
              });
  write_deflections(html, content);
}

void write_settings(HtmlWriter& html, const run::DocumentContent& content) {
  write_table(html, texts::translated("Settings that the check went by"),
              {{texts::translated("Setting"), Align::left},
               {texts::translated("Value"), Align::left},
               {texts::translated("From"), Align::left}},
              [&](TableRows& rows) {
                rows.add({{texts::translated("design code")},
                          {content.info.code},
                          {texts::translated("the code itself")}});
                for (const store::SettingRow& row : content.info.setup.settings) {
                  rows.add({{setting_label(row.key)},
                            {texts::sentence_in_words(row.value)},
                            {origin_label(row.origin)}});
                }
              });
}

}  // namespace aluframe::document
