// Three steps of CHOLMOD with METIS and OpenBLAS. A library of its own, opened at run time with its
// own BLAS before the program's: the program's dense products would otherwise be CHOLMOD's too.

#include <cholmod.h>

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <new>

#include "bench/cholmod_functions.h"

extern "C" void openblas_set_num_threads(int threads);

namespace {

/// The program ends where a step fails: that would measure nothing.
template <class Pointer>
Pointer checked(Pointer pointer, const char* step) {
  if (pointer) return pointer;
  std::fprintf(stderr, "CHOLMOD failed: %s\n", step);
  std::exit(1);
}

struct Steps {
  cholmod_common common{};
  cholmod_sparse* matrix = nullptr;
  cholmod_factor* factor = nullptr;
};

Steps* open(int size, long entries, const int* rows, const int* columns, const double* values) {
  auto* steps = new Steps;
  cholmod_common* const common = &steps->common;
  cholmod_start(common);
  common->nmethods = 1;
  common->method[0].ordering = CHOLMOD_METIS;
  common->supernodal = CHOLMOD_SUPERNODAL;
  const auto n = static_cast<std::size_t>(size), count = static_cast<std::size_t>(entries);
  constexpr int lower = -1;
  cholmod_triplet* triplet =
      checked(cholmod_allocate_triplet(n, n, count, lower, CHOLMOD_REAL, common), "triplet");
  for (std::size_t i = 0; i < count; ++i) {
    static_cast<int*>(triplet->i)[i] = rows[i] - 1;
    static_cast<int*>(triplet->j)[i] = columns[i] - 1;
    static_cast<double*>(triplet->x)[i] = values[i];
  }
  triplet->nnz = count;
  steps->matrix = checked(cholmod_triplet_to_sparse(triplet, count, common), "matrix");
  cholmod_free_triplet(&triplet, common);
  return steps;
}

void analyse(Steps* steps) {
  cholmod_free_factor(&steps->factor, &steps->common);
  steps->factor = checked(cholmod_analyze(steps->matrix, &steps->common), "analysis");
}

void factorise(Steps* steps) {
  const bool is_done = cholmod_factorize(steps->matrix, steps->factor, &steps->common) != 0;
  checked(is_done && steps->common.status == CHOLMOD_OK ? steps : nullptr, "factorisation");
}

void solve(Steps* steps, double* column) {
  cholmod_common* const common = &steps->common;
  const std::size_t size = steps->matrix->nrow;
  cholmod_dense* right = checked(cholmod_zeros(size, 1, CHOLMOD_REAL, common), "right side");
  std::copy_n(column, size, static_cast<double*>(right->x));
  cholmod_dense* found =
      checked(cholmod_solve(CHOLMOD_A, steps->factor, right, common), "solution");
  std::copy_n(static_cast<double*>(found->x), size, column);
  cholmod_free_dense(&right, common);
  cholmod_free_dense(&found, common);
}

void close(Steps* steps) {
  cholmod_free_factor(&steps->factor, &steps->common);
  cholmod_free_sparse(&steps->matrix, &steps->common);
  cholmod_finish(&steps->common);
  delete steps;
}

}  // namespace

extern "C" __attribute__((visibility("default"))) const CholmodFunctions cholmod_functions{
    [](int size, long entries, const int* rows, const int* columns, const double* values) {
      return static_cast<void*>(open(size, entries, rows, columns, values));
    },
    [](void* steps) { analyse(static_cast<Steps*>(steps)); },
    [](void* steps) { factorise(static_cast<Steps*>(steps)); },
    [](void* steps, double* column) { solve(static_cast<Steps*>(steps), column); },
    [](void* steps) { close(static_cast<Steps*>(steps)); },
    [](int threads) { openblas_set_num_threads(threads); }};
