#pragma once

#include "apps/cli/parser.h"

namespace aluframe::cli {

/// Puts what the parser of the command line says by itself into the language in use: headings and
/// standard options of `--help`, and what is wrong with a command line.
/// @param app with all its commands
void translate_parser(CLI::App& app);

}  // namespace aluframe::cli
