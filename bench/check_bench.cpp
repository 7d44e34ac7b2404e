// Speed of a whole check run: the module, the forces and the store, alone and together, and how the
// time grows. Reads models that tools/generate_model.py wrote; bench/run calls it.

#include <benchmark/benchmark.h>
#include <sys/resource.h>

#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <map>
#include <memory>
#include <string>
#include <variant>
#include <vector>

#include "aluframe/io/model_file.h"
#include "aluframe/services/check_run.h"

namespace {

namespace fs = std::filesystem;
using namespace aluframe;

fs::path bench_folder() {
  const char* folder = std::getenv("ALUFRAME_BENCH_FOLDER");
  return folder != nullptr ? folder : ".";
}

/// The model file "NAME.json" of the bench folder, read once.
const model::Model& model_named(const std::string& name) {
  static std::map<std::string, model::Model> models;
  const auto known = models.find(name);
  if (known != models.end()) return known->second;
  auto read = io::read_model(bench_folder() / (name + ".json"));
  if (const auto* problem = std::get_if<io::Problem>(&read)) {
    std::fprintf(stderr, "%s\n", problem->message().c_str());
    std::exit(2);
  }
  return models.emplace(name, std::get<model::Model>(std::move(read))).first->second;
}

struct Written {
  std::uint32_t element;
  std::uint32_t combination;
  int min_side;
  T_RALU_D record;
};

/// Takes records without writing them; keeps those of the first elements when asked to.
class KeepingWriter : public store::ResultWriter {
 public:
  explicit KeepingWriter(std::vector<Written>* kept) : kept_(kept) {}
  void write(std::uint32_t element, const T_RALU_D& record, std::uint32_t combination,
             int min_side) override {
    ++count_;
    if (kept_ != nullptr) kept_->push_back({element, combination, min_side, record});
    benchmark::DoNotOptimize(record);
  }
  bool read(std::uint32_t, std::uint32_t, int, T_RALU_D&) override { return false; }
  void end_element(const store::ElementNotes&) override {}
  void add_remark(const store::RemarkRow&) override {}
  void add_buckling(const store::BucklingRow&) override {}
  void add_displacement(const store::DisplacementRow&) override {}
  void flush() override {}
  void finish(store::RunState) override {}
  std::uint64_t record_count() const override { return count_; }
  std::uint64_t packed_bytes() const override { return 0; }

