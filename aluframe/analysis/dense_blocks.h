#pragma once

#include <cstddef>

/// Products and triangular solutions of dense blocks of any size. Every entry of a result is the
/// same sequence of rounded operations whatever the processor, its caches and the number of
/// threads: blocks are cut by sizes alone.
namespace aluframe::analysis {

/// A block inside a larger array: entry (i, j) stands at data[i·row + j·column].
template <class Number>
struct BlockView {
  Number* data = nullptr;
  std::ptrdiff_t row = 1, column = 1;

  Number& operator()(std::ptrdiff_t i, std::ptrdiff_t j) const {
    return data[i * row + j * column];
  }
  BlockView from(std::ptrdiff_t i, std::ptrdiff_t j) const {
    return {data + i * row + j * column, row, column};
  }
  BlockView transposed() const { return {data, column, row}; }
};

using Block = BlockView<double>;
using ConstBlock = BlockView<const double>;

/// C += factor · A·B: sums over stretches of 256 products, each with its factor, one after the
/// other.
struct Product {
  int rows = 0, columns = 0, depth = 0;
  double factor = 1.0;
  ConstBlock left, right;
  Block result;  ///< by columns or by rows
};

void add(const Product& product);

/// A⁻¹·X in place of X, with A triangular.
struct TriangularSystem {
  int size = 0, columns = 0;
  bool is_lower = true, has_unit_diagonal = false;
  ConstBlock triangle;
  Block x;  ///< by columns or by rows
};

void solve(const TriangularSystem& system);

}  // namespace aluframe::analysis
