// Speed of the calculation report, and what its file operations cost: every block is opened,
// appended line by line and closed. Reads a model that tools/generate_model.py wrote; bench/run
// calls it.

#include <benchmark/benchmark.h>

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <locale>
#include <map>
#include <string>
#include <string_view>
#include <variant>
#include <vector>

#include "aluframe/io/model_file.h"
#include "aluframe/services/check_run.h"
#include "aluframe/services/report_run.h"

namespace {

namespace fs = std::filesystem;
using namespace aluframe;

fs::path bench_folder() {
  const char* folder = std::getenv("ALUFRAME_BENCH_FOLDER");
  return folder != nullptr ? folder : ".";
}

fs::path report_path() {
  return bench_folder() / "bench.alu";
}

[[noreturn]] void fail(const std::string& text) {
  std::fprintf(stderr, "%s\n", text.c_str());
  std::exit(2);
}

const model::Model& checked_model() {
  static const model::Model model = [] {
    auto read = io::read_model(bench_folder() / "2000x50.json");
    if (const auto* problem = std::get_if<io::Problem>(&read)) fail(problem->message());
    return std::get<model::Model>(std::move(read));
  }();
  return model;
}

services::SessionOptions options() {
  services::SessionOptions session;
  session.result_path = bench_folder() / "report.aluresult";
  session.units = T_UNIT_INDEX{0, 2};
  return session;
}

void whole_report(benchmark::State& state) {
  services::ReportSummary summary;
  for (auto _ : state) summary = services::run_report(checked_model(), options(), report_path());
  if (summary.outcome != services::RunOutcome::complete) fail(summary.failure);
  state.counters["elements"] = static_cast<double>(summary.reported.size());
  state.counters["bytes"] = static_cast<double>(fs::file_size(report_path()));
}

using Lines = std::vector<std::wstring>;

/// The report's lines by the blocks that were written together: each begins with a rule that ends
/// a line of text.
std::vector<Lines> blocks_of_report() {
  std::wifstream file(report_path());
  file.imbue(std::locale("C.UTF-8"));
  const std::wstring rule(100, L'=');
  std::vector<Lines> blocks;
  bool in_title = false;
  for (std::wstring line; std::getline(file, line);) {
    if (line == rule) {
      if (!in_title) blocks.emplace_back();
      in_title = !in_title;
    }
    blocks.back().push_back(line);
  }
  return blocks;
}

void write_line(std::wofstream& out, const std::wstring& line) {
  out << line << std::endl;
}

/// The same text, block by block, without being computed.
void blocks_alone(benchmark::State& state) {
  const std::vector<Lines> blocks = blocks_of_report();
  const fs::path path = bench_folder() / "replay.alu";
  const std::locale locale("");
  for (auto _ : state) {
    fs::remove(path);
    for (const Lines& block : blocks) {
      std::wofstream out;
      out.imbue(locale);
      out.open(path, std::ios::app);
      for (const std::wstring& line : block) write_line(out, line);
    }
  }
  state.counters["blocks"] = static_cast<double>(blocks.size());
}

/// The same text through one stream, flushed at its end only.
void one_stream(benchmark::State& state) {
  const std::vector<Lines> blocks = blocks_of_report();
  for (auto _ : state) {
    std::wofstream out;
    out.imbue(std::locale(""));
    out.open(bench_folder() / "replay.alu");
    for (const Lines& block : blocks) {
      for (const std::wstring& line : block) out << line << L'\n';
    }
  }
}

/// Keeps the median real time of every benchmark for the shares.
class ShareReporter : public benchmark::ConsoleReporter {
 public:
  void ReportRuns(const std::vector<Run>& runs) override {
    for (const Run& run : runs) {
      if (run.aggregate_name == "median") {
        times_[run.run_name.function_name] = run.GetAdjustedRealTime();
      }
    }
    ConsoleReporter::ReportRuns(runs);
  }

  void print_shares() const {
    const double report = times_.at("whole_report");
    const double blocks = times_.at("blocks_alone");
    const double stream = times_.at("one_stream");
    std::printf(
        "\nshare of the report: opening, flushing and closing %.2f, converting text %.2f, "
        "checks and formatting %.2f\n",
        (blocks - stream) / report, stream / report, 1.0 - blocks / report);
  }

 private:
  std::map<std::string, double> times_;
};

void add(const char* name, void (*function)(benchmark::State&)) {
  benchmark::RegisterBenchmark(name, function)
      ->Unit(benchmark::kMillisecond)
      ->UseRealTime()
      ->Repetitions(5)
      ->ReportAggregatesOnly(true);
}

}  // namespace

int main(int argc, char** argv) {
  benchmark::Initialize(&argc, argv);
  setenv("LC_ALL", "C.UTF-8", 1);
  services::SessionOptions check = options();
  if (services::run_check(checked_model(), check).outcome != services::RunOutcome::complete) {
    fail("the check did not complete");
  }
  add("whole_report", whole_report);
  add("blocks_alone", blocks_alone);
  add("one_stream", one_stream);
  ShareReporter reporter;
  benchmark::RunSpecifiedBenchmarks(&reporter);
  reporter.print_shares();
  return 0;
}
