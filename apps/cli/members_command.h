#pragma once

#include <filesystem>

#include "apps/cli/common_options.h"

namespace aluframe::cli {

struct MembersOptions {
  std::filesystem::path model;
  bool allow_outside = false;  ///< catalogues that lie outside of the model's folder
  bool segments = false;       ///< the pieces between restraints in place of the members
  CommonOptions common;
};

/// Shows every member and every element that belongs to none, with its length and effective length
/// factors and where these come from, or the pieces that their restraints part them into; only
/// those with one of the elements that the user names.
/// @return the exit status
int run_members_command(const MembersOptions& options);

}  // namespace aluframe::cli
