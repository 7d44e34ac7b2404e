// Constants of sections by formula, shape by shape, beside five textbook formulas of a
// sharp-cornered symmetric I-section: what the arithmetic of the simplest section costs at least.

#include <benchmark/benchmark.h>

#include <array>
#include <cstdio>
#include <string>

#include "aluframe/section/section_properties.h"
#include "aluframe/section/shear_areas.h"
#include "bench/median_runs.h"

namespace {

using aluframe::model::Section;
using aluframe::model::Shape;

struct Sample {
  const char* name;
  Shape shape;
  std::array<double, 8> dimensions;
};

/// Unequal flanges, and corner radii where the shape has them: the most that a shape asks for.
constexpr std::array samples{
    Sample{"channel", Shape::channel, {200, 80, 6, 10, 60, 8, 8, 4}},
    Sample{"h_section", Shape::h_section, {300, 150, 8, 12, 120, 10, 12, 5}},
    Sample{"tee", Shape::tee, {200, 220, 12, 16}},
    Sample{"box", Shape::box, {200, 150, 8, 12, 120, 10}},
    Sample{"pipe", Shape::pipe, {140, 8}},
    Sample{"double_channel", Shape::double_channel, {200, 80, 8, 12, 10}},
    Sample{"solid_round", Shape::solid_round, {80}}};

Section section_of(const Sample& sample) {
  Section section;
  section.shape = sample.shape;
  section.dimensions = sample.dimensions;
  return section;
}

struct Textbook {
  double area, iyy, izz, it, iw;
};

Textbook textbook_i_section(double h, double b, double tw, double tf) {
  const double web = h - 2.0 * tf, depth = h - tf;
  const double flange_inertia = tf * b * b * b / 12.0;
  return {.area = 2.0 * b * tf + web * tw,
          .iyy = (b * h * h * h - (b - tw) * web * web * web) / 12.0,
          .izz = 2.0 * flange_inertia + web * tw * tw * tw / 12.0,
          .it = (2.0 * b * tf * tf * tf + depth * tw * tw * tw) / 3.0,
          .iw = flange_inertia * depth * depth / 2.0};
}

void textbook(benchmark::State& state) {
  std::array<double, 4> d{300, 150, 8, 12};
  for (auto _ : state) {
    benchmark::DoNotOptimize(d);
    benchmark::DoNotOptimize(textbook_i_section(d[0], d[1], d[2], d[3]));
  }
}

void constants(benchmark::State& state, const Sample& sample) {
  Section section = section_of(sample);
  for (auto _ : state) {
    benchmark::DoNotOptimize(section);
    benchmark::DoNotOptimize(aluframe::section::properties_of(section));
    benchmark::DoNotOptimize(aluframe::section::shear_areas_of(section));
  }
}

/// Prints as usual and, at the end, nanoseconds and ratios of the medians.
class RatioReporter : public bench::MedianRuns {
 public:
  void print_ratios() const {
    if (!medians().contains("textbook")) return;  // a filter on the command line
    std::printf("\n%-16s %8s %10s\n", "section", "ns", "/textbook");
    const double textbook = medians().at("textbook").GetAdjustedCPUTime();
    for (const auto& [name, median] : medians()) {
      const double time = median.GetAdjustedCPUTime();
      std::printf("%-16s %8.0f %10.1f\n", name.c_str(), time, time / textbook);
    }
    std::printf("wanted: at most 10000 ns a section\n");
  }
};

}  // namespace

int main(int argc, char** argv) {
  if (!bench::initialise(argc, argv)) return 1;
  const auto repeated = [](benchmark::internal::Benchmark* bench) {
    bench->MinTime(0.05)->Repetitions(9)->ReportAggregatesOnly(true);
  };
  repeated(benchmark::RegisterBenchmark("textbook", textbook));
  for (const Sample& sample : samples) {
    repeated(benchmark::RegisterBenchmark(
        sample.name, [sample](benchmark::State& state) { constants(state, sample); }));
  }
  RatioReporter reporter;
  benchmark::RunSpecifiedBenchmarks(&reporter);
  reporter.print_ratios();
  return 0;
}
