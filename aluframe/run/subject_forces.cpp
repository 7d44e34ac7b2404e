#include "aluframe/run/subject_forces.h"

#include <utility>
#include <variant>

#include "aluframe/forces/compute_forces.h"

namespace aluframe::run {

Result<model::Model> with_forces_of(Input input, const Subject& subject) {
  if (!subject.is_combination) {
    input.model.analysis.second_order = false;
    input.model.analysis.large_displacements = false;
  }
  const auto summary = forces::compute_forces(input.model);
  if (const auto* problem = std::get_if<analysis::Problem>(&summary)) {
    return problem_of(input.file, *problem);
  }
  return std::move(input.model);
}

}  // namespace aluframe::run
