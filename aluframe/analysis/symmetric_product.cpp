#include "aluframe/analysis/symmetric_product.h"

namespace aluframe::analysis {

Columns times(const SymmetricMatrix& matrix, const Columns& columns) {
  // Row by row in memory, as the entries need them.
  using Rows = Eigen::Matrix<double, Eigen::Dynamic, Eigen::Dynamic, Eigen::RowMajor>;
  const Rows in = columns;
  Rows out = Rows::Zero(columns.rows(), columns.cols());
  for (std::size_t i = 0; i < matrix.values.size(); ++i) {
    const int row = matrix.rows[i] - 1, column = matrix.columns[i] - 1;
    out.row(row) += matrix.values[i] * in.row(column);
    if (row != column) out.row(column) += matrix.values[i] * in.row(row);
  }
  return out;
}

Columns orthonormal(const Columns& columns) {
  const Eigen::HouseholderQR<Columns> qr(columns);
  return qr.householderQ() * Columns::Identity(columns.rows(), columns.cols());
}

}  // namespace aluframe::analysis
