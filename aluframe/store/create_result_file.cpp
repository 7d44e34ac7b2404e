#include <optional>
#include <stdexcept>

#include "aluframe/files/new_file.h"
#include "aluframe/store/database.h"
#include "aluframe/store/result_writer.h"
#include "aluframe/store/schema.h"

namespace aluframe::store {

namespace {

namespace fs = std::filesystem;

/// The file itself, whatever links lead to it, so that a link stays one and a later change of the
/// working folder does no harm.
fs::path resolved(const fs::path& path) {
  return fs::is_symlink(fs::symlink_status(path)) ? fs::canonical(path) : fs::absolute(path);
}

/// An empty file has nothing to lose and no journal of its own.
bool holds_something(const fs::path& path) {
  const fs::file_status status = fs::status(path);
  return fs::exists(status) && (!fs::is_regular_file(status) || fs::file_size(path) > 0);
}

void lay_out_file(const fs::path& path, const RunInfo& info) {
  SQLite::Database database(path.string(), SQLite::OPEN_READWRITE);
  database.exec("PRAGMA journal_mode = MEMORY");
  lay_out(database, info);
}

/// Fails unless the file is a result file that can be written, that no other run is writing, and
/// whose run may be this one.
void prepare_for_more(const fs::path& path, const RunInfo& info) {
  {
    const OldFileLock can_be_written(path);
  }
  {
    SQLite::Database stored = open_for_reading(path);  // of this format version
    if (const auto difference = difference_of_runs(load_info(stored), info)) {
      throw std::runtime_error(*difference);
    }
  }
  SQLite::Database database = open_for_writing(path);
  add_combinations(database, info);
}

void create_at(const fs::path& path, const RunInfo& info) {
  std::optional<OldFileLock> old_file;
  if (holds_something(path)) old_file.emplace(path);
  files::NewFile file(path);
  lay_out_file(file.path(), info);
  remove_side_files(path);
  file.replace();
}

}  // namespace

std::unique_ptr<ResultWriter> ResultWriter::create(const fs::path& path, const RunInfo& info) {
  return about_file(path, [&]() -> std::unique_ptr<ResultWriter> {
    const fs::path file = resolved(path);
    create_at(file, info);
    return std::make_unique<QueuedResultWriter>(file);
  });
}

std::unique_ptr<ResultWriter> ResultWriter::reopen(const fs::path& path, const RunInfo& info) {
  return about_file(path, [&]() -> std::unique_ptr<ResultWriter> {
    const fs::path file = resolved(path);
    prepare_for_more(file, info);
    return std::make_unique<QueuedResultWriter>(file);
  });
}

}  // namespace aluframe::store
