#pragma once

#include <filesystem>
#include <functional>
#include <string>

#include "aluframe/run/input.h"
#include "aluframe/services/check_run.h"

namespace aluframe::run {

struct CheckOptions {
  std::filesystem::path results;  ///< the result file to be written
  services::Language language = services::Language::english;
  services::ProgressListener* progress = nullptr;   ///< null: nobody watches
  std::function<void(const std::string&)> message;  ///< what the design module says to the user
};

/// Checks what `prepare` has made ready, and stores the results.
services::CheckSummary check(const Input& input, const CheckOptions& options);

}  // namespace aluframe::run
