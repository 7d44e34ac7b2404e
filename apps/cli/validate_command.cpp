#include "apps/cli/validate_command.h"

#include <fmt/format.h>

#include <algorithm>

#include "aluframe/model/envelopes.h"
#include "aluframe/model/number_ranges.h"
#include "aluframe/run/remarks.h"
#include "aluframe/tables/check_summary.h"
#include "aluframe/tables/result_tables.h"
#include "aluframe/tables/short_lists.h"
#include "aluframe/texts/text.h"
#include "apps/cli/common_options.h"
#include "apps/cli/terminal.h"

namespace aluframe::cli {

namespace {

/// Elements that lack the forces of a load case, for the user to see before a run.
std::string missing_forces(const model::Model& model) {
  std::string out;
  for (std::size_t c = 0; c < model.load_cases.size(); ++c) {
    std::vector<model::Number> missing;
    for (std::size_t e = 0; e < model.elements.size(); ++e) {
      if (model.forces.find(e, c) == nullptr) missing.push_back(model.elements[e].number);
    }
    if (missing.empty()) continue;
    std::ranges::sort(missing);
    out += texts::translated("  load case {} has no forces for element {}\n",
                             model.load_cases[c].number,
                             tables::shown_list(model::join_as_ranges(missing)));
  }
  return out;
}

/// "12 members", and how many of them the file leaves to be found.
std::string count_of_members(const run::Input& input) {
  const model::Model& model = input.model;
  std::string members = texts::counted(model.members.size(), texts::translatable("{} member"),
                                       texts::translatable("{} members"));
  if (!model.finds_members) return members;
  return texts::translated("{} ({} found automatically)", members, input.found_members);
}

/// "  3 area loads become 27 line loads", and where they are worked out; empty without any.
std::string area_loads_text(const model::Model& model) {
  std::size_t areas = 0, lines = 0;
  for (const model::LoadCase& load_case : model.load_cases) {
    areas += load_case.loads.area.size();
    lines += static_cast<std::size_t>(std::ranges::count_if(
        load_case.loads.span,
        [](const model::SpanLoad& load) { return load.of_area.has_value(); }));
  }
  if (areas == 0) return "";
  return texts::translated(
      "  {} on {}, worked out by aluframe analyse --show area_loads,pressures,line_loads\n",
      texts::counted(areas, texts::translatable("{} area load"),
                     texts::translatable("{} area loads")),
      texts::counted(lines, texts::translatable("{} piece of an element"),
                     texts::translatable("{} pieces of elements")));
}

void print_content(const run::Input& input) {
  const model::Model& model = input.model;
  const auto is_state = [](const model::Combination& combination) {
    return combination.state_of.has_value();
  };
  const auto states = static_cast<std::size_t>(std::ranges::count_if(model.combinations, is_state));
  const std::size_t design = model::design_numbers(model).size() - states;
  const std::string forces = tables::forces_text(input.forces);
  using texts::counted;
  using texts::translatable;
  print_text(texts::translated(
      "{}: valid\n  {}, {}, {}, {}, {}, {}, {} ({} for design)\n", input.file.string(),
      counted(model.nodes.size(), translatable("{} node"), translatable("{} nodes")),
      counted(model.elements.size(), translatable("{} element"), translatable("{} elements")),
      count_of_members(input),
      counted(model.sections.size(), translatable("{} section"), translatable("{} sections")),
      counted(model.materials.size(), translatable("{} material"), translatable("{} materials")),
      counted(model.load_cases.size(), translatable("{} load case"), translatable("{} load cases")),
      counted(model.combinations.size() - states, translatable("{} combination"),
              translatable("{} combinations")),
      design));
  print_text(area_loads_text(model));
  if (!forces.empty()) print_text("  " + forces + "\n");
  if (input.forces.second_order_analyses == 0) print_text(missing_forces(model));
}

}  // namespace

int run_validate_command(const run::InputOptions& options) {
  const auto prepared = run::prepare(options);
  if (const auto* problem = std::get_if<run::Problem>(&prepared)) return stop(*problem);
  const auto& input = std::get<run::Input>(prepared);
  print_content(input);
  print_text(tables::remarks_text(input.remarks));
  return exit_done;
}

}  // namespace aluframe::cli
