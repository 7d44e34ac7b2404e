#pragma once

#include <cstdint>
#include <filesystem>
#include <functional>
#include <map>
#include <optional>
#include <string>
#include <vector>

#include "aluframe/model/model.h"
#include "aluframe/services/check_run.h"
#include "aluframe/services/report_verdicts.h"

namespace aluframe::services {

/// What a report run came to.
struct ReportSummary {
  RunOutcome outcome = RunOutcome::failed;
  std::string failure;
  std::vector<std::uint32_t> reported;        ///< elements with a member block
  std::vector<std::uint32_t> without_checks;  ///< reported elements with a member block alone
  std::vector<std::uint32_t> not_reported;    ///< elements without results or design data
  std::vector<std::uint32_t> checked_now;     ///< reported elements that no run had checked before
  /// What of the reported elements was not checked, by the run that checked them.
  std::vector<store::NotChecked> not_checked;
  /// What fails and has no line in the report that says so.
  UnprintedFailures unprinted;
  std::map<std::string, std::uint64_t> assertions;
  /// The whole report in UTF-8 with its Chinese texts readable, also where the environment's
  /// character set lacks some of it or its file takes no more; empty when it came to no end.
  std::string readable;
  /// Characters of the report that its file has a question mark for (platform/code_page.h).
  std::size_t replaced = 0;
};

/// What belongs beside a report that came to its end, such as its readable copy, is written here:
/// no other run can write the report's file yet, so that both are of one run.
using ReportFollower = std::function<void(const ReportSummary&)>;

/// Writes the calculation report of a model's elements to `path` from the results of an earlier
/// run. Elements that it did not check are checked now and their results added to its file.
/// The report takes the place of an earlier one when it is whole. Until then, and where it fails,
/// what is written stands beside it in "NAME.partial".
/// Without a path it is made for its readable text alone.
/// Nothing is changed when the report's file cannot be opened, is that of the results, or the
/// results are of another model or state of it, or of other combinations than the run is for.
ReportSummary run_report(const model::Model& model, SessionOptions options,
                         const std::optional<std::filesystem::path>& path,
                         const ReportFollower& follow = {});

}  // namespace aluframe::services
