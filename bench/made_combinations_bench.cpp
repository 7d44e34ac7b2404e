// How long a rule takes to make the combinations of a model with twelve load cases that may act in
// most ways: all types, sixteen hundred combinations in all.

#include <benchmark/benchmark.h>

#include <cstdio>
#include <string>
#include <utility>
#include <variant>
#include <vector>

#include "aluframe/combinations/make_combinations.h"
#include "bench/median_runs.h"

namespace {

namespace combinations = aluframe::combinations;
namespace model = aluframe::model;
using Kind = model::ActionKind;

model::Model twelve_cases() {
  const model::Action wind{.kind = Kind::wind, .category = {}, .exclusive = "wind"};
  const model::Action crane{.kind = Kind::live, .category = "crane A4-A5", .exclusive = "crane"};
  const std::vector<std::pair<std::string, model::Action>> actions{
      {"G", {.kind = Kind::permanent}},
      {"L", {.kind = Kind::live, .category = "office"}},
      {"S", {.kind = Kind::snow, .category = "I"}},
      {"W1", wind},
      {"W2", wind},
      {"W3", wind},
      {"W4", wind},
      {"C1", crane},
      {"C2", crane},
      {"T", {.kind = Kind::temperature, .reversible = true}},
      {"E", {.kind = Kind::earthquake}},
      {"A", {.kind = Kind::accidental}}};
  model::Model made;
  for (const auto& [name, action] : actions) {
    model::LoadCase load_case;
    load_case.number = static_cast<model::Number>(made.load_cases.size() + 1);
    load_case.name = name;
    load_case.action = action;
    made.load_cases.add(load_case);
  }
  return made;
}

std::size_t make(const model::Model& of) {
  const auto made = combinations::make_combinations(of, {.rule = "GB 50068-2018"});
  return std::get<std::vector<combinations::MadeCombination>>(made).size();
}

void make_all(benchmark::State& state) {
  const model::Model of = twelve_cases();
  for (auto _ : state) benchmark::DoNotOptimize(make(of));
}

}  // namespace

int main(int argc, char** argv) {
  if (!bench::initialise(argc, argv)) return 1;
  BENCHMARK(make_all)->Unit(benchmark::kMillisecond)->Repetitions(7)->ReportAggregatesOnly(true);
  bench::MedianRuns reporter;
  benchmark::RunSpecifiedBenchmarks(&reporter);
  if (reporter.medians().empty()) return 0;  // a filter on the command line
  std::printf("\n%zu combinations of 12 cases: %.1f ms\nwanted: less than 50 ms\n",
              make(twelve_cases()), reporter.medians().at("make_all").GetAdjustedRealTime());
  return 0;
}
