#include "aluframe/analysis/analyse.h"

#include "aluframe/analysis/input_check.h"
#include "aluframe/analysis/linear_recovery.h"
#include "aluframe/analysis/linear_refinement.h"
#include "aluframe/analysis/mechanism.h"
#include "aluframe/analysis/stiffness_equations.h"

namespace aluframe::analysis {

namespace {

using Found = std::optional<Problem>;

Found find_input_problem(const Frame& frame, std::span<const LoadCase> cases) {
  if (auto problem = find_problem(frame)) return problem;
  for (const LoadCase& load_case : cases) {
    if (auto problem = find_problem(frame, load_case)) return problem;
  }
  return std::nullopt;
}

/// One run of the analysis: what the cases share, then each case's own.
class Run {
 public:
  Run(const Frame& frame, std::span<const LoadCase> cases)
      : frame_(frame), cases_(cases), geometry_(element_geometry(frame)), equations_(frame) {}

  Found solve_equations();
  Result<Solution> recover(const Options& options);

 private:
  void add_loads(LoadVectors& vectors);

  const Frame& frame_;
  std::span<const LoadCase> cases_;
  std::vector<Geometry> geometry_;
  Equations equations_;
  std::vector<LoadsByElement> loads_;
  FixedEndTable fixed_end_;
  std::vector<NodeValues> displacements_;
  std::vector<Norms> load_norms_;
  Effort effort_;
};

void Run::add_loads(LoadVectors& vectors) {
  std::vector<EquivalentLoads> equivalent;
  for (const LoadCase& load_case : cases_) {
    loads_.emplace_back(frame_, geometry_, load_case);
    displacements_.push_back(settlements(frame_, load_case));
    equivalent.emplace_back(frame_, geometry_, load_case);
    equivalent.back().add_settlements(elastic_source(frame_, geometry_));
  }
  fixed_end_ = FixedEndTable(frame_, loads_);
  for (std::size_t i = 0; i < frame_.elements.size(); ++i) {
    for (const FixedEndEntry& entry : fixed_end_.of(i)) {
      equivalent[entry.load_case].add_fixed_end_forces(i, entry.condensed, entry.unreleased);
    }
  }
  for (const EquivalentLoads& loads : equivalent) {
    load_norms_.push_back(loads.norms());
    vectors.add(loads.values());
  }
}

Found Run::solve_equations() {
  for (const LoadCase& load_case : cases_) {
    if (auto problem = find_lost_load(frame_, equations_, load_case)) return problem;
  }
  const ScaledEquations scaled =
      assemble(frame_, geometry_, equations_, elastic_source(frame_, geometry_));
  LoadVectors vectors(equations_, scaled);
  add_loads(vectors);
  if (equations_.count() == 0) return std::nullopt;
  const auto solver = make_solver();
  const Factorisation done = solver->factorise(scaled.matrix);
  if (auto problem = find_problem(done, frame_, equations_, scaled)) return problem;
  effort_ = {equations_.count(), done.factor_entries, done.memory_bytes};
  const bool is_stable = vectors.solve(*solver) >= least_softness;
  if (!is_stable) return explain_mechanism(frame_, equations_, scaled);
  for (std::size_t i = 0; i < cases_.size(); ++i) vectors.add_displacements(i, displacements_[i]);
  return std::nullopt;
}

Result<Solution> Run::recover(const Options& options) {
  std::vector<CaseRecovery> recoveries;
  recoveries.reserve(cases_.size());
  for (NodeValues& values : displacements_) recoveries.emplace_back(frame_, std::move(values));
  recover_linear(frame_, geometry_, loads_, fixed_end_, recoveries);
  fixed_end_ = {};
  Solution solution;
  solution.effort = effort_;
  LinearRefinement refinement(frame_, geometry_, equations_);
  for (std::size_t i = 0; i < cases_.size(); ++i) {
    // Gives its memory back to the next case.
    CaseRecovery recovery = std::move(recoveries[i]);
    auto result =
        recovery.finish(equations_, cases_[i], loads_[i], geometry_, load_norms_[i], Order::first);
    if (const auto* first = std::get_if<CaseResult>(&result);
        first && needs_refinement(first->equilibrium)) {
      result = refinement.refine(*first, cases_[i], loads_[i], load_norms_[i]);
    }
    if (auto* problem = std::get_if<Problem>(&result)) return std::move(*problem);
    solution.cases.push_back(std::get<CaseResult>(std::move(result)));
    if (auto problem = find_residual_problem(solution.cases.back(), i, options)) {
      return std::move(*problem);
    }
  }
  return solution;
}

}  // namespace

Result<Solution> analyse(const Frame& frame, std::span<const LoadCase> cases,
                         const Options& options) {
  if (auto problem = find_input_problem(frame, cases)) return std::move(*problem);
  Run run(frame, cases);
  if (auto problem = run.solve_equations()) return std::move(*problem);
  return run.recover(options);
}

}  // namespace aluframe::analysis
