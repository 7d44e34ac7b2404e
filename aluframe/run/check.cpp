#include "aluframe/run/check.h"

#include <utility>

#include "aluframe/run/session_options.h"

namespace aluframe::run {

services::CheckSummary check(const Input& input, const CheckOptions& options) {
  services::SessionOptions session = session_options(input, options.results);
  session.language = options.language;
  session.progress = options.progress;
  session.message = options.message;
  return services::run_check(input.model, std::move(session));
}

}  // namespace aluframe::run
