#include "aluframe/analysis/dense_kernels.h"

#include <Eigen/Core>

namespace aluframe::analysis {

namespace {

using Block = Eigen::Map<Eigen::MatrixXd, 0, Eigen::OuterStride<>>;
using ConstBlock = Eigen::Map<const Eigen::MatrixXd, 0, Eigen::OuterStride<>>;
using Values = Eigen::Map<Eigen::VectorXd, 0, Eigen::InnerStride<>>;
using ConstValues = Eigen::Map<const Eigen::VectorXd, 0, Eigen::InnerStride<>>;

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

template <class Result>
void scale(Result&& result, double factor) {
  // A factor of 0 clears what may not be a number.
  if (factor == 0.0) {
    result.setZero();
  } else if (factor != 1.0) {
    result *= factor;
  }
}

/// Solves with the triangle of `a` on one side of `b`.
template <int side, int triangle, class Matrix>
void solve(const Matrix& a, bool unit_diagonal, Block& b) {
  if (unit_diagonal) {
    a.template triangularView<triangle | Eigen::UnitDiag>().template solveInPlace<side>(b);
  } else {
    a.template triangularView<triangle>().template solveInPlace<side>(b);
  }
}

template <int side>
void solve(const ConstBlock& a, bool upper, bool transposed, bool unit_diagonal, Block& b) {
  if (upper && transposed) {
    solve<side, Eigen::Lower>(a.transpose(), unit_diagonal, b);
  } else if (upper) {
    solve<side, Eigen::Upper>(a, unit_diagonal, b);
  } else if (transposed) {
    solve<side, Eigen::Upper>(a.transpose(), unit_diagonal, b);
  } else {
    solve<side, Eigen::Lower>(a, unit_diagonal, b);
  }
}

}  // namespace

void take_own_dense_kernels() {}

}  // namespace aluframe::analysis

using namespace aluframe::analysis;

void dgemm_(const char* transpose_a, const char* transpose_b, const int* m, const int* n,
            const int* k, const double* alpha, const double* a, const int* lda, const double* b,
            const int* ldb, const double* beta, double* c, const int* ldc) {
  Block result(c, *m, *n, Eigen::OuterStride<>(*ldc));
  scale(result, *beta);
  if (*m == 0 || *n == 0 || *k == 0 || *alpha == 0.0) return;
  const bool ta = is_transposed(transpose_a), tb = is_transposed(transpose_b);
  const ConstBlock left(a, ta ? *k : *m, ta ? *m : *k, Eigen::OuterStride<>(*lda));
  const ConstBlock right(b, tb ? *n : *k, tb ? *k : *n, Eigen::OuterStride<>(*ldb));
  if (ta && tb) {
    result.noalias() += *alpha * left.transpose() * right.transpose();
  } else if (ta) {
    result.noalias() += *alpha * left.transpose() * right;
  } else if (tb) {
    result.noalias() += *alpha * left * right.transpose();
  } else {
    result.noalias() += *alpha * left * right;
  }
}

void dtrsm_(const char* side, const char* triangle, const char* transpose, const char* diagonal,
            const int* m, const int* n, const double* alpha, const double* a, const int* lda,
            double* b, const int* ldb) {
  Block result(b, *m, *n, Eigen::OuterStride<>(*ldb));
  scale(result, *alpha);
  if (*m == 0 || *n == 0 || *alpha == 0.0) return;
  const bool left = is(side, 'l');
  const int size = left ? *m : *n;
  const ConstBlock factor(a, size, size, Eigen::OuterStride<>(*lda));
  const bool upper = is(triangle, 'u'), unit_diagonal = is(diagonal, 'u');
  if (left) {
    solve<Eigen::OnTheLeft>(factor, upper, is_transposed(transpose), unit_diagonal, result);
  } else {
    solve<Eigen::OnTheRight>(factor, upper, is_transposed(transpose), unit_diagonal, result);
  }
}

void dgemv_(const char* transpose, const int* m, const int* n, const double* alpha, const double* a,
            const int* lda, const double* x, const int* stride_x, const double* beta, double* y,
            const int* stride_y) {
  const bool transposed = is_transposed(transpose);
  Values result = values(y, transposed ? *n : *m, *stride_y);
  scale(result, *beta);
  if (*m == 0 || *n == 0 || *alpha == 0.0) return;
  const ConstBlock matrix(a, *m, *n, Eigen::OuterStride<>(*lda));
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
