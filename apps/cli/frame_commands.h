#pragma once

#include "apps/cli/analyse_command.h"
#include "apps/cli/buckling_command.h"
#include "apps/cli/combinations_command.h"
#include "apps/cli/deflections_command.h"
#include "apps/cli/members_command.h"
#include "apps/cli/parser.h"
#include "apps/cli/picture_command.h"

// Commands that show a frame and what its analysis gives, on the command line.

namespace aluframe::cli {

/// @param options and @param status outlive the parsing; the command's status goes to the latter
void add_analyse(CLI::App& app, AnalyseOptions& options, int& status);
void add_buckling(CLI::App& app, BucklingCommandOptions& options, int& status);
void add_deflections(CLI::App& app, DeflectionsOptions& options, int& status);
void add_made_combinations(CLI::App& app, CombinationsOptions& options, int& status);
void add_members(CLI::App& app, MembersOptions& options, int& status);
void add_picture(CLI::App& app, PictureCommandOptions& options, int& status);

}  // namespace aluframe::cli
