#include <memory>
#include <optional>
#include <stdexcept>
#include <utility>

#include "aluframe/files/link_target.h"
#include "aluframe/files/publication.h"
#include "aluframe/platform/file_moves.h"
#include "aluframe/store/database.h"
#include "aluframe/store/result_writer.h"
#include "aluframe/store/schema.h"
#include "aluframe/texts/text.h"

namespace aluframe::store {

namespace {

namespace fs = std::filesystem;

/// An empty file has nothing to lose and no journal of its own.
bool holds_something(const fs::path& path) {
  const fs::file_status status = fs::status(path);
  return fs::exists(status) && (!fs::is_regular_file(status) || fs::file_size(path) > 0);
}

/// Ends what a killed run left of the path: a partial file is to be no other than a run's.
void require_no_other_file(const fs::path& partial) {
  if (holds_something(partial) && files::kind_of(partial) != files::FileKind::results) {
    throw std::runtime_error(texts::translated("{} stands in the way: it is no result file",
                                               partial.filename().string()));
  }
}

void lay_out_file(const fs::path& path, const RunInfo& info) {
  remove_side_files(path);  // of what stood there before
  SQLite::Database database(path.string(), SQLite::OPEN_READWRITE);
  database.exec("PRAGMA journal_mode = MEMORY");
  lay_out(database, info);
}

/// Fails unless the file is that of a run which may be this one.
void require_same_run(const fs::path& path, const RunInfo& info) {
  SQLite::Database stored = open_for_reading(path);  // of this format version
  if (const auto difference = difference_of_runs(load_info(stored), info)) {
    throw std::runtime_error(*difference);
  }
  require_undamaged(stored);
}

std::unique_ptr<ResultWriter> start(const fs::path& path, const RunInfo& info,
                                    files::WhenBusy when_busy) {
  return about_file(path, [&]() -> std::unique_ptr<ResultWriter> {
    const fs::path partial = partial_path_of(files::link_target(path));
    auto file = std::make_unique<files::Publication>(path, partial.filename(), when_busy,
                                                     require_no_other_file);
    require_replaceable_results(file->destination());
    lay_out_file(file->path(), info);
    return std::make_unique<QueuedResultWriter>(path, std::move(file), Unfinished::is_kept);
  });
}

}  // namespace

void require_replaceable_results(const fs::path& path) {
  if (holds_something(path)) const OldFileLock is_a_result_file(path);
}

fs::path partial_path_of(const fs::path& result_file) {
  return fs::path(result_file) += ".partial";
}

std::unique_ptr<ResultWriter> ResultWriter::create(const fs::path& path, const RunInfo& info) {
  return start(path, info, files::WhenBusy::refuse);
}

std::unique_ptr<ResultWriter> ResultWriter::wait_and_create(const fs::path& path,
                                                            const RunInfo& info) {
  return start(path, info, files::WhenBusy::wait);
}

std::unique_ptr<ResultWriter> ResultWriter::reopen(const fs::path& path, const RunInfo& info) {
  return about_file(path, [&]() -> std::unique_ptr<ResultWriter> {
    if (!fs::exists(path)) throw std::runtime_error(texts::translated("there is no such file"));
    auto file = std::make_unique<files::Publication>(path);
    require_replaceable_results(file->destination());
    require_same_run(file->destination(), info);
    fs::copy_file(file->destination(), file->path(), fs::copy_options::overwrite_existing);
    remove_side_files(file->path());
    {
      SQLite::Database database = open_for_writing(file->path());
      add_combinations(database, info);
    }
    return std::make_unique<QueuedResultWriter>(path, std::move(file), Unfinished::is_discarded);
  });
}

void publish_results(files::Publication& file) {
  std::optional<OldFileLock> earlier;
  if (holds_something(file.destination())) earlier.emplace(file.destination());
  remove_side_files(file.destination());
  if (!platform::open_files_are_replaced()) earlier.reset();
  file.publish();
}

}  // namespace aluframe::store
