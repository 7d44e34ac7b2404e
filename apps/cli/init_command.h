#pragma once

#include <filesystem>
#include <string>

#include "aluframe/starting/starting.h"

namespace aluframe::cli {

struct InitOptions {
  std::string kind;
  std::filesystem::path output;
  starting::Sizes sizes;
  bool force = false;  ///< whether an existing model may be written over
};

/// Writes a model to start from. @return the exit status
int run_init_command(const InitOptions& options);

}  // namespace aluframe::cli
