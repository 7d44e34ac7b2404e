// Dense products and triangular solutions under all their flags, against sums written out.

#include "aluframe/analysis/dense_kernels.h"

#include <dlfcn.h>
#include <gtest/gtest.h>

#include <cmath>
#include <string>
#include <vector>

namespace {

/// A matrix by columns in a larger array, as the solver passes parts of its blocks.
struct Matrix {
  int rows, columns, leading;
  std::vector<double> values;

  /// Entries that no two places share; outside the matrix not-a-numbers, which must not be touched.
  Matrix(int rows_, int columns_, int seed)
      : rows(rows_),
        columns(columns_),
        leading(rows_ + 2),
        values(static_cast<std::size_t>(leading * columns_), std::nan("")) {
    for (int j = 0; j < columns; ++j) {
      for (int i = 0; i < rows; ++i) at(i, j) = std::sin(1.0 + seed + 3.0 * i + 7.0 * j);
    }
  }
  double& at(int i, int j) { return values[static_cast<std::size_t>(i + leading * j)]; }
  double at(int i, int j) const { return values[static_cast<std::size_t>(i + leading * j)]; }
  /// Entry of the matrix, or of its transpose.
  double op(char transpose, int i, int j) const { return transpose == 'N' ? at(i, j) : at(j, i); }
};

/// A handful of products of numbers of size 1.
constexpr double tolerance = 1e-13;

class Products : public testing::TestWithParam<std::string> {};
INSTANTIATE_TEST_SUITE_P(Flags, Products, testing::Values("NN", "NT", "TN", "TT"),
                         [](const auto& flags) { return flags.param; });

TEST_P(Products, AreSumsOverRowsAndColumns) {
  const char ta = GetParam()[0], tb = GetParam()[1];
  const int m = 7, n = 5, k = 9;
  const Matrix a(ta == 'N' ? m : k, ta == 'N' ? k : m, 1),
      b(tb == 'N' ? k : n, tb == 'N' ? n : k, 2);
  Matrix c(m, n, 3);
  const Matrix before = c;
  const double alpha = -1.5, beta = 0.5;
  dgemm_(&ta, &tb, &m, &n, &k, &alpha, a.values.data(), &a.leading, b.values.data(), &b.leading,
         &beta, c.values.data(), &c.leading);
  for (int i = 0; i < m; ++i) {
    for (int j = 0; j < n; ++j) {
      double sum = 0.0;
      for (int p = 0; p < k; ++p) sum += a.op(ta, i, p) * b.op(tb, p, j);
      EXPECT_NEAR(c.at(i, j), alpha * sum + beta * before.at(i, j), tolerance);
    }
  }
}

TEST(Product, ClearsWhatIsNoNumberWhenItIsNotToBeKept) {
  const Matrix a(2, 2, 1), b(2, 2, 2);
  Matrix c(2, 2, 3);
  c.at(0, 0) = std::nan("");
  const int size = 2;
  const double one = 1.0, zero = 0.0;
  dgemm_("N", "N", &size, &size, &size, &one, a.values.data(), &a.leading, b.values.data(),
         &b.leading, &zero, c.values.data(), &c.leading);
  EXPECT_NEAR(c.at(0, 0), a.at(0, 0) * b.at(0, 0) + a.at(0, 1) * b.at(1, 0), tolerance);
}

TEST(Product, OfNothingIsTheScaledResult) {
  const Matrix a(2, 1, 1), b(1, 2, 2);
  Matrix c(2, 2, 3);
  const double kept = c.at(1, 0), alpha = 1.0, beta = 2.0;
  const int size = 2, none = 0;
  dgemm_("N", "N", &size, &size, &none, &alpha, a.values.data(), &a.leading, b.values.data(),
         &b.leading, &beta, c.values.data(), &c.leading);
  EXPECT_EQ(c.at(1, 0), 2.0 * kept);
}

/// Side, triangle, transpose, diagonal.
class Triangles : public testing::TestWithParam<std::string> {};
INSTANTIATE_TEST_SUITE_P(Flags, Triangles,
                         testing::Values("LLNN", "LLNU", "LLTN", "LLTU", "LUNN", "LUNU", "LUTN",
                                         "LUTU", "RLNN", "RLNU", "RLTN", "RLTU", "RUNN", "RUNU",
                                         "RUTN", "RUTU"),
                         [](const auto& flags) { return flags.param; });

TEST_P(Triangles, TimesTheSolutionIsTheRightSide) {
  const char side = GetParam()[0], half = GetParam()[1], transpose = GetParam()[2],
             diagonal = GetParam()[3];
  const int m = 6, n = 4, size = side == 'L' ? m : n;
  Matrix a(size, size, 1);
  for (int i = 0; i < size; ++i) a.at(i, i) = 3.0 + i;
  const Matrix b(m, n, 2);
  Matrix x = b;
  const double alpha = 2.0;
  dtrsm_(&side, &half, &transpose, &diagonal, &m, &n, &alpha, a.values.data(), &a.leading,
         x.values.data(), &x.leading);
  Matrix triangle = a;
  for (int i = 0; i < size; ++i) {
    for (int j = 0; j < size; ++j) {
      if (half == 'L' ? i < j : i > j) triangle.at(i, j) = 0.0;
    }
    if (diagonal == 'U') triangle.at(i, i) = 1.0;
  }
  for (int i = 0; i < m; ++i) {
    for (int j = 0; j < n; ++j) {
      double sum = 0.0;
      for (int p = 0; p < size; ++p) {
        sum += side == 'L' ? triangle.op(transpose, i, p) * x.at(p, j)
                           : x.at(i, p) * triangle.op(transpose, p, j);
      }
      EXPECT_NEAR(sum, alpha * b.at(i, j), tolerance);
    }
  }
}

class MatrixTimesVector : public testing::TestWithParam<char> {};
INSTANTIATE_TEST_SUITE_P(Flags, MatrixTimesVector, testing::Values('N', 'T'));

TEST_P(MatrixTimesVector, TakesEveryStride) {
  const char transpose = GetParam();
  const int m = 5, n = 3, rows = transpose == 'N' ? m : n, columns = transpose == 'N' ? n : m;
  const int stride_x = 2, stride_y = 3;
  const Matrix a(m, n, 1), x(2 * columns, 1, 2), before(3 * rows, 1, 3);
  Matrix y = before;
  const double alpha = 0.5, beta = -1.0;
  dgemv_(&transpose, &m, &n, &alpha, a.values.data(), &a.leading, x.values.data(), &stride_x, &beta,
         y.values.data(), &stride_y);
  for (int i = 0; i < rows; ++i) {
    double sum = 0.0;
    for (int p = 0; p < columns; ++p) sum += a.op(transpose, i, p) * x.at(2 * p, 0);
    EXPECT_NEAR(y.at(3 * i, 0), alpha * sum + beta * before.at(3 * i, 0), tolerance);
    EXPECT_EQ(y.at(3 * i + 1, 0), before.at(3 * i + 1, 0));
  }
}

TEST(DenseKernels, AreTheOnesThatASharedLibraryFinds) {
  aluframe::analysis::take_own_dense_kernels();
  EXPECT_EQ(dlsym(RTLD_DEFAULT, "dgemm_"), reinterpret_cast<void*>(&dgemm_));
  EXPECT_EQ(dlsym(RTLD_DEFAULT, "dtrsm_"), reinterpret_cast<void*>(&dtrsm_));
}

TEST(VectorSum, AddsMultiples) {
  const std::vector<double> x{1, 2, 3};
  std::vector<double> y{10, 0, 20, 0, 30};
  const int n = 3, one = 1, two = 2;
  const double alpha = 2.0;
  daxpy_(&n, &alpha, x.data(), &one, y.data(), &two);
  EXPECT_EQ(y, (std::vector<double>{12, 0, 24, 0, 36}));
}

}  // namespace
