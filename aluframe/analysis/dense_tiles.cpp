#include "aluframe/analysis/dense_tiles.h"

#if ALUFRAME_VECTOR_DOUBLES > 2
#include <immintrin.h>
#endif

namespace aluframe::analysis {

namespace {

/// Doubles in a vector; the build sets the width together with the processor's.
constexpr int width = ALUFRAME_VECTOR_DOUBLES;

/// Stands anywhere that a double may.
using Vector
    __attribute__((vector_size(sizeof(double) * width), aligned(sizeof(double)), may_alias)) =
        double;

const Vector& vector_at(const double* at) {
  return *reinterpret_cast<const Vector*>(at);
}

Vector& vector_at(double* at) {
  return *reinterpret_cast<Vector*>(at);
}

Vector repeated(double value) {
  return value - Vector{};
}

#if ALUFRAME_VECTOR_DOUBLES > 2

using Factor = Vector;

/// a·b + c, rounded once.
Vector fused(const Vector& a, const Vector& b, const Vector& c) {
#if ALUFRAME_VECTOR_DOUBLES == 8
  return _mm512_fmadd_pd(a, b, c);
#else
  return _mm256_fmadd_pd(a, b, c);
#endif
}

#else

/// a·b + c, rounded once, one number at a time.
Vector fused_singly(const Vector& a, const Vector& b, const Vector& c) {
  return Vector{__builtin_fma(a[0], b[0], c[0]), __builtin_fma(a[1], b[1], c[1])};
}

#ifdef __FP_FAST_FMA

using Factor = Vector;

/// a·b + c, rounded once.
Vector fused(const Vector& a, const Vector& b, const Vector& c) {
  return fused_singly(a, b, c);
}

#else

// What other processors do in one step is done in many here, with the same digits (S. Boldo,
// G. Melquiond: Emulation of a FMA and correctly rounded sums: proved algorithms using rounding to
// odd. IEEE Transactions on Computers 57 (2008) 462-471).

using Bits __attribute__((vector_size(sizeof(long long) * width))) = long long;

/// A rounded result and what rounding left out.
struct Exact {
  Vector rounded, rest;
};

/// a + b (Knuth).
Exact sum(const Vector& a, const Vector& b) {
  const Vector rounded = a + b;
  const Vector added = rounded - a;
  return {rounded, (a - (rounded - added)) + (b - added)};
}

/// A number and the halves of its digits (Veltkamp).
struct Factor {
  Vector whole, upper, lower;

