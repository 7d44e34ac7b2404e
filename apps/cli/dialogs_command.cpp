#include "apps/cli/dialogs_command.h"

#include "apps/exit_status.h"

namespace aluframe::cli {

using services::SettingsDialog;

int run_dialogs_command(const DialogsOptions& options) {
  if (options.dialog) return run_one_dialog(options, *options.dialog);
  for (const SettingsDialog dialog : {SettingsDialog::code, SettingsDialog::materials}) {
    const int status = run_one_dialog(options, dialog);
    // A dialog that is closed without OK leads to the next one.
    if (status != exit_done && status != exit_cancelled) return status;
  }
  return exit_done;
}

}  // namespace aluframe::cli
