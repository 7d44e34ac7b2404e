#include "aluframe/store/finished_elements.h"

#include <fmt/format.h>

#include <cmath>
#include <optional>
#include <span>
#include <stdexcept>
#include <string>
#include <utility>

#include "aluframe/store/element_digest.h"
#include "aluframe/store/schema.h"
#include "aluframe/store/stored_rows.h"
#include "aluframe/store/stored_text.h"

namespace aluframe::store {

namespace {

void require(bool is_as_written) {
  if (!is_as_written) throw std::runtime_error("is damaged: it does not hold what its run wrote");
}

/// SQLite has no NaN: NULL stands for it.
bool is_same(const SQLite::Column& column, double value) {
  return std::isnan(value) ? column.isNull() : !column.isNull() && column.getDouble() == value;
}

/// Reads the tables side by side, element by element in the order of the run.
class FinishedReader {
 public:
  explicit FinishedReader(SQLite::Database& database)
      : finished_(database,
                  "SELECT finished.element, finished.sequence, checked_positions, digest, "
                  "element.sequence, member_type, records, data FROM finished "
                  "LEFT JOIN element ON element.number = finished.element "
                  "LEFT JOIN record ON record.element = finished.element "
                  "ORDER BY finished.sequence"),
        not_checked_(database, numbered_not_checked()),
        governing_(database,
                   "SELECT item, item_name, position, demand, capacity, ratio, combination, "
                   "min_side, not_finite FROM governing WHERE element = ? ORDER BY item"),
        safe_(database, fmt::format("{} WHERE safe.element = ?", select_safe)),
        unchecked_(database,
                   fmt::format("{} WHERE element = ? ORDER BY sequence", select_unchecked)),
        assertions_(database,
                    "SELECT place, count FROM assertion WHERE element = ? ORDER BY place") {
    has_not_checked_ = not_checked_.executeStep();
  }

  std::vector<FinishedElement> all() {
    std::vector<FinishedElement> elements;
    while (finished_.executeStep()) {
      require(finished_.getColumn(1).getInt64() == static_cast<std::int64_t>(elements.size()) + 1);
      elements.push_back(next());
    }
    require(!has_not_checked_);
    return elements;
  }

 private:
  static std::string numbered_not_checked() {
    std::string text = select_not_checked;
    text.insert(text.find(" FROM"), ", sequence");
    return text + " ORDER BY sequence";
  }

  FinishedElement next() {
    FinishedElement out;
    ElementNotes& notes = out.notes;
    notes.element = finished_.getColumn(0).getUInt();
    notes.checked_positions = static_cast<std::uint64_t>(finished_.getColumn(2).getInt64());
    take_not_checked(notes);
    take_safe(notes);
    take_unchecked(notes);
    take_assertions(notes);
    const std::optional<ElementRow> row = row_of(notes.element);
    require(finished_.getColumn(3).getInt64() == element_digest(row ? &*row : nullptr, notes));
    if (row) out.governing = row->governing;
    require_governing(out);
    return out;
  }

  std::optional<ElementRow> row_of(std::uint32_t element) {
    const bool is_element = !finished_.isColumnNull(4);
    require(is_element == !finished_.isColumnNull(7));
    if (!is_element) return std::nullopt;
    require(finished_.getColumn(4).getInt64() == ++with_records_);
    ElementRow row{
        element, finished_.getColumn(5).getInt(), finished_.getColumn(6).getUInt(), {}, {}};
    const SQLite::Column data = finished_.getColumn(7);
    const auto* bytes = static_cast<const std::byte*>(data.getBlob());
    row.data.assign(bytes, bytes + data.getBytes());
    const auto governing = ElementRowView(row.data).find(RecordKey());
    if (governing) row.governing = governing->aComp;
    return row;
  }

  void take_not_checked(ElementNotes& notes) {
    while (has_not_checked_ && not_checked_.getColumn(0).getUInt() == notes.element) {
      require(not_checked_.getColumn(8).getInt64() == ++not_checked_rows_);
      notes.not_checked.push_back(not_checked_row(not_checked_));
      has_not_checked_ = not_checked_.executeStep();
    }
  }

