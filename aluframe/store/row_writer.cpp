#include "aluframe/store/row_writer.h"

#include <fmt/format.h>

#include <algorithm>
#include <array>
#include <cmath>
#include <limits>
#include <span>
#include <stdexcept>
#include <string>

#include "aluframe/store/database.h"
#include "aluframe/store/element_digest.h"
#include "aluframe/store/schema.h"

namespace aluframe::store {

namespace {

/// Binds the arguments to the parameters in order, runs the statement and makes it ready again.
template <class... Values>
void run(SQLite::Statement& statement, const Values&... values) {
  int index = 0;
  (statement.bind(++index, values), ...);
  statement.exec();
  statement.reset();
}

template <class Value>
void bind_or_null(SQLite::Statement& statement, int index, const std::optional<Value>& value) {
  if (value) {
    statement.bind(index, *value);
  } else {
    statement.bind(index);
  }
}

}  // namespace

RowWriter::RowWriter(const std::filesystem::path& path)
    : database_(open_for_writing(path)),
      insert_element_(database_, "INSERT INTO element VALUES (?, ?, ?, ?)"),
      insert_record_(database_, "INSERT INTO record VALUES (?, ?)"),
      insert_governing_(database_, "INSERT INTO governing VALUES (?, ?, ?, ?, ?, ?, ?, ?, ?, ?)"),
      insert_not_checked_(database_,
                          "INSERT INTO not_checked VALUES (NULL, ?, ?, ?, ?, ?, ?, ?, ?)"),
      insert_safe_(database_, "INSERT INTO safe VALUES (?, ?, ?, ?, ?, ?, ?, ?, ?, ?)"),
      insert_unchecked_(database_,
                        "INSERT INTO unchecked VALUES (?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?)"),
      insert_assertion_(database_, "INSERT INTO assertion VALUES (?, ?, ?)"),
      insert_finished_(database_, "INSERT INTO finished VALUES (?, ?, ?, ?)"),
      insert_remark_(database_, "INSERT INTO remark VALUES (NULL, ?, ?, ?, ?, ?, ?)"),
      insert_buckling_(database_, "INSERT INTO buckling VALUES (?, ?, ?, ?, ?, ?)"),
      insert_displacement_(
          database_,
          "INSERT INTO displacement VALUES (NULL, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?, "
          "?, ?, ?, ?)"),
      records_(database_) {
  note_elements();
  begin();
}

void RowWriter::note_elements() {
  SQLite::Statement elements(database_, "SELECT number, sequence FROM element");
  while (elements.executeStep()) {
    elements_.insert(elements.getColumn(0).getUInt());
    sequence_ = std::max(sequence_, elements.getColumn(1).getInt64());
  }
  SQLite::Statement finished(database_, "SELECT element, sequence FROM finished");
  while (finished.executeStep()) {
    elements_.insert(finished.getColumn(0).getUInt());
    finished_ = std::max(finished_, finished.getColumn(1).getInt64());
  }
}

RowWriter::~RowWriter() {
  roll_back();
}

void RowWriter::begin() {
  database_.exec("BEGIN IMMEDIATE");
  in_transaction_ = true;
}

void RowWriter::roll_back() {
  if (in_transaction_) database_.tryExec("ROLLBACK");
  in_transaction_ = false;
}

void RowWriter::end_transaction() {
  if (in_transaction_) database_.exec("COMMIT");
  in_transaction_ = false;
  open_rows_ = 0;
  open_bytes_ = 0;
}

void RowWriter::commit() {
  if (open_rows_ == 0) return;
  end_transaction();
  begin();
}

void RowWriter::finish(RunState state) {
  end_transaction();
  database_.exec("PRAGMA synchronous = FULL");
  store_state(database_, state);
}

void RowWriter::abandon() {
  roll_back();
  finish(RunState::failed);
}

void RowWriter::count(std::size_t bytes) {
  ++open_rows_;
  open_bytes_ += bytes;
  if (open_rows_ >= rows_per_transaction || open_bytes_ >= bytes_per_transaction) commit();
}

void RowWriter::remove(std::uint32_t element) {
  for (const char* table : tables_of_elements) {
    SQLite::Statement statement(database_, fmt::format("DELETE FROM {} WHERE element = ?", table));
    run(statement, element);
  }
  SQLite::Statement statement(database_, "DELETE FROM element WHERE number = ?");
  run(statement, element);
}

void RowWriter::add(const ElementRow* row, const std::optional<ElementNotes>& notes) {
  if (row == nullptr && !notes) return;
  const std::uint32_t element = row != nullptr ? row->element : notes->element;
  if (!elements_.insert(element).second) remove(element);
  if (row != nullptr) add_records(*row);
  if (notes) add_notes(row, *notes);
  count(row != nullptr ? row->data.size() : sizeof(ElementNotes));
}

void RowWriter::add_records(const ElementRow& row) {
  if (row.data.size() > static_cast<std::size_t>(std::numeric_limits<int>::max())) {
    throw std::runtime_error("element " + std::to_string(row.element) +
                             " has more records than a row can hold");
  }
  run(insert_element_, row.element, ++sequence_, row.member_type, row.records);
  insert_record_.bind(1, row.element);
  insert_record_.bindNoCopy(2, row.data.data(), static_cast<int>(row.data.size()));
  insert_record_.exec();
  insert_record_.reset();
  if (!row.governing) return;
  int item = 0;
  for (const T_RALU_ITEM& governing : *row.governing) {
    add_governing(row.element, item++, governing);
  }
}

void RowWriter::add_notes(const ElementRow* row, const ElementNotes& notes) {
  for (const NotChecked& item : notes.not_checked) add_not_checked(item);
  if (notes.safe) add_safe(*notes.safe);
  int sequence = 0;
  for (const UncheckedRow& item : notes.unchecked) add_unchecked(notes.element, ++sequence, item);
  for (const AssertionRow& item : notes.assertions) {
    run(insert_assertion_, notes.element, item.place, static_cast<std::int64_t>(item.count));
  }
  run(insert_finished_, notes.element, ++finished_,
      static_cast<std::int64_t>(notes.checked_positions), element_digest(row, notes));
}

void RowWriter::add_governing(std::uint32_t element, int item, const T_RALU_ITEM& governing) {
  if (governing.nPos < 0) return;
  const std::string text = not_finite(governing);
  if (text.empty()) {
    insert_governing_.bind(10);
  } else {
    insert_governing_.bind(10, text);
  }
  run(insert_governing_, element, item, item_names.at(static_cast<std::size_t>(item)),
      governing.nPos, governing.dDemand, governing.dCapacity, governing.Ratio(), governing.nLComb,
      governing.nMinSide);
}

void RowWriter::add_not_checked(const NotChecked& item) {
  if (item.combination) {
    insert_not_checked_.bind(2, *item.combination);
  } else {
    insert_not_checked_.bind(2);
  }
  insert_not_checked_.bind(1, item.element);
  insert_not_checked_.bind(3, item.reason);
  bind_largest(item.largest);
  insert_not_checked_.exec();
  insert_not_checked_.reset();
}

void RowWriter::bind_largest(const std::optional<LargestForce>& largest) {
  if (!largest) {
    for (int column = 4; column <= 8; ++column) insert_not_checked_.bind(column);
    return;
  }
  insert_not_checked_.bind(4, largest->component);
  insert_not_checked_.bind(5, largest->magnitude);
  insert_not_checked_.bind(6, largest->position);
  insert_not_checked_.bind(7, largest->combination);
  insert_not_checked_.bind(8, largest->min_side);
}

void RowWriter::add_safe(const SafeRow& row) {
  bind_or_null(insert_safe_, 9, row.fraction);
  insert_safe_.bind(10, row.from_start);
  // SQLite keeps what is no number as NULL, as it keeps no ratio.
  const double no_ratio = std::numeric_limits<double>::quiet_NaN();
  run(insert_safe_, row.element, row.code.value_or(no_ratio), row.safe,
      item_names.at(static_cast<std::size_t>(row.item)), row.item, row.rules, row.combination,
      row.min_side);
}

void RowWriter::add_unchecked(std::uint32_t element, int sequence, const UncheckedRow& row) {
  bind_or_null(insert_unchecked_, 7, row.at.fraction);
  bind_or_null(insert_unchecked_, 8, row.ratio);
  const bool has_ratio = row.ratio.has_value();
  bind_or_null(insert_unchecked_, 9,
               has_ratio ? std::optional(row.ratio_at.combination) : std::nullopt);
  bind_or_null(insert_unchecked_, 10,
               has_ratio ? std::optional(row.ratio_at.min_side) : std::nullopt);
  bind_or_null(insert_unchecked_, 11, has_ratio ? row.ratio_at.fraction : std::nullopt);
  run(insert_unchecked_, element, sequence, row.kind, row.magnitude, row.at.combination,
      row.at.min_side);
}

void RowWriter::add(const RemarkRow& row) {
  bind_or_null(insert_remark_, 4, row.ratio);
  bind_or_null(insert_remark_, 5, row.element);
  bind_or_null(insert_remark_, 6, row.combination);
  run(insert_remark_, row.kind, row.elements, row.text);
  count(row.text.size());
}

void RowWriter::add(const BucklingRow& row) {
  bind_or_null(insert_buckling_, 3, row.factor);
  insert_buckling_.bind(4, row.shape);
  insert_buckling_.bind(5, row.elements);
  insert_buckling_.bind(6, row.unknown);
  run(insert_buckling_, row.combination, row.name);
  count(row.shape.size());
}

void RowWriter::add(const DisplacementRow& row) {
  SQLite::Statement& insert = insert_displacement_;
  bind_or_null(insert, 2, row.member);
  insert.bind(3, row.elements);
  insert.bind(4, row.name);
  insert.bind(5, row.first_node);
  bind_or_null(insert, 6, row.second_node);
  insert.bind(7, row.is_cantilever ? 1 : 0);
  insert.bind(8, row.direction);
  bind_or_null(insert, 9, row.length);
  bind_or_null(insert, 10, row.value);
  bind_or_null(insert, 11, row.limit);
  bind_or_null(insert, 12, row.combination);
  bind_or_null(insert, 13, row.element);
  bind_or_null(insert, 14, row.from_start);
  bind_or_null(insert, 15, row.absolute);
  run(insert, std::string(name_of(row.kind)));
  count(row.elements.size() + row.name.size());
}

std::optional<T_RALU_D> RowWriter::find(std::uint32_t element, const RecordKey& key) {
  return records_.find(element, key);
}

}  // namespace aluframe::store
