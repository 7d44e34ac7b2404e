#include "bench/cholmod_steps.h"

#include <dlfcn.h>
#include <unistd.h>

#include <cstdio>
#include <cstdlib>

#include "aluframe/analysis/dense_tiles.h"
#include "bench/cholmod_functions.h"

namespace {

#ifdef CHOLMOD_LIBRARY_FILE

/// OpenBLAS takes a processor that is newer than itself for one of the oldest.
const char* openblas_kernels() {
  using aluframe::analysis::has_vectors_of;
  return has_vectors_of(8) ? "SkylakeX" : has_vectors_of(4) ? "Haswell" : "Prescott";
}

const CholmodFunctions* load() {
  // Its own symbols first: it keeps its OpenBLAS, and the program its dense products.
  void* const library = dlopen(CHOLMOD_LIBRARY_FILE, RTLD_NOW | RTLD_LOCAL | RTLD_DEEPBIND);
  if (!library) {
    std::printf("without CHOLMOD: %s\n", dlerror());
    return nullptr;
  }
  return static_cast<const CholmodFunctions*>(dlsym(library, "cholmod_functions"));
}

#else

const CholmodFunctions* load() {
  std::printf(
      "without CHOLMOD: libsuitesparse-dev and libopenblas-dev were missing at the build\n");
  return nullptr;
}

#endif

const CholmodFunctions* functions() {
  static const CholmodFunctions* const loaded = load();
  return loaded;
}

}  // namespace

void CholmodSteps::choose_kernels(char** arguments) {
#ifdef CHOLMOD_LIBRARY_FILE
  if (std::getenv("OPENBLAS_CORETYPE") != nullptr) return;
  setenv("OPENBLAS_CORETYPE", openblas_kernels(), 1);
  execv("/proc/self/exe", arguments);
  std::perror("/proc/self/exe");
#else
  static_cast<void>(arguments);
#endif
}

bool CholmodSteps::are_there() {
  return functions() != nullptr;
}

CholmodSteps::CholmodSteps(const aluframe::analysis::SymmetricMatrix& matrix, int threads) {
  functions()->use_threads(threads);
  steps_ = functions()->open(matrix.size, static_cast<long>(matrix.values.size()),
                             matrix.rows.data(), matrix.columns.data(), matrix.values.data());
}

CholmodSteps::~CholmodSteps() {
  functions()->close(steps_);
}

void CholmodSteps::analyse() {
  functions()->analyse(steps_);
}

void CholmodSteps::factorise() {
  functions()->factorise(steps_);
}

void CholmodSteps::solve(std::vector<double>& column) {
  functions()->solve(steps_, column.data());
}
