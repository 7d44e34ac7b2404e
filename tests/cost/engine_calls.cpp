// Calls the engine for a mixed set of check points, for a profiler to count the instructions of
// `run_engine_calls`, and prints how many calls that makes.

#include <cstdio>
#include <vector>

#include "bench/engine_points.h"
#include "tz_alu/engine/alucode_gb50429_07.h"

namespace {

double run_once(const std::vector<EnginePoint>& points) {
  CALUCode_GB50429_07 engine;
  T_RALU_SECT result;
  double sum = 0.0;
  for (const EnginePoint& point : points) {
    engine.CheckCode(point.data, point.force, result);
    sum += result.aItem[0].dDemand;
  }
  return sum;
}

}  // namespace

/// What the profiler counts: the engine as the module's manager calls it.
[[gnu::noinline]] double run_engine_calls(const std::vector<EnginePoint>& points);

double run_engine_calls(const std::vector<EnginePoint>& points) {
  return run_once(points);
}

int main() {
  const std::vector<EnginePoint> points = engine_points();
  const double first = run_once(points);  // binds the symbols of the shared libraries
  const double counted = run_engine_calls(points);
  std::printf("%zu\n", points.size());
  return first == counted ? 0 : 1;
}
