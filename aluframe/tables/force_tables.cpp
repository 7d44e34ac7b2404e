#include "aluframe/tables/force_tables.h"

#include <fmt/format.h>

#include <array>
#include <optional>
#include <string>

#include "aluframe/io/scales.h"
#include "aluframe/model/combinations.h"
#include "aluframe/texts/text.h"

namespace aluframe::tables {

namespace {

using texts::translatable;

constexpr std::array components{"N", "Fy", "Fz", "Mx", "My", "Mz"};

std::vector<Column> columns_of(const model::Units& units, bool is_combination, bool two_sides) {
  std::vector<Column> columns{{.key = "element", .heading = translatable("element")}};
  columns.push_back(is_combination
                        ? Column{.key = "combination", .heading = translatable("combination")}
                        : Column{.key = "case", .heading = translatable("case")});
  if (two_sides) columns.push_back({.key = "side", .heading = translatable("side")});
  columns.push_back({.key = "position", .heading = translatable("position")});
  for (std::size_t i = 0; i < components.size(); ++i) {
    const std::string_view force = model::name_of(units.force);
    columns.push_back({.key = components[i],
                       .heading = i < 3 ? fmt::format("{} {}", components[i], force)
                                        : fmt::format("{} {}·{}", components[i], force,
                                                      model::name_of(units.length))});
  }
  return columns;
}

/// Adds the lines of an element.
class Lines {
 public:
  Lines(OutputTable& table, const model::Units& units) : table_(table), scales_(units) {}

  /// @param start of a line: what its forces are of
  void add(const std::vector<Cell>& start, const model::CaseForces& forces) {
    const std::size_t last = forces.at.size() - 1;
    for (std::size_t position = 0; position <= last; ++position) {
      if (position > 0 && position < last && !forces.inner) continue;
      std::vector<Cell>& row = table_.rows.emplace_back(start);
      row.emplace_back(static_cast<std::int64_t>(position));
      for (std::size_t i = 0; i < components.size(); ++i) {
        row.emplace_back(double{forces.at[position][i]} / scales_.of_component(i));
      }
    }
  }

 private:
  OutputTable& table_;
  io::Scales scales_;
};

Cell whole(model::Number number) {
  return std::int64_t{number};
}

OutputTable table_of_case(const model::Model& model, model::Number load_case) {
  OutputTable table{columns_of(model.units, false, false), {}};
  Lines lines(table, model.units);
  const std::size_t place = model.load_cases.position(load_case);
  for (std::size_t element = 0; element < model.elements.size(); ++element) {
    const model::CaseForces* forces = model.forces.find(element, place);
    if (forces != nullptr) {
      lines.add({whole(model.elements[element].number), whole(load_case)}, *forces);
    }
  }
  return table;
}

OutputTable table_of_combination(const model::Model& model, model::Number combination) {
  const model::CombinationEvaluator evaluator(model);
  const bool two_sides = evaluator.has_two_sides(combination);
  OutputTable table{columns_of(model.units, true, two_sides), {}};
  Lines lines(table, model.units);
  for (std::size_t element = 0; element < model.elements.size(); ++element) {
    std::vector<Cell> start{whole(model.elements[element].number), whole(combination)};
    for (const model::Side side : {model::Side::maximum, model::Side::minimum}) {
      if (side == model::Side::minimum && !two_sides) continue;
      const auto forces = evaluator.evaluate(element, combination, side);
      if (!forces) continue;
      std::vector<Cell> of_side = start;
      if (two_sides)
        of_side.emplace_back(std::string(side == model::Side::maximum ? "max" : "min"));
      lines.add(of_side, *forces);
    }
  }
  return table;
}

}  // namespace

OutputTable element_forces_table(const model::Model& model, const run::Subject& subject) {
  return subject.is_combination ? table_of_combination(model, subject.number)
                                : table_of_case(model, subject.number);
}

}  // namespace aluframe::tables
