#pragma once

#include <SQLiteCpp/SQLiteCpp.h>

#include <span>
#include <string>

namespace aluframe::store {

/// A query for how the tables are defined.
inline constexpr const char* table_definitions =
    "SELECT name, sql FROM sqlite_master WHERE type = 'table' AND name NOT LIKE 'sqlite%' "
    "ORDER BY name";

/// 32 hexadecimal digits that tell the rows of queries apart: the 128-bit XXH3 of their values.
std::string digest_of_rows(SQLite::Database& database, std::span<const char* const> queries);

/// 32 hexadecimal digits that tell any two contents of a result file apart: the 128-bit XXH3 of the
/// definitions of its tables and all values of all but `seal`, in order. Another layout of the same
/// rows in the file has the same digest. Reads the whole file: some 10 ms for 100,000 records.
std::string content_digest(SQLite::Database& database);

}  // namespace aluframe::store
