#include "aluframe/tables/area_load_tables.h"

#include <fmt/format.h>

#include <algorithm>
#include <array>
#include <cmath>
#include <cstdint>
#include <utility>
#include <variant>
#include <vector>

#include "aluframe/area_loads/line_loads.h"
#include "aluframe/area_loads/wind_and_snow.h"
#include "aluframe/io/scales.h"
#include "aluframe/model/number_ranges.h"
#include "aluframe/texts/text.h"

namespace aluframe::tables {

namespace {

using texts::translatable;

std::string listed(std::vector<model::Number> numbers) {
  std::ranges::sort(numbers);
  return model::join_as_ranges(numbers, 5);
}

const char* kind_of(const model::AreaLoad& load) {
  if (const auto* wind = std::get_if<model::WindPressure>(&load.pressure)) {
    return wind->beta_z ? translatable("wind on the structure") : translatable("wind on cladding");
  }
  return std::holds_alternative<model::SnowPressure>(load.pressure) ? translatable("snow")
                                                                    : translatable("pressure");
}

const char* way_of(const model::AreaLoad& load) {
  if (load.spacing) return translatable("spacing");
  return load.span ? translatable("one way") : translatable("two ways");
}

/// Calls `act` with every area load of the cases that are shown and its number in its case, from 1.
template <class Act>
void for_each_area_load(const model::Model& model, const ShowsCase& shows, Act act) {
  for (const model::LoadCase& load_case : model.load_cases) {
    if (!shows(load_case)) continue;
    for (std::size_t i = 0; i < load_case.loads.area.size(); ++i) {
      act(load_case, i, load_case.loads.area[i]);
    }
  }
}

Cell whole(std::size_t number) {
  return static_cast<std::int64_t>(number);
}

const char* axis_name(const model::LoadDirection& direction) {
  constexpr std::array local{"x", "y", "z"};
  constexpr std::array global{"X", "Y", "Z"};
  constexpr std::array projected{translatable("X, projected"), translatable("Y, projected"),
                                 translatable("Z, projected")};
  switch (direction.axes) {
    case model::LoadAxes::local:
      return local.at(direction.axis);
    case model::LoadAxes::global:
      return global.at(direction.axis);
    case model::LoadAxes::projected:
      break;
  }
  return projected.at(direction.axis);
}

/// Length of an element, seen along an axis when the load is projected along it.
double length_of(const model::Model& model, const model::SpanLoad& load) {
  const model::Element& element = *model.elements.find(load.elements.numbers.front());
  const model::Node& start = *model.nodes.find(element.nodes[0]);
  const model::Node& end = *model.nodes.find(element.nodes[1]);
  std::array along{end.x - start.x, end.y - start.y, end.z - start.z};
  if (load.direction.axes == model::LoadAxes::projected) along[load.direction.axis] = 0.0;
  return std::hypot(along[0], along[1], along[2]);
}

/// What the line loads of an area load add up to along X, Y and Z, N; nothing for those in local
/// axes.
std::array<Cell, 3> sums_of(const model::Model& model, const model::CaseLoads& loads,
                            std::size_t area, double scale) {
  std::array<double, 3> sums{};
  for (const model::SpanLoad& load : loads.span) {
    if (load.of_area != area) continue;
    if (load.direction.axes == model::LoadAxes::local) return {};
    sums[load.direction.axis] += 0.5 * (load.from_value + load.to_value) * (load.to - load.from) *
                                 length_of(model, load) / scale;
  }
  return {sums[0], sums[1], sums[2]};
}

std::vector<Column> area_load_columns(const model::Units& units) {
  std::vector<Column> columns{
      {.key = "case", .heading = translatable("case")},
      {.key = "load", .heading = translatable("load")},
      {.key = "kind", .heading = translatable("kind")},
      {.key = "on", .heading = translatable("acts on")},
      {.key = "way", .heading = translatable("way")},
      {.key = "pressure",
       .heading = fmt::format(translatable("pressure {}"), area_loads::pressure_unit(units)),
       .decimals = 4},
      {.key = "area",
       .heading = fmt::format(translatable("area {}²"), model::name_of(units.length))}};
  for (const char* name : {"Fx", "Fy", "Fz"}) {
    columns.push_back(
        {.key = name, .heading = fmt::format("{} {}", name, model::name_of(units.force))});
  }
  return columns;
}

std::vector<Cell> area_load_row(const model::Model& model, const model::Units& units,
                                const model::LoadCase& load_case, std::size_t place) {
  const io::Scales scales(units);
  const model::AreaLoad& load = load_case.loads.area[place];
  // A model that was read has none that cannot be distributed.
  const auto distribution = std::get<area_loads::Distribution>(area_loads::distribute(model, load));
  std::vector<Cell> row{whole(load_case.number),
                        whole(place + 1),
                        Phrase{kind_of(load)},
                        Phrase{area_load_place(load)},
                        Phrase{way_of(load)},
                        distribution.pressure / scales.per_area,
                        distribution.area / (scales.length * scales.length)};
  for (Cell& sum : sums_of(model, load_case.loads, place, scales.force)) {
    row.push_back(std::move(sum));
  }
  return row;
}

}  // namespace

std::string area_load_place(const model::AreaLoad& load) {
  if (!load.region.nodes.empty()) {
    std::string corners;
    for (const model::Number node : load.region.nodes) {
      corners += fmt::format("{}{}", corners.empty() ? "" : "-", node);
    }
    return fmt::format(translatable("region of nodes {}"), corners);
  }
  if (!load.region.empty()) {
    return fmt::format(translatable("region of {} points"), load.region.points.size());
  }
  return load.elements.all
             ? translatable("all elements")
             : fmt::format(translatable("elements {}"), listed(load.elements.numbers));
}

OutputTable area_loads_table(const model::Model& model, const model::Units& units,
                             const ShowsCase& shows) {
  OutputTable table;
  table.columns = area_load_columns(units);
  for_each_area_load(model, shows,
                     [&](const model::LoadCase& load_case, std::size_t i, const model::AreaLoad&) {
                       table.rows.push_back(area_load_row(model, units, load_case, i));
                     });
  return table;
}

OutputTable pressures_table(const model::Model& model, const model::Units& units,
                            const ShowsCase& shows) {
  OutputTable table;
  table.columns = {{.key = "case", .heading = translatable("case")},
                   {.key = "load", .heading = translatable("load")},
                   {.key = "symbol", .heading = translatable("symbol")},
                   {.key = "formula", .heading = translatable("formula")},
                   {.key = "numbers", .heading = translatable("numbers")},
                   {.key = "value", .heading = translatable("value"), .decimals = 4},
                   {.key = "unit", .heading = translatable("unit")},
                   {.key = "source", .heading = translatable("source")}};
  const auto text = [](const std::string& of) { return of.empty() ? Cell() : Cell(of); };
  for_each_area_load(
      model, shows,
      [&](const model::LoadCase& load_case, std::size_t i, const model::AreaLoad& load) {
        for (const area_loads::Step& step : area_loads::steps_of(load.pressure, units)) {
          table.rows.push_back({whole(load_case.number), whole(i + 1), step.symbol,
                                text(step.formula), text(step.numbers), step.value, text(step.unit),
                                Phrase{step.source}});
        }
      });
  return table;
}

OutputTable line_loads_table(const model::Model& model, const model::Units& units,
                             const ShowsCase& shows) {
  const io::Scales scales(units);
  const std::string unit =
      fmt::format("{}/{}", model::name_of(units.force), model::name_of(units.length));
  OutputTable table;
  table.columns = {{.key = "case", .heading = translatable("case")},
                   {.key = "load", .heading = translatable("load")},
                   {.key = "element", .heading = translatable("element")},
                   {.key = "along", .heading = translatable("along")},
                   {.key = "from", .heading = translatable("from")},
                   {.key = "to", .heading = translatable("to")},
                   {.key = "from_value", .heading = fmt::format(translatable("at from {}"), unit)},
                   {.key = "to_value", .heading = fmt::format(translatable("at to {}"), unit)}};
  for (const model::LoadCase& load_case : model.load_cases) {
    if (!shows(load_case)) continue;
    for (const model::SpanLoad& load : load_case.loads.span) {
      if (!load.of_area) continue;
      table.rows.push_back({whole(load_case.number), whole(*load.of_area + 1),
                            whole(load.elements.numbers.front()), Phrase{axis_name(load.direction)},
                            load.from, load.to, load.from_value / scales.per_length,
                            load.to_value / scales.per_length});
    }
  }
  return table;
}

}  // namespace aluframe::tables
