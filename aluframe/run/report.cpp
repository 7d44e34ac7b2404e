#include "aluframe/run/report.h"

#include <algorithm>
#include <filesystem>
#include <utility>
#include <vector>

#include "aluframe/run/buckling.h"
#include "aluframe/run/deflections.h"
#include "aluframe/run/opinion_notes.h"
#include "aluframe/run/second_opinion.h"
#include "aluframe/run/session_options.h"

namespace aluframe::run {

namespace {

/// What the report begins with: results that it adds elements to, or none.
struct Earlier {
  bool is_there = false;
  bool has_opinion = true;  ///< without a second opinion, elements that are added have none either
  std::vector<store::RemarkRow> remarks;
};

Earlier earlier_results(const std::filesystem::path& results) {
  if (!std::filesystem::exists(results)) return {};
  const auto reader = store::ResultReader::open(results);
  return {true, second_opinion_of(reader->info().setup) == SecondOpinion::on, reader->remarks()};
}

/// Remarks on elements that are checked for the report, but not what was said before; on its input,
/// where the file is its own.
void add_remarks(const Input& input, const OpinionNotes& opinion, const Earlier& earlier,
                 store::ResultWriter& writer) {
  if (!earlier.is_there) {
    for (const store::RemarkRow& row : input.remarks) writer.add_remark(row);
  }
  for (const store::RemarkRow& row : opinion.remarks()) {
    const bool was_said = std::ranges::find(earlier.remarks, row) != earlier.remarks.end();
    if (!was_said) writer.add_remark(row);
  }
}

/// How far the frame is from buckling, which a check would have stored.
void add_buckling(const Input& input, store::ResultWriter& writer) {
  const RunBuckling buckling = buckling_of_run(input, [](int, int) { return true; });
  for (const store::BucklingRow& row : buckling.rows) writer.add_buckling(row);
  for (const store::RemarkRow& row : buckling.remarks) writer.add_remark(row);
}

void add_displacements(const Input& input, store::ResultWriter& writer) {
  const RunDisplacements displacements = displacements_of_run(input, {});
  for (const store::DisplacementRow& row : displacements.rows) writer.add_displacement(row);
  for (const store::RemarkRow& row : displacement_remarks(displacements)) writer.add_remark(row);
}

}  // namespace

services::ReportSummary report(const Input& input, const ReportOptions& options) {
  services::SessionOptions session = session_options(input, options.results);
  session.message = options.message;
  session.units = T_UNIT_INDEX{static_cast<int>(options.force), static_cast<int>(options.length)};
  OpinionNotes opinion(input);
  const Earlier earlier = earlier_results(options.results);
  if (earlier.has_opinion) session.observer = &opinion;
  session.before_finish = [&](store::ResultWriter& writer) {
    if (!earlier.is_there) {
      add_displacements(input, writer);
      add_buckling(input, writer);
    }
    if (earlier.has_opinion) add_remarks(input, opinion, earlier, writer);
  };
  return services::run_report(input.model, std::move(session), options.report, options.follow);
}

}  // namespace aluframe::run
