#pragma once

#include <array>
#include <optional>
#include <vector>

#include "aluframe/analysis/assembly.h"
#include "aluframe/analysis/axial_work.h"
#include "aluframe/analysis/beam_column_plane.h"

namespace aluframe::analysis {

/// An element whose axial force grows with a load factor, for buckling: the loads across it, which
/// do not change what buckles, are left out. A truss is a bar on hinges that buckles between its
/// nodes as well; one without moments of inertia does not. Torsion is as in first order.
class LoadedElement {
 public:
  /// @param axial_force_at_start N, positive in tension
  LoadedElement(const Element& element, const ElementLoads& loads, double axial_force_at_start);

  /// N at the factor 1; 0: it does not buckle.
  double largest_compression() const { return compression_; }

  /// The factor at which the compression reaches what the shear stiffness carries; infinite without
  /// either.
  double largest_carried_factor() const;

  /// @param k gets the stiffness at the factor
  /// @return own factors below this one: how often the element buckles while its nodes stand still;
  ///         nothing at a factor that is one of its own, or beyond what its shear stiffness carries
  std::optional<int> stiffness_at(double factor, ElementStiffness& k) const;

  /// Work of the axial force at the factor in displacements of the two ends, local axes; 0 at a
  /// factor that is one of its own.
  AxialWork work(double factor, const Vector12& ends) const;

  /// A factor that is not above its smallest own one; infinite without compression.
  double lower_bound() const;
  /// @return infinite above the largest that is looked for
  double smallest_own_factor(double largest) const;
  bool has_own_below(double factor) const { return has_own_below(factor, both); }
  /// The axis, 1 (y) or 2 (z), along which it deflects at its smallest own factor.
  int own_direction(double smallest_own_factor) const;

 private:
  /// Axes along which the axial force acts on the deflection.
  using Directions = std::array<bool, 2>;
  static constexpr Directions both{true, true};

  double length() const { return spans_.back().to; }
  std::optional<int> stiffness_at(double factor, const Directions& acting,
                                  ElementStiffness& k) const;
  int truss_at(double factor, const Directions& acting, ElementStiffness& k) const;
  std::optional<int> beam_at(double factor, const Directions& acting, ElementStiffness& k) const;
  bool has_own_below(double factor, const Directions& acting) const;
  BendingPlane plane(int axis) const;
  std::vector<ElementSpan> spans_at(double factor) const;

  const Element* element_;
  std::vector<ElementSpan> spans_;
  double compression_ = 0.0;
};

}  // namespace aluframe::analysis
