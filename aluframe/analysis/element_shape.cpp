#include "aluframe/analysis/element_shape.h"

#include <Eigen/Dense>
#include <algorithm>
#include <cmath>

namespace aluframe::analysis {

namespace {

constexpr std::size_t degree = 5;
using Coefficients = Eigen::Matrix<double, 6, 6>;

/// A whole number to the power of another, exact.
int power(int base, int exponent) {
  return exponent == 0 ? 1 : base * power(base, exponent - 1);
}

/// Values of the six Bernstein polynomials, in columns, at 0, 1/5, ... 1.
Coefficients bernstein_values() {
  constexpr std::array<int, 6> binomial{1, 5, 10, 10, 5, 1};
  Coefficients values;
  for (int i = 0; i <= 5; ++i) {
    for (int j = 0; j <= 5; ++j) {
      values(i, j) = binomial[static_cast<std::size_t>(j)] * power(i, j) * power(5 - i, 5 - j) /
                     static_cast<double>(power(5, 5));
    }
  }
  return values;
}

double largest_magnitude(const Bernstein& polynomial) {
  double largest = 0.0;
  for (const double c : polynomial) largest = std::max(largest, std::abs(c));
  return largest;
}

/// Both halves of a polynomial (de Casteljau).
std::array<Bernstein, 2> halves(const Bernstein& polynomial) {
  Bernstein left{}, right = polynomial;
  for (std::size_t k = 0; k <= degree; ++k) {
    left[k] = right[0];
    for (std::size_t i = 0; i < degree - k; ++i) right[i] = 0.5 * (right[i] + right[i + 1]);
  }
  return {left, right};
}

/// Looks for larger magnitudes on a part of the stretch, halving what may have one above a value.
void search(const Bernstein& polynomial, double from, double to, double above, Peak& best) {
  constexpr double certain = 1e-12, shortest = 1e-9;
  const auto take = [&](double part, double value) {
    if (std::abs(value) > std::abs(best.value)) best = {part, value};
  };
  take(from, polynomial.front());
  take(to, polynomial.back());
  const double bound = largest_magnitude(polynomial);
  const double known = std::max(std::abs(best.value), above);
  if (!(bound > known * (1.0 + certain)) || to - from < shortest) return;
  const double middle = 0.5 * (from + to);
  const auto [left, right] = halves(polynomial);
  search(left, from, middle, above, best);
  search(right, middle, to, above, best);
}

}  // namespace

Bernstein through(const std::array<double, 6>& values) {
  static const Coefficients inverse = bernstein_values().inverse();
  Bernstein out{};
  Eigen::Map<Eigen::Matrix<double, 6, 1>>(out.data()) =
      inverse * Eigen::Map<const Eigen::Matrix<double, 6, 1>>(values.data());
  out.front() = values.front();
  out.back() = values.back();
  return out;
}

double value_at(const Bernstein& polynomial, double part) {
  Bernstein at = polynomial;
  for (std::size_t k = degree; k > 0; --k) {
    for (std::size_t i = 0; i < k; ++i) at[i] += part * (at[i + 1] - at[i]);
  }
  return at[0];
}

Peak peak_of(const Bernstein& polynomial, double above) {
  Peak best;
  search(polynomial, 0.0, 1.0, above, best);
  return best;
}

ElementShape shape_through(std::span<const double> bounds, const AcrossAt& across) {
  std::vector<double> places;
  for (std::size_t i = 0; i + 1 < bounds.size(); ++i) {
    for (std::size_t k = 0; k < degree; ++k) {
      places.push_back(bounds[i] + (bounds[i + 1] - bounds[i]) * static_cast<double>(k) / degree);
    }
  }
  places.push_back(bounds.back());
  const auto values = across(places);
  ElementShape shape;
  for (std::size_t i = 0; i + 1 < bounds.size(); ++i) {
    ShapePiece piece{bounds[i], bounds[i + 1], {}};
    for (std::size_t axis = 0; axis < 2; ++axis) {
      std::array<double, 6> of_piece{};
      std::copy_n(values[axis].begin() + static_cast<std::ptrdiff_t>(degree * i), 6,
                  of_piece.begin());
      piece.across[axis] = through(of_piece);
    }
    shape.push_back(piece);
  }
  return shape;
}

}  // namespace aluframe::analysis
