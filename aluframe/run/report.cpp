#include "aluframe/run/report.h"

#include <utility>

#include "aluframe/run/session_options.h"

namespace aluframe::run {

services::ReportSummary report(const Input& input, const ReportOptions& options) {
  services::SessionOptions session = session_options(input, options.results);
  session.language = options.language;
  session.message = options.message;
  session.units = T_UNIT_INDEX{static_cast<int>(options.force), static_cast<int>(options.length)};
  return services::run_report(input.model, std::move(session), options.report);
}

}  // namespace aluframe::run
