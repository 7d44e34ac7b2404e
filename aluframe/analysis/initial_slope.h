#pragma once

#include <array>
#include <cstddef>
#include <span>
#include <vector>

namespace aluframe::analysis {

/// Slope dw/dx of an element's axis before it is loaded, in one bending plane, against the straight
/// line of its model: a polynomial of t, which runs from -1 at the start of the element to 1 at its
/// end. Constant for an element that leans, linear for one that is bowed to a parabola.
class InitialSlope {
 public:
  /// So many powers follow a sine of a whole wave to 1e-9.
  static constexpr std::size_t most_terms = 16;
  using Powers = std::array<double, most_terms>;

  InitialSlope() = default;
  /// @param powers coefficients, that of the power 0 first; the powers that are left out are 0
  explicit InitialSlope(std::span<const double> powers);

  bool is_zero() const { return terms_ == 0; }
  std::size_t terms() const { return terms_; }
  const Powers& powers() const { return powers_; }

  double at(double t) const;
  /// Slope of the chord.
  double mean() const;
  /// Coefficients of the powers of (t - centre)/unit.
  Powers around(double centre, double unit) const;

  InitialSlope& add(const InitialSlope& other, double factor);

 private:
  Powers powers_{};
  std::size_t terms_ = 0;  // the others are 0
};

/// Of the planes of y and z.
using InitialSlopes = std::array<InitialSlope, 2>;

/// What one element is out of true by.
struct ElementSlopes {
  std::size_t element = 0;
  InitialSlopes slopes;
};

/// A shape that a frame has before it is loaded: its elements that are out of true.
using InitialShape = std::vector<ElementSlopes>;

/// Curvatures d²w/dx² that all elements have before they are loaded, 1/mm: polynomials of t in
/// single precision.
struct InitialCurvatures {
  std::size_t terms = 0;      ///< of every polynomial; 0: all are straight, if not upright
  std::vector<float> powers;  ///< by element, along y and then z, that of the power 0 first
};

}  // namespace aluframe::analysis
