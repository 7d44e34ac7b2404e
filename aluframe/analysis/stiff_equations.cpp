#include "aluframe/analysis/stiff_equations.h"

#include <fmt/format.h>

#include <algorithm>

#include "aluframe/analysis/mechanism.h"

namespace aluframe::analysis {

std::optional<Problem> find_problem(const Factorisation& factorisation, const Frame& frame,
                                    const Equations& equations, const ScaledEquations& scaled) {
  using Status = Factorisation::Status;
  const auto problem = [](Problem::Kind kind, std::string text) {
    return Problem{kind, std::move(text), std::nullopt, std::nullopt};
  };
  switch (factorisation.status) {
    case Status::done:
      return std::nullopt;
    case Status::zero_pivot:
      return explain_mechanism(frame, equations, scaled);
    case Status::no_memory:
      return problem(Problem::Kind::memory,
                     fmt::format("not enough memory for {} equations", equations.count()));
    default:
      return problem(Problem::Kind::solver, fmt::format("the equations could not be solved: the "
                                                        "solver's code is {}",
                                                        factorisation.code));
  }
}

void RightSides::add(const NodeValues& loads) {
  for (int i = 0; i < equations_.count(); ++i) {
    columns_.push_back(loads[equations_.place(i)] * scaled_.scale[static_cast<std::size_t>(i)]);
  }
}

double RightSides::solve(LinearSolver& solver) {
  const std::vector<double> probe = probing_load(equations_.count());
  columns_.insert(columns_.end(), probe.begin(), probe.end());
  solver.solve(columns_);
  return softness(probe, std::span(columns_).last(size()));
}

void RightSides::add_displacements(std::size_t load_case, NodeValues& moved) const {
  const double* column = columns_.data() + load_case * size();
  for (std::size_t i = 0; i < size(); ++i) {
    moved[equations_.place(static_cast<int>(i))] += column[i] * scaled_.scale[i];
  }
}

std::optional<Problem> find_imbalance(const CaseResult& result, std::size_t load_case,
                                      double limit) {
  const double largest = std::max(result.equilibrium.nodes, result.equilibrium.whole);
  if (largest <= limit) return std::nullopt;
  return Problem{
      .kind = Problem::Kind::equilibrium,
      .text = fmt::format("{:.1e} of the loads stay unbalanced, more than {:.0e}: the frame "
                          "is too soft, or its stiffnesses are too different",
                          largest, limit),
      .load_case = load_case};
}

}  // namespace aluframe::analysis
