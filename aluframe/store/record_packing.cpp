#include "aluframe/store/record_packing.h"

#include <algorithm>
#include <array>
#include <bit>

#include "aluframe/store/bytes.h"

namespace aluframe::store {

namespace {

/// Demand, capacity and reserve of the eight items of a position, as bit patterns.
using PositionBits = std::array<std::uint64_t, sizeof(T_RALU_SECT) / sizeof(double)>;
static_assert(std::tuple_size_v<PositionBits> == 3 * std::size_t{kResultItems});

constexpr std::uint8_t all_positions = (1U << kCheckPositions) - 1;
constexpr std::uint8_t own_head = 1U << 5;
constexpr std::uint8_t own_items = 1U << 6;

constexpr std::size_t mask_bytes = 3;
constexpr std::size_t head_bytes = 4 * sizeof(std::uint32_t);
constexpr std::size_t item_bytes = 3 * sizeof(std::uint32_t) + 2 * sizeof(double);
constexpr std::size_t max_record_bytes = 1 + head_bytes +
                                         kCheckPositions * (mask_bytes + sizeof(PositionBits)) +
                                         kResultItems * item_bytes;

PositionBits bits_of(const T_RALU_SECT& position) {
  return std::bit_cast<PositionBits>(position);
}

std::uint64_t bits_of(double value) {
  return std::bit_cast<std::uint64_t>(value);
}

bool holds_something(const PositionBits& bits) {
  return std::ranges::any_of(bits, [](std::uint64_t value) { return value != 0; });
}

bool head_follows_from(const T_RALU_D& record, const RecordKey& key, int member_type) {
  return record.nHasResult == 1 && record.nMembType == member_type &&
         record.nLComb == key.combination && record.nMinSide == key.min_side;
}

std::byte* put_int(std::byte* out, int value) {
  return put(out, static_cast<std::uint32_t>(value));
}

std::byte* put_head(std::byte* out, const T_RALU_D& record) {
  out = put_int(out, record.nHasResult);
  out = put_int(out, record.nMembType);
  out = put(out, record.nLComb);
  return put_int(out, record.nMinSide);
}

/// One bit for every value that differs, the first one lowest.
std::uint32_t differences(const PositionBits& bits, const PositionBits& before) {
  std::uint32_t mask = 0;
  for (std::size_t i = bits.size(); i-- > 0;) mask = 2 * mask + (bits[i] != before[i] ? 1 : 0);
  return mask;
}

/// Writes the mask of the values that differ from `before`, and these values.
std::byte* put_position(std::byte* out, const PositionBits& bits, const PositionBits& before) {
  const std::uint32_t mask = differences(bits, before);
  out = put(out, static_cast<std::uint16_t>(mask));
  out = put(out, static_cast<std::uint8_t>(mask >> 16));
  for (std::uint32_t rest = mask; rest != 0; rest &= rest - 1) {
    out = put(out, bits[static_cast<std::size_t>(std::countr_zero(rest))]);
  }
  return out;
}

std::byte* put_item(std::byte* out, const T_RALU_ITEM& item) {
  out = put_int(out, item.nPos);
  out = put(out, bits_of(item.dDemand));
  out = put(out, bits_of(item.dCapacity));
  out = put(out, item.nLComb);
  return put_int(out, item.nMinSide);
}

int get_int(ByteReader& in) {
  return static_cast<int>(in.get<std::uint32_t>());
}

double get_double(ByteReader& in) {
  return std::bit_cast<double>(in.get<std::uint64_t>());
}

void get_head(ByteReader& in, T_RALU_D& record) {
  record.nHasResult = get_int(in);
  record.nMembType = get_int(in);
  record.nLComb = in.get<std::uint32_t>();
  record.nMinSide = get_int(in);
}

/// Turns `bits` from the position before into the position that is read.
void get_position(ByteReader& in, PositionBits& bits) {
  std::uint32_t mask = in.get<std::uint16_t>();
  mask |= static_cast<std::uint32_t>(in.get<std::uint8_t>()) << 16;
  for (; mask != 0; mask &= mask - 1) {
    bits[static_cast<std::size_t>(std::countr_zero(mask))] = in.get<std::uint64_t>();
  }
}

T_RALU_ITEM get_item(ByteReader& in) {
  T_RALU_ITEM item;
  item.nPos = get_int(in);
  item.dDemand = get_double(in);
  item.dCapacity = get_double(in);
  item.nLComb = in.get<std::uint32_t>();
  item.nMinSide = get_int(in);
  return item;
}

}  // namespace

void pack_record(const T_RALU_D& record, const RecordKey& key, int member_type,
                 std::vector<std::byte>& out) {
  std::array<std::byte, max_record_bytes + sizeof(double)> packed;
  std::byte* end = packed.data() + 1;
  std::uint8_t kind = 0;
  if (!head_follows_from(record, key, member_type)) {
    kind |= own_head;
    end = put_head(end, record);
  }
  PositionBits before{};
  for (std::size_t p = 0; p < record.aSect.size(); ++p) {
    const PositionBits bits = bits_of(record.aSect[p]);
    if (!holds_something(bits)) continue;
    kind = static_cast<std::uint8_t>(kind | 1U << p);
    end = put_position(end, bits, before);
    before = bits;
  }
  if (key.combination == 0) {
    kind |= own_items;
    for (const T_RALU_ITEM& item : record.aComp) end = put_item(end, item);
  }
  put(packed.data(), kind);
  out.insert(out.end(), packed.data(), end);
}

T_RALU_D unpack_record(std::span<const std::byte> bytes, const RecordKey& key, int member_type) {
  ByteReader in(bytes);
  const auto kind = in.get<std::uint8_t>();
  if ((kind & ~(all_positions | own_head | own_items)) != 0) {
    throw DamagedRow("a packed record is of an unknown kind");
  }
  T_RALU_D record;
  record.nHasResult = 1;
  record.nMembType = member_type;
  record.SetLCombKey(key.combination, key.min_side);
  if ((kind & own_head) != 0) get_head(in, record);
  PositionBits bits{};
  for (std::size_t p = 0; p < record.aSect.size(); ++p) {
    if ((kind >> p & 1U) == 0) continue;
    get_position(in, bits);
    record.aSect[p] = std::bit_cast<T_RALU_SECT>(bits);
  }
  if ((kind & own_items) != 0) {
    for (T_RALU_ITEM& item : record.aComp) item = get_item(in);
  } else {
    record.MakeCompItem();
  }
  if (!in.rest().empty()) throw DamagedRow("a packed record is longer than its content");
  return record;
}

}  // namespace aluframe::store
