#pragma once

#include <cstdint>
#include <vector>

#include "aluframe/store/element_row.h"
#include "host/tz_db/ralu.h"

namespace store_bench {

/// One record to store and the key it goes under.
struct KeyedRecord {
  aluframe::store::RecordKey key;
  T_RALU_D record;
};

inline constexpr std::uint32_t elements = 2000;
inline constexpr std::uint32_t combinations = 50;  ///< and the governing record

/// Records of an element as a check of a frame fills them: five positions, six items. Demands
/// differ everywhere, strengths along neither element nor combinations, slendernesses not along the
/// element. The governing record comes last.
std::vector<KeyedRecord> records_of(std::uint32_t element);

/// The same, packed as one row.
aluframe::store::ElementRow row_of(std::uint32_t element);

}  // namespace store_bench
