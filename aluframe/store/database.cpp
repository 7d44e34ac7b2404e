#include "aluframe/store/database.h"

#include <sqlite3.h>

#include <system_error>

#include "aluframe/files/error_text.h"
#include "aluframe/store/schema.h"
#include "aluframe/texts/system_text.h"
#include "aluframe/texts/text.h"

namespace aluframe::store {

namespace {

namespace fs = std::filesystem;

std::runtime_error no_result_file() {
  return std::runtime_error(texts::translated("is not a result file"));
}

/// SQLite calls a file damaged also when the system fails to read it.
void require_read(SQLite::Database& database) {
  int number = 0;
  sqlite3_file_control(database.getHandle(), nullptr, SQLITE_FCNTL_LAST_ERRNO, &number);
  if (number == 0) return;
  throw std::runtime_error(texts::translated("cannot be read: {}", texts::system_text(number)));
}

/// A file is looked at through SQLite alone: closing any other handle on it would drop the locks of
/// a writer in this process.
int marked_application(SQLite::Database& database) {
  try {
    return database.execAndGet("PRAGMA application_id").getInt();
  } catch (const SQLite::Exception& error) {
    if (error.getErrorCode() != SQLITE_NOTADB && error.getErrorCode() != SQLITE_CORRUPT) throw;
    require_read(database);
    throw no_result_file();
  }
}

void require_result_file(SQLite::Database& database) {
  if (marked_application(database) != static_cast<int>(application_id)) {
    throw no_result_file();
  }
}

void require_this_version(SQLite::Database& database) {
  const int found = database.execAndGet("PRAGMA user_version").getInt();
  if (found == format_version) return;
  throw std::runtime_error(
      texts::translated("is a result file of format version {}, this program reads version {}",
                        found, format_version));
}

void require_file(const fs::path& path) {
  const fs::file_status status = fs::status(path);
  if (!fs::exists(status)) throw std::runtime_error(texts::translated("there is no such file"));
  if (!fs::is_regular_file(status)) throw no_result_file();
}

void require_not_protected(const fs::path& path) {
  constexpr fs::perms write =
      fs::perms::owner_write | fs::perms::group_write | fs::perms::others_write;
  if ((fs::status(path).permissions() & write) == fs::perms::none) {
    throw std::runtime_error(texts::translated("is write-protected"));
  }
}

}  // namespace

std::string reason_of(const std::exception& error) {
  const auto* database = dynamic_cast<const SQLite::Exception*>(&error);
  if (database != nullptr && database->getErrorCode() == SQLITE_CORRUPT) {
    // SQLite shows its own statements.
    return texts::translated("is damaged or cannot be read; check the model again");
  }
  return files::error_text(error);
}

SQLite::Database open_for_writing(const fs::path& path) {
  // Whoever writes sees to it that one thread at a time does, so SQLite need not.
  SQLite::Database database(path.string(), SQLite::OPEN_READWRITE | SQLite::OPEN_NOMUTEX,
                            lock_timeout_ms);
  database.exec("PRAGMA journal_mode = DELETE");
  database.exec("PRAGMA synchronous = OFF");
  database.exec("PRAGMA cache_size = -32768");
  return database;
}

SQLite::Database open_for_reading(const fs::path& path) {
  require_file(path);
  SQLite::Database database(path.string(), SQLite::OPEN_READWRITE, lock_timeout_ms);
  require_result_file(database);
  require_this_version(database);
  database.exec("PRAGMA query_only = ON");
  return database;
}

OldFileLock::OldFileLock(const fs::path& path)
    : database_((require_file(path), require_not_protected(path), path.string()),
                SQLite::OPEN_READWRITE) {
  try {
    require_result_file(database_);
    database_.exec("BEGIN IMMEDIATE");
  } catch (const SQLite::Exception& error) {
    if (error.getErrorCode() != SQLITE_BUSY) throw;
    throw std::runtime_error(texts::translated("another run is writing this file"));
  }
}

void remove_side_files(const fs::path& path) {
  for (const char* suffix : {"-journal", "-wal", "-shm"}) fs::remove(fs::path(path) += suffix);
}

}  // namespace aluframe::store
