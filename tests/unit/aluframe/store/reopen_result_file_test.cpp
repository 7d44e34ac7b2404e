// Adding elements to the result file of an earlier run.

#include <SQLiteCpp/SQLiteCpp.h>
#include <gtest/gtest.h>
#include <signal.h>
#include <sys/wait.h>
#include <unistd.h>

#include <fstream>

#include "tests/unit/aluframe/store/store_samples.h"

namespace aluframe::store {
namespace {

namespace fs = std::filesystem;
using store_test::error_of;
using store_test::Folder;
using store_test::SameBits;
using testing::ElementsAre;
using testing::HasSubstr;

/// Of the database, as its description has it.
constexpr std::uintmax_t page_bytes = 16384;

/// Rows of a query, a line each, columns between bars.
std::string rows(const fs::path& path, const std::string& sql) {
  SQLite::Database database(path.string(), SQLite::OPEN_READONLY);
  SQLite::Statement select(database, sql);
  std::string text;
  while (select.executeStep()) {
    for (int i = 0; i < select.getColumnCount(); ++i) {
      text += select.getColumn(i).getString() + "|";
    }
    text += "\n";
  }
  return text;
}

/// Everything that the file holds of elements 1 and 2, bit for bit.
std::string rows_of_first_elements(const fs::path& path) {
  return rows(path, "SELECT * FROM element WHERE number < 3") +
         rows(path, "SELECT * FROM governing WHERE element < 3") +
         rows(path, "SELECT element, hex(data) FROM record WHERE element < 3");
}

class ReopenedFile : public testing::Test {
 protected:
  ReopenedFile() { store_test::write_run(file(), 2); }

  fs::path file() const { return folder_.file(); }
  std::unique_ptr<ResultWriter> reopen() const {
    return ResultWriter::reopen(file(), store_test::sample_info());
  }
  /// Adds the sample's element of this number.
  void add(std::uint32_t element, RunState state = RunState::complete) const {
    const auto writer = reopen();
    store_test::write_element(*writer, element);
    writer->finish(state);
  }

