#include "aluframe/tables/analysis_tables.h"

#include <fmt/format.h>

#include <algorithm>
#include <array>
#include <cmath>
#include <utility>

#include "aluframe/io/scales.h"
#include "aluframe/tables/area_load_tables.h"
#include "aluframe/tables/result_tables.h"
#include "aluframe/texts/text.h"

namespace aluframe::tables {

namespace {

constexpr std::array<std::string_view, 7> table_names{
    "summary", "displacements", "reactions", "forces", "area_loads", "pressures", "line_loads"};
constexpr std::array<std::string_view, 7> table_headings{
    texts::translatable("Largest displacements and sums of reactions"),
    texts::translatable("Displacements of nodes"),
    texts::translatable("Reactions of supports"),
    texts::translatable("Element forces in local axes, positions 0 to 4 from start to end"),
    texts::translatable("Area loads, and what they add up to"),
    texts::translatable("Wind and snow pressures, step by step"),
    texts::translatable("Line loads that area loads become")};
constexpr std::array displacement_names{"Dx", "Dy", "Dz", "Rx", "Ry", "Rz"};
constexpr std::array reaction_names{"Fx", "Fy", "Fz", "Mx", "My", "Mz"};
constexpr std::array force_names{"N", "Fy", "Fz", "Mx", "My", "Mz"};
/// Digits behind the point: of forces and moments; of angles and of lengths in large units.
constexpr int force_decimals = 3;
constexpr int fine_decimals = 6;

Cell whole(std::size_t value) {
  return static_cast<std::int64_t>(value);
}

int length_decimals(model::LengthUnit unit) {
  return model::millimetres_per(unit) > 1.0 ? fine_decimals : force_decimals;
}

std::string moment_unit(const model::Units& units) {
  return fmt::format("{}·{}", model::name_of(units.force), model::name_of(units.length));
}

Column subject_column(const AnalysisView& view) {
  const std::string key = view.analysis->of_combinations ? texts::translatable("combination")
                                                         : texts::translatable("case");
  return {.key = key, .heading = key};
}

Column displacement_column(std::size_t direction, const model::Units& units) {
  const bool is_length = direction < 3;
  const std::string_view unit = is_length ? model::name_of(units.length) : "rad";
  return {.key = displacement_names[direction],
          .heading = fmt::format("{} {}", displacement_names[direction], unit),
          .decimals = is_length ? length_decimals(units.length) : fine_decimals};
}

Column force_column(const char* name, std::size_t component, const model::Units& units) {
  const std::string unit =
      component < 3 ? std::string(model::name_of(units.force)) : moment_unit(units);
  return {.key = name, .heading = fmt::format("{} {}", name, unit), .decimals = force_decimals};
}

/// The node that moves most, and how far.
struct LargestMove {
  std::size_t node = 0;
  double distance = 0.0;
};

LargestMove largest_move(const analysis::CaseResult& result) {
  LargestMove found;
  for (std::size_t node = 0; node < result.displacements.size(); ++node) {
    const analysis::Vector6& d = result.displacements[node];
    const double distance = std::hypot(d[0], d[1], d[2]);
    if (distance > found.distance) found = {node, distance};
  }
  return found;
}

std::string subject_name(const AnalysisView& view, model::Number number) {
  return view.analysis->of_combinations ? view.model->combinations.find(number)->name
                                        : view.model->load_cases.find(number)->name;
}

std::vector<Column> summary_columns(const AnalysisView& view) {
  std::vector<Column> columns{subject_column(view),
                              {.key = "name", .heading = texts::translatable("name")},
                              {.key = "node", .heading = texts::translatable("node")},
                              {.key = "largest_displacement",
                               .heading = fmt::format(texts::translatable("displacement {}"),
                                                      model::name_of(view.units.length)),
                               .decimals = length_decimals(view.units.length)}};
  for (std::size_t i = 0; i < 3; ++i) {
    columns.push_back(force_column(reaction_names[i], i, view.units));
    columns.back().heading = fmt::format(texts::translatable("sum of {}"), columns.back().heading);
  }
  columns.push_back(
      {.key = "residual", .heading = texts::translatable("residual"), .is_scientific = true});
  columns.push_back(
      {.key = "force_error", .heading = texts::translatable("force error"), .is_scientific = true});
  if (view.analysis->second_order) {
    columns.push_back({.key = "iterations", .heading = texts::translatable("iterations")});
  }
  return columns;
}

analysis::Vector3 sum_of(const std::vector<analysis::Reaction>& reactions) {
  analysis::Vector3 sum{};
  for (const analysis::Reaction& reaction : reactions) {
    for (std::size_t i = 0; i < 3; ++i) sum[i] += reaction.value[i];
  }
  return sum;
}

std::vector<Cell> summary_row(const AnalysisView& view, std::size_t subject) {
  const io::Scales scales(view.units);
  const auto& answer = view.analysis->answers[subject];
  const analysis::CaseResult& result = answer.result;
  const model::Number number = view.analysis->subjects[subject];
  const LargestMove move = largest_move(result);
  std::vector<Cell> row{whole(number), subject_name(view, number),
                        whole(view.model->nodes[move.node].number), move.distance / scales.length};
  for (const double value : sum_of(result.reactions)) row.emplace_back(value / scales.force);
  row.emplace_back(std::max(result.equilibrium.nodes, result.equilibrium.whole));
  row.emplace_back(result.equilibrium.force_error);
  if (view.analysis->second_order) {
    row.push_back(whole(static_cast<std::size_t>(answer.iterations)));
  }
  return row;
}

OutputTable summary_table(const AnalysisView& view) {
  OutputTable table;
  table.columns = summary_columns(view);
  for (std::size_t s = 0; s < view.analysis->subjects.size(); ++s) {
    table.rows.push_back(summary_row(view, s));
  }
  return table;
}

/// The six components, in the view's units, behind what they are of.
template <class Components, class ScaleOf>
std::vector<Cell> with_components(std::vector<Cell> row, const Components& components,
                                  ScaleOf scale_of) {
  for (std::size_t i = 0; i < components.size(); ++i) {
    row.emplace_back(static_cast<double>(components[i]) / scale_of(i));
  }
  return row;
}

OutputTable displacements_table(const AnalysisView& view) {
  const io::Scales scales(view.units);
  OutputTable table;
  table.columns = {subject_column(view), {.key = "node", .heading = texts::translatable("node")}};
  for (std::size_t i = 0; i < 6; ++i) table.columns.push_back(displacement_column(i, view.units));
  for (std::size_t s = 0; s < view.analysis->subjects.size(); ++s) {
    const auto& displacements = view.analysis->answers[s].result.displacements;
    for (std::size_t node = 0; node < displacements.size(); ++node) {
      const model::Number number = view.model->nodes[node].number;
      if (!view.shows_node(number)) continue;
      table.rows.push_back(
          with_components({whole(view.analysis->subjects[s]), whole(number)}, displacements[node],
                          [&](std::size_t i) { return scales.of_displacement(i); }));
    }
  }
  return table;
}

OutputTable reactions_table(const AnalysisView& view) {
  const io::Scales scales(view.units);
  OutputTable table;
  table.columns = {subject_column(view), {.key = "node", .heading = texts::translatable("node")}};
  for (std::size_t i = 0; i < 6; ++i) {
    table.columns.push_back(force_column(reaction_names[i], i, view.units));
  }
  for (std::size_t s = 0; s < view.analysis->subjects.size(); ++s) {
    for (const analysis::Reaction& reaction : view.analysis->answers[s].result.reactions) {
      const model::Number number = view.model->nodes[reaction.node].number;
      if (!view.shows_node(number)) continue;
      table.rows.push_back(with_components({whole(view.analysis->subjects[s]), whole(number)},
                                           reaction.value,
                                           [&](std::size_t i) { return scales.of_component(i); }));
    }
  }
  return table;
}

OutputTable forces_table(const AnalysisView& view) {
  const io::Scales scales(view.units);
  OutputTable table;
  table.columns = {{.key = "element", .heading = texts::translatable("element")},
                   subject_column(view),
                   {.key = "position", .heading = texts::translatable("position")}};
  for (std::size_t i = 0; i < 6; ++i) {
    table.columns.push_back(force_column(force_names[i], i, view.units));
  }
  for (std::size_t s = 0; s < view.analysis->subjects.size(); ++s) {
    const auto& forces = view.analysis->answers[s].result.forces;
    for (std::size_t element = 0; element < forces.size(); ++element) {
      const model::Number number = view.model->elements[element].number;
      if (!view.shows_element(number)) continue;
      for (std::size_t position = 0; position < forces[element].size(); ++position) {
        table.rows.push_back(with_components(
            {whole(number), whole(view.analysis->subjects[s]), whole(position)},
            forces[element][position], [&](std::size_t i) { return scales.of_component(i); }));
      }
    }
  }
  return table;
}

/// Whether a load case is analysed, on its own or as one of combinations.
ShowsCase shows_case(const AnalysisView& view) {
  return [&view](const model::LoadCase& load_case) {
    return view.analysis->of_combinations ||
           std::ranges::find(view.analysis->subjects, load_case.number) !=
               view.analysis->subjects.end();
  };
}

}  // namespace

std::string_view name_of(AnalysisTable table) {
  return table_names[static_cast<std::size_t>(table)];
}

std::string_view heading_of(AnalysisTable table) {
  return table_headings[static_cast<std::size_t>(table)];
}

std::optional<AnalysisTable> parse_analysis_table(std::string_view name) {
  const auto* const found = std::ranges::find(table_names, name);
  if (found == table_names.end()) return std::nullopt;
  return static_cast<AnalysisTable>(found - table_names.begin());
}

OutputTable analysis_table(AnalysisTable table, const AnalysisView& view) {
  switch (table) {
    case AnalysisTable::summary:
      return summary_table(view);
    case AnalysisTable::displacements:
      return displacements_table(view);
    case AnalysisTable::reactions:
      return reactions_table(view);
    case AnalysisTable::area_loads:
      return area_loads_table(*view.model, view.units, shows_case(view));
    case AnalysisTable::pressures:
      return pressures_table(*view.model, view.units, shows_case(view));
    case AnalysisTable::line_loads:
      return line_loads_table(*view.model, view.units, shows_case(view));
    case AnalysisTable::forces:
      break;
  }
  return forces_table(view);
}

}  // namespace aluframe::tables
