#include "bench/library_steps.h"

#include <dmumps_c.h>

#include <cstdio>
#include <cstdlib>

struct LibrarySteps::Data {
  DMUMPS_STRUC_C mumps{};
  std::vector<int> rows, columns;
  std::vector<double> values;

  /// Runs a job; a benchmark of a failure would measure nothing.
  void run(int job) {
    mumps.job = job;
    dmumps_c(&mumps);
    if (mumps.infog[0] >= 0) return;
    std::fprintf(stderr, "the solver library failed: job %d, code %d\n", job, mumps.infog[0]);
    std::exit(1);
  }
};

LibrarySteps::LibrarySteps(const aluframe::analysis::SymmetricMatrix& matrix)
    : data_(new Data{{}, matrix.rows, matrix.columns, matrix.values}) {
  DMUMPS_STRUC_C& m = data_->mumps;
  m.par = 1;
  m.sym = 1;
  m.comm_fortran = -987654;
  data_->run(-1);
  for (const int messages : {0, 1, 2}) m.icntl[messages] = -1;
  m.icntl[3] = 0;
  m.icntl[6] = 5;  // METIS
  m.n = matrix.size;
  m.nnz = static_cast<MUMPS_INT8>(data_->rows.size());
  m.irn = data_->rows.data();
  m.jcn = data_->columns.data();
  m.a = data_->values.data();
}

LibrarySteps::~LibrarySteps() {
  data_->run(-2);
}

void LibrarySteps::analyse() {
  data_->run(1);
}

void LibrarySteps::factorise() {
  data_->run(2);
}

void LibrarySteps::solve(std::vector<double>& columns) {
  DMUMPS_STRUC_C& m = data_->mumps;
  m.rhs = columns.data();
  m.lrhs = m.n;
  m.nrhs = static_cast<MUMPS_INT>(columns.size()) / m.n;
  m.icntl[26] = m.nrhs;
  data_->run(3);
}

std::int64_t LibrarySteps::factor_entries() const {
  const std::int64_t entries = data_->mumps.infog[8];
  return entries < 0 ? -entries * 1'000'000 : entries;
}
