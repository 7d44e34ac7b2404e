#pragma once

#include <cstdint>
#include <memory>
#include <vector>

#include "aluframe/analysis/linear_solver.h"

/// The equation solver's library as its manual has it: entries in, METIS for the order, everything
/// else as it is by default. Its three steps are what the analysis is measured by.
class LibrarySteps {
 public:
  explicit LibrarySteps(const aluframe::analysis::SymmetricMatrix& matrix);
  ~LibrarySteps();
  LibrarySteps(const LibrarySteps&) = delete;
  LibrarySteps& operator=(const LibrarySteps&) = delete;

  void analyse();
  void factorise();
  /// Replaces right sides, one behind the other, by solutions; all of them are one call's block.
  void solve(std::vector<double>& columns);

  std::int64_t factor_entries() const;

 private:
  struct Data;
  std::unique_ptr<Data> data_;
};
