// The analysis of building grids against CHOLMOD with METIS and OpenBLAS on the same equations, by
// the clock, in one run; repetitions take turns. Both have as many threads as the analysis takes.

#include <benchmark/benchmark.h>

#include <algorithm>
#include <array>
#include <cstdio>
#include <map>
#include <span>
#include <string>
#include <vector>

#include "aluframe/analysis/analyse.h"
#include "aluframe/analysis/linear_solver.h"
#include "aluframe/analysis/shared_work.h"
#include "bench/analysed_grid.h"
#include "bench/cholmod_steps.h"
#include "bench/median_runs.h"

namespace {

namespace analysis = aluframe::analysis;

constexpr std::array<std::size_t, 3> sizes{1'000, 10'000, 50'000};

void whole(benchmark::State& state, std::size_t elements) {
  const bench::Grid& grid = bench::grid_of(elements);
  for (auto _ : state) {
    const auto solution =
        bench::value_of(analysis::analyse(grid.frame, std::span(grid.cases).first(1)));
    benchmark::DoNotOptimize(solution.cases.data());
  }
}

/// Of a matrix whose places are known from the time before.
void factorisation(benchmark::State& state, std::size_t elements) {
  const bench::Grid& grid = bench::grid_of(elements);
  const auto solver = analysis::make_solver();
  solver->factorise(grid.matrix);
  for (auto _ : state) {
    if (solver->factorise(grid.matrix).status != analysis::Factorisation::Status::done) {
      state.SkipWithError("not factorised");
    }
  }
}

void cholmod_whole(benchmark::State& state, std::size_t elements) {
  const bench::Grid& grid = bench::grid_of(elements);
  for (auto _ : state) {
    CholmodSteps steps(grid.matrix, analysis::threads_for_products());
    steps.analyse();
    steps.factorise();
    std::vector<double> column(static_cast<std::size_t>(grid.matrix.size), 1.0);
    steps.solve(column);
    benchmark::DoNotOptimize(column.data());
  }
}

void cholmod_factorisation(benchmark::State& state, std::size_t elements) {
  CholmodSteps steps(bench::grid_of(elements).matrix, analysis::threads_for_products());
  steps.analyse();
  steps.factorise();
  for (auto _ : state) steps.factorise();
}

constexpr std::array measurements{"whole", "cholmod_whole", "factorise", "cholmod_factorise"};

std::string name_of(const char* what, std::size_t elements) {
  return std::string(what) + "/" + std::to_string(elements);
}

/// Prints the medians by the clock, and what they come to by the clock and by processor time.
class RatioReporter : public bench::MedianRuns {
 public:
  void print_ratios() const {
    std::printf("\n%9s %10s %10s %7s %7s %10s %10s %7s %7s\n", "elements", "whole, ms", "CHOLMOD",
                "clock", "CPU", "factor, ms", "CHOLMOD", "clock", "CPU");
    for (const std::size_t size : sizes) {
      if (!is_complete(size)) continue;  // a filter on the command line
      std::printf("%9zu", size);
      print_pair(run("whole", size), run("cholmod_whole", size));
      print_pair(run("factorise", size), run("cholmod_factorise", size));
      std::printf("\n");
    }
    std::printf(
        "whole: the frame to its forces; of CHOLMOD, its analysis, factorisation and\n"
        "solution of the assembled equations; CPU: processor time of all threads\n");
  }

 private:
  static void print_pair(const Run& ours, const Run& theirs) {
    const double clock = ours.GetAdjustedRealTime(), other_clock = theirs.GetAdjustedRealTime();
    std::printf(" %10.1f %10.1f %7.2f %7.2f", clock, other_clock, clock / other_clock,
                ours.GetAdjustedCPUTime() / theirs.GetAdjustedCPUTime());
  }
  bool is_complete(std::size_t size) const {
    return std::ranges::all_of(
        measurements, [&](const char* what) { return medians().contains(name_of(what, size)); });
  }
  const Run& run(const char* what, std::size_t size) const {
    return medians().at(name_of(what, size));
  }
};

void add(const char* what, std::size_t elements, void (*function)(benchmark::State&, std::size_t)) {
  const int repetitions = elements > 10'000 ? 3 : elements > 1'000 ? 7 : 15;
  benchmark::RegisterBenchmark(name_of(what, elements).c_str(), function, elements)
      ->Unit(benchmark::kMillisecond)
      ->MinTime(0.1)
      ->MeasureProcessCPUTime()
      ->UseRealTime()
      ->Repetitions(repetitions)
      ->ReportAggregatesOnly(true);
}

}  // namespace

int main(int argc, char** argv) {
  CholmodSteps::choose_kernels(argv);
  if (!bench::initialise(argc, argv)) return 1;
  const bool has_cholmod = CholmodSteps::are_there();
  for (const std::size_t size : sizes) {
    add("whole", size, whole);
    add("factorise", size, factorisation);
    if (!has_cholmod) continue;
    add("cholmod_whole", size, cholmod_whole);
    add("cholmod_factorise", size, cholmod_factorisation);
  }
  RatioReporter reporter;
  benchmark::RunSpecifiedBenchmarks(&reporter);
  reporter.print_ratios();
  return 0;
}
