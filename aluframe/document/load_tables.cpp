#include "aluframe/document/load_tables.h"

#include <fmt/format.h>

#include <algorithm>
#include <array>
#include <iterator>
#include <utility>
#include <vector>

#include "aluframe/area_loads/wind_and_snow.h"
#include "aluframe/document/figure.h"
#include "aluframe/document/names.h"
#include "aluframe/document/table.h"
#include "aluframe/model/number_ranges.h"
#include "aluframe/tables/area_load_tables.h"
#include "aluframe/tables/structure_texts.h"
#include "aluframe/texts/sentence.h"
#include "aluframe/texts/text.h"

namespace aluframe::document {

namespace {

constexpr std::array global_axes{"X", "Y", "Z"};
constexpr std::array local_axes{"x", "y", "z"};
constexpr std::array components{"Fx", "Fy", "Fz", "Mx", "My", "Mz"};
constexpr std::array displacements{"Dx", "Dy", "Dz", "Rx", "Ry", "Rz"};

std::string targets_text(const model::Targets& targets) {
  if (targets.all) return texts::translated("all");
  std::vector<model::Number> rising = targets.numbers;
  std::ranges::sort(rising);
  return model::join_as_ranges(rising);
}

std::string direction_text(const model::LoadDirection& direction) {
  switch (direction.axes) {
    case model::LoadAxes::local:
      return texts::translated("local axis {}", local_axes.at(direction.axis));
    case model::LoadAxes::global:
      return global_axes.at(direction.axis);
    case model::LoadAxes::projected:
      break;
  }
  return texts::translated("{}, per projected length", global_axes.at(direction.axis));
}

std::string direction_text(const model::AreaLoad& load) {
  if (!load.direction) return texts::translated("square to the surface");
  if (load.direction->axes != model::LoadAxes::projected) return direction_text(*load.direction);
  return texts::translated("{}, per projected area", global_axes.at(load.direction->axis));
}

std::string with_unit(double value, const std::string& unit) {
  return fmt::format("{} {}", short_value(value), unit);
}

/// The loads of a case, a line a load: what, on what, along what, how much, where.
class LoadRows {
 public:
  LoadRows(TableRows& rows, const Scale& scale) : rows_(rows), scale_(scale) {}

  void add_all(const model::CaseLoads& loads) {
    add_weight(loads.self_weight);
    for (const model::NodalLoad& load : loads.nodal) add(load);
    for (std::size_t i = 0; i < loads.area.size(); ++i) add(loads.area[i], i);
    for (const model::SpanLoad& load : loads.span) add(load);
    for (const model::PointLoad& load : loads.points) add(load);
    for (const model::TemperatureLoad& load : loads.temperature) add(load);
    for (const model::Settlement& load : loads.settlements) add(load);
  }

 private:
  void add_weight(const std::array<double, 3>& factors) {
    for (std::size_t i = 0; i < factors.size(); ++i) {
      if (factors[i] == 0.0) continue;
      rows_.add({{texts::translated("self-weight")},
                 {texts::translated("all")},
                 {global_axes.at(i)},
                 {fmt::format("{} g", short_value(factors[i]))},
                 {}});
    }
  }

  void add(const model::NodalLoad& load) {
    for (std::size_t i = 0; i < components.size(); ++i) {
      if (load.components[i] == 0.0) continue;
      const bool is_force = i < 3;
      const double unit = is_force ? scale_.force : scale_.moment();
      rows_.add({{texts::translated("nodal load")},
                 {texts::translated("nodes: {}", targets_text(load.nodes))},
                 {components.at(i)},
                 {with_unit(load.components[i] / unit,
                            is_force ? scale_.force_unit : scale_.moment_unit())},
                 {}});
    }
  }

