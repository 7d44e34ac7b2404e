// What the deflections of 10,000 elements under 20 combinations cost beside their forces at five
// positions under the same. As in a check, the analysis of the load cases belongs to the forces,
// and deflections go by its displacements; what they cost with an analysis of their own is shown
// too.

#include <benchmark/benchmark.h>

#include <cstdio>
#include <string>
#include <variant>
#include <vector>

#include "aluframe/deflections/deflection_search.h"
#include "aluframe/forces/compute_forces.h"
#include "aluframe/model/combinations.h"
#include "aluframe/model/model.h"
#include "bench/median_runs.h"

namespace {

namespace deflections = aluframe::deflections;
namespace forces = aluframe::forces;
namespace model = aluframe::model;

constexpr int bays = 70, cases = 5, combinations = 20;
constexpr double spacing = 2000.0;

model::Number node_at(int row, int column) {
  return static_cast<model::Number>(row * (bays + 1) + column + 1);
}

void add_beam(model::Model& grid, model::Number start, model::Number end) {
  model::Element element;
  element.number = static_cast<model::Number>(grid.elements.size() + 1);
  element.nodes = {start, end};
  element.section = element.material = 1;
  grid.elements.add(element);
}

/// All load cases with factors that differ from combination to combination.
model::Combination combination_of_all(int number) {
  model::Combination combination;
  combination.number = static_cast<model::Number>(number);
  combination.serviceability = true;
  for (int c = 1; c <= cases; ++c) {
    const double factor = 1.0 - 0.05 * static_cast<double>((number + c) % combinations);
    combination.terms.push_back({.number = static_cast<model::Number>(c), .factor = factor});
  }
  return combination;
}

/// A square grid of beams, 9,940, held along its edges, under loads that differ from case to case.
model::Model grid_under_loads() {
  model::Model grid;
  model::Material material;
  material.number = 1;
  grid.materials.add(material);
  model::Section section;
  section.number = 1;
  section.shape = model::Shape::h_section;
  section.dimensions = {200, 100, 6, 8, 100, 8};
  grid.sections.add(section);
  for (int i = 0; i <= bays; ++i) {
    for (int j = 0; j <= bays; ++j) {
      grid.nodes.add({node_at(i, j), "", spacing * i, spacing * j, 0.0});
      if (i % bays == 0 || j % bays == 0) {
        grid.supports.push_back({node_at(i, j), {true, true, true, false, false, true}, {}});
      }
    }
  }
  for (int i = 0; i <= bays; ++i) {
    for (int j = 0; j < bays; ++j) {
      add_beam(grid, node_at(i, j), node_at(i, j + 1));
      add_beam(grid, node_at(j, i), node_at(j + 1, i));
    }
  }
  for (int c = 1; c <= cases; ++c) {
    model::SpanLoad load;
    load.elements.all = true;
    load.direction = {model::LoadAxes::global, static_cast<std::size_t>(c % 3)};
    load.from_value = -0.1 * c;
    load.to_value = -0.2;
    model::LoadCase load_case;
    load_case.number = static_cast<model::Number>(c);
    load_case.loads.span.push_back(load);
    grid.load_cases.add(load_case);
  }
  for (int k = 1; k <= combinations; ++k) grid.combinations.add(combination_of_all(k));
  return grid;
}

/// The states of the grid's combinations.
std::vector<deflections::State> states_of(const model::Model& grid) {
  std::vector<deflections::State> out;
  for (const model::Combination& combination : grid.combinations) {
    deflections::State state{combination.number, {}};
    for (const model::CombinationTerm& term : combination.terms) {
      state.loads.push_back({grid.load_cases.position(term.number), term.factor});
    }
    out.push_back(state);
  }
  return out;
}

void find_deflections(benchmark::State& state) {
  model::Model grid = grid_under_loads();
  const auto all = states_of(grid);
  const auto computed = forces::compute_forces(grid);
  const auto& known = std::get<forces::Summary>(computed).displacements;
  for (auto _ : state) {
    benchmark::DoNotOptimize(deflections::find_deflections(grid, all, {}, known.get()));
  }
}

void find_deflections_alone(benchmark::State& state) {
  const model::Model grid = grid_under_loads();
  const auto all = states_of(grid);
  for (auto _ : state) benchmark::DoNotOptimize(deflections::find_deflections(grid, all));
}

void find_forces(benchmark::State& state) {
  const model::Model grid = grid_under_loads();
  for (auto _ : state) {
    model::Model with_forces = grid;
    benchmark::DoNotOptimize(forces::compute_forces(with_forces));
    const model::CombinationEvaluator evaluator(with_forces);
    for (std::size_t element = 0; element < with_forces.elements.size(); ++element) {
      for (const model::Combination& combination : with_forces.combinations) {
        benchmark::DoNotOptimize(
            evaluator.evaluate(element, combination.number, model::Side::maximum));
      }
    }
  }
}

}  // namespace

int main(int argc, char** argv) {
  if (!bench::initialise(argc, argv)) return 1;
  BENCHMARK(find_forces)->Unit(benchmark::kMillisecond)->Repetitions(5)->ReportAggregatesOnly(true);
  BENCHMARK(find_deflections)
      ->Unit(benchmark::kMillisecond)
      ->Repetitions(5)
      ->ReportAggregatesOnly(true);
  BENCHMARK(find_deflections_alone)
      ->Unit(benchmark::kMillisecond)
      ->Repetitions(5)
      ->ReportAggregatesOnly(true);
  bench::MedianRuns reporter;
  benchmark::RunSpecifiedBenchmarks(&reporter);
  const auto& medians = reporter.medians();
  if (medians.size() < 3) return 0;  // a filter on the command line
  const double of_forces = medians.at("find_forces").GetAdjustedRealTime();
  std::printf("\ndeflections by forces: %.2f\nwanted: at most 1\nwith an own analysis: %.2f\n",
              medians.at("find_deflections").GetAdjustedRealTime() / of_forces,
              medians.at("find_deflections_alone").GetAdjustedRealTime() / of_forces);
  return 0;
}
