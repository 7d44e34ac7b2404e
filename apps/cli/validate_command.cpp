#include "apps/cli/validate_command.h"

#include <fmt/format.h>

#include <algorithm>

#include "aluframe/io/model_file.h"
#include "apps/cli/exit_status.h"
#include "apps/cli/number_ranges.h"
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
    out += fmt::format("  load case {} has no forces for element {}\n", model.load_cases[c].number,
                       join_as_ranges(missing));
  }
  return out;
}

void print_content(const std::string& file, const model::Model& model) {
  const auto design = std::ranges::count_if(
      model.combinations, [](const model::Combination& combination) { return combination.design; });
  fmt::print(
      "{}: valid\n  {} nodes, {} elements, {} members, {} sections, {} materials, {} load cases, "
      "{} combinations ({} for design)\n{}",
      file, model.nodes.size(), model.elements.size(), model.members.size(), model.sections.size(),
      model.materials.size(), model.load_cases.size(), model.combinations.size(), design,
      missing_forces(model));
}

}  // namespace

int run_validate_command(const ValidateOptions& options) {
  auto read = io::read_model(options.model);
  if (const auto* problem = std::get_if<io::Problem>(&read)) {
    print_message(problem->message());
    return exit_input_error;
  }
  auto& model = std::get<model::Model>(read);
  if (options.forces) {
    const auto rows = io::read_forces_csv(*options.forces, model);
    if (const auto* problem = std::get_if<io::Problem>(&rows)) {
      print_message(problem->message());
      return exit_input_error;
    }
  }
  print_content(options.model.string(), model);
  return exit_done;
}

}  // namespace aluframe::cli
