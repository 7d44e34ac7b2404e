#include "aluframe/analysis/dense_kernels.h"

#include <Eigen/Core>

#include "aluframe/analysis/dense_blocks.h"

namespace aluframe::analysis {

namespace {

using Values = Eigen::Map<Eigen::VectorXd, 0, Eigen::InnerStride<>>;
using ConstValues = Eigen::Map<const Eigen::VectorXd, 0, Eigen::InnerStride<>>;
using ConstMatrix = Eigen::Map<const Eigen::MatrixXd, 0, Eigen::OuterStride<>>;

/// Values one stride apart.
Values values(double* first, int count, int stride) {
  return {first, count, Eigen::InnerStride<>(stride)};
}

ConstValues values(const double* first, int count, int stride) {
  return {first, count, Eigen::InnerStride<>(stride)};
}

/// Fortran's flags are letters, large or small; a real matrix's adjoint is its transpose.
bool is(const char* flag, char letter) {
  return (*flag | 0x20) == letter;
}

bool is_transposed(const char* flag) {
  return !is(flag, 'n');
}

/// A factor of 0 clears what may not be a number.
double scaled(double value, double factor) {
  return factor == 0.0 ? 0.0 : factor * value;
}

void scale(const Block& block, int rows, int columns, double factor) {
  if (factor == 1.0) return;
  for (int j = 0; j < columns; ++j) {
    for (int i = 0; i < rows; ++i) block(i, j) = scaled(block(i, j), factor);
  }
}

/// op(A) of a matrix by columns.
ConstBlock operand(const double* first, int leading, const char* transpose) {
  const ConstBlock block{first, 1, leading};
  return is_transposed(transpose) ? block.transposed() : block;
}

}  // namespace

void take_own_dense_kernels() {}

}  // namespace aluframe::analysis

using namespace aluframe::analysis;

void dgemm_(const char* transpose_a, const char* transpose_b, const int* m, const int* n,
            const int* k, const double* alpha, const double* a, const int* lda, const double* b,
            const int* ldb, const double* beta, double* c, const int* ldc) {
  const Block result{c, 1, *ldc};
  scale(result, *m, *n, *beta);
  if (*m <= 0 || *n <= 0 || *k <= 0 || *alpha == 0.0) return;
  add({*m, *n, *k, *alpha, operand(a, *lda, transpose_a), operand(b, *ldb, transpose_b), result});
}

void dtrsm_(const char* side, const char* triangle, const char* transpose, const char* diagonal,
            const int* m, const int* n, const double* alpha, const double* a, const int* lda,
            double* b, const int* ldb) {
  const Block result{b, 1, *ldb};
  scale(result, *m, *n, *alpha);
  if (*m <= 0 || *n <= 0 || *alpha == 0.0) return;
  const bool is_left = is(side, 'l');
  const bool is_lower = is(triangle, 'l') != is_transposed(transpose);
  const ConstBlock factor = operand(a, *lda, transpose);
  const bool has_unit_diagonal = is(diagonal, 'u');
  if (is_left) {
    solve({*m, *n, is_lower, has_unit_diagonal, factor, result});
  } else {
    // X·A = B is the same as the transposed of A times the transposed of X.
    solve({*n, *m, !is_lower, has_unit_diagonal, factor.transposed(), result.transposed()});
  }
}

void dgemv_(const char* transpose, const int* m, const int* n, const double* alpha, const double* a,
            const int* lda, const double* x, const int* stride_x, const double* beta, double* y,
            const int* stride_y) {
  const bool transposed = is_transposed(transpose);
  Values result = values(y, transposed ? *n : *m, *stride_y);
  for (double& value : result) value = scaled(value, *beta);
  if (*m == 0 || *n == 0 || *alpha == 0.0) return;
  const ConstMatrix matrix(a, *m, *n, Eigen::OuterStride<>(*lda));
  const ConstValues factors = values(x, transposed ? *m : *n, *stride_x);
  if (transposed) {
    result.noalias() += *alpha * matrix.transpose() * factors;
  } else {
    result.noalias() += *alpha * matrix * factors;
  }
}

void daxpy_(const int* n, const double* alpha, const double* x, const int* stride_x, double* y,
            const int* stride_y) {
  if (*n <= 0) return;
  values(y, *n, *stride_y) += *alpha * values(x, *n, *stride_x);
}
