#pragma once

#include <filesystem>

#include "aluframe/run/input.h"
#include "aluframe/services/session.h"

namespace aluframe::run {

/// A session over what `prepare` has made ready, with the results in the file.
inline services::SessionOptions session_options(const Input& input,
                                                const std::filesystem::path& results) {
  services::SessionOptions session;
  session.result_path = results;
  session.selected = input.elements;
  session.combinations = input.combinations;
  session.model_digest = input.digest;
  return session;
}

}  // namespace aluframe::run
