// Dense products and triangular solutions under vectors of every width that the processor has, and
// by one, two and three threads, against the same operations written out one number at a time: not
// a bit may differ, or forces would depend on the machine.

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <cstring>
#include <limits>
#include <random>
#include <string>
#include <vector>

#include "aluframe/analysis/dense_kernels.h"
#include "aluframe/analysis/dense_tiles.h"
#include "aluframe/analysis/shared_work.h"
#include "vector_widths.h"

namespace aluframe::analysis {
namespace {

/// A width for the time of a scope.
class Width {
 public:
  explicit Width(int doubles) : before_(use_vectors_of(doubles)) {}
  ~Width() { use_vectors_of(before_); }
  Width(const Width&) = delete;
  Width& operator=(const Width&) = delete;

 private:
  int before_;
};

/// By columns, with two more rows in memory than it has.
struct Matrix {
  int rows, columns, leading;
  std::vector<double> values;

  Matrix(int rows_, int columns_, std::mt19937& random)
      : rows(rows_),
        columns(columns_),
        leading(rows_ + 2),
        values(static_cast<std::size_t>(leading) * static_cast<std::size_t>(columns_)) {
    std::uniform_real_distribution<double> between(-1.0, 1.0);
    for (double& value : values) value = between(random);
  }
  double& at(int i, int j) {
    return values[static_cast<std::size_t>(i) +
                  static_cast<std::size_t>(leading) * static_cast<std::size_t>(j)];
  }
  double op(char transpose, int i, int j) { return transpose == 'N' ? at(i, j) : at(j, i); }
};

testing::AssertionResult same_bits(const Matrix& found, const Matrix& expected) {
  for (std::size_t i = 0; i < expected.values.size(); ++i) {
    if (std::memcmp(&found.values[i], &expected.values[i], sizeof(double)) == 0) continue;
    return testing::AssertionFailure()
           << "entry " << i << " of " << expected.rows << " x " << expected.columns << ": "
           << testing::PrintToString(found.values[i]) << ", not "
           << testing::PrintToString(expected.values[i]);
  }
  return testing::AssertionSuccess();
}

/// C + factor·op(A)·op(B): sums of 256 products each, in their order, each times the factor.
struct GeneralProduct {
  char transpose_a, transpose_b;
  int m, n, k;
  double factor;
  Matrix a, b, c;

  GeneralProduct(const std::string& flags, int m_, int n_, int k_, std::mt19937& random)
      : transpose_a(flags[0]),
        transpose_b(flags[1]),
        m(m_),
        n(n_),
        k(k_),
        factor(-1.0 / 3.0),
        a(transpose_a == 'N' ? m : k, transpose_a == 'N' ? k : m, random),
        b(transpose_b == 'N' ? k : n, transpose_b == 'N' ? n : k, random),
        c(m, n, random) {}

  Matrix by_kernel() const {
    Matrix result = c;
    const double one = 1.0;
    dgemm_(&transpose_a, &transpose_b, &m, &n, &k, &factor, a.values.data(), &a.leading,
           b.values.data(), &b.leading, &one, result.values.data(), &result.leading);
    return result;
  }
  Matrix one_by_one() {
    Matrix result = c;
    for (int j = 0; j < n; ++j) {
      for (int i = 0; i < m; ++i) {
        for (int first = 0; first < k; first += 256) {
          double sum = 0.0;
          for (int p = first; p < std::min(k, first + 256); ++p) {
            sum = std::fma(a.op(transpose_a, i, p), b.op(transpose_b, p, j), sum);
          }
          result.at(i, j) += factor * sum;
        }
      }
    }
    return result;
  }
};

/// Side, triangle, transpose, diagonal, as the Fortran interface has them.
struct Triangle {
  std::string flags;
  int m, n;
  Matrix a, b;

  Triangle(const std::string& flags_, int m_, int n_, std::mt19937& random)
      : flags(flags_), m(m_), n(n_), a(size(), size(), random), b(m_, n_, random) {
    // Small beside the diagonal, so that solutions of large triangles stay near 1.
    for (double& value : a.values) value /= size();
    for (int i = 0; i < size(); ++i) a.at(i, i) = 1.0 + i % 3;
  }
  int size() const { return flags[0] == 'L' ? m : n; }

