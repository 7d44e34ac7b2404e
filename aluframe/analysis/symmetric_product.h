#pragma once

#include <Eigen/Dense>

#include "aluframe/analysis/linear_solver.h"

namespace aluframe::analysis {

/// Several vectors over the equations of a frame, as columns.
using Columns = Eigen::MatrixXd;

/// The matrix times every column.
Columns times(const SymmetricMatrix& matrix, const Columns& columns);

/// Columns of unit length, square to each other, that span the same.
Columns orthonormal(const Columns& columns);

}  // namespace aluframe::analysis
