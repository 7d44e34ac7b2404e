#include "aluframe/analysis/load_vector.h"

namespace aluframe::analysis {

NodeValues nodal_loads(const Frame& frame, const LoadCase& load_case) {
  NodeValues loads(6 * frame.nodes.size(), 0.0);
  for (const NodalLoad& load : load_case.nodal) {
    for (std::size_t i = 0; i < 6; ++i) loads[6 * load.node + i] += load.value[i];
  }
  return loads;
}

NodeValues settlements(const Frame& frame, const LoadCase& load_case) {
  NodeValues displacements(6 * frame.nodes.size(), 0.0);
  for (const Settlement& s : load_case.settlements)
    displacements[6 * s.node + s.direction] += s.value;
  return displacements;
}

EquivalentLoads::EquivalentLoads(const Frame& frame, std::span<const Geometry> geometry,
                                 const LoadCase& load_case)
    : frame_(frame),
      geometry_(geometry),
      load_case_(load_case),
      values_(nodal_loads(frame, load_case)) {
  for (const NodalLoad& load : load_case.nodal) {
    for (std::size_t i = 0; i < 6; ++i) norms_.include(i, values_[6 * load.node + i]);
  }
}

void EquivalentLoads::add_fixed_end_forces(std::size_t element, const Vector12& condensed,
                                           const EndForceNorms& unreleased) {
  const Vector12 global = -to_global(geometry_[element].axes, condensed);
  add_at_ends(frame_.elements[element], global, values_);
  norms_.force = std::max({norms_.force, unreleased.axial, unreleased.shear});
  norms_.moment = std::max(norms_.moment, unreleased.moment);
}

void EquivalentLoads::add_settlements(const StiffnessSource& stiffness) {
  if (load_case_.settlements.empty()) return;
  const NodeValues displacements = settlements(frame_, load_case_);
  ElementStiffness k;
  for (std::size_t i = 0; i < frame_.elements.size(); ++i) {
    const Vector12 ends = at_ends(frame_.elements[i], displacements);
    if (ends.isZero(0.0)) continue;
    stiffness(i, k);
    const Vector12 local = to_local(geometry_[i].axes, ends);
    add_fixed_end_forces(i, k.condensed * local,
                         EndForceNorms::of(k.unreleased.cwiseProduct(local)));
  }
}

}  // namespace aluframe::analysis