  Matrix by_kernel() const {
    Matrix x = b;
    const double one = 1.0;
    dtrsm_(&flags[0], &flags[1], &flags[2], &flags[3], &m, &n, &one, a.values.data(), &a.leading,
           x.values.data(), &x.leading);
    return x;
  }
};

const std::vector<std::string> product_flags{"NN", "NT", "TN", "TT"};
const std::vector<std::string> triangle_flags{"LLNN", "LLNU", "LLTN", "LLTU", "LUNN", "LUNU",
                                              "LUTN", "LUTU", "RLNN", "RLNU", "RLTN", "RLTU",
                                              "RUNN", "RUNU", "RUTN", "RUTU"};

int any(int from, int to, std::mt19937& random) {
  return std::uniform_int_distribution<int>(from, to)(random);
}

class VectorWidth : public testing::TestWithParam<int> {};
INSTANTIATE_TEST_SUITE_P(Doubles, VectorWidth, testing::ValuesIn(vector_widths()),
                         testing::PrintToStringParamName());

TEST_P(VectorWidth, FormsEverySumInItsOrder) {
  const Width width(GetParam());
  std::mt19937 random(1);
  for (const std::string& flags : product_flags) {
    for (int i = 0; i < 40; ++i) {
      GeneralProduct product(flags, any(1, 70, random), any(1, 140, random), any(1, 300, random),
                             random);
      ASSERT_TRUE(same_bits(product.by_kernel(), product.one_by_one())) << flags;
    }
  }
}

TEST_P(VectorWidth, FormsSumsInTheirOrderAtTheEdgesOfItsTiles) {
  const Width width(GetParam());
  std::mt19937 random(2);
  for (const int m : {1, 3, 8, 15, 16, 17, 513}) {
    for (const int n : {1, 3, 4, 129}) {
      for (const int k : {1, 256, 257}) {
        GeneralProduct product("NN", m, n, k, random);
        ASSERT_TRUE(same_bits(product.by_kernel(), product.one_by_one())) << m << n << k;
      }
    }
  }
}

TEST_P(VectorWidth, SolvesTrianglesAsVectorsOfTwoDo) {
  std::mt19937 random(3);
  for (const std::string& flags : triangle_flags) {
    for (int i = 0; i < 25; ++i) {
      const Triangle triangle(flags, any(1, 150, random), any(1, 150, random), random);
      const Width two(2);
      const Matrix expected = triangle.by_kernel();
      const Width width(GetParam());
      ASSERT_TRUE(same_bits(triangle.by_kernel(), expected)) << flags;
    }
  }
}

TEST_P(VectorWidth, DividesByAllOfASmallTriangleInOrder) {
  // Up to 32 equations nothing is cut: elimination as a textbook has it.
  const Width width(GetParam());
  std::mt19937 random(4);
  for (int size = 1; size <= 32; ++size) {
    Triangle triangle("LLNN", size, 19, random);
    Matrix expected = triangle.b;
    for (int j = 0; j < expected.columns; ++j) {
      for (int i = 0; i < size; ++i) {
        for (int p = 0; p < i; ++p) {
          expected.at(i, j) = std::fma(-triangle.a.at(i, p), expected.at(p, j), expected.at(i, j));
        }
        expected.at(i, j) /= triangle.a.at(i, i);
      }
    }
    ASSERT_TRUE(same_bits(triangle.by_kernel(), expected)) << size;
  }
}

/// Numbers of every size, many of them with few digits, so that ties and zeros come up.
double any_number(int largest_power, std::mt19937& random) {
  double number =
      std::ldexp(1.0 + any(0, 1 << 30, random) * 0x1p-30 + any(0, 1 << 21, random) * 0x1p-52,
                 any(-largest_power, largest_power, random));
  const int kind = any(0, 40, random);
  if (kind == 0) number = 0.0;
  if (kind > 30)
    number =
        std::ldexp(std::rint(std::ldexp(number, 20 - std::ilogb(number))), std::ilogb(number) - 20);
  return any(0, 1, random) == 0 ? -number : number;
}

/// A tile of products, each added to a number that stands for itself: 1·c + a·b.
TEST_P(VectorWidth, RoundsAProductAndASumOnce) {
  const Width width(GetParam());
  std::mt19937 random(7);
  for (const int power : {0, 3, 60, 400, 1000, 1070}) {
    for (int round = 0; round < 4000; ++round) {
      double left[2 * tile_rows], right[2 * tile_columns], result[tile_rows * tile_columns] = {};
      for (double& number : left) number = any_number(power, random);
      for (int j = 0; j < tile_columns; ++j) {
        right[j] = 1.0;
        right[tile_columns + j] = any_number(power, random);
      }
      const bool cancels = round % 3 == 0;
      for (int i = 0; cancels && i < tile_rows; ++i) {
        left[i] = -left[tile_rows + i] * right[tile_columns + i % tile_columns];
      }
      dense_tiles().multiply(2, left, right, 1.0, result, tile_rows);
      for (int i = 0; i < tile_rows; ++i) {
        for (int j = 0; j < tile_columns; ++j) {
          const double a = left[tile_rows + i], b = right[tile_columns + j], c = left[i];
          const double expected = 0.0 + std::fma(a, b, c), found = result[i + j * tile_rows];
          ASSERT_TRUE(found == expected || (std::isnan(found) && std::isnan(expected)))
              << std::hexfloat << a << " * " << b << " + " << c << ": " << found << ", not "
              << expected;
        }
      }
    }
  }
}

/// (1 + ε)·(1 − ε)·ε/2 is less than half of the last digit ε by ε³/2 only. To 1 + ε, whose last
/// digit is odd, it adds nothing; rounded before, it would be a tie and end at an even neighbour.
TEST_P(VectorWidth, RoundsOnceBesideATie) {
  const Width width(GetParam());
  constexpr double epsilon = 0x1p-52, sum = 1.0 + epsilon;
  double left[2 * tile_rows], right[2 * tile_columns];
  std::fill_n(left, tile_rows, sum);
  std::fill_n(left + tile_rows, tile_rows, 1.0 + epsilon);
  std::fill_n(right, tile_columns, 1.0);
  for (int j = 0; j < tile_columns; ++j) {
    right[tile_columns + j] = (j % 2 == 0 ? 1.0 : -1.0) * (1.0 - epsilon) * epsilon / 2.0;
  }
  double result[tile_rows * tile_columns] = {};
  dense_tiles().multiply(2, left, right, 1.0, result, tile_rows);
  for (const double found : result) EXPECT_EQ(found, sum);
}

TEST_P(VectorWidth, KeepsWhatIsNoNumberInItsRowAndColumn) {
  const Width width(GetParam());
  constexpr double inf = std::numeric_limits<double>::infinity();
  double left[tile_rows], right[tile_columns] = {1.0, 0.0, -1.0, 2.0};
  std::fill_n(left, tile_rows, 1.0);
  left[3] = inf;
  double result[tile_rows * tile_columns] = {};
  dense_tiles().multiply(1, left, right, 1.0, result, tile_rows);
  EXPECT_EQ(result[3], inf);
  EXPECT_TRUE(std::isnan(result[3 + tile_rows]));
  EXPECT_EQ(result[3 + 2 * tile_rows], -inf);
  EXPECT_EQ(result[2 + 3 * tile_rows], 2.0);
}

class ThreadCount : public testing::TestWithParam<int> {};
INSTANTIATE_TEST_SUITE_P(Threads, ThreadCount, testing::Values(2, 3),
                         testing::PrintToStringParamName());

TEST_P(ThreadCount, ChangesNoBitOfAProduct) {
  std::mt19937 random(5);
  for (const std::string& flags : product_flags) {
    const GeneralProduct product(flags, 530, 390, 270, random);
    const Matrix expected = product.by_kernel();
    const SharedWork shared(GetParam());
    for (int i = 0; i < 5; ++i) ASSERT_TRUE(same_bits(product.by_kernel(), expected)) << flags;
  }
}

TEST_P(ThreadCount, ChangesNoBitOfATriangularSolution) {
  std::mt19937 random(6);
  for (const std::string& flags : triangle_flags) {
    const Triangle triangle(flags, 290, 390, random);
    const Matrix expected = triangle.by_kernel();
    const SharedWork shared(GetParam());
    ASSERT_TRUE(same_bits(triangle.by_kernel(), expected)) << flags;
  }
}

}  // namespace
}  // namespace aluframe::analysis
