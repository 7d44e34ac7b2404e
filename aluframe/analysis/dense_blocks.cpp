#include "aluframe/analysis/dense_blocks.h"

#include <algorithm>
#include <cstring>

#include "aluframe/analysis/dense_tiles.h"
#include "aluframe/analysis/shared_work.h"

namespace aluframe::analysis {

namespace {

/// Products of one stretch of a sum. A sliver of the left block with it fits the nearest cache, all
/// of the right block that a part of the result needs the next one.
constexpr int stretch = 256;
/// Parts of a result, each formed by one thread.
constexpr int part_rows = 512, part_columns = 128;
/// Triangles of this size are solved as such, larger ones by halves.
constexpr int small_triangle = 32;
/// Multiplications below which another thread does not pay, about a tenth of a millisecond.
constexpr double shared_from = 4e6;

int parts(int size, int part) {
  return (size + part - 1) / part;
}

/// The rows of the left block that a tile takes, column after column, filled up with zeros.
void pack_left(const ConstBlock& left, int rows, int depth, double* packed) {
  if (rows == tile_rows && left.row == 1) {
    for (int p = 0; p < depth; ++p, packed += tile_rows) {
      std::memcpy(packed, &left(0, p), sizeof(double) * tile_rows);
    }
    return;
  }
  for (int p = 0; p < depth; ++p, packed += tile_rows) {
    for (int i = 0; i < tile_rows; ++i) packed[i] = i < rows ? left(i, p) : 0.0;
  }
}

/// The columns of the right block that a tile takes, row after row, filled up with zeros.
void pack_right(const ConstBlock& right, int depth, int columns, double* packed) {
  static_assert(tile_columns == 4);
  if (columns == tile_columns && right.row == 1) {
    const double *first = &right(0, 0), *second = &right(0, 1), *third = &right(0, 2),
                 *fourth = &right(0, 3);
    for (int p = 0; p < depth; ++p, packed += tile_columns) {
      packed[0] = first[p];
      packed[1] = second[p];
      packed[2] = third[p];
      packed[3] = fourth[p];
    }
    return;
  }
  for (int p = 0; p < depth; ++p, packed += tile_columns) {
    for (int j = 0; j < tile_columns; ++j) packed[j] = j < columns ? right(p, j) : 0.0;
  }
}

/// A tile that the edge of the result cuts, formed in full beside it.
void multiply_at_edge(const DenseTiles& tiles, int depth, const double* left, const double* right,
                      double factor, const Block& result, int rows, int columns) {
  alignas(64) double full[tile_rows * tile_columns] = {};
  for (int j = 0; j < columns; ++j) std::copy_n(&result(0, j), rows, full + j * tile_rows);
  tiles.multiply(depth, left, right, factor, full, tile_rows);
  for (int j = 0; j < columns; ++j) std::copy_n(full + j * tile_rows, rows, &result(0, j));
}

/// One part of a result by columns; `product` is cut to it.
void add_part(const Product& product) {
  alignas(64) double left[tile_rows * stretch], right[part_columns * stretch];
  const DenseTiles& tiles = dense_tiles();
  for (int p = 0; p < product.depth; p += stretch) {
    const int depth = std::min(stretch, product.depth - p);
    for (int j = 0; j < product.columns; j += tile_columns) {
      pack_right(product.right.from(p, j), depth, std::min(tile_columns, product.columns - j),
                 right + j * depth);
    }
    for (int i = 0; i < product.rows; i += tile_rows) {
      const int rows = std::min(tile_rows, product.rows - i);
      pack_left(product.left.from(i, p), rows, depth, left);
      for (int j = 0; j < product.columns; j += tile_columns) {
        const int columns = std::min(tile_columns, product.columns - j);
        const Block result = product.result.from(i, j);
        if (rows == tile_rows && columns == tile_columns) {
          tiles.multiply(depth, left, right + j * depth, product.factor, result.data,
                         result.column);
        } else {
          multiply_at_edge(tiles, depth, left, right + j * depth, product.factor, result, rows,
                           columns);
        }
      }
    }
  }
}

Product transposed(const Product& product) {
  return {product.columns,
          product.rows,
          product.depth,
          product.factor,
          product.right.transposed(),
          product.left.transposed(),
          product.result.transposed()};
}

Product part_of(const Product& product, int index) {
  const int down = parts(product.rows, part_rows);
  const int i = index % down * part_rows, j = index / down * part_columns;
  Product part = product;
  part.rows = std::min(part_rows, product.rows - i);
  part.columns = std::min(part_columns, product.columns - j);
  part.left = product.left.from(i, 0);
  part.right = product.right.from(0, j);
  part.result = product.result.from(i, j);
  return part;
}

/// The triangle by rows in the order of elimination, and its diagonal.
struct SmallTriangle {
  alignas(64) double rows[small_triangle * small_triangle];
  alignas(64) double diagonal[small_triangle];