  void take_safe(ElementNotes& notes) {
    for_rows_of(notes.element, safe_, [&] {
      notes.safe = safe_row(safe_);
      const auto item = static_cast<std::size_t>(notes.safe->item);
      require(item < item_names.size() && safe_.getColumn(9).getString() == item_names[item]);
    });
  }

  void take_unchecked(ElementNotes& notes) {
    for_rows_of(notes.element, unchecked_,
                [&] { notes.unchecked.push_back(unchecked_row(unchecked_)); });
  }

  void take_assertions(ElementNotes& notes) {
    for_rows_of(notes.element, assertions_, [&] {
      notes.assertions.push_back({stored_line(assertions_.getColumn(0)),
                                  static_cast<std::uint64_t>(assertions_.getColumn(1).getInt64())});
    });
  }

  /// The plain columns of the governing checks are those of the packed record.
  void require_governing(const FinishedElement& element) {
    int item = -1;
    const auto skip_empty = [&] {
      do {
        ++item;
      } while (element.governing && item < kResultItems && governing_of(element, item).nPos < 0);
    };
    skip_empty();
    for_rows_of(element.notes.element, governing_, [&] {
      require(element.governing && governing_.getColumn(0).getInt() == item &&
              item < kResultItems && is_row(governing_of(element, item), item));
      skip_empty();
    });
    require(!element.governing || item == kResultItems);
  }

  static const T_RALU_ITEM& governing_of(const FinishedElement& element, int item) {
    return element.governing->at(static_cast<std::size_t>(item));
  }

  bool is_row(const T_RALU_ITEM& governing, int item) {
    const std::string text = not_finite(governing);
    return governing_.getColumn(1).getString() == item_names.at(static_cast<std::size_t>(item)) &&
           governing_.getColumn(2).getInt() == governing.nPos &&
           is_same(governing_.getColumn(3), governing.dDemand) &&
           is_same(governing_.getColumn(4), governing.dCapacity) &&
           is_same(governing_.getColumn(5), governing.Ratio()) &&
           governing_.getColumn(6).getUInt() == governing.nLComb &&
           governing_.getColumn(7).getInt() == governing.nMinSide &&
           (text.empty() ? governing_.isColumnNull(8)
                         : governing_.getColumn(8).getString() == text);
  }

  template <class Action>
  static void for_rows_of(std::uint32_t element, SQLite::Statement& select, Action action) {
    select.bind(1, element);
    while (select.executeStep()) action();
    select.reset();
  }

  SQLite::Statement finished_;
  SQLite::Statement not_checked_;
  SQLite::Statement governing_;
  SQLite::Statement safe_;
  SQLite::Statement unchecked_;
  SQLite::Statement assertions_;
  bool has_not_checked_ = false;
  std::int64_t not_checked_rows_ = 0;
  std::int64_t with_records_ = 0;
};

}  // namespace

std::vector<FinishedElement> load_finished(SQLite::Database& database) {
  require(database.execAndGet("PRAGMA integrity_check").getString() == "ok");
  return FinishedReader(database).all();
}

void keep_finished(SQLite::Database& database, std::size_t count) {
  SQLite::Transaction transaction(database);
  SQLite::Statement others(database, "DELETE FROM finished WHERE sequence > ?");
  others.bind(1, static_cast<std::int64_t>(count));
  others.exec();
  for (const char* table : tables_of_elements) {
    database.exec(
        fmt::format("DELETE FROM {} WHERE element NOT IN (SELECT element FROM finished)", table));
  }
  database.exec("DELETE FROM element WHERE number NOT IN (SELECT element FROM finished)");
  database.exec("DELETE FROM remark");
  database.exec("DELETE FROM buckling");
  database.exec("DELETE FROM displacement");
  database.exec("DELETE FROM seal");
  database.exec(fmt::format("UPDATE run SET state = '{}'", state_name(RunState::running)));
  transaction.commit();
}

}  // namespace aluframe::store
