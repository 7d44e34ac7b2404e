#pragma once

#include <cstddef>
#include <cstdint>
#include <span>
#include <vector>

#include "host/tz_db/ralu.h"

namespace aluframe::store {

/// What a record is stored under: combination number (0: the governing record) and side.
struct RecordKey {
  std::uint32_t combination = 0;
  int min_side = 0;

  friend bool operator==(const RecordKey&, const RecordKey&) = default;
};

/// Appends a record to `out` in the layout of docs/result-file.md ("Record").
///
/// Only what the reader cannot derive is written: positions that hold something, of these the
/// values that differ from the position before (strengths and slendernesses hardly change along an
/// element), the head if it is not what `key` and `member_type` say, and the governing items of
/// the governing record: those of a combination are what `MakeCompItem` makes of it. Values are
/// compared and kept by bit pattern, so that -0.0, the payload of a NaN and `dReserve` survive.
void pack_record(const T_RALU_D& record, const RecordKey& key, int member_type,
                 std::vector<std::byte>& out);

/// The record that `pack_record` packed with the same key and member type, bit for bit.
/// @throws DamagedRow when `bytes` are not exactly one record
T_RALU_D unpack_record(std::span<const std::byte> bytes, const RecordKey& key, int member_type);

}  // namespace aluframe::store
