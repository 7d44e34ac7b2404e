#pragma once

#include <benchmark/benchmark.h>

#include <map>
#include <string>
#include <vector>

/// What the benchmarks share that compare medians of one run.
namespace bench {

/// Repetitions take turns, so that other load on the machine meets all of them alike.
/// @return false when an argument is not known, which was told
inline bool initialise(int argc, char** argv) {
  std::string interleave = "--benchmark_enable_random_interleaving=true";
  std::vector<char*> arguments(argv, argv + argc);
  arguments.insert(arguments.begin() + 1, interleave.data());
  int count = static_cast<int>(arguments.size());
  arguments.push_back(nullptr);
  benchmark::Initialize(&count, arguments.data());
  return !benchmark::ReportUnrecognizedArguments(count, arguments.data());
}

/// Prints the runs, and keeps the median of the repetitions of each by its name.
class MedianRuns : public benchmark::ConsoleReporter {
 public:
  void ReportRuns(const std::vector<Run>& runs) override {
    for (const Run& run : runs) {
      if (run.aggregate_name == "median") medians_[run.run_name.function_name] = run;
    }
    ConsoleReporter::ReportRuns(runs);
  }

  /// By name; one that a filter on the command line leaves out is not there.
  const std::map<std::string, Run>& medians() const { return medians_; }

 private:
  std::map<std::string, Run> medians_;
};

}  // namespace bench
