#pragma once

#include <vector>

#include "aluframe/analysis/linear_solver.h"

/// CHOLMOD with METIS and OpenBLAS, supernodal: what a fast solver takes for the same matrix. Only
/// where the build found its packages.
class CholmodSteps {
 public:
  /// Starts the program anew with the processor's kernels named to OpenBLAS, which reads that once,
  /// when it is loaded: it may be what the system's BLAS is. Returns when it is named already.
  static void choose_kernels(char** arguments);

  /// False, with a message, when this build has none or it does not load.
  static bool are_there();

  /// @param threads of OpenBLAS
  CholmodSteps(const aluframe::analysis::SymmetricMatrix& matrix, int threads);
  ~CholmodSteps();
  CholmodSteps(const CholmodSteps&) = delete;
  CholmodSteps& operator=(const CholmodSteps&) = delete;

  void analyse();
  void factorise();
  void solve(std::vector<double>& column);

 private:
  void* steps_;
};
