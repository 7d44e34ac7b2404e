#pragma once

#include <cstddef>
#include <span>
#include <vector>

namespace aluframe::model {

/// Curvatures d²w/dx², 1/mm, that the axes of elements have before they are loaded, along their
/// local y and z: polynomials of t, which runs from -1 at the start of the element to 1 at its end.
struct InitialCurvatures {
  std::size_t terms = 0;      ///< of every polynomial; 0: all elements are straight
  std::vector<float> powers;  ///< by element, along y and then z, that of the power 0 first

  /// @param axis 0 (y) or 1 (z)
  std::span<const float> of(std::size_t element, std::size_t axis) const {
    return std::span(powers).subspan((2 * element + axis) * terms, terms);
  }
};

}  // namespace aluframe::model
