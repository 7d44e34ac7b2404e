#include <SQLiteCpp/SQLiteCpp.h>
#include <gtest/gtest.h>
#include <sqlite3.h>
#include <unistd.h>

#include <array>
#include <cerrno>
#include <fstream>

#include "tests/unit/aluframe/store/store_samples.h"

namespace aluframe::store {
namespace {

using store_test::error_of;
using store_test::Folder;
using testing::AllOf;
using testing::ElementsAre;
using testing::HasSubstr;

class ResultReaderTest : public testing::Test {
 protected:
  std::string open_error() {
    return error_of([this] { ResultReader::open(file); });
  }
  void execute(const std::string& sql) {
    SQLite::Database(file.string(), SQLite::OPEN_READWRITE | SQLite::OPEN_CREATE).exec(sql);
  }

  Folder folder;
  std::filesystem::path file = folder.file();
};

/// While it lives, one of the reads that SQLite asks the system for fails as on a failing disk.
class FailingRead {
 public:
  explicit FailingRead(int number) {
    left_ = number;
    for (const char* name : names) {
      vfs_->xSetSystemCall(vfs_, name, reinterpret_cast<sqlite3_syscall_ptr>(&read));
    }
  }
  ~FailingRead() {
    for (const char* name : names) vfs_->xSetSystemCall(vfs_, name, nullptr);
  }
  FailingRead(const FailingRead&) = delete;
  FailingRead& operator=(const FailingRead&) = delete;
  static bool has_failed() { return left_ <= 0; }

 private:
  static constexpr std::array names{"pread", "pread64"};

  static ssize_t read(int descriptor, void* to, std::size_t count, off_t place) {
    if (--left_ != 0) return pread(descriptor, to, count, place);
    errno = EIO;
    return -1;
  }

