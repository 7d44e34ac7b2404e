#include "aluframe/analysis/linear_answer.h"

#include <algorithm>

namespace aluframe::analysis {

Norms magnitude_of(const ElementStiffness& k, const Vector12& u, const Vector12& clamped,
                   double length) {
  const Vector12 own = k.unreleased.cwiseProduct(u).cwiseAbs() + clamped.cwiseAbs();
  const double axial = std::max(own[0], own[6]);
  const double shear = std::max({own[1], own[2], own[7], own[8]});
  const double moment = std::max(own.segment<3>(3).maxCoeff(), own.segment<3>(9).maxCoeff());
  return {std::max({axial, shear, moment / length}), std::max(moment, shear * length)};
}

void recover_linear(const Frame& frame, std::span<const Geometry> geometry,
                    std::span<const LoadsByElement> loads, std::span<CaseRecovery> recoveries) {
  const StiffnessSource stiffness = elastic_source(frame, geometry);
  std::vector<ClampedSource> clamped;
  for (const LoadsByElement& of_case : loads) clamped.push_back(clamped_source(frame, of_case));
  ElementStiffness k;
  ClampedEnds held;
  for (std::size_t i = 0; i < frame.elements.size(); ++i) {
    const Element& element = frame.elements[i];
    stiffness(i, k);
    for (std::size_t c = 0; c < recoveries.size(); ++c) {
      clamped[c](i, held);
      const Vector12 u = to_local(geometry[i].axes, recoveries[c].displacements_of(element));
      ElementAnswer answer;
      answer.end_forces = k.condensed.lazyProduct(u);
      answer.end_forces += held.condensed;
      answer.magnitude = magnitude_of(k, u, held.unreleased, geometry[i].length);
      answer.sections = section_forces(element.kind, answer.end_forces, loads[c].of(i));
      recoveries[c].add(i, geometry[i].axes, answer);
    }
  }
}

}  // namespace aluframe::analysis
