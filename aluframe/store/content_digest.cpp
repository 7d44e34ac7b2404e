#include "aluframe/store/content_digest.h"

#include <fmt/format.h>
#include <sqlite3.h>

// The library's own definitions, compiled into this file.
#define XXH_INLINE_ALL
#include <xxhash.h>

#include <cstdint>
#include <memory>
#include <stdexcept>
#include <string_view>

namespace aluframe::store {

namespace {

/// How the tables are defined, and every table, in an order of its rows that does not depend on how
/// they lie in the file.
constexpr const char* all_rows[] = {
    "SELECT name, sql FROM sqlite_master WHERE type = 'table' AND name NOT LIKE 'sqlite%' "
    "ORDER BY name",
    "SELECT * FROM run",
    "SELECT * FROM setting ORDER BY sequence",
    "SELECT * FROM combination ORDER BY sequence",
    "SELECT * FROM envelope_state ORDER BY sequence",
    "SELECT * FROM element ORDER BY number",
    "SELECT * FROM governing ORDER BY element, item",
    "SELECT * FROM not_checked ORDER BY sequence",
    "SELECT * FROM safe ORDER BY element",
    "SELECT * FROM remark ORDER BY sequence",
    "SELECT * FROM record ORDER BY element",
};

class Digest {
 public:
  Digest() : state_(XXH3_createState()) {
    if (state_ == nullptr) throw std::bad_alloc();
    XXH3_128bits_reset(state_.get());
  }
  void add(const void* bytes, std::size_t count) {
    if (count > 0) XXH3_128bits_update(state_.get(), bytes, count);
  }
  template <class Number>
  void add(Number number) {
    add(&number, sizeof number);
  }
  std::string text() const {
    const XXH128_hash_t hash = XXH3_128bits_digest(state_.get());
    return fmt::format("{:016x}{:016x}", hash.high64, hash.low64);
  }

 private:
  struct Free {
    void operator()(XXH3_state_t* state) const { XXH3_freeState(state); }
  };
  std::unique_ptr<XXH3_state_t, Free> state_;
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

std::string content_digest(SQLite::Database& database) {
  Digest digest;
  for (const char* rows : all_rows) {
    SQLite::Statement select(database, rows);
    std::int64_t count = 0;
    for (; select.executeStep(); ++count) {
      for (int i = 0; i < select.getColumnCount(); ++i) add(digest, select.getColumn(i));
    }
    digest.add(count);
  }
  return digest.text();
}

}  // namespace aluframe::store
