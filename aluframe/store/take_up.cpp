#include <algorithm>
#include <memory>
#include <stdexcept>
#include <utility>

#include "aluframe/files/link_target.h"
#include "aluframe/files/publication.h"
#include "aluframe/store/database.h"
#include "aluframe/store/finished_elements.h"
#include "aluframe/store/result_writer.h"
#include "aluframe/store/schema.h"
#include "aluframe/texts/text.h"

namespace aluframe::store {

namespace {

namespace fs = std::filesystem;

/// The name of the start of a run among its finished elements.
constexpr std::uint32_t run_start = 0;

/// Runs `action`. What it throws is told as the reason why nothing is taken up.
template <class Action>
auto or_refused(const fs::path& partial, Action action) {
  try {
    return action();
  } catch (const std::exception& error) {
    throw CannotTakeUp(
        texts::translated("{}: cannot be taken up: {}; check without --resume to begin anew",
                          partial.string(), reason_of(error)));
  }
}

/// What a run like this one lays out at its start is what the file holds.
void require_head(SQLite::Database& database, const RunInfo& info) {
  if (const auto text = anything_different(load_info(database), info)) {
    throw std::runtime_error(*text);
  }
  SQLite::Database fresh(":memory:", SQLite::OPEN_READWRITE | SQLite::OPEN_CREATE);
  lay_out(fresh, info);
  if (head_digest(database) != head_digest(fresh)) {
    throw std::runtime_error(texts::translated("is damaged: it does not hold what its run wrote"));
  }
}

/// How many of the finished elements are taken up: all, but one element is left to be checked.
std::size_t taken_up(const std::vector<FinishedElement>& finished,
                     const std::vector<std::uint32_t>& elements) {
  const std::size_t starts =
      !finished.empty() && finished.front().notes.element == run_start ? 1 : 0;
  const std::size_t count = finished.size() - starts;
  const bool is_begin_of_run =
      count <= elements.size() &&
      std::ranges::equal(finished.begin() + static_cast<std::ptrdiff_t>(starts), finished.end(),
                         elements.begin(), elements.begin() + static_cast<std::ptrdiff_t>(count),
                         {}, [](const FinishedElement& element) { return element.notes.element; });
  if (!is_begin_of_run) {
    throw std::runtime_error(
        texts::translated("is damaged: its elements are not the first ones of the run"));
  }
  const std::size_t kept = count == elements.size() && count > 0 ? count - 1 : count;
  return kept == 0 ? 0 : starts + kept;
}

std::vector<FinishedElement> load(const fs::path& partial, const RunInfo& info,
                                  const std::vector<std::uint32_t>& elements) {
  SQLite::Database database = open_for_reading(partial);
  require_head(database, info);
  std::vector<FinishedElement> finished = load_finished(database);
  finished.resize(taken_up(finished, elements));
  return finished;
}

WrittenBefore keep(const fs::path& partial, std::size_t count) {
  SQLite::Database database = open_for_writing(partial);
  keep_finished(database, count);
  const auto whole = [&](const char* query) {
    return static_cast<std::uint64_t>(database.execAndGet(query).getInt64());
  };
  return {.records = whole("SELECT coalesce(sum(records), 0) FROM element"),
          .packed_bytes = whole("SELECT coalesce(sum(length(data)), 0) FROM record")};
}

void require_something_left(const fs::path& partial) {
  const fs::file_status status = fs::status(partial);
  if (!fs::exists(status)) throw std::runtime_error(texts::translated("there is no such file"));
  if (files::kind_of(partial) != files::FileKind::results) {
    throw std::runtime_error(fs::is_regular_file(status) && fs::file_size(partial) == 0
                                 ? texts::translated("its run ended before it had stored anything")
                                 : texts::translated("is not a result file"));
  }
}

}  // namespace

TakenUp ResultWriter::take_up(const fs::path& path, const RunInfo& info,
                              const std::vector<std::uint32_t>& elements,
                              files::WhenBusy when_busy) {
  return about_file(path, [&] {
    const fs::path partial = partial_path_of(files::link_target(path));
    auto file = std::make_unique<files::Publication>(
        path, partial.filename(), when_busy,
        [&](const fs::path& part) { or_refused(partial, [&] { require_something_left(part); }); },
        files::EarlierPart::is_gone_on_with);
    require_replaceable_results(file->destination());
    const fs::path& part = file->path();
    TakenUp out;
    out.elements = or_refused(partial, [&] { return load(part, info, elements); });
    const WrittenBefore before = keep(part, out.elements.size());
    out.writer =
        std::make_unique<QueuedResultWriter>(path, std::move(file), Unfinished::is_kept, before);
    return out;
  });
}

}  // namespace aluframe::store
