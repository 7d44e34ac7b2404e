#pragma once

#include <filesystem>

#include "aluframe/run/picture.h"

namespace aluframe::cli {

struct PictureCommandOptions {
  run::InputOptions input;
  run::PictureOptions wanted;
  std::filesystem::path svg;  ///< "-": standard output
};

/// Draws a model. @return the exit status
int run_picture_command(const PictureCommandOptions& options);

}  // namespace aluframe::cli
