#include "aluframe/analysis/load_vector.h"

#include "aluframe/analysis/clamped_forces.h"
#include "aluframe/analysis/releases.h"

namespace aluframe::analysis {

namespace {

bool is_loaded(const ElementLoads& loads) {
  const FreeDeformation& free = loads.free;
  return !loads.distributed.empty() || !loads.points.empty() || free.strain != 0.0 ||
         free.curvature_y != 0.0 || free.curvature_z != 0.0;
}

bool has_release(const Element& element) {
  return element.released != std::array<bool, 12>{};
}

}  // namespace

Vector12 at_ends(const Element& element, const NodeValues& values) {
  using Six = Eigen::Map<const Eigen::Matrix<double, 6, 1>>;
  Vector12 ends;
  ends.head<6>() = Six(&values[6 * element.start]);
  ends.tail<6>() = Six(&values[6 * element.end]);
  return ends;
}

void add_at_ends(const Element& element, const Vector12& part, NodeValues& values) {
  using Six = Eigen::Map<Eigen::Matrix<double, 6, 1>>;
  Six(&values[6 * element.start]) += part.head<6>();
  Six(&values[6 * element.end]) += part.tail<6>();
}

NodeValues nodal_loads(const Frame& frame, const LoadCase& load_case) {
  NodeValues loads(6 * frame.nodes.size(), 0.0);
  for (const NodalLoad& load : load_case.nodal) {
    for (std::size_t i = 0; i < 6; ++i) loads[6 * load.node + i] += load.value[i];
  }
  return loads;
}

NodeValues settlements(const Frame& frame, const LoadCase& load_case) {
  NodeValues moved(6 * frame.nodes.size(), 0.0);
  for (const Settlement& s : load_case.settlements) moved[6 * s.node + s.direction] += s.value;
  return moved;
}

ClampedSource clamped_source(const Frame& frame, const LoadsByElement& loads) {
  return [&frame, &loads](std::size_t place, ClampedEnds& clamped) {
    const ElementLoads here = loads.of(place);
    clamped.unreleased.setZero();
    if (is_loaded(here)) clamped.unreleased = clamped_forces(frame.elements[place], here);
    clamped.condensed = clamped.unreleased;
    const Element& element = frame.elements[place];
    if (!is_loaded(here) || !has_release(element)) return;
    Matrix12 k = elastic_stiffness(element, here.length);
    if (const auto released = Releases::condense(element.released, k)) {
      released->condense_forces(clamped.condensed);
    }
  };
}

EquivalentLoads equivalent_loads(const Frame& frame, std::span<const Geometry> geometry,
                                 const LoadCase& load_case, const NodeValues& moved,
                                 const StiffnessSource& stiffness, const ClampedSource& clamped) {
  EquivalentLoads loads{nodal_loads(frame, load_case), {}};
  for (std::size_t i = 0; i < loads.values.size(); ++i) loads.size.include(i, loads.values[i]);
  const bool settles = !load_case.settlements.empty();
  ElementStiffness k;
  ClampedEnds held;
  for (std::size_t i = 0; i < frame.elements.size(); ++i) {
    const Element& element = frame.elements[i];
    const Axes& axes = geometry[i].axes;
    clamped(i, held);
    if (settles && !at_ends(element, moved).isZero(0.0)) {
      stiffness(i, k);
      const Vector12 local = to_local(axes, at_ends(element, moved));
      held.condensed += k.condensed * local;
      held.unreleased += k.unreleased.cwiseProduct(local).cwiseAbs();
    }
    if (held.unreleased.isZero(0.0)) continue;
    add_at_ends(element, -to_global(axes, held.condensed), loads.values);
    for (int j = 0; j < 12; ++j) {
      loads.size.include(static_cast<std::size_t>(j), held.unreleased[j]);
    }
  }
  return loads;
}

}  // namespace aluframe::analysis
