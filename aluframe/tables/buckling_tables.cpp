#include "aluframe/tables/buckling_tables.h"

#include "aluframe/model/number_ranges.h"

namespace aluframe::tables {

namespace {

std::string name_of(const model::Model& model, bool of_combinations, model::Number number) {
  return of_combinations ? model.combinations.find(number)->name
                         : model.load_cases.find(number)->name;
}

std::string text_of(const run::BucklingFactor& factor) {
  if (factor.factor) return factor.mode;
  return factor.unknown.empty() ? "nothing is compressed" : "unknown: " + factor.unknown;
}

}  // namespace

OutputTable buckling_table(const model::Model& model, const run::BucklingAnalysis& analysis) {
  OutputTable table;
  table.columns = {{.key = analysis.of_combinations ? "combination" : "load_case",
                    .heading = analysis.of_combinations ? "combination" : "load case"},
                   {.key = "name", .heading = "name"},
                   {.key = "mode", .heading = "mode"},
                   {.key = "factor", .heading = "factor"},
                   {.key = "shape", .heading = "shape"},
                   {.key = "elements", .heading = "elements"}};
  const auto add = [&](const run::BucklingFactor& factor, const Cell& mode, double sign) {
    const std::string elements = model::join_as_ranges(factor.elements);
    table.rows.push_back({std::int64_t{factor.subject},
                          name_of(model, analysis.of_combinations, factor.subject), mode,
                          factor.factor ? Cell(sign * *factor.factor) : Cell(), text_of(factor),
                          elements.empty() ? Cell() : Cell(elements)});
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
        add(other, std::string("reversed"), -1.0);
    }
  }
  return table;
}

}  // namespace aluframe::tables
