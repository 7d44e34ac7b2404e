#include "aluframe/tables/displacement_tables.h"

#include <fmt/format.h>

#include <algorithm>
#include <cmath>

#include "aluframe/run/deflections.h"
#include "aluframe/tables/names.h"
#include "aluframe/texts/sentence.h"
#include "aluframe/texts/text.h"

namespace aluframe::tables {

namespace {

using store::DisplacementRow;

template <class Value>
Cell number_cell(const std::optional<Value>& number) {
  return number ? Cell(static_cast<std::int64_t>(*number)) : Cell();
}

Cell value_cell(const std::optional<double>& value) {
  return value ? Cell(*value) : Cell();
}

Cell text_or_nothing(const std::string& text) {
  return text.empty() ? Cell() : Cell(text);
}

Cell value_or_unknown(const DisplacementRow& row) {
  return row.value ? Cell(*row.value) : Cell(Phrase{texts::translatable("unknown")});
}

/// "member 3 (nodes 1 to 5) moves 17.4 mm along z"
std::string place_text(const DisplacementRow& row) {
  const std::string subject = texts::sentence_in_words(run::subject_text(row));
  const std::string value = fmt::format("{:.3g}", std::abs(row.value.value_or(0.0)));
  if (row.direction == "total" || row.direction == "horizontal") {
    return texts::translated("{} moves {} mm", subject, value);
  }
  return texts::translated("{} moves {} mm along {}", subject, value, row.direction);
}

}  // namespace

std::string share_text(const DisplacementRow& row) {
  const auto share = run::span_share(row);
  if (!share) return {};
  const char* const over = row.kind == store::DisplacementKind::drift ? "h" : "L";
  return fmt::format("{}/{:.0f}", over, std::floor(*share));
}

OutputTable displacement_overview(const std::vector<DisplacementRow>& rows) {
  OutputTable table;
  table.columns = {
      {.key = "what", .heading = texts::translatable("what")},
      {.key = "name", .heading = texts::translatable("name")},
      {.key = "direction", .heading = texts::translatable("along")},
      {.key = "value_mm", .heading = texts::translatable("displaced mm")},
      {.key = "share", .heading = texts::translatable("share")},
      {.key = "limit_mm", .heading = texts::translatable("limit mm")},
      {.key = "ratio", .heading = texts::translatable("ratio"), .is_ratio = true},
      {.key = "combination", .heading = texts::translatable("combination")},
      {.key = "element", .heading = texts::translatable("element")},
      {.key = "from_start_mm", .heading = texts::translatable("from its start mm"), .decimals = 0},
      {.key = "absolute_mm", .heading = texts::translatable("from unloaded mm")},
      {.key = "elements", .heading = texts::translatable("elements")}};
  for (const DisplacementRow& row : rows) {
    table.rows.push_back(
        {Phrase{run::subject_text(row)}, text_or_nothing(row.name), row.direction,
         value_or_unknown(row), text_or_nothing(share_text(row)), value_cell(row.limit),
         value_cell(run::ratio_of(row)), number_cell(row.combination), number_cell(row.element),
         value_cell(row.from_start), value_cell(row.absolute), text_or_nothing(row.elements)});
  }
  return table;
}

OutputTable displacement_table(const std::vector<DisplacementRow>& rows) {
  OutputTable table;
  for (const char* key :
       {"kind", "member", "elements", "name", "first_node", "second_node", "cantilever",
        "direction", "length_mm", "value_mm", "span_share", "limit_mm", "ratio", "combination",
        "element", "from_start_mm", "absolute_mm"}) {
    table.columns.push_back({.key = key, .heading = key});
  }
  for (const DisplacementRow& row : rows) {
    table.rows.push_back(
        {std::string(store::name_of(row.kind)), number_cell(row.member),
         text_or_nothing(row.elements), text_or_nothing(row.name), std::int64_t{row.first_node},
         number_cell(row.second_node), row.is_cantilever, row.direction, value_cell(row.length),
         value_cell(row.value), value_cell(run::span_share(row)), value_cell(row.limit),
         value_cell(run::ratio_of(row)), number_cell(row.combination), number_cell(row.element),
         value_cell(row.from_start), value_cell(row.absolute)});
  }
  return table;
}

std::string render_displacements(const std::vector<DisplacementRow>& rows, Format format,
                                 bool colour) {
  return render(format == Format::table ? displacement_overview(rows) : displacement_table(rows),
                format, colour);
}

std::string displacement_line(const std::vector<DisplacementRow>& rows) {
  if (rows.empty()) return {};
  if (const DisplacementRow* worst = run::worst_displacement(rows)) {
    const auto over = std::ranges::count_if(rows, run::exceeds_limit);
    return texts::translated("{} ({}, limit {:.3g} mm, combination {}), {} over the limit",
                             short_number(*run::ratio_of(*worst)), place_text(*worst),
                             *worst->limit, worst->combination.value_or(0), over);
  }
  if (std::ranges::none_of(rows, [](const auto& row) { return row.value.has_value(); })) {
    return texts::translated("unknown");
  }
  const DisplacementRow* const largest = run::largest_share(rows);
  if (largest == nullptr) return texts::translated("nothing moves");
  return texts::translated("1/{:.0f} of the span ({}, combination {}), no limit given",
                           std::floor(*run::span_share(*largest)), place_text(*largest),
                           largest->combination.value_or(0));
}

}  // namespace aluframe::tables
