#pragma once

#include <array>
#include <cmath>
#include <cstddef>

namespace aluframe::forces {

/// Coefficients of a polynomial, that of the power 0 first. Eight powers of a solution whose own
/// length is that of the piece or more leave an error of 1/9!, 3e-6 of it.
using Series = std::array<double, 9>;

inline double value_of(const Series& series, double x) {
  double sum = 0.0;
  for (std::size_t k = series.size(); k-- > 0;) sum = sum * x + series[k];
  return sum;
}

inline Series derivative_of(const Series& series) {
  Series out{};
  for (std::size_t k = 1; k < series.size(); ++k) out[k - 1] = static_cast<double>(k) * series[k];
  return out;
}

/// Places where a polynomial changes its sign.
struct SignChanges {
  std::array<double, std::tuple_size_v<Series>> at{};
  std::size_t count = 0;

  const double* begin() const { return at.data(); }
  const double* end() const { return at.data() + count; }
};

/// Those between 0 and `length`, ascending: one at most between two of the derivative's.
SignChanges sign_changes_of(const Series& series, double length);

}  // namespace aluframe::forces