  void add(const model::AreaLoad& load, std::size_t place) {
    const double pressure = area_loads::pressure_of(load.pressure);
    const std::string way =
        load.spacing
            ? texts::translated("spacing {} {}", short_value(*load.spacing / scale_.length),
                                scale_.length_unit)
        : load.span ? texts::translated("one way")
                    : texts::translated("two ways");
    rows_.add({{texts::translated("area load {}", place + 1)},
               {texts::sentence_in_words(tables::area_load_place(load))},
               {direction_text(load)},
               {with_unit(pressure / (scale_.force / (scale_.length * scale_.length)),
                          fmt::format("{}/{}²", scale_.force_unit, scale_.length_unit))},
               {way}});
  }

  void add(const model::SpanLoad& load) {
    const double unit = scale_.force / scale_.length;
    const std::string from = short_value(load.from_value / unit);
    const std::string value = load.from_value == load.to_value
                                  ? from
                                  : fmt::format("{} – {}", from, short_value(load.to_value / unit));
    const bool is_whole = load.from == 0.0 && load.to == 1.0;
    rows_.add({{load.of_area ? texts::translated("line load of area load {}", *load.of_area + 1)
                             : texts::translated("line load")},
               {texts::translated("elements: {}", targets_text(load.elements))},
               {direction_text(load.direction)},
               {fmt::format("{} {}", value, scale_.line_load_unit())},
               {is_whole ? "" : texts::translated("{} to {} of the length", load.from, load.to)}});
  }

  void add(const model::PointLoad& load) {
    const bool is_force = load.kind == model::PointLoad::Kind::force;
    rows_.add({{is_force ? texts::translated("point load") : texts::translated("moment")},
               {texts::translated("elements: {}", targets_text(load.elements))},
               {direction_text(load.direction)},
               {with_unit(load.value / (is_force ? scale_.force : scale_.moment()),
                          is_force ? scale_.force_unit : scale_.moment_unit())},
               {texts::translated("at {} of the length", load.at)}});
  }

  void add(const model::TemperatureLoad& load) {
    const auto line = [&](double value, const char* along, std::string what) {
      if (value == 0.0) return;
      rows_.add({{std::move(what)},
                 {texts::translated("elements: {}", targets_text(load.elements))},
                 {along},
                 {with_unit(value, "K")},
                 {}});
    };
    line(load.change, "", texts::translated("temperature"));
    line(load.difference_y, local_axes[1], texts::translated("temperature difference"));
    line(load.difference_z, local_axes[2], texts::translated("temperature difference"));
  }

  void add(const model::Settlement& load) {
    for (std::size_t i = 0; i < displacements.size(); ++i) {
      if (load.displacements[i] == 0.0) continue;
      const bool is_length = i < 3;
      rows_.add({{texts::translated("settlement")},
                 {texts::translated("nodes: {}", load.node)},
                 {displacements.at(i)},
                 {with_unit(load.displacements[i] / (is_length ? scale_.length : 1.0),
                            is_length ? scale_.length_unit : "rad")},
                 {}});
    }
  }