 private:
  std::vector<Written>* kept_;
  std::uint64_t count_ = 0;
};

services::CheckSummary check(const model::Model& model, services::ResultWriterFactory create) {
  services::SessionOptions options;
  options.result_path = bench_folder() / "bench.aluresult";
  options.create_writer = std::move(create);
  services::CheckSummary summary = services::run_check(model, std::move(options));
  if (summary.outcome != services::RunOutcome::complete) {
    std::fprintf(stderr, "the run did not complete: %s\n", summary.failure.c_str());
    std::exit(2);
  }
  return summary;
}

services::ResultWriterFactory keeping(std::vector<Written>* kept) {
  return [kept](const fs::path&, const store::RunInfo&) {
    return std::make_unique<KeepingWriter>(kept);
  };
}

void report_run(benchmark::State& state, const services::CheckSummary& summary) {
  using benchmark::Counter;
  const auto rate = Counter::kIsIterationInvariantRate;
  state.counters["engine_calls/s"] = Counter(static_cast<double>(summary.checked_positions), rate);
  state.counters["records/s"] = Counter(static_cast<double>(summary.records), rate);
}

/// Module and forces, nothing stored.
void check_without_store(benchmark::State& state, const std::string& name) {
  const model::Model& model = model_named(name);
  services::CheckSummary summary;
  for (auto _ : state) summary = check(model, keeping(nullptr));
  report_run(state, summary);
}

void check_with_store(benchmark::State& state, const std::string& name) {
  const model::Model& model = model_named(name);
  services::CheckSummary summary;
  for (auto _ : state) summary = check(model, store::ResultWriter::create);
  report_run(state, summary);
  state.counters["bytes/record"] =
      static_cast<double>(fs::file_size(bench_folder() / "bench.aluresult")) /
      static_cast<double>(summary.records);
}

/// The same records, written without being computed.
void store_alone(benchmark::State& state, const std::string& name) {
  std::vector<Written> records;
  check(model_named(name), keeping(&records));
  for (auto _ : state) {
    const auto writer = store::ResultWriter::create(bench_folder() / "bench.aluresult", {});
    for (const Written& item : records) {
      writer->write(item.element, item.record, item.combination, item.min_side);
    }
    writer->finish(store::RunState::complete);
  }
  state.counters["records/s"] = benchmark::Counter(static_cast<double>(records.size()),
                                                   benchmark::Counter::kIsIterationInvariantRate);
}

/// The forces that a run asks for: every element and combination once.
void forces_alone(benchmark::State& state, const std::string& name) {
  const model::Model& model = model_named(name);
  services::Session session(model, {});
  CArrayEx<T_LCOM_MAXMIN_K> keys;
  session.DocPoint()->GetAluDgnTool().GetAluDgnLCombs(keys, kAluDesignKind, 0);
  T_ALU_FORCE_D forces;
  for (auto _ : state) {
    for (const model::Element& element : model.elements) {
      for (const T_LCOM_MAXMIN_K key : keys) {
        session.manager().GetElementForce(element.number, LcombNumber(key), forces,
                                          LcombMinSide(key) != 0);
        benchmark::DoNotOptimize(forces);
      }
    }
  }
}

void read_one_record(benchmark::State& state, const std::string& name) {
  const model::Model& model = model_named(name);
  check(model, store::ResultWriter::create);
  const auto reader = store::ResultReader::open(bench_folder() / "bench.aluresult");
  std::size_t next = 0;
  for (auto _ : state) {
    // A stride through the file, so that no two neighbours share a page.
    next = (next + 977) % model.elements.size();
    benchmark::DoNotOptimize(
        reader->read(model.elements[next].number, model.combinations[next % 50].number, 0));
  }
}

/// Keeps the median real time of every benchmark for the ratios.
class RatioReporter : public benchmark::ConsoleReporter {
 public:
  void ReportRuns(const std::vector<Run>& runs) override {
    for (const Run& run : runs) {
      if (run.aggregate_name == "median" || run.run_type == Run::RT_Iteration) {
        times_[run.run_name.function_name] = run.GetAdjustedRealTime();
      }
    }
    ConsoleReporter::ReportRuns(runs);
  }

  void print_ratios() const {
    const double module = at("check_without_store") - at("forces_alone");
    std::printf("\nshare of the work: module %.2f, forces %.2f, store %.2f\n", module / total(),
                at("forces_alone") / total(), at("store_alone") / total());
    std::printf("check with store / slower of the two alone: %.2f (at most 1.30)\n",
                at("check_with_store") / std::max(at("check_without_store"), at("store_alone")));
    std::printf("twice the elements: %.2f times as long (1.70 to 2.30)\n",
                at("check_twice_elements") / at("check_with_store"));
    std::printf("twice the combinations: %.2f times as long (1.70 to 2.30)\n",
                at("check_twice_combinations") / at("check_with_store"));
    rusage usage{};
    getrusage(RUSAGE_SELF, &usage);
    std::printf("peak memory of this program: %ld MB\n", usage.ru_maxrss / 1024);
  }

 private:
  double at(const std::string& name) const { return times_.at(name); }
  double total() const { return at("check_without_store") + at("store_alone"); }

  std::map<std::string, double> times_;
};

void add(const char* name, void (*function)(benchmark::State&, const std::string&),
         const std::string& model) {
  benchmark::RegisterBenchmark(
      name, [function, model](benchmark::State& state) { function(state, model); })
      ->Unit(benchmark::kMillisecond)
      ->UseRealTime()
      ->Repetitions(3)
      ->ReportAggregatesOnly(true);
}

}  // namespace

int main(int argc, char** argv) {
  benchmark::Initialize(&argc, argv);
  add("forces_alone", forces_alone, "2000x50");
  add("check_without_store", check_without_store, "2000x50");
  add("store_alone", store_alone, "2000x50");
  add("check_with_store", check_with_store, "2000x50");
  add("check_twice_elements", check_with_store, "4000x50");
  add("check_twice_combinations", check_with_store, "2000x100");
  add("read_one_record", read_one_record, "2000x50");
  RatioReporter reporter;
  benchmark::RunSpecifiedBenchmarks(&reporter);
  reporter.print_ratios();
  return 0;
}
