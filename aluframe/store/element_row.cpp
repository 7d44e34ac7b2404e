#include "aluframe/store/element_row.h"

#include <stdexcept>
#include <string>

#include "aluframe/store/bytes.h"

namespace aluframe::store {

namespace {

constexpr std::size_t head_bytes = 2 * sizeof(std::uint32_t);
constexpr std::size_t entry_bytes = 2 * sizeof(std::uint32_t);

/// The combination stands in the low 27 bits, the side above it.
constexpr unsigned side_bit = 27;
constexpr std::uint32_t combination_mask = (1U << side_bit) - 1;

}  // namespace

RecordKey storable_key(std::uint32_t combination, int min_side) {
  if (combination > combination_mask) {
    throw std::invalid_argument("combination number " + std::to_string(combination) +
                                " is beyond 2^27 - 1");
  }
  if (min_side != 0 && min_side != 1) {
    throw std::invalid_argument("the side of a combination is 0 or 1, not " +
                                std::to_string(min_side));
  }
  return {combination, min_side};
}

void ElementPacker::add(const T_RALU_D& record, const RecordKey& key) {
  pack_record(record, key, member_type_, packed_);
  entries_.push_back({key, packed_.size()});
  if (key.combination == 0) governing_ = record.aComp;
}

std::size_t ElementPacker::size() const {
  return head_bytes + entries_.size() * entry_bytes + packed_.size();
}

ElementRow ElementPacker::row() const {
  ElementRow row{
      element_, member_type_, static_cast<std::uint32_t>(entries_.size()), {}, governing_};
  row.data.reserve(size());
  row.data.resize(head_bytes + entries_.size() * entry_bytes);
  std::byte* out = put(row.data.data(), static_cast<std::uint32_t>(member_type_));
  out = put(out, row.records);
  for (const RecordEntry& entry : entries_) {
    const auto side = static_cast<std::uint32_t>(entry.key.min_side);
    out = put(out, entry.key.combination | side << side_bit);
    out = put(out, static_cast<std::uint32_t>(entry.end));
  }
  row.data.insert(row.data.end(), packed_.begin(), packed_.end());
  return row;
}

ElementRowView::ElementRowView(std::span<const std::byte> data) {
  ByteReader in(data);
  member_type_ = static_cast<int>(in.get<std::uint32_t>());
  count_ = in.get<std::uint32_t>();
  directory_ = in.take(count_ * entry_bytes);
  packed_ = in.rest();
}

RecordEntry ElementRowView::entry(std::size_t i) const {
  ByteReader in(directory_.subspan(i * entry_bytes, entry_bytes));
  const auto key = in.get<std::uint32_t>();
  const std::size_t end = in.get<std::uint32_t>();
  return {{key & combination_mask, static_cast<int>(key >> side_bit)}, end};
}

T_RALU_D ElementRowView::unpack(std::size_t i) const {
  const RecordEntry found = entry(i);
  const std::size_t begin = i == 0 ? 0 : entry(i - 1).end;
  if (begin > found.end || found.end > packed_.size()) {
    throw DamagedRow("a packed row places a record outside of itself");
  }
  return unpack_record(packed_.subspan(begin, found.end - begin), found.key, member_type_);
}

std::optional<T_RALU_D> ElementRowView::find(const RecordKey& key) const {
  for (std::size_t i = count_; i-- > 0;) {
    if (entry(i).key == key) return unpack(i);
  }
  return std::nullopt;
}

std::vector<StoredRecord> ElementRowView::all() const {
  std::vector<StoredRecord> records;
  records.reserve(count_);
  for (std::size_t i = 0; i < count_; ++i) {
    const RecordKey key = entry(i).key;
    records.push_back({key.combination, key.min_side, unpack(i)});
  }
  return records;
}

}  // namespace aluframe::store
