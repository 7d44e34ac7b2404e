#include "bench/store_loops.h"

#include <SQLiteCpp/SQLiteCpp.h>
#include <sqlite3.h>

#include <memory>
#include <stdexcept>
#include <string>

#include "aluframe/store/database.h"
#include "aluframe/store/row_writer.h"
#include "aluframe/store/schema.h"

namespace store_bench {

namespace {

void require(bool done, sqlite3* database) {
  if (!done) throw std::runtime_error(sqlite3_errmsg(database));
}

void execute(sqlite3* database, const char* sql) {
  require(sqlite3_exec(database, sql, nullptr, nullptr, nullptr) == SQLITE_OK, database);
}

struct Finalize {
  void operator()(sqlite3_stmt* statement) const { sqlite3_finalize(statement); }
};
using Statement = std::unique_ptr<sqlite3_stmt, Finalize>;

Statement prepare(sqlite3* database, const char* sql) {
  sqlite3_stmt* statement = nullptr;
  require(sqlite3_prepare_v2(database, sql, -1, &statement, nullptr) == SQLITE_OK, database);
  return Statement(statement);
}

void step(const Statement& statement) {
  require(sqlite3_step(statement.get()) == SQLITE_DONE, sqlite3_db_handle(statement.get()));
  sqlite3_reset(statement.get());
}

/// Ends a transaction after as many elements or bytes as the store does.
class Batches {
 public:
  explicit Batches(sqlite3* database) : database_(database) { execute(database_, "BEGIN"); }
  void count_element(std::size_t bytes) {
    bytes_ += bytes;
    ++elements_;
    if (bytes_ < aluframe::store::bytes_per_transaction &&
        elements_ < aluframe::store::rows_per_transaction) {
      return;
    }
    execute(database_, "COMMIT");
    execute(database_, "BEGIN");
    bytes_ = 0;
    elements_ = 0;
  }
  /// Ends the run as the store does: on the disk before it counts as complete.
  void end() {
    execute(database_, "COMMIT");
    execute(database_, "PRAGMA synchronous = FULL");
    execute(database_, "UPDATE run SET state = 'complete'");
  }

 private:
  sqlite3* database_;
  std::size_t bytes_ = 0;
  std::size_t elements_ = 0;
};

void insert_governing(const Statement& insert, const aluframe::store::ElementRow& row) {
  sqlite3_stmt* s = insert.get();
  for (int item = 0; item < kResultItems; ++item) {
    const T_RALU_ITEM& governing = row.governing->at(static_cast<std::size_t>(item));
    if (governing.nPos < 0) continue;
    sqlite3_bind_int64(s, 1, row.element);
    sqlite3_bind_int(s, 2, item);
    sqlite3_bind_text(s, 3, aluframe::store::item_names.at(static_cast<std::size_t>(item)), -1,
                      SQLITE_STATIC);
    sqlite3_bind_int(s, 4, governing.nPos);
    sqlite3_bind_double(s, 5, governing.dDemand);
    sqlite3_bind_double(s, 6, governing.dCapacity);
    sqlite3_bind_double(s, 7, governing.Ratio());
    sqlite3_bind_int64(s, 8, governing.nLComb);
    sqlite3_bind_int(s, 9, governing.nMinSide);
    step(insert);
  }
}

constexpr const char* insert_governing_sql =
    "INSERT INTO governing VALUES (?, ?, ?, ?, ?, ?, ?, ?, ?, NULL)";

SQLite::Database laid_out(const std::filesystem::path& path) {
  SQLite::Database database(path.string(), SQLite::OPEN_READWRITE | SQLite::OPEN_CREATE);
  aluframe::store::lay_out(database, {});
  return database;
}

}  // namespace

void write_packed_rows(const std::filesystem::path& path,
                       const std::vector<aluframe::store::ElementRow>& rows) {
  laid_out(path);
  SQLite::Database opened = aluframe::store::open_for_writing(path);
  sqlite3* database = opened.getHandle();
  const Statement element = prepare(database, "INSERT INTO element VALUES (?, ?, ?, ?)");
  const Statement record = prepare(database, "INSERT INTO record VALUES (?, ?)");
  const Statement governing = prepare(database, insert_governing_sql);
  Batches batches(database);
  sqlite3_int64 sequence = 0;
  for (const aluframe::store::ElementRow& row : rows) {
    sqlite3_bind_int64(element.get(), 1, row.element);
    sqlite3_bind_int64(element.get(), 2, ++sequence);
    sqlite3_bind_int(element.get(), 3, row.member_type);
    sqlite3_bind_int64(element.get(), 4, row.records);
    step(element);
    sqlite3_bind_int64(record.get(), 1, row.element);
    sqlite3_bind_blob64(record.get(), 2, row.data.data(), row.data.size(), SQLITE_STATIC);
    step(record);
    insert_governing(governing, row);
    batches.count_element(row.data.size());
  }
  batches.end();
}

void write_single_rows(const std::filesystem::path& path, const std::vector<PackedRecord>& records,
                       const std::vector<aluframe::store::ElementRow>& rows) {
  SQLite::Database opened(path.string(), SQLite::OPEN_READWRITE | SQLite::OPEN_CREATE);
  opened.exec("PRAGMA journal_mode = WAL");
  opened.exec("PRAGMA synchronous = OFF");
  aluframe::store::lay_out(opened, {});
  sqlite3* database = opened.getHandle();
  execute(database,
          "CREATE TABLE single (element INTEGER NOT NULL, combination INTEGER NOT NULL, "
          "min_side INTEGER NOT NULL, data BLOB NOT NULL, "
          "PRIMARY KEY (element, combination, min_side)) WITHOUT ROWID");
  const Statement single = prepare(database, "INSERT INTO single VALUES (?, ?, ?, ?)");
  const Statement governing = prepare(database, insert_governing_sql);
  Batches batches(database);
  auto row = rows.begin();
  for (const PackedRecord& record : records) {
    sqlite3_bind_int64(single.get(), 1, record.element);
    sqlite3_bind_int64(single.get(), 2, record.key.combination);
    sqlite3_bind_int(single.get(), 3, record.key.min_side);
    sqlite3_bind_blob64(single.get(), 4, record.data.data(), record.data.size(), SQLITE_STATIC);
    step(single);
    if (record.key.combination != 0) continue;
    insert_governing(governing, *row);
    batches.count_element(row++->data.size());
  }
  batches.end();
}

}  // namespace store_bench
