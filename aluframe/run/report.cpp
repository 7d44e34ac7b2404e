#include "aluframe/run/report.h"

#include <filesystem>
#include <utility>

#include "aluframe/run/second_opinion.h"
#include "aluframe/run/session_options.h"

namespace aluframe::run {

namespace {

/// Elements that are added to results without a second opinion have none either.
bool had_second_opinion(const std::filesystem::path& results) {
  return second_opinion_of(store::ResultReader::open(results)->info().setup) == SecondOpinion::on;
}

/// What stands beside the records of elements that are checked for the report.
void add_second_opinion(const Input& input, const second_opinion::RunSafe& opinion,
                        bool is_new_file, store::ResultWriter& writer) {
  for (const store::SafeRow& row : safe_rows(opinion)) writer.add_safe(row);
  for (const store::NotChecked& item : not_checked_between(opinion)) writer.add_not_checked(item);
  if (is_new_file) {
    for (const store::RemarkRow& row : input.remarks) writer.add_remark(row);
  }
  for (const store::RemarkRow& row : unchecked_remarks(opinion, input.model)) {
    writer.add_remark(row);
  }
}

}  // namespace

services::ReportSummary report(const Input& input, const ReportOptions& options) {
  services::SessionOptions session = session_options(input, options.results);
  session.language = options.language;
  session.message = options.message;
  session.units = T_UNIT_INDEX{static_cast<int>(options.force), static_cast<int>(options.length)};
  second_opinion::RunOpinion opinion(input.model, input.forces.computed);
  const bool is_new_file = !std::filesystem::exists(options.results);
  const bool has_opinion = is_new_file || had_second_opinion(options.results);
  if (has_opinion) session.observer = &opinion;
  session.before_finish = [&](store::ResultWriter& writer) {
    if (has_opinion) add_second_opinion(input, opinion.result(), is_new_file, writer);
  };
  return services::run_report(input.model, std::move(session), options.report);
}

}  // namespace aluframe::run
