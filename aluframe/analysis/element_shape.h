#pragma once

#include <array>
#include <functional>
#include <span>
#include <vector>

namespace aluframe::analysis {

/// A polynomial of the fifth degree on a stretch, in Bernstein form: its first and last coefficient
/// are its values at the ends, and nowhere on the stretch is it outside of its coefficients
/// (G. Farin, Curves and Surfaces for CAGD, 5th ed., ch. 5).
using Bernstein = std::array<double, 6>;

/// The polynomial that has the given values at 0, 1/5, ... 1 of the stretch.
Bernstein through(const std::array<double, 6>& values);

/// Value at a part of the stretch, 0 to 1.
double value_at(const Bernstein& polynomial, double part);

struct Peak {
  double part = 0.0;   ///< of the stretch, 0 to 1
  double value = 0.0;  ///< with its sign
};

/// Where its magnitude is largest on the stretch: exact to 1e-12 of it. The first of several.
///
/// @param above a magnitude that is known elsewhere: where nothing exceeds it, the search ends as
/// soon as that is certain, at a place that is no peak
Peak peak_of(const Bernstein& polynomial, double above = 0.0);

/// How far an element is displaced across its axis on a stretch of it.
struct ShapePiece {
  double from = 0.0, to = 0.0;      ///< mm from the start of the element
  std::array<Bernstein, 2> across;  ///< along local y and z, mm
};

/// An element's displacement across its axis, piece by piece from its start to its end.
using ElementShape = std::vector<ShapePiece>;

/// Displacements along y and along z at places, mm from the start.
using AcrossAt = std::function<std::array<std::vector<double>, 2>(std::span<const double>)>;

/// The shape that takes the displacements of `across` at the ends of the pieces, which `bounds`
/// are, and at four places between them: all of it where these are polynomials of the fifth degree.
ElementShape shape_through(std::span<const double> bounds, const AcrossAt& across);

}  // namespace aluframe::analysis
