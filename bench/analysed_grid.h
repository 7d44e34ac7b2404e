#pragma once

#include <cstdio>
#include <cstdlib>
#include <variant>
#include <vector>

#include "aluframe/analysis/assembly.h"
#include "aluframe/analysis/load_case.h"
#include "aluframe/analysis/results.h"

/// Building grids with what benchmarks of their analysis need.
namespace bench {

/// Cases beyond the first.
inline constexpr std::size_t further_cases = 10;

/// What is the same for all measurements of one size.
struct Grid {
  aluframe::analysis::Frame frame;
  std::vector<aluframe::analysis::LoadCase> cases;
  aluframe::analysis::SymmetricMatrix matrix;

  explicit Grid(std::size_t elements);
};

/// The same grid on every call.
const Grid& grid_of(std::size_t elements);

/// Loads, and the axial forces of first order under them.
struct LoadedState {
  aluframe::analysis::LoadCase loads;
  std::vector<double> axial_forces;
};

/// 1.3 of the weight with so much of the wind along X and Y.
LoadedState state_of(const Grid& grid, double wind_x, double wind_y = 0.0);

/// The value of a result, or the end of the program: a problem is no measurement.
template <class Value>
Value value_of(aluframe::analysis::Result<Value> result) {
  if (const auto* problem = std::get_if<aluframe::analysis::Problem>(&result)) {
    std::fprintf(stderr, "%s\n", problem->text.c_str());
    std::exit(1);
  }
  return std::get<Value>(std::move(result));
}

}  // namespace bench
