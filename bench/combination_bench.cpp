// Combination of element forces, as a run asks for it: one element after the other, all its
// combinations one by one. The measure is the bytes of forces that a combination reads and writes,
// against a copy of large blocks of memory, its reading and writing counted as well.

#include <benchmark/benchmark.h>

#include <cstdio>
#include <cstring>
#include <vector>

#include "aluframe/model/combinations.h"
#include "bench/median_runs.h"

namespace {

namespace model = aluframe::model;

constexpr std::size_t element_count = 20'000;
constexpr std::size_t case_count = 10;
constexpr std::size_t combination_count = 100;
/// Five positions of six forces in single precision.
constexpr std::size_t forces_bytes = sizeof(model::CaseForces::at);
/// Larger than the caches of today's machines.
constexpr std::size_t block_bytes = 128U << 20U;

model::CaseForces forces_of(std::size_t element, std::size_t load_case) {
  model::CaseForces forces;
  forces.inner = true;
  for (std::size_t position = 0; position < forces.at.size(); ++position) {
    for (std::size_t i = 0; i < forces.at[position].size(); ++i) {
      forces.at[position][i] = static_cast<float>(1.0 + 0.37 * static_cast<double>(element % 97) +
                                                  static_cast<double>(load_case * i + position));
    }
  }
  return forces;
}

/// Every combination has all ten cases, each with a factor of its own.
model::Combination combination_of(model::Number number) {
  model::Combination combination;
  combination.number = number;
  for (model::Number i = 1; i <= case_count; ++i) {
    const double factor = 0.7 + 0.01 * static_cast<double>((number * i) % 89);
    combination.terms.push_back({model::CombinationTerm::Source::load_case, i, factor});
  }
  return combination;
}

model::Model make_model() {
  model::Model made;
  for (model::Number i = 1; i <= case_count; ++i) {
    model::LoadCase load_case;
    load_case.number = i;
    made.load_cases.add(load_case);
  }
  for (model::Number i = 1; i <= combination_count; ++i) made.combinations.add(combination_of(i));
  made.forces.resize(element_count, case_count);
  for (std::size_t i = 0; i < element_count; ++i) {
    for (std::size_t j = 0; j < case_count; ++j) made.forces.set(i, j, forces_of(i, j));
  }
  return made;
}

void combine(benchmark::State& state) {
  static const model::Model made = make_model();
  const model::CombinationEvaluator evaluator(made);
  for (auto _ : state) {
    for (std::size_t element = 0; element < element_count; ++element) {
      for (model::Number number = 1; number <= combination_count; ++number) {
        benchmark::DoNotOptimize(evaluator.evaluate(element, number, model::Side::maximum));
      }
    }
  }
  const auto evaluations =
      static_cast<std::int64_t>(state.iterations() * element_count * combination_count);
  state.SetBytesProcessed(evaluations * static_cast<std::int64_t>((case_count + 1) * forces_bytes));
  state.SetItemsProcessed(evaluations);
}

void copy(benchmark::State& state) {
  const std::vector<char> from(block_bytes, 1);
  std::vector<char> to(block_bytes, 2);
  for (auto _ : state) {
    std::memcpy(to.data(), from.data(), block_bytes);
    benchmark::DoNotOptimize(to.data());
    benchmark::ClobberMemory();
  }
  state.SetBytesProcessed(static_cast<std::int64_t>(state.iterations() * 2 * block_bytes));
}

/// Prints as usual and keeps the median speeds for the ratio.
class RatioReporter : public bench::MedianRuns {
 public:
  void print_ratio() const {
    if (medians().size() < 2) return;  // a filter on the command line
    const double evaluation = (case_count + 1) * forces_bytes / speed("combine");
    std::printf("\none combination of %zu cases: %.0f ns, %.2f of the speed of copying\n",
                case_count, 1e9 * evaluation, speed("combine") / speed("copy"));
    std::printf("wanted: 0.5 or more\n");
  }

 private:
  double speed(const char* name) const {
    return medians().at(name).counters.at("bytes_per_second");
  }
};

}  // namespace

int main(int argc, char** argv) {
  if (!bench::initialise(argc, argv)) return 1;
  BENCHMARK(combine)->Unit(benchmark::kMillisecond)->Repetitions(7)->ReportAggregatesOnly(true);
  BENCHMARK(copy)->Unit(benchmark::kMillisecond)->Repetitions(7)->ReportAggregatesOnly(true);
  RatioReporter reporter;
  benchmark::RunSpecifiedBenchmarks(&reporter);
  reporter.print_ratio();
  return 0;
}
