#pragma once

#include <filesystem>
#include <optional>

#include "aluframe/services/settings_dialogs.h"

namespace aluframe::desktop {

struct DesktopOptions {
  std::optional<std::filesystem::path> model;
  /// Only this dialog, over `model`, which is saved when the dialog closes.
  std::optional<services::SettingsDialog> dialog;
};

/// True when the environment names a screen to show windows on.
bool has_display();

/// Shows the program's window, or one dialog. There must be a Qt application.
/// @return the exit status: 0 done, 1 the model cannot be read, 2 failure, 3 the dialog for the
///         design code was closed without OK
int run_desktop(const DesktopOptions& options);

}  // namespace aluframe::desktop
