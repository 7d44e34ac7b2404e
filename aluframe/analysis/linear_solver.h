#pragma once

#include <cstdint>
#include <memory>
#include <span>
#include <vector>

namespace aluframe::analysis {

/// A symmetric matrix by entries of its lower half; entries of one place add up. Equations are
/// eliminated in the order of their numbers, so the matrix comes ordered for little fill.
struct SymmetricMatrix {
  int size = 0;
  std::vector<int> rows, columns;  ///< from 1, as the solver library counts
  std::vector<double> values;
};

/// How a factorisation went.
struct Factorisation {
  enum class Status {
    done,
    zero_pivot,  ///< the matrix is singular, to the last digit
    no_memory,
    failed
  };
  Status status = Status::failed;
  int negative_pivots = 0;          ///< as many as the matrix has negative eigenvalues
  std::int64_t factor_entries = 0;  ///< numbers in the factor
  std::int64_t memory_bytes = 0;    ///< what the factorisation took in all, to the megabyte
  int code = 0;                     ///< the solver library's own, for messages
};

/// What solves the equations of a frame: factorises once, then solves for any number of load
/// vectors. No pivoting for size: frames are positive definite, or (second order) nearly so.
class LinearSolver {
 public:
  virtual ~LinearSolver() = default;

  /// Factorises. Reuses what it found out about the last matrix when the places are the same.
  virtual Factorisation factorise(const SymmetricMatrix& matrix) = 0;

  /// Replaces load vectors by solutions, column after column. The last factorisation must be done.
  virtual void solve(std::span<double> columns) = 0;
};

/// The solver that the analyses use: multifrontal, in one process. Solvers may work on several
/// threads at a time, each on one: their steps wait for each other.
std::unique_ptr<LinearSolver> make_solver();

}  // namespace aluframe::analysis
