// The search for the smallest buckling factor of building grids against one factorisation of their
// equations by the same solver, in one process, and its memory against that of the linear analysis;
// then 100 combinations one after the other. Sizes are arguments: 1000 10000 50000 unless given.

#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <ctime>
#include <span>
#include <vector>

#include "aluframe/analysis/analyse.h"
#include "aluframe/analysis/buckling.h"
#include "bench/analysed_grid.h"

namespace {

namespace analysis = aluframe::analysis;

/// Seconds by the clock, and of the processors.
struct Time {
  double clock = 0.0, processor = 0.0;
};

template <class Function>
Time time_of(Function function) {
  const auto clock = std::chrono::steady_clock::now();
  const std::clock_t processor = std::clock();
  function();
  return {std::chrono::duration<double>(std::chrono::steady_clock::now() - clock).count(),
          static_cast<double>(std::clock() - processor) / CLOCKS_PER_SEC};
}

struct Search {
  Time factorisation, search;
  int factorisations = 0;
};

/// What a process of its own finds, and the most memory that it takes.
template <class Value>
struct Apart {
  Value value{};
  double peak_mb = 0.0;
};

template <class Value, class Function>
Apart<Value> run_apart(Function function) {
  int ends[2];
  if (pipe(ends) != 0) std::exit(1);
  const pid_t child = fork();
  if (child == 0) {
    const Value value = function();
    _exit(write(ends[1], &value, sizeof value) == sizeof value ? 0 : 1);
  }
  close(ends[1]);
  Apart<Value> result;
  const bool is_read = read(ends[0], &result.value, sizeof result.value) == sizeof result.value;
  close(ends[0]);
  rusage used{};
  int status = 0;
  if (wait4(child, &status, 0, &used) != child || status != 0 || !is_read) std::exit(1);
  result.peak_mb = static_cast<double>(used.ru_maxrss) / 1024.0;
  return result;
}

/// Of a matrix whose places are known: the fastest of three.
Time factorisation_of(const bench::Grid& grid) {
  const auto solver = analysis::make_solver();
  solver->factorise(grid.matrix);
  Time best{1e9, 1e9};
  for (int i = 0; i < 3; ++i) {
    const Time time = time_of([&] { solver->factorise(grid.matrix); });
    best = {std::min(best.clock, time.clock), std::min(best.processor, time.processor)};
  }
  return best;
}

void linear_analysis(const bench::Grid& grid) {
  bench::value_of(analysis::analyse(grid.frame, std::span(grid.cases).first(1)));
}

/// From the beginning: another state's modes are not known.
Search search_of(const bench::Grid& grid) {
  const bench::LoadedState state = bench::state_of(grid, 1.5);
  Search result;
  result.search = time_of([&] {
    analysis::Buckling buckling(grid.frame);
    result.factorisations =
        bench::value_of(buckling.find(state.loads, state.axial_forces)).factorisations;
  });
  return result;
}

void compare(std::size_t elements) {
  const auto linear = run_apart<int>([&] {
    linear_analysis(bench::grid_of(elements));
    return 0;
  });
  const auto search = run_apart<Search>([&] { return search_of(bench::grid_of(elements)); });
  const auto one = run_apart<Time>([&] { return factorisation_of(bench::grid_of(elements)); });
  const Time &whole = search.value.search, &part = one.value;
  std::printf("%9zu %10.2f %10.2f %8.1f %8.1f %8d %10.0f %10.0f %6.2f\n", elements, whole.clock,
              part.clock, whole.clock / part.clock, whole.processor / part.processor,
              search.value.factorisations, search.peak_mb, linear.peak_mb,
              search.peak_mb / linear.peak_mb);
  std::fflush(stdout);
}

/// The weight with winds of every strength and direction, each state once.
std::vector<bench::LoadedState> combinations(const bench::Grid& grid, std::size_t count) {
  std::vector<bench::LoadedState> states;
  for (std::size_t i = 0; i < count; ++i) {
    const double x = 0.15 * static_cast<double>(i % 10), y = 0.15 * static_cast<double>(i / 10);
    states.push_back(bench::state_of(grid, x, y));
  }
  return states;
}

void find_all(std::size_t elements, std::size_t count) {
  const bench::Grid& grid = bench::grid_of(elements);
  const double one = factorisation_of(grid).processor;
  const auto states = combinations(grid, count);
  analysis::Buckling buckling(grid.frame);
  std::vector<double> shares;
  Time sum;
  int factorisations = 0;
  for (const bench::LoadedState& state : states) {
    const Time time = time_of([&] {
      factorisations +=
          bench::value_of(buckling.find(state.loads, state.axial_forces)).factorisations;
    });
    sum.clock += time.clock;
    shares.push_back(time.processor / one);
  }
  const auto middle = shares.begin() + 1 + static_cast<std::ptrdiff_t>(shares.size() - 1) / 2;
  const double first = shares.front();
  std::nth_element(shares.begin() + 1, middle, shares.end());
  std::printf(
      "\n%zu combinations of %zu elements: %.0f s by the clock, %d factorisations; the first takes"
      "\n%.1f times one factorisation, the median of the next %.1f times (processor time)\n",
      count, elements, sum.clock, factorisations, first, *middle);
}

}  // namespace

int main(int argc, char** argv) {
  std::vector<std::size_t> sizes;
  for (int i = 1; i < argc; ++i) sizes.push_back(std::strtoul(argv[i], nullptr, 10));
  if (sizes.empty()) sizes = {1'000, 10'000, 50'000};
  std::printf("%9s %10s %10s %8s %8s %8s %10s %10s %6s\n", "elements", "search, s", "factor, s",
              "clock", "CPU", "count", "peak, MB", "linear, MB", "");
  for (const std::size_t size : sizes) compare(size);
  find_all(10'000, 100);
  return 0;
}
