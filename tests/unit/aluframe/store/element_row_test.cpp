#include "aluframe/store/element_row.h"

#include <gtest/gtest.h>

#include "aluframe/store/bytes.h"
#include "tests/unit/aluframe/store/store_samples.h"

namespace aluframe::store {
namespace {

using store_test::SameBits;
using store_test::sample_record;

ElementRow sample_row() {
  ElementPacker packer(12, 2);
  packer.add(sample_record(12, 1, 0), {1, 0});
  packer.add(sample_record(12, 7, 1), {7, 1});
  packer.add(store_test::sample_governing(12), {0, 0});
  return packer.row();
}

TEST(ElementRow, FindsARecordByCombinationAndSide) {
  const ElementRow row = sample_row();
  const auto found = ElementRowView(row.data).find({7, 1});
  ASSERT_TRUE(found);
  EXPECT_THAT(*found, SameBits(sample_record(12, 7, 1)));
}

TEST(ElementRow, TheOtherSideOfACombinationIsAnotherRecord) {
  const ElementRow row = sample_row();
  EXPECT_FALSE(ElementRowView(row.data).find({7, 0}));
}

TEST(ElementRow, GivesAllRecordsInTheOrderPacked) {
  const ElementRow row = sample_row();
  const std::vector<StoredRecord> all = ElementRowView(row.data).all();
  ASSERT_EQ(all.size(), 3U);
  EXPECT_THAT(all[0].record, SameBits(sample_record(12, 1, 0)));
  EXPECT_THAT(all[1].record, SameBits(sample_record(12, 7, 1)));
  EXPECT_THAT(all[2].record, SameBits(store_test::sample_governing(12)));
}

TEST(ElementRow, OfTwoRecordsUnderOneKeyTheLastIsFound) {
  ElementPacker packer(12, 2);
  packer.add(sample_record(12, 1, 0), {1, 0});
  packer.add(sample_record(13, 1, 0), {1, 0});
  const ElementRow row = packer.row();
  EXPECT_THAT(*ElementRowView(row.data).find({1, 0}), SameBits(sample_record(13, 1, 0)));
}

TEST(ElementRow, SizeIsThatOfTheRow) {
  ElementPacker packer(12, 2);
  packer.add(sample_record(12, 1, 0), {1, 0});
  EXPECT_EQ(packer.size(), packer.row().data.size());
}

// By hand from the layout: member type 2, two records; combination 5 on its maximum and, with bit
// 27, on its minimum side, each one byte long.
TEST(ElementRow, BeginsWithMemberTypeCountAndDirectory) {
  T_RALU_D record;
  record.nHasResult = 1;
  record.nMembType = 2;
  ElementPacker packer(12, 2);
  record.SetLCombKey(5, 0);
  packer.add(record, {5, 0});
  record.SetLCombKey(5, 1);
  packer.add(record, {5, 1});
  std::vector<std::byte> expected;
  for (const int byte : {2, 0, 0, 0, 2, 0, 0, 0,  //
                         5, 0, 0, 0, 1, 0, 0, 0,  //
                         5, 0, 0, 8, 2, 0, 0, 0,  //
                         0, 0}) {
    expected.push_back(static_cast<std::byte>(byte));
  }
  EXPECT_EQ(packer.row().data, expected);
}

TEST(ElementRow, ACutRowIsDamageAndNeverReadBeyondItsEnd) {
  std::vector<std::byte> data = sample_row().data;
  while (!data.empty()) {
    data.pop_back();
    // A vector of its own, so that a sanitizer sees any access behind it.
    const std::vector<std::byte> cut(data.begin(), data.end());
    EXPECT_THROW(ElementRowView(cut).all(), DamagedRow) << cut.size() << " bytes";
  }
}

TEST(ElementRow, ARecordThatEndsBeforeItBeginsIsDamage) {
  std::vector<std::byte> data = sample_row().data;
  data[8 + 8 + 4] = std::byte{0};  // the second record's end, which then lies before its start
  data[8 + 8 + 5] = std::byte{0};
  EXPECT_THROW(ElementRowView(data).all(), DamagedRow);
}

TEST(ElementRow, TheLargestCombinationNumberIsStorable) {
  EXPECT_EQ(storable_key(134217727, 1), (RecordKey{134217727, 1}));
}

TEST(ElementRow, ACombinationNumberBeyond27BitsIsRefused) {
  EXPECT_THROW(storable_key(134217728, 0), std::invalid_argument);
}

TEST(ElementRow, ASideOtherThanZeroAndOneIsRefused) {
  EXPECT_THROW(storable_key(1, 2), std::invalid_argument);
  EXPECT_THROW(storable_key(1, -1), std::invalid_argument);
}

}  // namespace
}  // namespace aluframe::store
