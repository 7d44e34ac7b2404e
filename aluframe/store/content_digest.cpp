#include "aluframe/store/content_digest.h"

#include <sqlite3.h>

#include <array>
#include <cstdint>

#include "aluframe/store/digest.h"

namespace aluframe::store {

namespace {

/// Every table, in an order of its rows that does not depend on how they lie in the file.
constexpr std::array all_rows = {
    table_definitions,
    "SELECT * FROM run",
    "SELECT * FROM setting ORDER BY sequence",
    "SELECT * FROM combination ORDER BY sequence",
    "SELECT * FROM envelope_state ORDER BY sequence",
    "SELECT * FROM element ORDER BY number",
    "SELECT * FROM governing ORDER BY element, item",
    "SELECT * FROM not_checked ORDER BY sequence",
    "SELECT * FROM safe ORDER BY element",
    "SELECT * FROM unchecked ORDER BY element, sequence",
    "SELECT * FROM assertion ORDER BY element, place",
    "SELECT * FROM finished ORDER BY element",
    "SELECT * FROM remark ORDER BY sequence",
    "SELECT * FROM buckling ORDER BY combination",
    "SELECT * FROM displacement ORDER BY sequence",
    "SELECT * FROM record ORDER BY element",
};

/// A value with its type and, where that says not how long it is, its length.
void add(Digest& digest, const SQLite::Column& value) {
  const int type = value.getType();
  digest.add(static_cast<std::int32_t>(type));
  if (type == SQLITE_INTEGER) {
    digest.add(value.getInt64());
  } else if (type == SQLITE_FLOAT) {
    digest.add(value.getDouble());
  } else {
    const void* const bytes = value.getBlob();
    const int count = value.getBytes();
    digest.add(count);
    digest.add(bytes, static_cast<std::size_t>(count));
  }
}

}  // namespace

std::string digest_of_rows(SQLite::Database& database, std::span<const char* const> queries) {
  Digest digest;
  for (const char* rows : queries) {
    SQLite::Statement select(database, rows);
    std::int64_t count = 0;
    for (; select.executeStep(); ++count) {
      for (int i = 0; i < select.getColumnCount(); ++i) add(digest, select.getColumn(i));
    }
    digest.add(count);
  }
  return digest.text();
}

std::string content_digest(SQLite::Database& database) {
  return digest_of_rows(database, all_rows);
}

}  // namespace aluframe::store
