#include "aluframe/analysis/linear_answer.h"

namespace aluframe::analysis {

Vector12 magnitudes_of(const ElementStiffness& k, const Vector12& u, const Vector12& clamped,
                       double length) {
  Vector12 sums = k.condensed.cwiseAbs() * u.cwiseAbs() + clamped.cwiseAbs();
  // What releases cancel leaves its rounding behind.
  sums = sums.cwiseMax(k.unreleased.cwiseProduct(u.cwiseAbs()));
  for (const int end : {0, 6}) {
    const double shear = std::max(sums[end + 1], sums[end + 2]) * length;
    sums.segment<3>(end + 3) = sums.segment<3>(end + 3).cwiseMax(shear);
  }
  return sums;
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
      answer.end_forces.noalias() = k.condensed * u;
      answer.end_forces += held.condensed;
      answer.magnitudes = magnitudes_of(k, u, held.unreleased, geometry[i].length);
      answer.sections = section_forces(element.kind, answer.end_forces, loads[c].of(i));
      recoveries[c].add(i, geometry[i].axes, answer);
    }
  }
}

}  // namespace aluframe::analysis