  const Folder folder_;
};

// --- what is added ---

TEST_F(ReopenedFile, AnAddedElementComesAfterTheOthers) {
  add(9);
  add(5);
  EXPECT_THAT(ResultReader::open(file())->elements(), ElementsAre(1, 2, 9, 5));
}

TEST_F(ReopenedFile, RowsOfTheOtherElementsAreKeptBitForBit) {
  const std::string before = rows_of_first_elements(file());
  add(9);
  EXPECT_EQ(rows_of_first_elements(file()), before);
}

TEST_F(ReopenedFile, AnAddedElementHasAllItsRecords) {
  add(9);
  const auto reader = ResultReader::open(file());
  EXPECT_THAT(reader->read(9, 1, 0).value(), SameBits(store_test::sample_record(9, 1, 0)));
  EXPECT_THAT(reader->read(9, 7, 0).value(), SameBits(store_test::sample_record(9, 7, 0)));
  EXPECT_THAT(reader->read(9, 7, 1).value(), SameBits(store_test::sample_record(9, 7, 1)));
  EXPECT_THAT(reader->read(9, 0, 0).value(), SameBits(store_test::sample_governing(9)));
  EXPECT_EQ(reader->read_all(9).size(), 4U);
}

TEST_F(ReopenedFile, TheGoverningTableHasTheGoverningChecksOfAllElements) {
  add(9);
  const auto reader = ResultReader::open(file());
  std::vector<std::uint32_t> elements;
  for (const GoverningRow& row : reader->governing()) {
    elements.push_back(row.element);
    const T_RALU_D record = reader->read(row.element, 0, 0).value();
    EXPECT_TRUE(
        store_test::same_bits(row.governing, record.aComp.at(static_cast<std::size_t>(row.item))));
    EXPECT_EQ(row.member_type, 2);
  }
  // Strength and slenderness of each.
  EXPECT_THAT(elements, ElementsAre(1, 1, 2, 2, 9, 9));
}

TEST_F(ReopenedFile, AnElementThatComesAgainReplacesItsRows) {
  const auto writer = reopen();
  writer->write(1, store_test::sample_record(50, 1, 0), 1, 0);
  writer->write(1, store_test::sample_record(50, 1, 0), 0, 0);
  writer->finish(RunState::complete);
  const auto reader = ResultReader::open(file());
  EXPECT_THAT(reader->elements(), ElementsAre(2, 1));
  EXPECT_EQ(reader->read_all(1).size(), 2U);
  EXPECT_EQ(reader->governing().size(), 4U);
  EXPECT_THAT(reader->read(1, 1, 0).value(), SameBits(store_test::sample_record(50, 1, 0)));
}

TEST_F(ReopenedFile, RecordsOfTheEarlierRunCanBeReadMeanwhile) {
  const auto writer = reopen();
  T_RALU_D record;
  ASSERT_TRUE(writer->read(2, 7, 1, record));
  EXPECT_THAT(record, SameBits(store_test::sample_record(2, 7, 1)));
  writer->finish(RunState::complete);
}

TEST_F(ReopenedFile, WhatWasNotCheckedIsKeptAndAddedTo) {
  for (const std::uint32_t element : {3U, 4U}) {
    const auto writer = reopen();
    writer->end_element(
        {.element = element, .not_checked = {{element, std::nullopt, "no forces"}}});
    writer->finish(RunState::complete);
  }
  EXPECT_THAT(ResultReader::open(file())->not_checked(),
              ElementsAre(NotChecked{3, std::nullopt, "no forces"},
                          NotChecked{4, std::nullopt, "no forces"}));
}

TEST_F(ReopenedFile, NothingAddedChangesNothing) {
  const std::string before = store_test::all_tables(file());
  reopen()->finish(RunState::complete);
  EXPECT_EQ(store_test::all_tables(file()), before);
}

TEST_F(ReopenedFile, NoOtherFileIsLeftBesideIt) {
  add(9);
  EXPECT_THAT(folder_.names(), ElementsAre("frame.aluresult"));
}

TEST_F(ReopenedFile, ALinkToItStaysALink) {
  const fs::path link = folder_.path() / "link.aluresult";
  fs::create_symlink("frame.aluresult", link);
  const auto writer = ResultWriter::reopen(link, store_test::sample_info());
  store_test::write_element(*writer, 9);
  writer->finish(RunState::complete);
  EXPECT_TRUE(fs::is_symlink(link));
  EXPECT_THAT(ResultReader::open(file())->elements(), ElementsAre(1, 2, 9));
}

// --- the run ---

TEST_F(ReopenedFile, NothingChangesUntilTheEnd) {
  const std::string before = store_test::bytes_of(file());
  const auto writer = reopen();
  store_test::write_element(*writer, 9);
  writer->flush();
  EXPECT_TRUE(store_test::bytes_of(file()) == before);
  writer->finish(RunState::cancelled);
  EXPECT_EQ(ResultReader::open(file())->state(), RunState::cancelled);
  EXPECT_THAT(ResultReader::open(file())->elements(), ElementsAre(1, 2, 9));
}

TEST_F(ReopenedFile, MayBeThePartialOneOfAKilledRun) {
  ASSERT_EQ(store_test::in_child([&] {
              const auto writer = ResultWriter::create(file(), store_test::sample_info());
              store_test::write_element(*writer, 1);
              writer->flush();
              kill(getpid(), SIGKILL);
              return 0;
            }),
            128 + SIGKILL);
  const auto writer = ResultWriter::reopen(folder_.partial(), store_test::sample_info());
  store_test::write_element(*writer, 9);
  writer->finish(RunState::running);
  EXPECT_EQ(ResultReader::open(folder_.partial())->state(), RunState::running);
  EXPECT_THAT(ResultReader::open(folder_.partial())->elements(), ElementsAre(1, 9));
}

TEST_F(ReopenedFile, CombinationsThatItLacksAreAddedBehindTheOthers) {
  RunInfo info = store_test::sample_info();
  info.combinations.insert(info.combinations.begin(), {3, "ULS3", false, true});
  ResultWriter::reopen(file(), info)->finish(RunState::complete);
  EXPECT_EQ(rows(file(),
                 "SELECT number, name, two_sides, seismic FROM combination ORDER BY "
                 "sequence"),
            "1|ULS1|0|0|\n7|地震包络|1|1|\n3|ULS3|0|1|\n");
}

TEST_F(ReopenedFile, ARunOfFewerCombinationsLeavesTheList) {
  RunInfo info = store_test::sample_info();
  info.combinations.erase(info.combinations.begin());
  ResultWriter::reopen(file(), info)->finish(RunState::complete);
  EXPECT_EQ(ResultReader::open(file())->info().combinations.size(), 2U);
}

// --- files that cannot be added to ---

class RefusedFile : public ReopenedFile {
 protected:
  /// What the user is told without the file's name, after a look that the file is as it was.
  std::string refusal(const RunInfo& info = store_test::sample_info()) const {
    const bool existed = fs::exists(file());
    const std::string before = store_test::bytes_of(file());
    const std::string error = error_of([&] { ResultWriter::reopen(file(), info); });
    EXPECT_EQ(fs::exists(file()), existed);
    EXPECT_EQ(store_test::bytes_of(file()), before);
    const std::string name = file().string() + ": ";
    EXPECT_TRUE(error.starts_with(name)) << error;
    return error.size() < name.size() ? error : error.substr(name.size());
  }
  void run_sql(const std::string& sql) const {
    SQLite::Database database(file().string(), SQLite::OPEN_READWRITE);
    database.exec(sql);
  }
};

TEST_F(RefusedFile, IsOneThatIsMissing) {
  fs::remove(file());
  EXPECT_EQ(refusal(), "there is no such file");
}

TEST_F(RefusedFile, IsAFolder) {
  fs::remove(file());
  fs::create_directory(file());
  EXPECT_EQ(error_of([&] { reopen(); }), file().string() + ": is a folder");
}

TEST_F(RefusedFile, IsOneOfAnotherKind) {
  std::ofstream(file(), std::ios::trunc) << "{\"format\": \"aluframe-model\"}";
  EXPECT_EQ(refusal(), "is not a result file");
}

TEST_F(RefusedFile, IsAnEmptyOne) {
  std::ofstream(file(), std::ios::trunc);
  EXPECT_EQ(refusal(), "is not a result file");
}

TEST_F(RefusedFile, IsADatabaseOfAnotherProgram) {
  run_sql("PRAGMA application_id = 1");
  EXPECT_EQ(refusal(), "is not a result file");
}

TEST_F(RefusedFile, IsOneOfAnotherVersion) {
  run_sql("PRAGMA user_version = 1");
  EXPECT_EQ(refusal(), "is a result file of format version 1, this program reads version 6");
}

TEST_F(RefusedFile, IsOneOfAnotherModel) {
  EXPECT_EQ(refusal(store_test::sample_info("Transom")),
            "holds results of the model \"Mullion\", not of \"Transom\"");
}

TEST_F(RefusedFile, IsOneOfAnotherCode) {
  RunInfo info = store_test::sample_info();
  info.code = "GB 50429-2030";
  EXPECT_EQ(refusal(info), "holds results of GB 50429-2007");
}

TEST_F(RefusedFile, IsOneWhoseCombinationHasAnotherName) {
  RunInfo info = store_test::sample_info();
  info.combinations[0].name = "SLS1";
  EXPECT_EQ(refusal(info), "holds results of another combination 1; check the model again");
}

TEST_F(RefusedFile, IsOneWhoseCombinationHasOtherSides) {
  RunInfo info = store_test::sample_info();
  info.combinations[1].two_sides = false;
  EXPECT_EQ(refusal(info), "holds results of another combination 7; check the model again");
}

TEST_F(RefusedFile, IsOneWhoseCombinationHasAnotherSeismicType) {
  RunInfo info = store_test::sample_info();
  info.combinations[0].seismic = true;
  EXPECT_EQ(refusal(info), "holds results of another combination 1; check the model again");
}

TEST_F(RefusedFile, IsOneOfAnotherStateOfTheModel) {
  RunInfo info = store_test::sample_info();
  info.model_digest = "another";
  EXPECT_EQ(refusal(info),
            "holds results of another state of the model or its forces; check the model again");
}

TEST(DifferenceOfRuns, IsNoneWhereOneOfThemDoesNotKnowItsModel) {
  RunInfo unknown = store_test::sample_info();
  unknown.model_digest.clear();
  EXPECT_EQ(difference_of_runs(unknown, store_test::sample_info()), std::nullopt);
  EXPECT_EQ(difference_of_runs(store_test::sample_info(), unknown), std::nullopt);
}

TEST_F(RefusedFile, IsAWriteProtectedOne) {
  fs::permissions(file(), fs::perms::owner_read);
  EXPECT_EQ(refusal(), "is write-protected");
}

TEST_F(RefusedFile, IsOneThatAnotherRunIsWriting) {
  const auto writer = reopen();
  store_test::write_element(*writer, 9);
  EXPECT_EQ(error_of([&] { reopen(); }), file().string() + ": another run is writing this file");
  writer->finish(RunState::complete);
  EXPECT_THAT(ResultReader::open(file())->elements(), ElementsAre(1, 2, 9));
}

TEST_F(RefusedFile, IsOneWithoutItsTables) {
  run_sql("DROP TABLE element");
  EXPECT_THAT(refusal(), HasSubstr("no such table: element"));
}

TEST_F(RefusedFile, IsOneThatDoesNotSayWhichRunItIsOf) {
  run_sql("DELETE FROM run");
  EXPECT_EQ(refusal(), "it does not say which run it is of");
}

TEST_F(RefusedFile, IsADamagedOne) {
  std::fstream damage(file(), std::ios::in | std::ios::out | std::ios::binary);
  damage.seekp(page_bytes);
  damage << std::string(fs::file_size(file()) - page_bytes, '\xFF');
  damage.close();
  EXPECT_THAT(refusal(), HasSubstr("is damaged"));
}

TEST_F(RefusedFile, IsOneThatWasCutShort) {
  for (const std::uintmax_t lost : {2 * page_bytes, fs::file_size(file()) - page_bytes / 2}) {
    store_test::write_run(folder_.path() / "whole", 2);
    fs::rename(folder_.path() / "whole", file());
    fs::resize_file(file(), fs::file_size(file()) - lost);
    EXPECT_EQ(refusal(), "is not a result file") << lost;
  }
}

// --- processes that end while they add ---

TEST_F(ReopenedFile, AProcessThatIsKilledWhileItAddsLeavesTheFileAsItWas) {
  const std::string before = store_test::bytes_of(file());
  ASSERT_EQ(store_test::in_child([&] {
              const auto writer = reopen();
              store_test::write_element(*writer, 9);
              writer->flush();
              for (std::uint32_t element = 10; element < 200; ++element) {
                store_test::write_element(*writer, element);
              }
              kill(getpid(), SIGKILL);
              return 0;
            }),
            128 + SIGKILL);
  EXPECT_TRUE(store_test::bytes_of(file()) == before);
}

TEST_F(ReopenedFile, AFileWhoseAddingWasKilledCanBeAddedToAgain) {
  ASSERT_EQ(store_test::in_child([&] {
              const auto writer = reopen();
              store_test::write_element(*writer, 9);
              kill(getpid(), SIGKILL);
              return 0;
            }),
            128 + SIGKILL);
  add(10);
  EXPECT_THAT(ResultReader::open(file())->elements(), ElementsAre(1, 2, 10));
  EXPECT_THAT(folder_.names(), ElementsAre("frame.aluresult"));
}

TEST_F(ReopenedFile, AWriterThatGoesWithoutEndLeavesTheFileAsItWas) {
  const std::string before = store_test::bytes_of(file());
  store_test::write_element(*reopen(), 9);
  EXPECT_TRUE(store_test::bytes_of(file()) == before);
  EXPECT_THAT(folder_.names(), ElementsAre("frame.aluresult"));
}

// --- content that is not what was written ---

TEST_F(ReopenedFile, AValueThatChangedInTheFileIsNoticed) {
  for (const char* change : {"UPDATE governing SET capacity = 122 WHERE element = 2 AND item = 0",
                             "UPDATE governing SET demand = demand + 0.25 WHERE element = 2",
                             "UPDATE record SET data = zeroblob(40) WHERE element = 1",
                             "UPDATE run SET model_digest = 'another'",
                             "DELETE FROM governing WHERE element = 1 AND item = 0",
                             "UPDATE element SET sequence = 7 WHERE number = 1",
                             "INSERT INTO remark VALUES (NULL, 'W1', '', 'text', 0.5, 1, 1)",
                             "DELETE FROM seal", "ALTER TABLE safe RENAME COLUMN rules TO sules"}) {
    store_test::write_run(file(), 2);
    {
      SQLite::Database database(file().string(), SQLite::OPEN_READWRITE);
      database.exec(change);
    }
    EXPECT_EQ(error_of([&] { ResultReader::open(file()); }),
              file().string() +
                  ": is damaged: it does not hold what its run wrote; check the model again")
        << change;
  }
}

TEST_F(ReopenedFile, AnotherLayoutOfTheSameContentIsNoDamage) {
  {
    SQLite::Database database(file().string(), SQLite::OPEN_READWRITE);
    database.exec("VACUUM");
  }
  EXPECT_EQ(ResultReader::open(file())->elements().size(), 2U);
}

}  // namespace
}  // namespace aluframe::store
