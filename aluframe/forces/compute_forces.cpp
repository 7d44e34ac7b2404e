#include "aluframe/forces/compute_forces.h"

#include <fmt/format.h>

#include <algorithm>
#include <optional>
#include <utility>
#include <variant>
#include <vector>

#include "aluframe/forces/frame_of_model.h"
#include "aluframe/forces/imperfections_of_model.h"
#include "aluframe/forces/second_order_forces.h"
#include "aluframe/texts/text.h"

namespace aluframe::forces {

namespace {

using Answers = std::vector<const analysis::SecondOrderResult*>;

std::shared_ptr<const CaseDisplacements> displacements_of(const model::Model& model,
                                                          analysis::Solution solution) {
  auto displacements = std::make_shared<CaseDisplacements>(model.load_cases.size());
  for (std::size_t load_case = 0; load_case < model.load_cases.size(); ++load_case) {
    if (!has_loads(model.load_cases[load_case])) continue;
    (*displacements)[load_case] = std::move(solution.cases[load_case].displacements);
  }
  return displacements;
}

analysis::Result<Summary> first_order(model::Model& model, model::ForceTable table,
                                      Summary summary) {
  auto solved = analyse_model(model);
  if (auto* problem = std::get_if<analysis::Problem>(&solved)) {
    if (problem->load_case) {
      const model::Number number = model.load_cases[*problem->load_case].number;
      problem->text = fmt::format(texts::translatable("load case {}: {}"), number, problem->text);
    }
    return std::move(*problem);
  }
  auto& solution = std::get<analysis::Solution>(solved);
  if (table == model::ForceTable()) table.resize(model.elements.size(), model.load_cases.size());
  summary.computed = {model.elements.size(), model.load_cases.size()};
  for (std::size_t load_case = 0; load_case < model.load_cases.size(); ++load_case) {
    if (!has_loads(model.load_cases[load_case])) continue;
    const analysis::CaseResult& result = solution.cases[load_case];
    summary.residual =
        std::max({summary.residual, result.equilibrium.nodes, result.equilibrium.whole});
    summary.force_error = std::max(summary.force_error, result.equilibrium.force_error);
    for (std::size_t element = 0; element < result.forces.size(); ++element) {
      if (table.set(element, load_case, {.at = result.forces[element], .inner = true})) {
        summary.computed.add(element, load_case);
      }
    }
  }
  model.forces = std::move(table);
  summary.equations = solution.effort.equations;
  if (std::ranges::any_of(model.combinations, &model::Combination::serviceability)) {
    summary.displacements = displacements_of(model, std::move(solution));
  }
  return summary;
}

/// A pair of element and load case whose forces are given by another program.
struct GivenPair {
  model::Number element = 0;
  model::Number load_case = 0;
};

std::optional<GivenPair> find_given(const model::Model& model) {
  for (std::size_t element = 0; element < model.elements.size(); ++element) {
    for (std::size_t load_case = 0; load_case < model.load_cases.size(); ++load_case) {
      if (model.forces.find(element, load_case) == nullptr) continue;
      return GivenPair{model.elements[element].number, model.load_cases[load_case].number};
    }
  }
  return std::nullopt;
}

/// Why second order cannot be analysed: forces of another program do not say what loads made them.
std::optional<analysis::Problem> given_forces_problem(const model::Model& model) {
  const auto given = find_given(model);
  if (!given) return std::nullopt;
  return analysis::Problem{
      .text = fmt::format(texts::translatable("element {} has given forces in load case {}, which "
                                              "second order cannot use: it needs "
                                              "loads alone"),
                          given->element, given->load_case)};
}

/// The smaller or larger component of two at every position.
template <class Choose>
analysis::ElementForces extreme(const analysis::ElementForces& a, const analysis::ElementForces& b,
                                Choose choose) {
  analysis::ElementForces out{};
  for (std::size_t position = 0; position < a.size(); ++position) {
    for (std::size_t i = 0; i < a[position].size(); ++i) {
      out[position][i] = choose(a[position][i], b[position][i]);
    }
  }
  return out;
}

/// Both sides of a combination from the answers to its sets of loads; equal when there is but one.
void set_sides(model::ForceTable& table, std::size_t combination, const Answers& answers) {
  const std::size_t elements = answers.front()->result.forces.size();
  for (std::size_t element = 0; element < elements; ++element) {
    analysis::ElementForces maximum = answers.front()->result.forces[element];
    analysis::ElementForces minimum = maximum;
    for (const analysis::SecondOrderResult* answer : answers) {
      const analysis::ElementForces& forces = answer->result.forces[element];
      maximum = extreme(maximum, forces, [](float a, float b) { return std::max(a, b); });
      minimum = extreme(minimum, forces, [](float a, float b) { return std::min(a, b); });
    }
    table.set(element, model::side_place(combination, 0), {.at = maximum, .inner = true});
    table.set(element, model::side_place(combination, 1), {.at = minimum, .inner = true});
  }
}

analysis::Result<Summary> second_order(model::Model& model, Summary summary) {
  SecondOrderAnalyses analyses(model);
  model::ForceTable table;
  table.resize(model.elements.size(), model::side_place(model.combinations.size(), 0));
  std::vector<model::InitialCurvatures> curvatures;
  if (model.analysis.imperfections.any()) curvatures.resize(model.combinations.size());
  for (std::size_t place = 0; place < model.combinations.size(); ++place) {
    if (!model.combinations[place].design) continue;
    const auto solved = analyses.answers(place);
    if (const auto* problem = std::get_if<analysis::Problem>(&solved)) return *problem;
    const Answers& answers = std::get<Answers>(solved);
    set_sides(table, place, answers);
    if (answers.size() == 1 && !curvatures.empty()) {
      const analysis::InitialCurvatures& initial = answers.front()->initial;
      curvatures[place] = {initial.terms, initial.powers};
    }
    if (const auto* growing = analyses.growing(place)) {
      summary.growing.push_back(
          {model.combinations[place].number, growing->growth, growing->growing});
    }
  }
  summary.residual = analyses.largest_residual();
  summary.force_error = analyses.largest_force_error();
  summary.second_order_analyses = analyses.count();
  summary.large_displacements = model.analysis.large_displacements;
  summary.iterations = analyses.most_iterations();
  model.combined_forces = std::move(table);
  model.combined_curvatures = std::move(curvatures);
  return summary;
}

}  // namespace

bool has_loads(const model::LoadCase& load_case) {
  return load_case.loads != model::CaseLoads();
}

bool has_all_forces(const model::Model& model) {
  for (std::size_t load_case = 0; load_case < model.load_cases.size(); ++load_case) {
    if (!has_loads(model.load_cases[load_case])) continue;
    for (std::size_t element = 0; element < model.elements.size(); ++element) {
      if (model.forces.find(element, load_case) == nullptr) return false;
    }
  }
  return true;
}

analysis::Result<analysis::Solution> analyse_model(const model::Model& model) {
  std::vector<analysis::LoadCase> cases;
  cases.reserve(model.load_cases.size());
  for (const model::LoadCase& load_case : model.load_cases) {
    cases.push_back(loads_of(model, load_case));
  }
  return analysis::analyse(frame_of(model), cases);
}

analysis::Result<Summary> compute_forces(model::Model& model) {
  if (model.analysis.second_order) {
    if (auto problem = given_forces_problem(model)) return *std::move(problem);
  }
  Summary summary;
  summary.load_cases = static_cast<std::size_t>(std::ranges::count_if(model.load_cases, has_loads));
  if (model.analysis.second_order && summary.load_cases > 0) return second_order(model, summary);
  auto completed = complete_positions(model);
  if (auto* problem = std::get_if<analysis::Problem>(&completed)) return std::move(*problem);
  auto& given = std::get<GivenPositions>(completed);
  summary.without_inner = std::move(given.without_inner);
  if (summary.load_cases > 0 && !has_all_forces(model)) {
    return first_order(model, given.forces ? *std::move(given.forces) : model.forces,
                       std::move(summary));
  }
  summary.load_cases = 0;  // nothing to analyse
  if (given.forces) model.forces = *std::move(given.forces);
  return summary;
}

}  // namespace aluframe::forces
