#pragma once

#include <optional>

#include "aluframe/analysis/beam_column_plane.h"
#include "aluframe/analysis/case_recovery.h"
#include "aluframe/analysis/fixed_end_forces.h"
#include "aluframe/analysis/releases.h"

namespace aluframe::analysis {

/// An element under axial force, loads included: what its axial force adds to its stiffness and to
/// its moments, along the chord of its nodes (P-Delta) and between them (P-delta). Torsion is as
/// in first order; a truss has its chord alone.
class BeamColumn {
 public:
  /// @param axial_force at its start, N, positive in tension; nothing: as in first order
  /// @param initial what it is out of true by before it is loaded; of a truss its chord alone
  /// @return nothing when the element by itself has no equilibrium under its axial force
  static std::optional<BeamColumn> of(const Element& element, const ElementLoads& loads,
                                      std::optional<double> axial_force,
                                      const InitialSlopes& initial = {});

  const ElementStiffness& stiffness() const { return stiffness_; }
  const FixedEndForces& fixed_end() const { return fixed_end_; }
  /// Whether it buckles between nodes that stand still, a truss as a bar on hinges.
  bool buckles() const { return buckles_; }

  /// Forces under the displacements of its nodes, local axes.
  ElementResponse response(const Element& element, const ElementLoads& loads,
                           const Vector12& displacements) const;
  /// Forces at the five positions where the end forces are known.
  FivePositions sections(const Element& element, const ElementLoads& loads,
                         const Vector12& displacements, const Vector12& end_forces) const;
  /// Deflections along y and along z at places, mm from the start; a truss stays straight.
  std::array<std::vector<double>, 2> deflections(double length, const Vector12& displacements,
                                                 std::span<const double> places) const;

 private:
  void set_bending(const ElementLoads& loads);
  void set_lean(const InitialSlopes& initial);
  void add_bowing(const Vector12& displacements, FivePositions& sections) const;

  ElementStiffness stiffness_;
  FixedEndForces fixed_end_;
  std::optional<BeamColumnPlane> plane_y_, plane_z_;
  std::optional<Releases> releases_;
  bool buckles_ = false;
};

/// Axial force at the start, N, positive in tension, from the end forces acting ON the element.
double axial_force_at_start(ElementKind kind, const Vector12& end_forces,
                            const ElementLoads& loads);

}  // namespace aluframe::analysis
