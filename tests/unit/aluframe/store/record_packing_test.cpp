#include "aluframe/store/record_packing.h"

#include <gtest/gtest.h>

#include <bit>
#include <limits>

#include "aluframe/store/bytes.h"
#include "tests/unit/aluframe/store/store_samples.h"

namespace aluframe::store {
namespace {

using store_test::SameBits;

constexpr int member_type = 2;

std::vector<std::byte> packed(const T_RALU_D& record, const RecordKey& key) {
  std::vector<std::byte> bytes;
  pack_record(record, key, member_type, bytes);
  return bytes;
}

T_RALU_D there_and_back(const T_RALU_D& record, const RecordKey& key) {
  return unpack_record(packed(record, key), key, member_type);
}

/// A record of combination 3 with nothing in it.
T_RALU_D empty_record() {
  T_RALU_D record;
  record.nHasResult = 1;
  record.nMembType = member_type;
  record.SetLCombKey(3, 0);
  return record;
}

constexpr RecordKey key{3, 0};

std::vector<std::byte> bytes(std::initializer_list<int> values) {
  std::vector<std::byte> made;
  for (const int value : values) made.push_back(static_cast<std::byte>(value));
  return made;
}

TEST(RecordPacking, ARecordWithoutResultsTakesOneByte) {
  EXPECT_EQ(packed(empty_record(), key), bytes({0x00}));
}

// By hand from the layout: kind with position 2, mask with bits 3 and 4 (item 1: demand, capacity),
// then 1.0 = 0x3FF0000000000000 and 2.0 = 0x4000000000000000, low byte first.
TEST(RecordPacking, OneCheckIsPackedAsMaskDemandAndCapacity) {
  T_RALU_D record = empty_record();
  record.aSect[2].aItem[RALU_SHEAR_Y] = {1.0, 2.0, 0.0};
  EXPECT_EQ(packed(record, key), bytes({0x04, 0x18, 0x00, 0x00,                          //
                                        0x00, 0x00, 0x00, 0x00, 0x00, 0x00, 0xF0, 0x3F,  //
                                        0x00, 0x00, 0x00, 0x00, 0x00, 0x00, 0x00, 0x40}));
}

// As above, and at position 4 only the demand, 2.0: the capacity is that of position 2.
TEST(RecordPacking, AValueThatDoesNotChangeAlongTheElementIsPackedOnce) {
  T_RALU_D record = empty_record();
  record.aSect[2].aItem[RALU_SHEAR_Y] = {1.0, 2.0, 0.0};
  record.aSect[4].aItem[RALU_SHEAR_Y] = {2.0, 2.0, 0.0};
  EXPECT_EQ(packed(record, key), bytes({0x14, 0x18, 0x00, 0x00,                          //
                                        0x00, 0x00, 0x00, 0x00, 0x00, 0x00, 0xF0, 0x3F,  //
                                        0x00, 0x00, 0x00, 0x00, 0x00, 0x00, 0x00, 0x40,  //
                                        0x08, 0x00, 0x00,                                //
                                        0x00, 0x00, 0x00, 0x00, 0x00, 0x00, 0x00, 0x40}));
}

TEST(RecordPacking, ARecordOfTheModuleComesBackWithItsGoverningItems) {
  const T_RALU_D record = store_test::sample_record(4, 7, 1);
  const T_RALU_D back = there_and_back(record, {7, 1});
  EXPECT_THAT(back, SameBits(record));
  // 400 + 7 + 10, and 4 more at the last position.
  EXPECT_EQ(back.aComp[RALU_STRENGTH].dDemand, 421.0);
  EXPECT_EQ(back.aComp[RALU_STRENGTH].nPos, 4);
}

TEST(RecordPacking, TheGoverningRecordKeepsTheCombinationOfEveryItem) {
  const T_RALU_D governing = store_test::sample_governing(4);
  const T_RALU_D back = there_and_back(governing, {0, 0});
  EXPECT_THAT(back, SameBits(governing));
  EXPECT_EQ(back.aComp[RALU_STRENGTH].nLComb, 7U);
  EXPECT_EQ(back.aComp[RALU_SLENDERNESS_Z].nLComb, 1U);
}

TEST(RecordPacking, NegativeZeroSurvives) {
  T_RALU_D record = empty_record();
  record.aSect[1].aItem[RALU_STRENGTH].dDemand = -0.0;
  EXPECT_THAT(there_and_back(record, key), SameBits(record));
}

TEST(RecordPacking, ThePayloadOfANaNSurvives) {
  T_RALU_D record = empty_record();
  record.aSect[0].aItem[RALU_STABILITY].dDemand =
      std::bit_cast<double>(std::uint64_t{0xFFF800000000BEEF});
  record.MakeCompItem();
  EXPECT_THAT(there_and_back(record, key), SameBits(record));
}

TEST(RecordPacking, InfinityAndTheSmallestNumberSurvive) {
  T_RALU_D record = empty_record();
  record.aSect[0].aItem[RALU_SHEAR_Z] = {-std::numeric_limits<double>::infinity(),
                                         std::numeric_limits<double>::denorm_min(), 0.0};
  record.MakeCompItem();
  EXPECT_THAT(there_and_back(record, key), SameBits(record));
}

TEST(RecordPacking, TheReserveSurvivesInAnItemWithoutDemand) {
  T_RALU_D record = empty_record();
  record.aSect[3].aItem[RALU_UNUSED].dReserve = 12.5;
  EXPECT_THAT(there_and_back(record, key), SameBits(record));
}

TEST(RecordPacking, AnEmptyItemBehindAFilledOneStaysEmpty) {
  T_RALU_D record = empty_record();
  record.aSect[0].aItem[RALU_STRENGTH] = {5.0, 6.0, 7.0};
  record.aSect[1].aItem[RALU_SHEAR_Y] = {8.0, 9.0, 0.0};
  record.MakeCompItem();
  EXPECT_THAT(there_and_back(record, key), SameBits(record));
}

TEST(RecordPacking, AHeadThatItsKeyDoesNotTellIsKept) {
  T_RALU_D record = empty_record();
  record.nHasResult = 0;
  record.nMembType = 5;
  record.SetLCombKey(9, 1);
  EXPECT_THAT(there_and_back(record, key), SameBits(record));
}

TEST(RecordPacking, BytesThatEndTooEarlyAreDamage) {
  std::vector<std::byte> cut = packed(store_test::sample_governing(1), {0, 0});
  while (!cut.empty()) {
    cut.pop_back();
    EXPECT_THROW(unpack_record(cut, {0, 0}, member_type), DamagedRow) << cut.size() << " bytes";
  }
}

TEST(RecordPacking, BytesBehindTheRecordAreDamage) {
  EXPECT_THROW(unpack_record(bytes({0x00, 0x00}), key, member_type), DamagedRow);
}

TEST(RecordPacking, AnUnknownKindOfRecordIsDamage) {
  EXPECT_THROW(unpack_record(bytes({0x80}), key, member_type), DamagedRow);
}

}  // namespace
}  // namespace aluframe::store
