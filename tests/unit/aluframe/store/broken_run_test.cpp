#include <gtest/gtest.h>
#include <signal.h>
#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>

#include <chrono>
#include <fstream>
#include <thread>

#include "tests/unit/aluframe/store/store_samples.h"

namespace aluframe::store {
namespace {

using namespace std::chrono_literals;
using store_test::Folder;
using store_test::in_child;
using store_test::SameBits;
using testing::HasSubstr;

/// From here on no file of this process may grow beyond `bytes`, as on a disk that is full.
void limit_files(rlim_t bytes) {
  signal(SIGXFSZ, SIG_IGN);
  const rlimit limit{bytes, bytes};
  setrlimit(RLIMIT_FSIZE, &limit);
}

/// Writes elements until the writer throws. @return false when it never does
bool writing_fails(ResultWriter& writer) {
  try {
    for (std::uint32_t element = 1; element <= 100'000; ++element) {
      store_test::write_element(writer, element);
    }
  } catch (const std::runtime_error&) {
    return true;
  }
  return false;
}

constexpr rlim_t full_disk = 1'000'000;

TEST(BrokenRun, AFullDiskIsReportedByALaterCallWithTheFileAndTheReason) {
  const Folder folder;
  EXPECT_EQ(in_child([&] {
              const auto writer = ResultWriter::create(folder.file(), {});
              limit_files(full_disk);
              if (!writing_fails(*writer)) return 1;
              const std::string error = store_test::error_of([&] { writer->flush(); });
              const bool named = error.find("frame.aluresult") != std::string::npos;
              const bool explained = error.find("disk I/O error") != std::string::npos ||
                                     error.find("full") != std::string::npos;
              return named && explained ? 0 : 2;
            }),
            0);
}

TEST(BrokenRun, AfterAnErrorEveryCallThrows) {
  const Folder folder;
  EXPECT_EQ(in_child([&] {
              const auto writer = ResultWriter::create(folder.file(), {});
              limit_files(full_disk);
              if (!writing_fails(*writer)) return 1;
              T_RALU_D record;
              const auto throws = [](const std::function<void()>& call) {
                return !store_test::error_of(call).empty();
              };
              return throws([&] { store_test::write_element(*writer, 1); }) &&
                             throws([&] { writer->read(1, 0, 0, record); }) &&
                             throws([&] { writer->end_element({}); }) &&
                             throws([&] { writer->flush(); }) &&
                             throws([&] { writer->finish(RunState::complete); })
                         ? 0
                         : 2;
            }),
            0);
}

TEST(BrokenRun, ARunThatFilledTheDiskKeepsWhatWasCommittedAndIsNotComplete) {
  const Folder folder;
  ASSERT_EQ(in_child([&] {
              const auto writer = ResultWriter::create(folder.file(), {});
              store_test::write_element(*writer, 100'001);
              writer->flush();
              limit_files(full_disk);
              if (!writing_fails(*writer)) return 1;
              return store_test::error_of([&] { writer->finish(RunState::complete); }).empty() ? 2
                                                                                               : 0;
            }),
            0);
  EXPECT_FALSE(std::filesystem::exists(folder.file()));
  const auto reader = ResultReader::open(folder.partial());
  EXPECT_EQ(reader->state(), RunState::failed);
  EXPECT_THAT(reader->read(100'001, 7, 1).value(),
              SameBits(store_test::sample_record(100'001, 7, 1)));
}

TEST(BrokenRun, AWriterThatIsDestroyedAfterAnErrorEnds) {
  const Folder folder;
  ASSERT_EQ(in_child([&] {
              auto writer = ResultWriter::create(folder.file(), {});
              limit_files(full_disk);
              if (!writing_fails(*writer)) return 1;
              writer.reset();
              return 0;
            }),
            0);
  EXPECT_EQ(ResultReader::open(folder.partial())->state(), RunState::running);
}

TEST(BrokenRun, ADiskThatIsFullFromTheStartLeavesTheOldResults) {
  const Folder folder;
  store_test::write_run(folder.file(), 2, "old");
  EXPECT_EQ(in_child([&] {
              limit_files(20'000);
              const std::string error = store_test::error_of(
                  [&] { ResultWriter::create(folder.file(), store_test::sample_info("new")); });
              return error.empty() ? 1 : 0;
            }),
            0);
  EXPECT_EQ(ResultReader::open(folder.file())->info().model_title, "old");
  EXPECT_THAT(folder.names(), testing::ElementsAre("frame.aluresult"));
}

/// A run in another process that writes elements 1, 2, 3 ... until it is killed.
class EndlessRun {
 public:
  explicit EndlessRun(const std::filesystem::path& file) {
    int ends[2];
    if (pipe(ends) != 0) throw std::runtime_error("no pipe");
    child_ = fork();
    if (child_ == 0) write_forever(file, ends[1]);
    close(ends[1]);
    flushed_ = ends[0];
  }
  ~EndlessRun() { kill_it(); }
  EndlessRun(const EndlessRun&) = delete;
  EndlessRun& operator=(const EndlessRun&) = delete;

  /// Waits until the first ten elements are flushed. @return false when the run has died
  bool wait_for_flush() {
    char byte = 0;
    return read(flushed_, &byte, 1) == 1;
  }

  void kill_it() {
    if (child_ == 0) return;
    kill(child_, SIGKILL);
    waitpid(child_, nullptr, 0);
    close(flushed_);
    child_ = 0;
  }

 private:
  [[noreturn]] static void write_forever(const std::filesystem::path& file, int flushed) {
    const auto writer = ResultWriter::create(file, store_test::sample_info());
    for (std::uint32_t element = 1;; ++element) {
      store_test::write_element(*writer, element);
      if (element != 10) continue;
      writer->flush();
      if (write(flushed, "x", 1) != 1) _exit(1);
    }
  }

  pid_t child_ = 0;
  int flushed_ = -1;
};

/// Every element that the file lists must be there whole, from the first without a gap.
void expect_whole_elements(const std::filesystem::path& file) {
  const auto reader = ResultReader::open(file);
  EXPECT_EQ(reader->state(), RunState::running);
  const std::vector<std::uint32_t> elements = reader->elements();
  ASSERT_GE(elements.size(), 10U);
  for (std::uint32_t i = 0; i < elements.size(); ++i) {
    ASSERT_EQ(elements[i], i + 1);
    ASSERT_EQ(reader->read_all(i + 1).size(), 4U);
  }
  EXPECT_THAT(reader->read(10, 7, 1).value(), SameBits(store_test::sample_record(10, 7, 1)));
}

TEST(BrokenRun, AKilledRunLeavesWhatWasCommittedAndTheStateRunning) {
  const Folder folder;
  EndlessRun run(folder.file());
  ASSERT_TRUE(run.wait_for_flush());
  run.kill_it();
  expect_whole_elements(folder.partial());
}

TEST(BrokenRun, WheneverARunIsKilledItsFileHoldsWholeElements) {
  for (const auto delay : {1ms, 3ms, 7ms, 15ms, 30ms, 60ms}) {
    const Folder folder;
    EndlessRun run(folder.file());
    ASSERT_TRUE(run.wait_for_flush());
    std::this_thread::sleep_for(delay);
    run.kill_it();
    expect_whole_elements(folder.partial());
  }
}

TEST(BrokenRun, ANewRunReplacesAKilledOne) {
  const Folder folder;
  EndlessRun run(folder.file());
  ASSERT_TRUE(run.wait_for_flush());
  run.kill_it();
  store_test::write_run(folder.file(), 3, "next");
  const auto reader = ResultReader::open(folder.file());
  EXPECT_EQ(reader->state(), RunState::complete);
  EXPECT_EQ(reader->info().model_title, "next");
  EXPECT_EQ(reader->elements().size(), 3U);
  EXPECT_THAT(folder.names(), testing::ElementsAre("frame.aluresult"));
}

TEST(BrokenRun, AKilledRunLeavesTheEarlierCompleteResults) {
  const Folder folder;
  store_test::write_run(folder.file(), 2, "old");
  const std::string before = store_test::bytes_of(folder.file());
  EndlessRun run(folder.file());
  ASSERT_TRUE(run.wait_for_flush());
  EXPECT_TRUE(store_test::bytes_of(folder.file()) == before);
  run.kill_it();
  EXPECT_TRUE(store_test::bytes_of(folder.file()) == before);
  EXPECT_EQ(ResultReader::open(folder.file())->state(), RunState::complete);
  expect_whole_elements(folder.partial());
}

TEST(BrokenRun, ARunThatEndsEarlyLeavesTheEarlierCompleteResultsAndWhatItHas) {
  for (const RunState state : {RunState::cancelled, RunState::failed}) {
    const Folder folder;
    store_test::write_run(folder.file(), 2, "old");
    const auto writer = ResultWriter::create(folder.file(), store_test::sample_info("new"));
    store_test::write_element(*writer, 7);
    writer->finish(state);
    EXPECT_EQ(ResultReader::open(folder.file())->info().model_title, "old");
    const auto partial = ResultReader::open(folder.partial());
    EXPECT_EQ(partial->state(), state);
    EXPECT_THAT(partial->elements(), testing::ElementsAre(7));
    EXPECT_THAT(folder.names(),
                testing::UnorderedElementsAre("frame.aluresult", "frame.aluresult.partial"));
  }
}

TEST(BrokenRun, ARunThatEndsEarlyWithoutAnyRecordLeavesNothing) {
  const Folder folder;
  ResultWriter::create(folder.file(), store_test::sample_info())->finish(RunState::failed);
  EXPECT_THAT(folder.names(), testing::IsEmpty());
}

TEST(BrokenRun, ARunOfAnotherProcessCanBeReadWhileItWrites) {
  const Folder folder;
  EndlessRun run(folder.file());
  ASSERT_TRUE(run.wait_for_flush());
  const auto reader = ResultReader::open(folder.partial());
  for (int i = 0; i < 200; ++i) {
    const std::vector<std::uint32_t> elements = reader->elements();
    ASSERT_GE(elements.size(), 10U);
    ASSERT_THAT(reader->read(elements.back(), 0, 0).value(),
                SameBits(store_test::sample_governing(elements.back())));
  }
}

}  // namespace
}  // namespace aluframe::store
