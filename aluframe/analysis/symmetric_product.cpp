#include "aluframe/analysis/symmetric_product.h"

namespace aluframe::analysis {

namespace {

/// So many columns go together, which the compiler unrolls.
constexpr int width = 4;

/// Row by row in memory, as the entries of a matrix need them, and filled up to whole widths.
using Rows = Eigen::Matrix<double, Eigen::Dynamic, Eigen::Dynamic, Eigen::RowMajor>;

Rows in_whole_widths(const Columns& columns) {
  const Eigen::Index filled = (columns.cols() + width - 1) / width * width;
  Rows rows = Rows::Zero(columns.rows(), filled);
  rows.leftCols(columns.cols()) = columns;
  return rows;
}

void add_times(double value, const double* from, double* to, Eigen::Index columns) {
  using Part = Eigen::Array<double, width, 1>;
  for (Eigen::Index i = 0; i < columns; i += width) {
    Eigen::Map<Part>(to + i) += value * Eigen::Map<const Part>(from + i);
  }
}

}  // namespace

Columns times(const SymmetricMatrix& matrix, const Columns& columns) {
  const Rows in = in_whole_widths(columns);
  Rows out = Rows::Zero(in.rows(), in.cols());
  const auto row_of = [&](int counted_from_one) { return (counted_from_one - 1) * in.cols(); };
  for (std::size_t i = 0; i < matrix.values.size(); ++i) {
    const Eigen::Index row = row_of(matrix.rows[i]), column = row_of(matrix.columns[i]);
    add_times(matrix.values[i], in.data() + column, out.data() + row, in.cols());
    if (row != column) {
      add_times(matrix.values[i], in.data() + row, out.data() + column, in.cols());
    }
  }
  return out.leftCols(columns.cols());
}

Columns orthonormal(const Columns& columns) {
  const Eigen::HouseholderQR<Columns> qr(columns);
  return qr.householderQ() * Columns::Identity(columns.rows(), columns.cols());
}

}  // namespace aluframe::analysis
