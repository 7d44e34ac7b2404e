// Speed of one engine call, all checks on, against a kernel of textbook member checks in the same
// run. engine_ratios.py prints the ratios.

#include <benchmark/benchmark.h>

#include <algorithm>
#include <map>
#include <string>
#include <vector>

#include "bench/engine_points.h"
#include "bench/reference_kernel.h"
#include "host/host_services.h"
#include "tz_alu/engine/alucode_gb50429_07.h"

namespace {

const std::vector<EnginePoint>& points() {
  static const std::vector<EnginePoint> all = engine_points();
  return all;
}

std::vector<const EnginePoint*> points_of(const std::string& shape) {
  std::vector<const EnginePoint*> chosen;
  for (const EnginePoint& point : points()) {
    if (shape.empty() || point.shape == shape) chosen.push_back(&point);
  }
  return chosen;
}

std::vector<std::string> shapes() {
  std::vector<std::string> names;
  for (const EnginePoint& point : points()) {
    if (std::ranges::find(names, point.shape) == names.end()) names.push_back(point.shape);
  }
  return names;
}

constexpr REFERENCE_MEMBER kMember{300.0,   150.0,   8.0,   12.0,  4000.0, 1.0,   1.0,
                                   70000.0, 27000.0, 240.0, 200.0, 115.0,  120e3, 2e3,
                                   18e3,    1e5,     2e7,   1e6,   0.5};

void kernel(benchmark::State& state) {
  REFERENCE_MEMBER member = kMember;
  for (auto _ : state) {
    benchmark::DoNotOptimize(member);
    benchmark::DoNotOptimize(reference_checks(member));
  }
}

void engine(benchmark::State& state, const std::string& shape) {
  const auto chosen = points_of(shape);
  CALUCode_GB50429_07 engine;
  T_RALU_SECT result;
  for (auto _ : state) {
    for (const EnginePoint* point : chosen) {
      engine.CheckCode(point->data, point->force, result);
      benchmark::DoNotOptimize(result);
    }
  }
  state.SetItemsProcessed(static_cast<std::int64_t>(state.iterations() * chosen.size()));
}

}  // namespace

int main(int argc, char** argv) {
  benchmark::RegisterBenchmark("kernel", kernel);
  benchmark::RegisterBenchmark("engine/all", engine, "");
  for (const std::string& shape : shapes()) {
    benchmark::RegisterBenchmark(("engine/" + shape).c_str(), engine, shape);
  }
  benchmark::Initialize(&argc, argv);
  benchmark::RunSpecifiedBenchmarks();
}
