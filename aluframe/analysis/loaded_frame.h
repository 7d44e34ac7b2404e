#pragma once

#include <limits>
#include <optional>
#include <span>
#include <vector>

#include "aluframe/analysis/equations.h"
#include "aluframe/analysis/loaded_element.h"

namespace aluframe::analysis {

/// The equations of a frame under a load factor.
struct LoadedEquations {
  ScaledEquations scaled;
  int own_factors = 0;  ///< of all elements, below the load factor
};

/// An element that buckles while its nodes stand still.
struct OwnFactor {
  double factor = std::numeric_limits<double>::infinity();
  std::size_t element = 0;
};

/// The elements of a frame in one state of axial forces, under any factor of it.
class LoadedFrame {
 public:
  LoadedFrame(const Frame& frame, std::span<const Geometry> geometry, const Equations& equations,
              const LoadCase& loads, std::span<const double> axial_forces);

  bool is_compressed() const;
  /// Per element, its largest compression at the factor 1, N; 0 without.
  std::vector<double> compression() const;
  /// The smallest factor at which an element buckles while its nodes stand still: the frame, whose
  /// nodes may move, does not carry more.
  /// @return infinite above the largest that is looked for
  OwnFactor smallest_own_factor(double largest) const;
  int own_direction(const OwnFactor& own) const {
    return elements_[own.element].own_direction(own.factor);
  }
  /// Elements that have own factors between two, as often as they have.
  std::vector<std::size_t> elements_with_own_factor(double low, double high) const;
  /// Larger factors exceed a shear stiffness; infinite without one.
  double largest_carried_factor() const;

  /// @return nothing where the factor is one of an element's own
  std::optional<LoadedEquations> at(double factor) const;

  /// Per element, the work of its axial force at the factor in a displacement of the nodes, which
  /// has six values each.
  std::vector<AxialWork> work(double factor, std::span<const double> displacements) const;

 private:
  const Frame& frame_;
  std::span<const Geometry> geometry_;
  const Equations& equations_;
  std::vector<LoadedElement> elements_;
};

}  // namespace aluframe::analysis
