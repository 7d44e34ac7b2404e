#include "aluframe/run/check.h"

#include <algorithm>
#include <iterator>
#include <utility>
#include <vector>

#include "aluframe/run/session_options.h"

namespace aluframe::run {

CheckResult check(const Input& input, const CheckOptions& options) {
  services::SessionOptions session = session_options(input, options.results);
  session.language = options.language;
  session.progress = options.progress;
  session.message = options.message;
  CheckResult result;
  std::vector<store::NotChecked> between;
  std::optional<second_opinion::RunOpinion> opinion;
  result.second_opinion = options.second_opinion;
  if (options.second_opinion == SecondOpinion::on) {
    session.observer = &opinion.emplace(input.model, input.forces.computed);
  } else {
    leave_out_second_opinion(session.setup);
  }
  result.remarks = input.remarks;
  session.before_finish = [&](store::ResultWriter& writer) {
    if (opinion) {
      const second_opinion::RunSafe found = opinion->result();
      const std::vector<store::SafeRow> rows = safe_rows(found);
      for (const store::SafeRow& row : rows) writer.add_safe(row);
      result.safe = summary_of(rows);
      between = not_checked_between(found);
      for (const store::NotChecked& item : between) writer.add_not_checked(item);
      std::ranges::move(unchecked_remarks(found, input.model), std::back_inserter(result.remarks));
    }
    for (const store::RemarkRow& row : result.remarks) writer.add_remark(row);
  };
  result.summary = services::run_check(input.model, std::move(session));
  std::ranges::move(between, std::back_inserter(result.summary.not_checked));
  return result;
}

}  // namespace aluframe::run