  TableRows& rows_;
  const Scale& scale_;
};

/// How the pressures of wind and snow follow from their parameters; nothing without any.
void write_pressures(HtmlWriter& html, const model::Model& model,
                     const model::LoadCase& load_case) {
  std::vector<std::pair<std::size_t, area_loads::Step>> steps;
  for (std::size_t i = 0; i < load_case.loads.area.size(); ++i) {
    for (auto& step : area_loads::steps_of(load_case.loads.area[i].pressure, model.units)) {
      steps.emplace_back(i + 1, std::move(step));
    }
  }
  if (steps.empty()) return;
  write_table(
      html,
      texts::translated("Pressures of load case {}", with_name(load_case.number, load_case.name)),
      {{texts::translated("Area load")},
       {texts::translated("Symbol"), Align::left},
       {texts::translated("Formula"), Align::left},
       {texts::translated("Numbers"), Align::left},
       {texts::translated("Value")},
       {texts::translated("Source"), Align::left}},
      [&](TableRows& rows) {
        for (const auto& [load, step] : steps) {
          rows.add(
              {{fmt::format("{}", load)},
               {step.symbol},
               {step.formula},
               {step.numbers},
               {step.unit.empty() ? short_value(step.value) : with_unit(step.value, step.unit)},
               {texts::sentence_in_words(step.source)}});
        }
      });
}

void write_loads(HtmlWriter& html, const model::Model& model, const model::LoadCase& load_case) {
  const Scale scale(model.units);
  const std::string name = with_name(load_case.number, load_case.name);
  write_table(html, texts::translated("Loads of load case {}", name),
              {{texts::translated("Load"), Align::left},
               {texts::translated("On"), Align::left},
               {texts::translated("Along"), Align::left},
               {texts::translated("Value")},
               {texts::translated("Place"), Align::left}},
              [&](TableRows& rows) { LoadRows(rows, scale).add_all(load_case.loads); });
  write_pressures(html, model, load_case);
  picture::Content shown;
  shown.view = picture::natural_view(model);
  shown.loads = load_case.number;
  write_picture(html, model, shown, fmt::format("loads-{}", load_case.number));
}

// Combinations.

std::string kind_text(const model::Combination& combination) {
  if (combination.state_of)
    return texts::translated("state of combination {}", *combination.state_of);
  return combination.kind == model::CombinationKind::linear ? texts::translated("sum")
                                                            : texts::translated("envelope");
}

/// Those of some combinations that the results cover, rising.
std::vector<model::Number> covered(const run::Coverage& coverage,
                                   const std::vector<model::Number>& numbers) {
  std::vector<model::Number> out;
  std::ranges::copy_if(numbers, std::back_inserter(out), [&](model::Number number) {
    return std::ranges::find(coverage.states, number) != coverage.states.end();
  });
  std::ranges::sort(out);
  return out;
}

std::string checked_text(const model::Combination& combination, const run::Coverage& coverage) {
  if (!combination.design && combination.states.empty() && !combination.state_of) {
    return texts::translated("no, a part of others");
  }
  if (combination.states.empty()) {
    return covered(coverage, {combination.number}).empty()
               ? texts::translated("no, the check left it out")
               : texts::translated("yes");
  }
  const std::vector<model::Number> states = covered(coverage, combination.states);
  return states.empty() ? texts::translated("no, the check left it out")
                        : texts::translated("by the states {}", model::join_as_ranges(states));
}

}  // namespace

void write_load_cases(HtmlWriter& html, const run::DocumentContent& content) {
  const model::Model& model = content.input.model;
  for (const model::LoadCase& load_case : model.load_cases) {
    html.leaf("h4", texts::translated("Load case {}", with_name(load_case.number, load_case.name)));
    html.leaf("p", texts::translated("Kind: {}.", load_case_kind_label(load_case.kind)));
    if (load_case.loads == model::CaseLoads()) {
      html.leaf("p", texts::translated("It has no loads: its forces are given."));
    } else {
      write_loads(html, model, load_case);
    }
  }
}

void write_combinations(HtmlWriter& html, const run::DocumentContent& content) {
  html.leaf("p", texts::translated(
                     "LC is a load case, C a combination; an envelope is one of its terms at a "
                     "time, and its states are the sums that it contains."));
  write_table(html, texts::translated("Combinations"),
              {{texts::translated("Number")},
               {texts::translated("Name"), Align::left},
               {texts::translated("Kind"), Align::left},
               {texts::translated("Terms"), Align::left},
               {texts::translated("Seismic"), Align::left},
               {texts::translated("Checked"), Align::left}},
              [&](TableRows& rows) {
                for (const model::Combination& combination : content.input.model.combinations) {
                  rows.add({{fmt::format("{}", combination.number)},
                            {combination.name},
                            {kind_text(combination)},
                            {tables::terms_text(combination)},
                            {yes_or_no(combination.seismic)},
                            {checked_text(combination, content.coverage)}});
                }
              });
}

}  // namespace aluframe::document
