#pragma once

#include <SQLiteCpp/SQLiteCpp.h>

#include <cstddef>
#include <cstdint>
#include <filesystem>
#include <optional>
#include <unordered_set>

#include "aluframe/store/element_row.h"
#include "aluframe/store/result_file.h"
#include "aluframe/store/row_query.h"

namespace aluframe::store {

/// A transaction ends when it has as many rows or bytes. A killed run loses at most what one holds.
inline constexpr std::size_t rows_per_transaction = 256;
inline constexpr std::size_t bytes_per_transaction = 4U << 20;

/// Writes rows into a laid-out result file, in transactions that end after a number of rows and
/// bytes, never after a time, so that a second run with the same rows makes the same file.
/// Not thread-safe.
class RowWriter {
 public:
  explicit RowWriter(const std::filesystem::path& path);
  /// Takes back what was not committed.
  ~RowWriter();
  RowWriter(const RowWriter&) = delete;
  RowWriter& operator=(const RowWriter&) = delete;

  /// Adds an element's rows in one transaction; an element that comes again replaces its earlier
  /// rows and moves to the end of the order.
  /// @param row null: it has no records
  /// @param notes nothing: the run is not through with it
  void add(const ElementRow* row, const std::optional<ElementNotes>& notes);
  void add(const RemarkRow& row);
  void add(const BucklingRow& row);
  void add(const DisplacementRow& row);
  void commit();
  /// Commits everything, waits until the disk has it, then notes the state: a run that a power
  /// failure caught is never taken for a complete one. Nothing may be added afterwards.
  void finish(RunState state);
  /// After an error: takes back what was not committed and notes that the run failed.
  void abandon();

  /// A record added before, committed or not.
  std::optional<T_RALU_D> find(std::uint32_t element, const RecordKey& key);

 private:
  /// What the file holds from an earlier writer.
  void note_elements();
  void begin();
  void end_transaction();
  void roll_back();
  void count(std::size_t bytes);
  void remove(std::uint32_t element);
  void add_records(const ElementRow& row);
  void add_notes(const ElementRow* row, const ElementNotes& notes);
  void add_not_checked(const NotChecked& item);
  void add_safe(const SafeRow& row);
  void add_unchecked(std::uint32_t element, int sequence, const UncheckedRow& row);
  void add_governing(std::uint32_t element, int item, const T_RALU_ITEM& governing);
  void bind_largest(const std::optional<LargestForce>& largest);

  SQLite::Database database_;
  SQLite::Statement insert_element_;
  SQLite::Statement insert_record_;
  SQLite::Statement insert_governing_;
  SQLite::Statement insert_not_checked_;
  SQLite::Statement insert_safe_;
  SQLite::Statement insert_unchecked_;
  SQLite::Statement insert_assertion_;
  SQLite::Statement insert_finished_;
  SQLite::Statement insert_remark_;
  SQLite::Statement insert_buckling_;
  SQLite::Statement insert_displacement_;
  RowQuery records_;
  std::unordered_set<std::uint32_t> elements_;
  std::int64_t sequence_ = 0;
  std::int64_t finished_ = 0;
  std::size_t open_rows_ = 0;
  std::size_t open_bytes_ = 0;
  bool in_transaction_ = false;
};

}  // namespace aluframe::store
