#include "aluframe/services/report_run.h"

#include <algorithm>
#include <exception>
#include <iterator>
#include <optional>
#include <set>
#include <utility>

#include "aluframe/files/error_text.h"
#include "aluframe/files/link_target.h"
#include "aluframe/files/publication.h"
#include "aluframe/files/same_file.h"
#include "aluframe/platform/code_page.h"
#include "aluframe/platform/open_file.h"
#include "aluframe/services/binding.h"
#include "aluframe/services/readable_report.h"
#include "aluframe/services/report_file.h"
#include "aluframe/services/text.h"
#include "aluframe/texts/text.h"
#include "tz_alu/manager/dgnaludatamgr.h"

namespace aluframe::services {

namespace {

/// The module finds an element without stored results inconsistent; here it is an everyday case,
/// told as `checked_now`.
constexpr const char* no_stored_result = "dgnaludatamgr:349";

ReportSummary failed(std::string text) {
  ReportSummary summary;
  summary.failure = std::move(text);
  return summary;
}

/// What of the elements was not checked, as the result file and the run at hand say.
std::vector<store::NotChecked> not_checked_among(const RunMonitor& monitor,
                                                 store::ResultReader& results) {
  const std::set<std::uint32_t> among(monitor.elements().begin(), monitor.elements().end());
  std::vector<store::NotChecked> items = results.not_checked();
  std::erase_if(items, [&](const auto& item) { return !among.contains(item.element); });
  for (const store::NotChecked& item : monitor.not_checked()) {
    if (std::ranges::find(items, item) == items.end()) items.push_back(item);
  }
  return items;
}

void sort_elements(Session& session, const ReportedElements& elements, ReportSummary& summary) {
  std::vector<std::uint32_t> wanted = session.monitor().elements();
  summary.reported = elements.numbers;
  for (std::size_t i = 0; i < elements.numbers.size(); ++i) {
    if (elements.verdicts[i].empty()) summary.without_checks.push_back(elements.numbers[i]);
  }
  std::vector<std::uint32_t> reported = summary.reported;
  std::ranges::sort(wanted);
  std::ranges::sort(reported);
  std::ranges::set_difference(wanted, reported, std::back_inserter(summary.not_reported));
  std::ranges::set_intersection(session.manager().added(), reported,
                                std::back_inserter(summary.checked_now));
}

void add_stored(Session& session, const ReportedElements& elements,
                const std::filesystem::path& result_path, ReportSummary& summary) {
  if (!std::filesystem::exists(result_path)) {  // no element could be taken up at all
    summary.not_checked = session.monitor().not_checked();
    return;
  }
  const auto results = store::ResultReader::open(result_path);
  summary.not_checked = not_checked_among(session.monitor(), *results);
  summary.unprinted = unprinted_failures(results->governing(), elements);
}

/// Gathers the text of the module's reports, readable, while it lives.
class ReadableText {
 public:
  ReadableText() {
    IAluDgnDataMgr::Instance()->SetReportText([this](const std::wstring& piece) {
      const std::string text = to_utf8(CString(piece.c_str()));
      replaced_ += platform::replaced_characters(text);
      text_ += readable_text(text);
    });
  }
  ReadableText(const ReadableText&) = delete;
  ReadableText& operator=(const ReadableText&) = delete;
  ~ReadableText() { IAluDgnDataMgr::Instance()->SetReportText({}); }

  std::string take() { return std::move(text_); }
  /// Characters that the report's file has a question mark for.
  std::size_t replaced() const { return replaced_; }