  inline static int left_ = 0;
  sqlite3_vfs* vfs_ = sqlite3_vfs_find(nullptr);
};

TEST_F(ResultReaderTest, TellsAReadThatFailsAsThatWhicheverItIs) {
  store_test::write_run(file, 3);
  int number = 1;
  for (;; ++number) {
    const FailingRead failing(number);
    const std::string error = open_error();
    if (!failing.has_failed()) break;
    EXPECT_THAT(error, testing::AnyOf(HasSubstr("cannot be read"), HasSubstr("disk I/O error")))
        << number;
    EXPECT_THAT(error, testing::Not(HasSubstr("is not a result file"))) << number;
  }
  EXPECT_GT(number, 3) << "the header, its page and those of tables are read one by one";
  EXPECT_EQ(open_error(), "");
}

TEST_F(ResultReaderTest, TellsTheRunAndItsCombinationsInTheirOrder) {
  RunInfo info = store_test::sample_info();
  std::swap(info.combinations[0], info.combinations[1]);
  ResultWriter::create(file, info)->finish(RunState::complete);
  const auto reader = ResultReader::open(file);
  EXPECT_EQ(reader->info().model_title, "Mullion");
  EXPECT_EQ(reader->info().code, "GB 50429-2007");
  EXPECT_EQ(reader->info().program, "aluframe 0.1.0");
  const std::vector<CombinationRow>& rows = reader->info().combinations;
  ASSERT_EQ(rows.size(), 2U);
  EXPECT_EQ(rows[0].number, 7U);
  EXPECT_EQ(rows[0].name, "地震包络");
  EXPECT_TRUE(rows[0].two_sides && rows[0].seismic);
  EXPECT_EQ(rows[1].number, 1U);
  EXPECT_FALSE(rows[1].two_sides || rows[1].seismic);
}

TEST_F(ResultReaderTest, TellsWhichCombinationsStandForAnEnvelope) {
  RunInfo info = store_test::sample_info();
  info.combinations.push_back({7002, "Extremes: W", false, false, 9});
  info.envelope_states = {{9, 1}, {9, 7002}};
  ResultWriter::create(file, info)->finish(RunState::complete);
  const auto reader = ResultReader::open(file);
  EXPECT_EQ(reader->info().combinations.front().state_of, std::nullopt);
  EXPECT_EQ(reader->info().combinations.back().state_of, 9U);
  EXPECT_EQ(reader->info().envelope_states, info.envelope_states);
}

TEST_F(ResultReaderTest, ListsElementsInTheOrderWritten) {
  const auto writer = ResultWriter::create(file, {});
  for (const std::uint32_t element : {30U, 10U, 20U}) store_test::write_element(*writer, element);
  writer->finish(RunState::complete);
  EXPECT_THAT(ResultReader::open(file)->elements(), ElementsAre(30, 10, 20));
}

TEST_F(ResultReaderTest, GivesAllRecordsOfAnElementWithTheGoverningOneLast) {
  store_test::write_run(file, 2);
  const std::vector<StoredRecord> all = ResultReader::open(file)->read_all(2);
  std::vector<std::pair<std::uint32_t, int>> keys;
  for (const StoredRecord& stored : all) keys.emplace_back(stored.combination, stored.min_side);
  EXPECT_THAT(keys, ElementsAre(testing::Pair(1, 0), testing::Pair(7, 0), testing::Pair(7, 1),
                                testing::Pair(0, 0)));
  EXPECT_THAT(all[1].record, store_test::SameBits(store_test::sample_record(2, 7, 0)));
}

TEST_F(ResultReaderTest, AnUnknownElementOrCombinationGivesNothing) {
  store_test::write_run(file, 2);
  const auto reader = ResultReader::open(file);
  EXPECT_FALSE(reader->read(3, 0, 0));
  EXPECT_FALSE(reader->read(2, 2, 0));
  EXPECT_TRUE(reader->read_all(3).empty());
}

TEST_F(ResultReaderTest, ListsWhatCouldNotBeCheckedInTheOrderAdded) {
  const NotChecked whole{5, std::nullopt, "no forces in any combination"};
  const NotChecked part{2, 7, "no forces (none for load case 3)"};
  const auto writer = ResultWriter::create(file, {});
  writer->end_element({.element = 5, .not_checked = {whole}});
  writer->end_element({.element = 2, .not_checked = {part}});
  writer->finish(RunState::complete);
  EXPECT_THAT(ResultReader::open(file)->not_checked(), ElementsAre(whole, part));
}

TEST_F(ResultReaderTest, TheLargestUncheckedForceComesBack) {
  const NotChecked item{5, std::nullopt, "torsion", LargestForce{"Mx", 1.5e6, 4, 7, 1}};
  const auto writer = ResultWriter::create(file, {});
  writer->end_element({.element = 5, .not_checked = {item}});
  writer->finish(RunState::complete);
  EXPECT_THAT(ResultReader::open(file)->not_checked(), ElementsAre(item));
}

TEST_F(ResultReaderTest, HowTheRunWasMadeComesBack) {
  RunInfo info;
  info.setup = {.analysis = "second-order",
                .second_order_asked = true,
                .model_file = "../frame.json",
                .forces_file = "../forces.csv",
                .settings = {{"ribs", "off", "given"}, {"safety_class", "2", "default"}}};
  info.model_elements = 12;
  info.model_combinations = 3;
  info.model_states = 7;
  ResultWriter::create(file, info)->finish(RunState::complete);
  const RunInfo read = ResultReader::open(file)->info();
  EXPECT_EQ(read.setup.analysis, "second-order");
  EXPECT_TRUE(read.setup.second_order_asked);
  EXPECT_EQ(read.setup.model_file, "../frame.json");
  EXPECT_EQ(read.setup.forces_file, "../forces.csv");
  EXPECT_EQ(read.setup.settings, info.setup.settings);
  EXPECT_EQ(read.model_elements, 12U);
  EXPECT_EQ(read.model_combinations, 3U);
  EXPECT_EQ(read.model_states, 7U);
}

TEST_F(ResultReaderTest, AMissingFileIsNamed) {
  EXPECT_THAT(open_error(), AllOf(HasSubstr("frame.aluresult"), HasSubstr("no such file")));
}

TEST_F(ResultReaderTest, OpeningAMissingFileDoesNotCreateIt) {
  open_error();
  EXPECT_THAT(folder.names(), ElementsAre());
}

TEST_F(ResultReaderTest, ATextFileIsNotAResultFile) {
  std::ofstream(file) << std::string(500, 'x');
  EXPECT_THAT(open_error(), AllOf(HasSubstr("frame.aluresult"), HasSubstr("not a result file")));
}

TEST_F(ResultReaderTest, AnEmptyFileIsNotAResultFile) {
  std::ofstream(file).close();
  EXPECT_THAT(open_error(), HasSubstr("not a result file"));
}

TEST_F(ResultReaderTest, AFolderIsNotAResultFile) {
  std::filesystem::create_directory(file);
  EXPECT_THAT(open_error(), HasSubstr("not a result file"));
}

TEST_F(ResultReaderTest, ADatabaseOfAnotherProgramIsNotAResultFile) {
  execute("CREATE TABLE run (state TEXT)");
  EXPECT_THAT(open_error(), HasSubstr("not a result file"));
}

TEST_F(ResultReaderTest, AnotherFormatVersionIsNamed) {
  store_test::write_run(file, 1);
  execute("PRAGMA user_version = 9");
  EXPECT_THAT(open_error(), HasSubstr("format version 9"));
}

TEST_F(ResultReaderTest, ADamagedRowIsReportedWithTheFile) {
  store_test::write_run(file, 1);
  execute("UPDATE run SET state = 'failed'");  // such a run is not sealed
  execute("UPDATE record SET data = x'0102'");
  const auto reader = ResultReader::open(file);
  EXPECT_THAT(error_of([&] { reader->read(1, 0, 0); }),
              AllOf(HasSubstr("frame.aluresult"), HasSubstr("ends too early")));
}

TEST_F(ResultReaderTest, AnUnknownStateIsReported) {
  store_test::write_run(file, 1);
  execute("UPDATE run SET state = 'asleep'");
  EXPECT_THAT(error_of([&] { ResultReader::open(file); }), HasSubstr("asleep"));
}

TEST_F(ResultReaderTest, AReaderKeepsTheRunThatItOpenedWhenANewOneReplacesIt) {
  store_test::write_run(file, 3, "first");
  const auto reader = ResultReader::open(file);
  store_test::write_run(file, 1, "second");
  EXPECT_THAT(reader->elements(), ElementsAre(1, 2, 3));
}

}  // namespace
}  // namespace aluframe::store
