#include <algorithm>
#include <cmath>

#include "aluframe/elementary/double_double.h"
#include "aluframe/elementary/functions.h"

namespace aluframe::elementary {

namespace {

/// Of numbers whose squares and their roundings are ordinary numbers.
double of_ordinary(double x, double y) {
  const DoubleDouble square = product(x, x) + product(y, y);
  const double root = std::sqrt(square.high);
  if (root == 0.0) return root;
  const DoubleDouble rest = square - product(root, root);
  return root + (rest.high + rest.low) / (2.0 * root);
}

}  // namespace

double hypotenuse(double x, double y) {
  if (!std::isfinite(x) || !std::isfinite(y)) return std::hypot(x, y);
  const double larger = std::max(std::abs(x), std::abs(y));
  constexpr double largest = 0x1p480, smallest = 0x1p-400, step = 0x1p600;
  if (larger > largest) return step * of_ordinary(x / step, y / step);
  if (larger < smallest) return of_ordinary(x * step, y * step) / step;
  return of_ordinary(x, y);
}

}  // namespace aluframe::elementary
