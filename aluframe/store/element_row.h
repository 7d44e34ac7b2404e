#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <optional>
#include <span>
#include <vector>

#include "aluframe/store/record_packing.h"
#include "aluframe/store/result_file.h"

namespace aluframe::store {

/// All records of one element, packed as one row of the table `record`, and what goes into the
/// plain columns beside it.
struct ElementRow {
  std::uint32_t element = 0;
  int member_type = 0;  ///< of the element's first record
  std::uint32_t records = 0;
  std::vector<std::byte> data;
  std::optional<std::array<T_RALU_ITEM, kResultItems>> governing;
};

/// The key of a record to be stored. @throws std::invalid_argument for a combination number of 2^27
/// or more or a side other than 0 and 1, which a packed row has no room for
RecordKey storable_key(std::uint32_t combination, int min_side);

/// Where a record stands in a row.
struct RecordEntry {
  RecordKey key;
  std::size_t end = 0;  ///< of its bytes; they begin where those of the record before end
};

/// Packs the records of one element as they come.
class ElementPacker {
 public:
  ElementPacker(std::uint32_t element, int member_type)
      : element_(element), member_type_(member_type) {}

  /// `key` is storable; combination 0 is the governing record.
  void add(const T_RALU_D& record, const RecordKey& key);
  /// The row of all records so far.
  ElementRow row() const;

  std::uint32_t element() const { return element_; }
  /// Bytes of the row so far.
  std::size_t size() const;

 private:
  std::uint32_t element_;
  int member_type_;
  std::vector<RecordEntry> entries_;
  std::vector<std::byte> packed_;
  std::optional<std::array<T_RALU_ITEM, kResultItems>> governing_;
};

/// Reads single records out of a packed row without unpacking the others.
class ElementRowView {
 public:
  /// `data` must outlive the view. @throws DamagedRow when it is no packed row
  explicit ElementRowView(std::span<const std::byte> data);

  /// Among several records under one key the last. @throws DamagedRow
  std::optional<T_RALU_D> find(const RecordKey& key) const;
  /// All records in the order packed. @throws DamagedRow
  std::vector<StoredRecord> all() const;

 private:
  RecordEntry entry(std::size_t i) const;
  T_RALU_D unpack(std::size_t i) const;

  int member_type_ = 0;
  std::size_t count_ = 0;
  std::span<const std::byte> directory_;
  std::span<const std::byte> packed_;
};

}  // namespace aluframe::store
