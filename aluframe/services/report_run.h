#pragma once

#include <cstdint>
#include <filesystem>
#include <map>
#include <string>
#include <vector>

#include "aluframe/model/model.h"
#include "aluframe/services/check_run.h"

namespace aluframe::services {

/// What a report run came to.
struct ReportSummary {
  RunOutcome outcome = RunOutcome::failed;
  std::string failure;
  std::vector<std::uint32_t> reported;      ///< elements with a member block
  std::vector<std::uint32_t> not_reported;  ///< elements without results or design data
  std::vector<std::uint32_t> checked_now;   ///< reported elements that no run had checked before
  std::map<std::string, std::uint64_t> assertions;
};

/// Writes the calculation report of a model's elements to `path` from the results of an earlier
/// run. Elements that it did not check are checked now and their results added to its file.
/// Nothing is changed when the report cannot be written or its path is that of the results.
ReportSummary run_report(const model::Model& model, SessionOptions options,
                         const std::filesystem::path& path);

}  // namespace aluframe::services
