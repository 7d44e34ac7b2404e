#pragma once

#include <filesystem>

#include "aluframe/tables/output_table.h"
#include "apps/cli/settings_changes.h"

namespace aluframe::cli {

struct SettingsOptions {
  std::filesystem::path model;
  bool allow_outside = false;  ///< catalogues that lie outside of the model's folder
  tables::Format format = tables::Format::table;
  WantedChanges changes;
};

/// Shows the design settings and the materials of a model, or changes them in its file: all changes
/// together or none. @return the exit status
int run_settings_command(const SettingsOptions& options);

}  // namespace aluframe::cli
