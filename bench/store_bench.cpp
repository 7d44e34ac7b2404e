#include <benchmark/benchmark.h>

#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <random>
#include <string>
#include <vector>

#include "aluframe/store/result_file.h"
#include "bench/median_runs.h"
#include "bench/store_loops.h"
#include "bench/store_records.h"

/// How fast results are stored and read back, beside what SQLite alone does with the same rows and
/// beside one row per record. All in one run, so that the ratios at the end compare like with like.

namespace {

namespace fs = std::filesystem;
using aluframe::store::ElementRow;
using aluframe::store::ResultReader;
using aluframe::store::ResultWriter;
using aluframe::store::RunState;

constexpr double record_count = double{store_bench::elements} * (store_bench::combinations + 1);

/// The records in the three forms that the loops take, made before anything is timed.
struct Input {
  std::vector<std::vector<store_bench::KeyedRecord>> records;
  std::vector<ElementRow> rows;
  std::vector<store_bench::PackedRecord> singles;

  Input() {
    for (std::uint32_t element = 1; element <= store_bench::elements; ++element) {
      records.push_back(store_bench::records_of(element));
      rows.push_back(store_bench::row_of(element));
      for (const store_bench::KeyedRecord& keyed : records.back()) {
        singles.push_back({element, keyed.key, {}});
        aluframe::store::pack_record(keyed.record, keyed.key, 1, singles.back().data);
      }
    }
  }
};

const Input& input() {
  static const Input made;
  return made;
}

/// Where the files go: the folder that ALUFRAME_BENCH_FOLDER names, or that of temporary files.
fs::path bench_folder() {
  const char* named = std::getenv("ALUFRAME_BENCH_FOLDER");
  return named == nullptr ? fs::temp_directory_path() : fs::path(named);
}

/// A folder of its own, removed at the end.
class Folder {
 public:
  Folder() : path_(bench_folder() / ("bench-store-" + std::to_string(std::random_device()()))) {
    fs::create_directories(path_);
  }
  ~Folder() { fs::remove_all(path_); }
  Folder(const Folder&) = delete;
  Folder& operator=(const Folder&) = delete;
  fs::path file() const { return path_ / "results.aluresult"; }

 private:
  fs::path path_;
};

void write_with_store(const fs::path& path) {
  const auto writer = ResultWriter::create(path, {});
  std::uint32_t element = 0;
  for (const auto& records : input().records) {
    ++element;
    for (const store_bench::KeyedRecord& keyed : records) {
      writer->write(element, keyed.record, keyed.key.combination, keyed.key.min_side);
    }
  }
  writer->finish(RunState::complete);
}

/// Times `write` into a fresh folder each time.
template <class Write>
void time_writing(benchmark::State& state, Write write) {
  input();
  double file_size = 0.0;
  for (auto _ : state) {
    state.PauseTiming();
    {
      const Folder folder;
      state.ResumeTiming();
      write(folder.file());
      state.PauseTiming();
      file_size = static_cast<double>(fs::file_size(folder.file()));
    }
    state.ResumeTiming();
  }
  state.counters["records/s"] =
      benchmark::Counter(record_count, benchmark::Counter::kIsIterationInvariantRate);
  state.counters["file bytes/record"] = file_size / record_count;
}

void store(benchmark::State& state) {
  time_writing(state, write_with_store);
}

void bare_sqlite(benchmark::State& state) {
  time_writing(state,
               [](const fs::path& path) { store_bench::write_packed_rows(path, input().rows); });
}

void one_row_per_record(benchmark::State& state) {
  time_writing(state, [](const fs::path& path) {
    store_bench::write_single_rows(path, input().singles, input().rows);
  });
}

void pack_records(benchmark::State& state) {
  const auto& records = input().records.front();
  std::vector<std::byte> packed;
  for (auto _ : state) {
    packed.clear();
    for (const auto& keyed : records) {
      aluframe::store::pack_record(keyed.record, keyed.key, 1, packed);
    }
    benchmark::DoNotOptimize(packed.data());
  }
  const auto count = static_cast<double>(records.size());
  state.counters["records/s"] =
      benchmark::Counter(count, benchmark::Counter::kIsIterationInvariantRate);
  state.counters["packed bytes/record"] = static_cast<double>(packed.size()) / count;
}

/// One record of another element each time, out of order.
void read_one_record(benchmark::State& state) {
  const Folder folder;
  write_with_store(folder.file());
  const auto reader = ResultReader::open(folder.file());
  std::uint32_t step = 0;
  for (auto _ : state) {
    step += 977;
    const std::uint32_t element = 1 + step % store_bench::elements;
    benchmark::DoNotOptimize(reader->read(element, 1 + step % store_bench::combinations, 0));
  }
}

constexpr int repetitions = 9;

BENCHMARK(store)->Unit(benchmark::kMillisecond)->UseRealTime()->Repetitions(repetitions);
BENCHMARK(bare_sqlite)->Unit(benchmark::kMillisecond)->UseRealTime()->Repetitions(repetitions);
BENCHMARK(one_row_per_record)
    ->Unit(benchmark::kMillisecond)
    ->UseRealTime()
    ->Repetitions(repetitions);
BENCHMARK(pack_records)->Unit(benchmark::kMicrosecond);
BENCHMARK(read_one_record)->Unit(benchmark::kMicrosecond)->UseRealTime();

/// Prints as usual and keeps the medians for the ratios.
class RatioReporter : public bench::MedianRuns {
 public:
  void print_ratios() const {
    if (medians().size() < 3) return;
    const double own = time("store");
    std::printf("store / bare SQLite, same rows and settings: %.2f of its speed\n",
                time("bare_sqlite") / own);
    std::printf("store / one row per record, write-ahead log: %.2f of its speed\n",
                time("one_row_per_record") / own);
  }

 private:
  double time(const char* name) const { return medians().at(name).GetAdjustedRealTime(); }
};

}  // namespace

int main(int argc, char** argv) {
  if (!bench::initialise(argc, argv)) return 1;
  RatioReporter reporter;
  benchmark::RunSpecifiedBenchmarks(&reporter);
  reporter.print_ratios();
  return 0;
}
