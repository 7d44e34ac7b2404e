#include <SQLiteCpp/SQLiteCpp.h>
#include <gtest/gtest.h>

#include <bit>
#include <cmath>
#include <limits>

#include "tests/unit/aluframe/store/store_samples.h"

namespace aluframe::store {
namespace {

using store_test::error_of;
using store_test::Folder;
using store_test::SameBits;
using store_test::sample_info;
using store_test::sample_record;
using testing::ElementsAre;
using testing::HasSubstr;

class ResultWriterTest : public testing::Test {
 protected:
  std::unique_ptr<ResultWriter> create() { return ResultWriter::create(file, sample_info()); }
  std::unique_ptr<ResultReader> open() { return ResultReader::open(file); }
  std::unique_ptr<ResultReader> open_partial() { return ResultReader::open(folder.partial()); }

  Folder folder;
  std::filesystem::path file = folder.file();
};

TEST_F(ResultWriterTest, ARecordReadsBackBitForBit) {
  const auto writer = create();
  store_test::write_element(*writer, 3);
  writer->finish(RunState::complete);
  EXPECT_THAT(open()->read(3, 7, 1).value(), SameBits(sample_record(3, 7, 1)));
}

TEST_F(ResultWriterTest, TheGoverningRecordReadsBackUnderCombinationZero) {
  const auto writer = create();
  store_test::write_element(*writer, 3);
  writer->finish(RunState::complete);
  EXPECT_THAT(open()->read(3, 0, 0).value(), SameBits(store_test::sample_governing(3)));
}

TEST_F(ResultWriterTest, ARunIsRunningUntilItFinishes) {
  const auto writer = create();
  EXPECT_EQ(open_partial()->state(), RunState::running);
  EXPECT_FALSE(std::filesystem::exists(file));
}

TEST_F(ResultWriterTest, FinishNotesHowTheRunEnded) {
  create()->finish(RunState::complete);
  EXPECT_EQ(open()->state(), RunState::complete);
  for (const RunState state : {RunState::cancelled, RunState::failed}) {
    const auto writer = create();
    store_test::write_element(*writer, 3);
    writer->finish(state);
    EXPECT_EQ(open_partial()->state(), state);
  }
}

TEST_F(ResultWriterTest, AWriterThatIsDestroyedLeavesItsRecordsAndTheStateRunning) {
  store_test::write_element(*create(), 3);
  EXPECT_EQ(open_partial()->state(), RunState::running);
  EXPECT_TRUE(open_partial()->read(3, 0, 0));
}

TEST_F(ResultWriterTest, CallsAfterFinishDoNothing) {
  const auto writer = create();
  store_test::write_element(*writer, 1);
  writer->finish(RunState::cancelled);
  store_test::write_element(*writer, 3);
  writer->end_element({.element = 1, .not_checked = {{1, std::nullopt, "late"}}});
  writer->flush();
  writer->finish(RunState::complete);
  T_RALU_D record;
  EXPECT_FALSE(writer->read(3, 0, 0, record));
  EXPECT_EQ(open_partial()->state(), RunState::cancelled);
  EXPECT_THAT(open_partial()->elements(), ElementsAre(1));
}

TEST_F(ResultWriterTest, ReadsARecordOfTheElementThatIsBeingWritten) {
  const auto writer = create();
  writer->write(3, sample_record(3, 1, 0), 1, 0);
  T_RALU_D record;
  ASSERT_TRUE(writer->read(3, 1, 0, record));
  EXPECT_THAT(record, SameBits(sample_record(3, 1, 0)));
  EXPECT_FALSE(writer->read(3, 0, 0, record));
}

TEST_F(ResultWriterTest, ReadsEveryRecordOfTheRunWhateverIsStillWaiting) {
  const auto writer = create();
  T_RALU_D record;
  for (std::uint32_t element = 1; element <= 2000; ++element) {
    store_test::write_element(*writer, element);
    const std::uint32_t earlier = (element + 1) / 2;
    ASSERT_TRUE(writer->read(element, 0, 0, record));
    ASSERT_THAT(record, SameBits(store_test::sample_governing(element)));
    ASSERT_TRUE(writer->read(earlier, 7, 1, record));
    ASSERT_THAT(record, SameBits(sample_record(earlier, 7, 1)));
  }
}

TEST_F(ResultWriterTest, WhatWasNotWrittenIsNotRead) {
  const auto writer = create();
  store_test::write_element(*writer, 3);
  T_RALU_D record = sample_record(9, 1, 0);
  EXPECT_FALSE(writer->read(3, 2, 0, record));
  EXPECT_FALSE(writer->read(4, 1, 0, record));
  EXPECT_THAT(record, SameBits(sample_record(9, 1, 0)));
}

TEST_F(ResultWriterTest, FlushedRecordsCanBeReadWhileTheRunGoesOn) {
  const auto writer = create();
  store_test::write_element(*writer, 1);
  writer->flush();
  const auto reader = open_partial();
  EXPECT_TRUE(reader->read(1, 7, 0));
  store_test::write_element(*writer, 2);
  writer->flush();
  EXPECT_TRUE(reader->read(2, 7, 0));
  EXPECT_EQ(reader->state(), RunState::running);
}

TEST_F(ResultWriterTest, AnElementThatIsFlushedHalfWrittenIsCompletedLater) {
  const auto writer = create();
  writer->write(3, sample_record(3, 1, 0), 1, 0);
  writer->flush();
  EXPECT_EQ(open_partial()->read_all(3).size(), 1U);
  writer->write(3, sample_record(3, 7, 0), 7, 0);
  writer->write(3, store_test::sample_governing(3), 0, 0);
  writer->finish(RunState::complete);
  EXPECT_EQ(open()->read_all(3).size(), 3U);
  EXPECT_THAT(open()->elements(), ElementsAre(3));
}

TEST_F(ResultWriterTest, AnElementWithoutAGoverningRecordIsKept) {
  const auto writer = create();
  writer->write(3, sample_record(3, 1, 0), 1, 0);
  writer->write(4, sample_record(4, 1, 0), 1, 0);
  writer->finish(RunState::failed);
  EXPECT_EQ(open_partial()->read_all(3).size(), 1U);
  EXPECT_EQ(open_partial()->read_all(4).size(), 1U);
  EXPECT_TRUE(open_partial()->governing().empty());
}

TEST_F(ResultWriterTest, AnElementThatComesAgainReplacesItsEarlierRecords) {
  const auto writer = create();
  store_test::write_element(*writer, 3);
  store_test::write_element(*writer, 4);
  writer->write(3, T_RALU_D(), 0, 0);
  writer->finish(RunState::complete);
  EXPECT_EQ(open()->read_all(3).size(), 1U);
  EXPECT_THAT(open()->elements(), ElementsAre(4, 3));
  EXPECT_EQ(open()->governing().size(), 2U);
}

TEST_F(ResultWriterTest, CountsRecordsAndPackedBytes) {
  const auto writer = create();
  store_test::write_element(*writer, 1);
  store_test::write_element(*writer, 2);
  const std::uint64_t bytes = writer->packed_bytes();
  EXPECT_EQ(writer->record_count(), 8U);
  writer->finish(RunState::complete);
  SQLite::Database database(file.string());
  EXPECT_EQ(database.execAndGet("SELECT sum(length(data)) FROM record").getInt64(),
            static_cast<std::int64_t>(bytes));
}

TEST_F(ResultWriterTest, ARecordThatCannotBeStoredIsRefusedAndTheRunGoesOn) {
  const auto writer = create();
  EXPECT_THROW(writer->write(3, T_RALU_D(), 1U << 27, 0), std::invalid_argument);
  store_test::write_element(*writer, 3);
  writer->finish(RunState::complete);
  EXPECT_EQ(open()->read_all(3).size(), 4U);
}

TEST_F(ResultWriterTest, TwoRunsWithTheSameRecordsMakeTheSameTablesAndTheSameFile) {
  const std::filesystem::path second = folder.path() / "second.aluresult";
  store_test::write_run(file, 1500);
  store_test::write_run(second, 1500);
  EXPECT_EQ(store_test::all_tables(file), store_test::all_tables(second));
  EXPECT_TRUE(store_test::bytes_of(file) == store_test::bytes_of(second));
}

TEST_F(ResultWriterTest, ASecondRunReplacesTheFirst) {
  store_test::write_run(file, 5, "first");
  store_test::write_run(file, 2, "second");
  EXPECT_EQ(open()->info().model_title, "second");
  EXPECT_THAT(open()->elements(), ElementsAre(1, 2));
}

TEST_F(ResultWriterTest, OnlyTheResultFileIsLeftInItsFolder) {
  store_test::write_run(file, 5);
  EXPECT_THAT(folder.names(), ElementsAre("frame.aluresult"));
}

class GoverningTableTest : public ResultWriterTest {
 protected:
  /// Writes one element whose strength check at position 1 is as given.
  void write_check(double demand, double capacity) {
    T_RALU_D record;
    record.nHasResult = 1;
    record.aSect[1].aItem[RALU_STRENGTH] = {demand, capacity, 0.0};
    record.SetLCombKey(7, 1);
    record.MakeCompItem();
    expected = record.aComp[RALU_STRENGTH];
    const auto writer = create();
    writer->write(3, record, 7, 1);
    writer->write(3, record, 0, 0);
    writer->finish(RunState::complete);
  }

