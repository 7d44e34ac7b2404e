#include "aluframe/run/check.h"

#include <algorithm>
#include <iterator>
#include <stdexcept>
#include <utility>
#include <vector>

#include "aluframe/run/session_options.h"

namespace aluframe::run {

namespace {

namespace fs = std::filesystem;

/// Starts a result file after telling the user when that means to wait.
std::unique_ptr<store::ResultWriter> wait_and_create(
    const fs::path& path, const store::RunInfo& info,
    const std::function<void(const std::string&)>& message) {
  try {
    return store::ResultWriter::create(path, info);
  } catch (const files::FileBusy& busy) {
    if (message) message(std::string(busy.what()) + "; waiting for its end");
    return store::ResultWriter::wait_and_create(path, info);
  }
}

std::unique_ptr<store::ResultWriter> create(const fs::path& path, const store::RunInfo& info,
                                            const CheckOptions& options) {
  auto writer = options.when_busy == files::WhenBusy::wait
                    ? wait_and_create(path, info, options.message)
                    : store::ResultWriter::create(path, info);
  if (!options.objection) return writer;
  if (const auto objection = options.objection()) throw std::runtime_error(*objection);
  return writer;
}

fs::path stored_at(const fs::path& results, const services::CheckSummary& summary) {
  if (summary.records == 0) return {};
  if (summary.outcome == services::RunOutcome::complete) return results;
  fs::path partial = store::partial_path_of(results);
  std::error_code ignored;
  return fs::exists(partial, ignored) ? partial : fs::path();
}

}  // namespace

CheckResult check(const Input& input, const CheckOptions& options) {
  services::SessionOptions session = session_options(input, options.results);
  session.language = options.language;
  session.progress = options.progress;
  session.message = options.message;
  session.create_writer = [&](const fs::path& path, const store::RunInfo& info) {
    return create(path, info, options);
  };
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
  result.results = stored_at(options.results, result.summary);
  return result;
}

}  // namespace aluframe::run
