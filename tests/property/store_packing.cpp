#include <gtest/gtest.h>
#include <rapidcheck/gtest.h>

#include <bit>
#include <limits>

#include "aluframe/store/bytes.h"
#include "aluframe/store/element_row.h"
#include "tests/unit/aluframe/store/store_samples.h"

namespace aluframe::store {
namespace {

/// Any bit pattern, and often those that are lost first: zeros of both signs, NaN, infinity.
rc::Gen<double> any_double() {
  return rc::gen::oneOf(
      rc::gen::map(rc::gen::arbitrary<std::uint64_t>(),
                   [](std::uint64_t bits) { return std::bit_cast<double>(bits); }),
      rc::gen::element(0.0, -0.0, 1.0, 215.0, std::numeric_limits<double>::quiet_NaN(),
                       std::numeric_limits<double>::infinity()));
}

rc::Gen<T_RALU_SECT> any_position() {
  return rc::gen::exec([] {
    T_RALU_SECT position;
    for (T_RALU_RLT& item : position.aItem) {
      if (*rc::gen::inRange(0, 3) == 0) continue;
      item = {*any_double(), *any_double(),
              *rc::gen::weightedElement<double>({{4, 0.0}, {1, 2.5}})};
    }
    return position;
  });
}

/// A record as a check makes it; positions may be empty.
T_RALU_D any_record(const RecordKey& key) {
  T_RALU_D record;
  record.nHasResult = *rc::gen::inRange(0, 2);
  record.nMembType = *rc::gen::element(0, 1, 2, 3, 5);
  record.SetLCombKey(key.combination, key.min_side);
  for (T_RALU_SECT& position : record.aSect) {
    if (*rc::gen::inRange(0, 4) != 0) position = *any_position();
  }
  record.MakeCompItem();
  return record;
}

RecordKey any_key() {
  return {*rc::gen::inRange<std::uint32_t>(0, 1U << 27), *rc::gen::inRange(0, 2)};
}

RC_GTEST_PROP(StorePacking, AnyRecordComesBackBitForBit, ()) {
  const RecordKey key = any_key();
  const T_RALU_D record = any_record(key);
  std::vector<std::byte> packed;
  pack_record(record, key, 2, packed);
  RC_ASSERT(store_test::same_bits(unpack_record(packed, key, 2), record));
}

RC_GTEST_PROP(StorePacking, AnyGoverningRecordComesBackBitForBit, ()) {
  T_RALU_D governing = any_record({1, 0});
  governing.GetMaxRlt(any_record({2, 0}));
  governing.GetMaxRlt(any_record({3, 1}));
  std::vector<std::byte> packed;
  pack_record(governing, {0, 0}, 2, packed);
  RC_ASSERT(store_test::same_bits(unpack_record(packed, {0, 0}, 2), governing));
}

RC_GTEST_PROP(StorePacking, EveryRecordOfARowIsFoundUnderItsKey, ()) {
  ElementPacker packer(5, 1);
  std::vector<T_RALU_D> records;
  const auto count = *rc::gen::inRange<std::uint32_t>(0, 8);
  for (std::uint32_t combination = 1; combination <= count; ++combination) {
    records.push_back(any_record({combination, 1}));
    packer.add(records.back(), {combination, 1});
  }
  const ElementRow row = packer.row();
  const ElementRowView view(row.data);
  for (std::uint32_t combination = 1; combination <= count; ++combination) {
    RC_ASSERT(store_test::same_bits(view.find({combination, 1}).value(), records[combination - 1]));
    RC_ASSERT(!view.find({combination, 0}));
  }
}

RC_GTEST_PROP(StorePacking, AnyBytesEitherReadAsRecordsOrAreDamage,
              (std::vector<std::uint8_t> noise)) {
  ElementPacker packer(5, 1);
  packer.add(any_record({1, 0}), {1, 0});
  packer.add(any_record({0, 0}), {0, 0});
  std::vector<std::byte> data = packer.row().data;
  for (std::size_t i = 0; i < noise.size(); ++i) {
    const auto place = *rc::gen::inRange<std::size_t>(0, data.size());
    data[place] = static_cast<std::byte>(noise[i]);
  }
  try {
    const std::vector<StoredRecord> all = ElementRowView(data).all();
    RC_ASSERT(all.size() * 2 * sizeof(std::uint32_t) < data.size());
  } catch (const DamagedRow&) {
    RC_SUCCEED("damage was seen");
  }
}

}  // namespace
}  // namespace aluframe::store