  std::string column(const std::string& name) {
    SQLite::Database database(file.string());
    SQLite::Statement select(database, "SELECT " + name + " FROM governing WHERE element = 3");
    if (!select.executeStep()) return "no row";
    return select.getColumn(0).isNull() ? "NULL" : select.getColumn(0).getString();
  }

  T_RALU_ITEM expected;
};

TEST_F(GoverningTableTest, HasTheGoverningCheckInPlainColumns) {
  write_check(50.0, 200.0);
  EXPECT_EQ(column("item_name"), "strength");
  EXPECT_EQ(column("position"), "1");
  EXPECT_EQ(column("demand"), "50.0");
  EXPECT_EQ(column("capacity"), "200.0");
  EXPECT_EQ(column("ratio"), "0.25");
  EXPECT_EQ(column("combination"), "7");
  EXPECT_EQ(column("min_side"), "1");
  EXPECT_EQ(column("not_finite"), "NULL");
}

TEST_F(GoverningTableTest, AnItemWithoutResultHasNoRow) {
  write_check(50.0, 200.0);
  EXPECT_EQ(column("count(*)"), "1");
}

TEST_F(GoverningTableTest, NegativeZeroReadsBackBitForBit) {
  write_check(-0.0, 200.0);
  EXPECT_THAT(open()->governing().at(0).governing, SameBits(expected));
}

TEST_F(GoverningTableTest, AnInfiniteDemandIsNamedAndComparesAsInfinite) {
  write_check(std::numeric_limits<double>::infinity(), 200.0);
  EXPECT_EQ(column("not_finite"), "demand inf, ratio inf");
  EXPECT_EQ(column("ratio > 1"), "1");
  EXPECT_THAT(open()->governing().at(0).governing, SameBits(expected));
}

TEST_F(GoverningTableTest, ANaNIsNamedAndReadsBackBitForBit) {
  write_check(std::bit_cast<double>(std::uint64_t{0xFFF800000000BEEF}), 200.0);
  EXPECT_EQ(column("demand"), "NULL");
  EXPECT_EQ(column("not_finite"), "demand nan, ratio nan");
  EXPECT_THAT(open()->governing().at(0).governing, SameBits(expected));
}

TEST_F(GoverningTableTest, RowsComeInTheOrderOfTheElementsThenOfTheItems) {
  const auto writer = create();
  store_test::write_element(*writer, 9);
  store_test::write_element(*writer, 2);
  writer->finish(RunState::complete);
  std::vector<std::pair<std::uint32_t, int>> keys;
  for (const GoverningRow& row : open()->governing()) keys.emplace_back(row.element, row.item);
  EXPECT_THAT(keys,
              ElementsAre(testing::Pair(9, RALU_STRENGTH), testing::Pair(9, RALU_SLENDERNESS_Z),
                          testing::Pair(2, RALU_STRENGTH), testing::Pair(2, RALU_SLENDERNESS_Z)));
}

TEST_F(GoverningTableTest, RowsTellTheMemberType) {
  store_test::write_run(file, 1);
  EXPECT_EQ(open()->governing().at(0).member_type, 2);
}

}  // namespace
}  // namespace aluframe::store
