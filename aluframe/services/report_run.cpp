#include "aluframe/services/report_run.h"

#include <algorithm>
#include <exception>
#include <iterator>
#include <utility>

#include "aluframe/files/same_file.h"
#include "aluframe/services/binding.h"
#include "aluframe/services/report_file.h"
#include "aluframe/services/text.h"
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

void sort_elements(Session& session, const std::filesystem::path& path, ReportSummary& summary) {
  std::vector<std::uint32_t> wanted = session.monitor().elements();
  ReportedElements elements = reported_elements(path);
  summary.reported = std::move(elements.numbers);
  summary.without_checks = std::move(elements.without_checks);
  std::vector<std::uint32_t> reported = summary.reported;
  std::ranges::sort(wanted);
  std::ranges::sort(reported);
  std::ranges::set_difference(wanted, reported, std::back_inserter(summary.not_reported));
  std::ranges::set_intersection(session.manager().added(), reported,
                                std::back_inserter(summary.checked_now));
}

ReportSummary write_report(Session& session, const std::filesystem::path& path) {
  const bool done = IAluDgnDataMgr::Instance()->MakeReport(nullptr, to_wide(path.string())) != 0;
  session.manager().close_stored_results();
  if (const auto& failure = session.monitor().failure()) {
    return failed(*failure + "; the report is incomplete");
  }
  ReportSummary summary;
  if (!done) {
    summary.outcome = session.had_message() ? RunOutcome::nothing_to_check : RunOutcome::failed;
    summary.failure = "the design module ended the report early";
    return summary;
  }
  const int lost = IAluDgnDataMgr::Instance()->GetLostReportBlocks();
  if (lost > 0) return failed(incomplete_report_text(path, lost));
  summary.outcome = RunOutcome::complete;
  sort_elements(session, path, summary);
  summary.not_checked = session.monitor().not_checked();
  return summary;
}

}  // namespace

ReportSummary run_report(const model::Model& model, SessionOptions options,
                         const std::filesystem::path& path) {
  if (files::is_same_file(path, options.result_path)) {
    return failed(path.string() + ": holds the results, which the report would overwrite");
  }
  if (to_utf8(to_wide(path.string())) != path.string()) {
    return failed(path.string() + ": is not UTF-8, as the names of reports must be");
  }
  if (auto problem = report_problem(path)) return failed(std::move(*problem));
  Session session(model, std::move(options));
  const Binding binding(session);
  try {
    session.manager().use_stored_results();
    ReportSummary summary = write_report(session, path);
    summary.assertions = session.monitor().assertions();
    summary.assertions.erase(no_stored_result);
    return summary;
  } catch (const std::exception& error) {
    return failed(error.what());
  }
}

}  // namespace aluframe::services
