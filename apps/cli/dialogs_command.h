#pragma once

#include <filesystem>
#include <optional>

#include "aluframe/services/settings_dialogs.h"

namespace aluframe::cli {

struct DialogsOptions {
  std::filesystem::path model;
  std::optional<services::SettingsDialog> dialog;  ///< only this one; nothing: one after the other
};

/// Opens the dialogs of a model's settings and materials and saves what they change.
/// @return the exit status; cancelled when the one dialog that was asked for ended without OK
int run_dialogs_command(const DialogsOptions& options);

/// Opens one dialog, in the way of the system, and saves what it changes. @return the exit status
int run_one_dialog(const DialogsOptions& options, services::SettingsDialog dialog);

}  // namespace aluframe::cli
