#include "aluframe/analysis/linear_refinement.h"

#include "aluframe/analysis/fixed_end_table.h"
#include "aluframe/analysis/refinement.h"
#include "aluframe/analysis/stiffness_equations.h"

namespace aluframe::analysis {

namespace {

NodeValues by_place(const std::vector<Vector6>& by_node) {
  NodeValues values;
  for (const Vector6& six : by_node) values.insert(values.end(), six.begin(), six.end());
  return values;
}

CaseLoads case_loads(const Frame& frame, const LoadCase& load_case, const LoadsByElement& loads,
                     const Norms& load_norms) {
  CaseLoads all{nodal_loads(frame, load_case), {}, load_norms};
  all.fixed_end_forces.assign(frame.elements.size(), Vector12::Zero());
  const FixedEndTable fixed_end(frame, {&loads, 1});
  for (std::size_t i = 0; i < all.fixed_end_forces.size(); ++i) {
    for (const FixedEndEntry& entry : fixed_end.of(i)) all.fixed_end_forces[i] = entry.condensed;
  }
  return all;
}

}  // namespace

std::optional<Problem> LinearRefinement::factorise() {
  if (solver_) return std::nullopt;
  solver_ = make_solver();
  if (equations_.count() == 0) return std::nullopt;
  ScaledEquations scaled =
      assemble(frame_, geometry_, equations_, elastic_source(frame_, geometry_));
  const Factorisation done = solver_->factorise(scaled.matrix);
  if (auto problem = find_problem(done, frame_, equations_, scaled)) return problem;
  scale_ = std::move(scaled.scale);
  return std::nullopt;
}

Result<CaseResult> LinearRefinement::refine(const CaseResult& first, const LoadCase& load_case,
                                            const LoadsByElement& loads, const Norms& load_norms) {
  if (auto problem = factorise()) return std::move(*problem);
  const RefinedCase refined = analysis::refine(
      {frame_, geometry_, equations_, scale_, elastic_source(frame_, geometry_), *solver_},
      case_loads(frame_, load_case, loads, load_norms), by_place(first.displacements));
  CaseRecovery recovery(frame_, refined.displacements, refined.force_error);
  for (std::size_t i = 0; i < frame_.elements.size(); ++i) {
    const Vector12& ends = refined.end_forces[i];
    const FivePositions sections = section_forces(frame_.elements[i].kind, ends, loads.of(i));
    recovery.add(i, to_global(geometry_[i].axes, ends), sections.reshaped(), refined.largest);
  }
  return recovery.finish(equations_, load_case, loads, geometry_, load_norms, Order::first);
}

}  // namespace aluframe::analysis
