#include "aluframe/tables/buckling_tables.h"

#include <algorithm>

#include "aluframe/model/number_ranges.h"
#include "aluframe/tables/names.h"
#include "aluframe/texts/sentence.h"
#include "aluframe/texts/text.h"

namespace aluframe::tables {

namespace {

std::string name_of(const model::Model& model, bool of_combinations, model::Number number) {
  return of_combinations ? model.combinations.find(number)->name
                         : model.load_cases.find(number)->name;
}

/// What buckles, or why there is no factor.
Phrase shape_text(bool has_factor, const std::string& shape, const std::string& unknown) {
  if (has_factor) {
    return {unknown.empty() ? shape
                            : fmt::format(texts::translatable("{}; unknown of other states: {}"),
                                          shape, unknown)};
  }
  return {unknown.empty() ? texts::translatable("nothing is compressed, or next to nothing")
                          : fmt::format(texts::translatable("unknown: {}"), unknown)};
}

/// "snaps through: node 5 moves along Z", "none up to 10 times the loads".
Phrase limit_text(const run::LimitFactor& factor) {
  if (!factor.limit) return {fmt::format(texts::translatable("unknown: {}"), factor.unknown)};
  using Kind = analysis::LimitLoad::Kind;
  const analysis::LimitLoad& limit = *factor.limit;
  std::string text = limit.text;
  if (limit.kind == Kind::none) {
    text = fmt::format(texts::translatable("none up to {:g} times the loads"), limit.factor);
  }
  if (limit.kind == Kind::snap_through) {
    text = fmt::format(texts::translatable("snaps through: {}"), text);
  }
  if (limit.kind == Kind::buckling) text = fmt::format(texts::translatable("buckles: {}"), text);
  return {factor.unknown.empty()
              ? text
              : fmt::format(texts::translatable("{}; unknown of other states: {}"), text,
                            factor.unknown)};
}

Cell text_or_nothing(const std::string& text) {
  return text.empty() ? Cell() : Cell(text);
}

Column subject_column(bool of_combinations) {
  if (of_combinations) return {.key = "combination", .heading = texts::translatable("combination")};
  return {.key = "load_case", .heading = texts::translatable("load case")};
}

}  // namespace

OutputTable buckling_table(const model::Model& model, const run::BucklingAnalysis& analysis) {
  OutputTable table;
  table.columns = {subject_column(analysis.of_combinations),
                   {.key = "name", .heading = texts::translatable("name")},
                   {.key = "mode", .heading = texts::translatable("mode")},
                   {.key = "factor", .heading = texts::translatable("factor")},
                   {.key = "shape", .heading = texts::translatable("shape")},
                   {.key = "elements", .heading = texts::translatable("elements")}};
  const auto add = [&](const run::BucklingFactor& factor, const Cell& mode, double sign) {
    table.rows.push_back({std::int64_t{factor.subject},
                          name_of(model, analysis.of_combinations, factor.subject), mode,
                          factor.factor ? Cell(sign * *factor.factor) : Cell(),
                          shape_text(factor.factor.has_value(), factor.mode, factor.unknown),
                          text_or_nothing(model::join_as_ranges(factor.elements))});
  };
  std::int64_t mode = 0;
  for (std::size_t i = 0; i < analysis.factors.size(); ++i) {
    const run::BucklingFactor& factor = analysis.factors[i];
    mode = i > 0 && analysis.factors[i - 1].subject == factor.subject ? mode + 1 : 1;
    add(factor, factor.factor ? Cell(mode) : Cell(), 1.0);
    const bool is_last =
        i + 1 == analysis.factors.size() || analysis.factors[i + 1].subject != factor.subject;
    if (!is_last) continue;
    for (const run::BucklingFactor& other : analysis.reversed) {
      if (other.subject == factor.subject && other.factor)
        add(other, Phrase{texts::translatable("reversed")}, -1.0);
    }
  }
  return table;
}

OutputTable limit_load_table(const model::Model& model, const run::LimitAnalysis& analysis) {
  const double length = model::millimetres_per(model.units.length);
  OutputTable table;
  table.columns = {subject_column(analysis.of_combinations),
                   {.key = "name", .heading = texts::translatable("name")},
                   {.key = "factor", .heading = texts::translatable("factor")},
                   {.key = "limit", .heading = texts::translatable("limit")},
                   {.key = "node", .heading = texts::translatable("node")},
                   {.key = "displacement",
                    .heading = fmt::format(texts::translatable("displacement {}"),
                                           model::name_of(model.units.length))}};
  for (const run::LimitFactor& factor : analysis.factors) {
    const auto& limit = factor.limit;
    const bool is_found = limit && limit->kind != analysis::LimitLoad::Kind::none;
    const bool moves = limit && limit->node;
    table.rows.push_back({std::int64_t{factor.subject},
                          name_of(model, analysis.of_combinations, factor.subject),
                          is_found ? Cell(limit->factor) : Cell(), limit_text(factor),
                          moves ? Cell(std::int64_t{model.nodes[*limit->node].number}) : Cell(),
                          moves ? Cell(limit->largest_displacement / length) : Cell()});
  }
  return table;
}

std::string buckling_line(run::FrameBuckling asked, const std::vector<store::BucklingRow>& rows) {
  if (asked == run::FrameBuckling::off) return texts::translated("not looked at (--no-buckling)");
  if (rows.empty()) return texts::translated("not looked at");
  std::vector<model::Number> unknown;
  for (const store::BucklingRow& row : rows) {
    if (!row.unknown.empty()) unknown.push_back(row.combination);
  }
  std::string text;
  if (const auto* smallest = run::smallest_factor(rows)) {
    text = texts::translated("{} times the loads of combination {}, {}",
                             short_number(*smallest->factor), smallest->combination,
                             texts::sentence_in_words(smallest->shape));
  } else if (unknown.size() < rows.size()) {
    text = texts::translated("nothing is compressed, or next to nothing");
  }
  if (unknown.empty()) return text;
  const auto first =
      std::ranges::find_if(rows, [](const auto& row) { return !row.unknown.empty(); });
  const std::string missing =
      texts::translated("unknown of combination {}: {}", model::join_as_ranges(unknown),
                        texts::sentence_in_words(first->unknown));
  return text.empty() ? missing : texts::translated("{}; {}", text, missing);
}

OutputTable stored_buckling_table(const std::vector<store::BucklingRow>& rows) {
  OutputTable table;
  for (const char* key : {texts::translatable("combination"), texts::translatable("name"),
                          texts::translatable("factor"), texts::translatable("shape"),
                          texts::translatable("elements")}) {
    table.columns.push_back({.key = key, .heading = key});
  }
  for (const store::BucklingRow& row : rows) {
    table.rows.push_back({std::int64_t{row.combination}, row.name,
                          row.factor ? Cell(*row.factor) : Cell(),
                          shape_text(row.factor.has_value(), row.shape, row.unknown),
                          text_or_nothing(row.elements)});
  }
  return table;
}

}  // namespace aluframe::tables
