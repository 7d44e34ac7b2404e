// The frame analysis against the solver library's own three steps on the same matrix, for building
// grids of several sizes, in one run. Medians of processor time; repetitions take turns.

#include <benchmark/benchmark.h>

#include <algorithm>
#include <array>
#include <cstdio>
#include <string>
#include <vector>

#include "aluframe/analysis/analyse.h"
#include "aluframe/analysis/buckling.h"
#include "aluframe/analysis/second_order.h"
#include "bench/analysed_grid.h"
#include "bench/library_steps.h"
#include "bench/median_runs.h"

namespace {

namespace analysis = aluframe::analysis;

using bench::further_cases, bench::Grid, bench::grid_of, bench::value_of;

constexpr std::array<std::size_t, 4> sizes{100, 1'000, 10'000, 50'000};

void analyse(benchmark::State& state, std::size_t elements, std::size_t cases) {
  const Grid& grid = grid_of(elements);
  analysis::Effort effort;
  for (auto _ : state) {
    const auto solution =
        value_of(analysis::analyse(grid.frame, std::span(grid.cases).first(cases)));
    effort = solution.effort;
  }
  const double factor = 8.0 * static_cast<double>(effort.factor_entries);
  state.counters["factor entries"] = static_cast<double>(effort.factor_entries);
  state.counters["memory/factor"] = static_cast<double>(effort.solver_memory_bytes) / factor;
}

/// Analysis of the places, factorisation, and solution of one right side.
void three_steps(benchmark::State& state, std::size_t elements) {
  const Grid& grid = grid_of(elements);
  std::int64_t entries = 0;
  for (auto _ : state) {
    LibrarySteps library(grid.matrix);
    library.analyse();
    library.factorise();
    std::vector<double> column(static_cast<std::size_t>(grid.matrix.size), 1.0);
    library.solve(column);
    benchmark::DoNotOptimize(column.data());
    entries = library.factor_entries();
  }
  state.counters["factor entries"] = static_cast<double>(entries);
}

/// The library's solution of as many right sides as there are further cases.
void block_solution(benchmark::State& state, std::size_t elements) {
  const Grid& grid = grid_of(elements);
  LibrarySteps library(grid.matrix);
  library.analyse();
  library.factorise();
  std::vector<double> columns(further_cases * static_cast<std::size_t>(grid.matrix.size));
  for (auto _ : state) {
    std::fill(columns.begin(), columns.end(), 1.0);
    library.solve(columns);
    benchmark::DoNotOptimize(columns.data());
  }
}

void second_order(benchmark::State& state, std::size_t elements) {
  const Grid& grid = grid_of(elements);
  const std::array parts{analysis::FactoredCase{&grid.cases[0], 1.3},
                         analysis::FactoredCase{&grid.cases[2], 1.5}};
  const analysis::LoadCase loads = analysis::combine(parts);
  int iterations = 0;
  for (auto _ : state) {
    iterations = value_of(analysis::analyse_second_order(grid.frame, loads)).iterations;
  }
  state.counters["iterations"] = iterations;
}

/// The smallest factor of each of the states, one after the other.
void buckling(benchmark::State& state, std::size_t elements, std::vector<double> winds) {
  const Grid& grid = grid_of(elements);
  std::vector<bench::LoadedState> states;
  for (const double wind : winds) states.push_back(bench::state_of(grid, wind));
  int factorisations = 0;
  for (auto _ : state) {
    analysis::Buckling search(grid.frame);
    for (const bench::LoadedState& one : states) {
      factorisations = value_of(search.find(one.loads, one.axial_forces)).factorisations;
    }
  }
  state.counters["factorisations"] = factorisations;
}

std::string name_of(const char* what, std::size_t elements) {
  return std::string(what) + "/" + std::to_string(elements);
}

constexpr std::array measurements{"whole", "library", "cases", "block"};

/// The largest grid would take minutes in second order and show nothing new.
bool iterates(std::size_t elements) {
  return elements <= 10'000;
}

/// Keeps medians of processor time and the counters, and prints what they come to.
class RatioReporter : public bench::MedianRuns {
 public:
  void print_ratios() const {
    std::printf("\n%9s %10s %10s %8s %14s %14s %10s %5s %12s\n", "elements", "ms", "/library",
                "memory", "further case", "second order", "buckling", "", "next state");
    for (const std::size_t size : sizes) {
      if (!is_complete(size)) continue;  // a filter on the command line
      const double whole = time("whole", size), library = time("library", size);
      const double further = (time("cases", size) - whole) / static_cast<double>(further_cases);
      const double block = time("block", size) / static_cast<double>(further_cases);
      std::printf("%9zu %10.1f %10.2f %8.2f %14.2f", size, whole, whole / library,
                  counter("whole", size, "memory/factor"), further / block);
      if (medians().contains(name_of("second", size))) {
        const double first = time("buckling", size), both = time("states", size);
        std::printf(" %14.2f %10.2f %5.0f %12.2f", time("second", size) / whole, first / library,
                    counter("buckling", size, "factorisations"), (both - first) / library);
      }
      std::printf("\n");
    }
    std::printf(
        "/library: by the library's three steps; memory: the solver's, to the megabyte, by 8\n"
        "bytes an entry of the factor; further case: by its share of a block solution; second "
        "order: by the first;\nbuckling: the smallest factor of a state, by the "
        "library's three steps, and how many\nfactorisations it takes; next state: of a like one "
        "after it\n");
  }

 private:
  bool is_complete(std::size_t size) const {
    return std::ranges::all_of(
        measurements, [&](const char* what) { return medians().contains(name_of(what, size)); });
  }
  double time(const char* what, std::size_t size) const {
    return medians().at(name_of(what, size)).GetAdjustedCPUTime();
  }
  double counter(const char* what, std::size_t size, const char* counter) const {
    return medians().at(name_of(what, size)).counters.at(counter);
  }
};

template <class Function>
void add(const char* what, std::size_t elements, Function function) {
  const int repetitions = elements > 10'000 ? 3 : elements > 1'000 ? 5 : 9;
  benchmark::RegisterBenchmark(name_of(what, elements).c_str(), function)
      ->Unit(benchmark::kMillisecond)
      ->MinTime(0.1)
      ->MeasureProcessCPUTime()
      ->Repetitions(repetitions)
      ->ReportAggregatesOnly(true);
}

void add_all(std::size_t size) {
  add("whole", size, [size](benchmark::State& state) { analyse(state, size, 1); });
  add("library", size, [size](benchmark::State& state) { three_steps(state, size); });
  add("cases", size, [size](benchmark::State& state) { analyse(state, size, 1 + further_cases); });
  add("block", size, [size](benchmark::State& state) { block_solution(state, size); });
  if (!iterates(size)) return;
  add("second", size, [size](benchmark::State& state) { second_order(state, size); });
  add("buckling", size, [size](benchmark::State& state) { buckling(state, size, {1.5}); });
  add("states", size, [size](benchmark::State& state) { buckling(state, size, {1.5, 0.9}); });
}

}  // namespace

int main(int argc, char** argv) {
  if (!bench::initialise(argc, argv)) return 1;
  for (const std::size_t size : sizes) add_all(size);
  RatioReporter reporter;
  benchmark::RunSpecifiedBenchmarks(&reporter);
  reporter.print_ratios();
  return 0;
}