  explicit SmallTriangle(const TriangularSystem& system) {
    const int last = system.size - 1;
    for (int i = 0; i < system.size; ++i) {
      const int row = system.is_lower ? i : last - i;
      for (int j = 0; j < i; ++j) {
        rows[i * system.size + j] = system.triangle(row, system.is_lower ? j : last - j);
      }
      diagonal[i] = system.has_unit_diagonal ? 1.0 : system.triangle(row, row);
    }
  }
};

void solve_small(const TriangularSystem& system) {
  const SmallTriangle triangle(system);
  const DenseTiles& tiles = dense_tiles();
  alignas(64) double x[small_triangle * tile_rows] = {};
  for (int first = 0; first < system.columns; first += tile_rows) {
    const int columns = std::min(tile_rows, system.columns - first);
    const auto for_all = [&](auto&& function) {
      for (int j = 0; j < columns; ++j) {
        for (int i = 0; i < system.size; ++i) {
          const int row = system.is_lower ? i : system.size - 1 - i;
          function(x[i * tile_rows + j], system.x(row, first + j));
        }
      }
    };
    for_all([](double& packed, const double& value) { packed = value; });
    tiles.solve(system.size, triangle.rows, system.has_unit_diagonal ? nullptr : triangle.diagonal,
                x);
    for_all([](const double& packed, double& value) { value = packed; });
  }
}

ConstBlock as_const(const Block& block) {
  return {block.data, block.row, block.column};
}

/// The half that the other one waits for, then what it takes from the other, then that one.
void solve_in_one_thread(const TriangularSystem& system) {
  if (system.size <= small_triangle) return solve_small(system);
  const int upper = parts(system.size / 2, small_triangle) * small_triangle;
  const int lower = system.size - upper;
  TriangularSystem first = system, second = system;
  (system.is_lower ? first : second).size = upper;
  TriangularSystem& below = system.is_lower ? second : first;
  below.size = lower;
  below.triangle = system.triangle.from(upper, upper);
  below.x = system.x.from(upper, 0);
  const ConstBlock between =
      system.is_lower ? system.triangle.from(upper, 0) : system.triangle.from(0, upper);
  solve_in_one_thread(first);
  add({second.size, system.columns, first.size, -1.0, between, as_const(first.x), second.x});
  solve_in_one_thread(second);
}

}  // namespace

void add(const Product& product) {
  if (product.result.row != 1) return add(transposed(product));
  const int count = parts(product.rows, part_rows) * parts(product.columns, part_columns);
  const auto one = [&](int index) { add_part(part_of(product, index)); };
  const double multiplications = double(product.rows) * product.columns * product.depth;
  run_parts(count, multiplications >= shared_from, one);
}

void solve(const TriangularSystem& system) {
  const int count = parts(system.columns, part_columns);
  const auto one = [&](int index) {
    const int first = index * part_columns;
    TriangularSystem part = system;
    part.columns = std::min(part_columns, system.columns - first);
    part.x = system.x.from(0, first);
    solve_in_one_thread(part);
  };
  const double multiplications = double(system.size) * system.size * system.columns / 2.0;
  run_parts(count, multiplications >= shared_from, one);
}

}  // namespace aluframe::analysis
