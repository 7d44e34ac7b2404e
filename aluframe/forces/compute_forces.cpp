#include "aluframe/forces/compute_forces.h"

#include <algorithm>
#include <variant>
#include <vector>

#include "aluframe/forces/frame_of_model.h"

namespace aluframe::forces {

namespace {

bool carries_loads(const model::LoadCase& load_case) {
  return load_case.loads != model::CaseLoads();
}

}  // namespace

bool has_loads(const model::Model& model) {
  return std::ranges::any_of(model.load_cases, carries_loads);
}

analysis::Result<analysis::Solution> analyse_model(const model::Model& model) {
  std::vector<analysis::LoadCase> cases;
  cases.reserve(model.load_cases.size());
  for (const model::LoadCase& load_case : model.load_cases) {
    cases.push_back(loads_of(model, load_case));
  }
  return analysis::analyse(frame_of(model), cases);
}

std::optional<std::string> compute_forces(model::Model& model) {
  if (!has_loads(model)) return std::nullopt;
  const auto solved = analyse_model(model);
  if (const auto* problem = std::get_if<analysis::Problem>(&solved)) return problem->text;
  const auto& solution = std::get<analysis::Solution>(solved);
  model::ForceTable table = model.forces;
  if (table == model::ForceTable()) table.resize(model.elements.size(), model.load_cases.size());
  for (std::size_t load_case = 0; load_case < model.load_cases.size(); ++load_case) {
    if (!carries_loads(model.load_cases[load_case])) continue;
    const auto& forces = solution.cases[load_case].forces;
    for (std::size_t element = 0; element < forces.size(); ++element) {
      table.set(element, load_case, {.at = forces[element], .inner = true});
    }
  }
  model.forces = std::move(table);
  return std::nullopt;
}

}  // namespace aluframe::forces
