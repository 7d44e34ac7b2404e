#pragma once

#include <filesystem>
#include <functional>
#include <optional>
#include <string>

#include "aluframe/model/units.h"
#include "aluframe/run/input.h"
#include "aluframe/services/report_run.h"

namespace aluframe::run {

struct ReportOptions {
  std::filesystem::path results;  ///< of the check that the report goes by
  /// The file to be written; nothing: the report is made for its readable text alone.
  std::optional<std::filesystem::path> report;
  model::ForceUnit force = model::ForceUnit::newton;
  model::LengthUnit length = model::LengthUnit::millimetre;
  std::function<void(const std::string&)> message;  ///< what the design module says to the user
  services::ReportFollower follow = {};
};

/// Writes the calculation report of what `prepare` has made ready.
services::ReportSummary report(const Input& input, const ReportOptions& options);

}  // namespace aluframe::run