 private:
  std::size_t replaced_ = 0;
  std::string text_;
};

/// Lets the module write the report to the new file, without putting it in its place.
ReportSummary write_report(Session& session, const std::filesystem::path& path,
                           const std::filesystem::path& result_path) {
  ReadableText text;
  const bool done = IAluDgnDataMgr::Instance()->MakeReport(nullptr, to_wide(path.string())) != 0;
  session.manager().close_stored_results(session.options().before_finish);
  if (const auto& failure = session.monitor().failure()) return failed(*failure);
  ReportSummary summary;
  if (!done) {
    summary.outcome = session.had_message() ? RunOutcome::nothing_to_check : RunOutcome::failed;
    summary.failure = texts::translated("the design module ended the report early");
    return summary;
  }
  summary.outcome = RunOutcome::complete;
  summary.readable = text.take();
  summary.replaced = text.replaced();
  const ReportedElements elements = reported_elements(summary.readable);
  sort_elements(session, elements, summary);
  add_stored(session, elements, result_path, summary);
  return summary;
}

void fail(ReportSummary& summary, std::string reason) {
  summary.outcome = RunOutcome::failed;
  summary.failure = std::move(reason);
}

/// What a report that is not whole holds stays beside its place.
void leave(files::Publication& report, const std::filesystem::path& path, ReportSummary& summary) {
  std::error_code ignored;
  const auto size = std::filesystem::file_size(report.path(), ignored);
  summary.failure =
      texts::translated("{}: the report is incomplete: {}", path.string(), summary.failure);
  if (ignored || size == 0) return;
  summary.failure +=
      texts::translated("; what was written is in {}", report.path().filename().string());
  report.keep();
}

/// @param path of the report as the user has it
ReportSummary write_and_publish(Session& session, files::Publication& report,
                                const std::filesystem::path& path,
                                const std::filesystem::path& result_path) {
  ReportSummary summary;
  try {
    summary = write_report(session, report.path(), result_path);
    const int lost = IAluDgnDataMgr::Instance()->GetLostReportBlocks();
    if (summary.outcome == RunOutcome::complete && lost > 0) {
      fail(summary, reason_of_lost_blocks(report.path(), lost));
    }
    if (summary.outcome == RunOutcome::complete) report.publish();
  } catch (const std::exception& error) {
    fail(summary, files::error_text(error));
  }
  if (summary.outcome == RunOutcome::failed) leave(report, path, summary);
  return summary;
}

/// The report whose file nobody wants: what the environment's character set lacks is lost there.
ReportSummary make_readable(Session& session, const std::filesystem::path& result_path) {
  try {
    return write_report(session, platform::nowhere(), result_path);
  } catch (const std::exception& error) {
    return failed(files::error_text(error));
  }
}

/// Where a report is written until it is whole: beside its place.
std::filesystem::path partial_name_of(const std::filesystem::path& report) {
  return files::link_target(report).filename() += ".partial";
}

/// Why a report cannot go where it is wanted, or nothing.
std::optional<std::string> problem_of(const std::filesystem::path& path,
                                      const std::filesystem::path& result_path) {
  if (files::is_same_file(path, result_path)) {
    return texts::translated("{}: holds the results, which the report would overwrite",
                             path.string());
  }
  if (to_utf8(to_wide(path.string())) != path.string()) {
    return texts::translated("{}: is not UTF-8, as the names of reports must be", path.string());
  }
  return std::nullopt;
}

/// @param report where the file at `path` is written; nothing: for the readable text alone
ReportSummary run_session(const model::Model& model, SessionOptions options,
                          std::optional<files::Publication>& report,
                          const std::optional<std::filesystem::path>& path) {
  const std::filesystem::path result_path = options.result_path;
  Session session(model, std::move(options));
  const Binding binding(session);
  try {
    session.manager().use_stored_results();
  } catch (const std::exception& error) {
    return failed(files::error_text(error));
  }
  ReportSummary summary = report ? write_and_publish(session, *report, *path, result_path)
                                 : make_readable(session, result_path);
  summary.assertions = session.monitor().assertions();
  summary.assertions.erase(no_stored_result);
  return summary;
}

}  // namespace

ReportSummary run_report(const model::Model& model, SessionOptions options,
                         const std::optional<std::filesystem::path>& path,
                         const ReportFollower& follow) {
  std::optional<files::Publication> report;
  if (path) {
    if (auto problem = problem_of(*path, options.result_path)) return failed(*std::move(problem));
    try {
      report.emplace(*path, partial_name_of(*path), files::WhenBusy::refuse);
    } catch (const std::exception& error) {
      return failed(
          texts::translated("{}: cannot be written: {}", path->string(), files::error_text(error)));
    }
  }
  ReportSummary summary = run_session(model, std::move(options), report, path);
  if (follow && !summary.readable.empty()) follow(summary);
  return summary;
}

}  // namespace aluframe::services
