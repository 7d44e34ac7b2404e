#include <dmumps_c.h>

#include <algorithm>
#include <mutex>
#include <new>
#include <numeric>
#include <stdexcept>
#include <string>

#include "aluframe/analysis/dense_kernels.h"
#include "aluframe/analysis/linear_solver.h"
#include "aluframe/analysis/shared_work.h"

namespace aluframe::analysis {

namespace {

/// Positive definite: no pivoting, so the pivots' signs are those of the eigenvalues.
constexpr int symmetric_without_pivoting = 1;
constexpr int whole_world = -987654;  // the library's name for all processes

enum Job { initialise = -1, finish = -2, analyse_job = 1, factorise_job = 2, solve_job = 3 };

/// Status codes of the library that mean something to us.
constexpr int code_zero_pivot = -10;
constexpr int code_no_workspace[] = {-8, -9, -14, -15, -17, -20};
constexpr int code_no_memory[] = {-7, -13, -19, -22};

template <std::size_t count>
bool is_one_of(int code, const int (&codes)[count]) {
  return std::find(std::begin(codes), std::end(codes), code) != std::end(codes);
}

/// Load vectors solved as one block: wide enough for matrix products, narrow enough for the cache.
constexpr int solve_block = 32;

/// Operations of a factorisation, as the analysis foresees them, from which on it has a second
/// thread: some milliseconds, a hundred times what starting one takes.
constexpr double operations_for_threads = 2e8;

/// Control ICNTL(i) of the library's manual, which counts from 1.
int& control(DMUMPS_STRUC_C& data, int i) {
  return data.icntl[i - 1];
}

class MumpsSolver final : public LinearSolver {
 public:
  MumpsSolver();
  ~MumpsSolver() override { run(finish); }
  MumpsSolver(const MumpsSolver&) = delete;
  MumpsSolver& operator=(const MumpsSolver&) = delete;

  Factorisation factorise(const SymmetricMatrix& matrix) override;
  void solve(std::span<double> columns) override;

 private:
  int run(Job job);
  int analyse(const SymmetricMatrix& matrix);
  int factorise_with_workspace();
  Factorisation outcome(int code) const;

  DMUMPS_STRUC_C data_{};
  std::vector<int> rows_, columns_, order_;
  std::vector<double> values_;
};

MumpsSolver::MumpsSolver() {
  take_own_dense_kernels();
  data_.par = 1;
  data_.sym = symmetric_without_pivoting;
  data_.comm_fortran = whole_world;
  if (run(initialise) < 0) throw std::runtime_error("the equation solver does not start");
  for (const int messages : {1, 2, 3}) control(data_, messages) = -1;
  control(data_, 4) = 0;  // prints nothing
  control(data_, 6) = 0;  // no permutation of columns
  control(data_, 7) = 1;  // ordering: ours
  control(data_, 8) = 0;  // scaling: done before
  control(data_, 27) = solve_block;
}

/// The library keeps what a job works with in variables of its own, one set for all: a second job
/// beside it, of another solver on another thread, would end the program or spoil the factor.
int MumpsSolver::run(Job job) {
  static std::mutex one_at_a_time;
  const std::lock_guard lock(one_at_a_time);
  data_.job = job;
  dmumps_c(&data_);
  return data_.infog[0];
}

int MumpsSolver::analyse(const SymmetricMatrix& matrix) {
  rows_ = matrix.rows;
  columns_ = matrix.columns;
  order_.resize(static_cast<std::size_t>(matrix.size));
  std::iota(order_.begin(), order_.end(), 1);
  data_.n = matrix.size;
  data_.nnz = static_cast<MUMPS_INT8>(rows_.size());
  data_.irn = rows_.data();
  data_.jcn = columns_.data();
  data_.perm_in = order_.data();
  return run(analyse_job);
}

/// The workspace that the analysis foresees suffices without pivoting; doubled where it does not.
int MumpsSolver::factorise_with_workspace() {
  const double operations = data_.rinfog[0];
  const SharedWork shared(operations >= operations_for_threads ? threads_for_products() : 1);
  int code = run(factorise_job);
  for (int tries = 0; is_one_of(code, code_no_workspace) && tries < 4; ++tries) {
    control(data_, 14) = 2 * std::max(control(data_, 14), 20);
    code = run(factorise_job);
  }
  return code;
}

Factorisation MumpsSolver::factorise(const SymmetricMatrix& matrix) {
  if (data_.n != matrix.size || rows_ != matrix.rows || columns_ != matrix.columns) {
    const int code = analyse(matrix);
    if (code < 0) return outcome(code);
  }
  values_ = matrix.values;
  data_.a = values_.data();
  return outcome(factorise_with_workspace());
}

Factorisation MumpsSolver::outcome(int code) const {
  Factorisation result;
  result.code = code;
  using Status = Factorisation::Status;
  if (code == code_zero_pivot) {
    result.status = Status::zero_pivot;
  } else if (is_one_of(code, code_no_memory) || is_one_of(code, code_no_workspace)) {
    result.status = Status::no_memory;
  } else if (code >= 0) {
    result.status = Status::done;
    result.negative_pivots = data_.infog[11];
    // A negative count stands for millions.
    const std::int64_t entries = data_.infog[8];
    result.factor_entries = entries < 0 ? -entries * 1'000'000 : entries;
    result.memory_bytes = std::int64_t{data_.infog[17]} * 1'000'000;
  }
  return result;
}

void MumpsSolver::solve(std::span<double> columns) {
  data_.rhs = columns.data();
  data_.lrhs = data_.n;
  data_.nrhs = static_cast<MUMPS_INT>(columns.size() / static_cast<std::size_t>(data_.n));
  const int code = run(solve_job);
  if (is_one_of(code, code_no_memory)) throw std::bad_alloc();
  if (code < 0) throw std::logic_error("equation solver, code " + std::to_string(code));
}

}  // namespace

std::unique_ptr<LinearSolver> make_solver() {
  return std::make_unique<MumpsSolver>();
}

}  // namespace aluframe::analysis
