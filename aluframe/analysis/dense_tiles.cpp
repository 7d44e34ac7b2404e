#include "aluframe/analysis/dense_tiles.h"

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

/// Two vectors of rows by four columns: eight sums, which fit the registers of every width.
constexpr int rows_at_once = 2 * width;

void multiply_rows(int depth, const double* left, const double* right, double factor,
                   double* result, long leading) {
  Vector sums[tile_columns][2] = {};
  for (int p = 0; p < depth; ++p, left += tile_rows, right += tile_columns) {
    const Vector upper = vector_at(left), lower = vector_at(left + width);
#pragma GCC unroll 4
    for (int j = 0; j < tile_columns; ++j) {
      sums[j][0] += upper * right[j];
      sums[j][1] += lower * right[j];
    }
  }
#pragma GCC unroll 4
  for (int j = 0; j < tile_columns; ++j) {
    vector_at(result + j * leading) += factor * sums[j][0];
    vector_at(result + j * leading + width) += factor * sums[j][1];
  }
}

void multiply(int depth, const double* left, const double* right, double factor, double* result,
              long leading) {
  for (int top = 0; top < tile_rows; top += rows_at_once) {
    multiply_rows(depth, left + top, right, factor, result + top, leading);
  }
}

void solve_columns(int size, const double* triangle, const double* diagonal, double* x) {
  for (int i = 0; i < size; ++i) {
    const double* row = triangle + i * size;
    Vector upper = vector_at(x + i * tile_rows), lower = vector_at(x + i * tile_rows + width);
    for (int j = 0; j < i; ++j) {
      upper -= row[j] * vector_at(x + j * tile_rows);
      lower -= row[j] * vector_at(x + j * tile_rows + width);
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
