#pragma once

#include <SQLiteCpp/SQLiteCpp.h>

#include <string>

namespace aluframe::store {

/// 32 hexadecimal digits that tell any two contents of a result file apart: the 128-bit XXH3 of the
/// definitions of its tables and all values of all but `seal`, in order. Another layout of the same
/// rows in the file has the same digest. Reads the whole file: some 10 ms for 100,000 records.
std::string content_digest(SQLite::Database& database);

}  // namespace aluframe::store