  Factor(const Vector& value) : whole(value) {  // NOLINT(google-explicit-constructor): as a vector
    const Vector raised = value * 134217729.0;  // 2²⁷ + 1
    upper = raised - (raised - value);
    lower = value - upper;
  }
};

/// a·b (Dekker).
Exact product(const Factor& a, const Factor& b) {
  const Vector rounded = a.whole * b.whole;
  const Vector missed = ((rounded - a.upper * b.upper) - a.lower * b.upper) - a.upper * b.lower;
  return {rounded, a.lower * b.lower - missed};
}

/// a + b rounded to the neighbour whose last digit is odd, unless it is exact: rounded again beside
/// a larger number, it gives the same as the exact sum.
Vector rounded_to_odd(const Vector& a, const Vector& b) {
  const auto [rounded, rest] = sum(a, b);
  const Bits digits = __builtin_bit_cast(Bits, rounded);
  const Bits is_even = (digits & 1) - 1, is_inexact = rest != 0.0;
  const Bits towards_zero = (rounded < 0.0) ^ (rest < 0.0);
  return __builtin_bit_cast(Vector, digits + ((towards_zero | 1) & is_even & is_inexact));
}

/// a·b + c, rounded once, of moderate factors and a sum that is not a negative zero.
Vector fused(const Factor& a, const Factor& b, const Vector& c) {
  const auto [upper, lower] = product(a, b);
  const auto [beside, lost] = sum(c, lower);
  const auto [rounded, rest] = sum(upper, beside);
  return rounded + rounded_to_odd(lost, rest);
}

/// Whether products of such numbers neither overflow nor lose digits for being small.
Bits is_moderate(const Vector& value) {
  constexpr double large = 0x1p450, small = 0x1p-450;
  const Vector size = value < 0.0 ? -value : value;
  return (value == 0.0) | ((size >= small) & (size <= large));
}

bool holds(const Bits& condition) {
  return (condition[0] & condition[1]) != 0;
}

bool are_moderate(const double* values, int count) {
  Bits all = ~Bits{};
  for (int i = 0; i < count; i += width) all &= is_moderate(vector_at(values + i));
  return holds(all);
}

/// a·b + c, rounded once, of any numbers.
Vector fused(const Vector& a, const Vector& b, const Vector& c) {
  if (!holds(is_moderate(a) & is_moderate(b) & is_moderate(c))) return fused_singly(a, b, c);
  // There is but one rounding where one of them is 0.
  const Bits is_plain = (a == 0.0) | (b == 0.0) | (c == 0.0);
  return is_plain ? a * b + c : fused(Factor(a), Factor(b), c);
}

#endif
#endif

/// Two vectors of rows by four columns: eight sums, which fit the registers of every width.
constexpr int rows_at_once = 2 * width;

/// `Number` is what the factors are taken as.
template <class Number>
void multiply_rows(int depth, const double* left, const double* right, double factor,
                   double* result, std::ptrdiff_t leading) {
  Vector sums[tile_columns][2] = {};
  for (int p = 0; p < depth; ++p, left += tile_rows, right += tile_columns) {
    const Number upper = vector_at(left), lower = vector_at(left + width);
#pragma GCC unroll 4
    for (int j = 0; j < tile_columns; ++j) {
      const Number of_column = repeated(right[j]);
      sums[j][0] = fused(upper, of_column, sums[j][0]);
      sums[j][1] = fused(lower, of_column, sums[j][1]);
    }
  }
#pragma GCC unroll 4
  for (int j = 0; j < tile_columns; ++j) {
    vector_at(result + j * leading) += factor * sums[j][0];
    vector_at(result + j * leading + width) += factor * sums[j][1];
  }
}

template <class Number>
void multiply_as(int depth, const double* left, const double* right, double factor, double* result,
                 std::ptrdiff_t leading) {
  for (int top = 0; top < tile_rows; top += rows_at_once) {
    multiply_rows<Number>(depth, left + top, right, factor, result + top, leading);
  }
}

void multiply(int depth, const double* left, const double* right, double factor, double* result,
              std::ptrdiff_t leading) {
#if ALUFRAME_VECTOR_DOUBLES == 2 && !defined(__FP_FAST_FMA)
  // Sums begin at a positive zero and never come to a negative one.
  if (!are_moderate(left, depth * tile_rows) || !are_moderate(right, depth * tile_columns)) {
    return multiply_as<Vector>(depth, left, right, factor, result, leading);
  }
#endif
  multiply_as<Factor>(depth, left, right, factor, result, leading);
}

void solve_columns(int size, const double* triangle, const double* diagonal, double* x) {
  for (int i = 0; i < size; ++i) {
    const double* row = triangle + i * size;
    Vector upper = vector_at(x + i * tile_rows), lower = vector_at(x + i * tile_rows + width);
    for (int j = 0; j < i; ++j) {
      const Vector factor = repeated(-row[j]);
      upper = fused(factor, vector_at(x + j * tile_rows), upper);
      lower = fused(factor, vector_at(x + j * tile_rows + width), lower);
    }
    if (diagonal) {
      upper /= diagonal[i];
      lower /= diagonal[i];
    }
    vector_at(x + i * tile_rows) = upper;
    vector_at(x + i * tile_rows + width) = lower;
  }
}

void solve(int size, const double* triangle, const double* diagonal, double* x) {
  for (int first = 0; first < tile_rows; first += rows_at_once) {
    solve_columns(size, triangle, diagonal, x + first);
  }
}

}  // namespace

#if ALUFRAME_VECTOR_DOUBLES == 8
const DenseTiles dense_tiles_of_8{multiply, solve};
#elif ALUFRAME_VECTOR_DOUBLES == 4
const DenseTiles dense_tiles_of_4{multiply, solve};
#else
const DenseTiles dense_tiles_of_2{multiply, solve};
#endif

}  // namespace aluframe::analysis
