#include "aluframe/run/report.h"

#include <filesystem>
#include <utility>

#include "aluframe/run/buckling.h"
#include "aluframe/run/opinion_notes.h"
#include "aluframe/run/second_opinion.h"
#include "aluframe/run/session_options.h"

namespace aluframe::run {

namespace {

/// Elements that are added to results without a second opinion have none either.
bool had_second_opinion(const std::filesystem::path& results) {
  return second_opinion_of(store::ResultReader::open(results)->info().setup) == SecondOpinion::on;
}

/// Remarks on elements that are checked for the report; on its input, where the file is its own.
void add_remarks(const Input& input, const OpinionNotes& opinion, bool is_new_file,
                 store::ResultWriter& writer) {
  if (is_new_file) {
    for (const store::RemarkRow& row : input.remarks) writer.add_remark(row);
  }
  for (const store::RemarkRow& row : opinion.remarks()) writer.add_remark(row);
}

/// How far the frame is from buckling, which a check would have stored.
void add_buckling(const Input& input, store::ResultWriter& writer) {
  const RunBuckling buckling = buckling_of_run(input, [](int, int) { return true; });
  for (const store::BucklingRow& row : buckling.rows) writer.add_buckling(row);
  for (const store::RemarkRow& row : buckling.remarks) writer.add_remark(row);
}

}  // namespace

services::ReportSummary report(const Input& input, const ReportOptions& options) {
  services::SessionOptions session = session_options(input, options.results);
  session.message = options.message;
  session.units = T_UNIT_INDEX{static_cast<int>(options.force), static_cast<int>(options.length)};
  OpinionNotes opinion(input);
  const bool is_new_file = !std::filesystem::exists(options.results);
  const bool has_opinion = is_new_file || had_second_opinion(options.results);
  if (has_opinion) session.observer = &opinion;
  session.before_finish = [&](store::ResultWriter& writer) {
    if (is_new_file) add_buckling(input, writer);
    if (has_opinion) add_remarks(input, opinion, is_new_file, writer);
  };
  return services::run_report(input.model, std::move(session), options.report, options.follow);
}

}  // namespace aluframe::run
