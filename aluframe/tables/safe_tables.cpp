#include "aluframe/tables/safe_tables.h"

#include <fmt/format.h>

#include "aluframe/tables/names.h"
#include "aluframe/texts/sentence.h"
#include "aluframe/texts/text.h"

namespace aluframe::tables {

namespace {

constexpr const char* no_ratio = "none";

/// "3 \"1.2G\""; of a state its envelope and its own name, "7 Extremes: 1.2G".
std::string combination_text(const store::RunInfo& info, std::uint32_t number) {
  const std::uint32_t shown = number_of_combination(info, number);
  const std::string name = name_of_combination(info, number);
  if (shown != number) return fmt::format("{} {}", shown, name);
  return name.empty() ? fmt::format("{}", number) : fmt::format("{} \"{}\"", number, name);
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

}  // namespace

std::string code_text(const store::SafeRow& row) {
  return row.code ? short_number(*row.code) : no_ratio;
}

std::string safe_text(const store::SafeRow& row, const store::RunInfo& info) {
  const std::string rules = row.rules.empty() ? "" : ", " + row.rules;
  return texts::translated("Safe ratio {} ({}{}), code ratio {}, {}, combination {}",
                           short_number(row.safe), texts::translation_of(item_name(row.item)),
                           rules, code_text(row), texts::sentence_in_words(safe_place_text(row)),
                           combination_text(info, row.combination));
}

OutputTable safe_table(const std::vector<store::SafeRow>& rows, const store::RunInfo& info) {
  OutputTable table;
  table.columns = {{.key = "element", .heading = texts::translatable("element")},
                   {.key = "code_ratio",
                    .heading = texts::translatable("ratio"),
                    .decimals = 4,
                    .is_ratio = true},
                   {.key = "safe_ratio",
                    .heading = texts::translatable("safe"),
                    .decimals = 4,
                    .is_ratio = true},
                   {.key = "item", .heading = texts::translatable("check")},
                   {.key = "rules", .heading = texts::translatable("rules")},
                   {.key = "place", .heading = texts::translatable("place")},
                   {.key = "combination", .heading = texts::translatable("comb")},
                   {.key = "combination_name", .heading = texts::translatable("name")}};
  for (const store::SafeRow& row : rows) {
    table.rows.push_back({whole(row.element), row.code ? Cell(*row.code) : text(no_ratio), row.safe,
                          phrase(item_name(row.item)), row.rules.empty() ? Cell() : text(row.rules),
                          Phrase{safe_place_text(row)},
                          whole(number_of_combination(info, row.combination)),
                          name_of_combination(info, row.combination)});
  }
  return table;
}

std::string safe_place_text(const store::SafeRow& row) {
  if (!row.fraction) return texts::translatable("whole member");
  for (int position = 0; position < kCheckPositions; ++position) {
    if (*row.fraction * (kCheckPositions - 1) == position) {
      return fmt::format(texts::translatable("position {}"), position_name(position));
    }
  }
  return fmt::format(texts::translatable("{:.0f} mm from the start ({:.3f} of the length)"),
                     row.from_start, *row.fraction);
}

}  // namespace aluframe::tables
