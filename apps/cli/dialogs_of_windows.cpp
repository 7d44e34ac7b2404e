// The dialogs in this program, as windows of the system.

#include <utility>
#include <variant>

#include "aluframe/io/model_edit.h"
#include "aluframe/io/model_file.h"
#include "aluframe/texts/text.h"
#include "aluframe/toolkit/win32/message_box.h"
#include "aluframe/toolkit/win32/win32_toolkit.h"
#include "apps/cli/dialogs_command.h"
#include "apps/cli/terminal.h"
#include "apps/exit_status.h"

namespace aluframe::cli {

namespace {

using services::DialogEnd;
using services::SettingsDialog;

DialogEnd open(model::Model& model, SettingsDialog dialog) {
  toolkit::Win32Toolkit toolkit;
  services::SessionOptions session;
  session.toolkit = &toolkit;
  session.message_box = [](const std::string& text, UINT type) {
    return toolkit::show_message_box(text, type);
  };
  session.message = [](const std::string& text) { print_message(text); };
  return services::run_settings_dialog(model, dialog, std::move(session));
}

}  // namespace

int run_one_dialog(const DialogsOptions& options, SettingsDialog dialog) {
  auto read = io::read_model(options.model);
  if (const auto* problem = std::get_if<io::Problem>(&read)) {
    print_message(problem->message());
    return exit_input_error;
  }
  auto& model = std::get<model::Model>(read);
  const auto before = io::editable_of(model);
  const DialogEnd end = open(model, dialog);
  if (end == DialogEnd::failed) {
    print_message(texts::translated("the dialog did not open"));
    return exit_failure;
  }
  if (const auto problem = io::save_changes(options.model, io::changes_since(before, model))) {
    print_message(problem->message());
    return exit_failure;
  }
  const bool refused = dialog == SettingsDialog::code && end == DialogEnd::closed;
  return refused ? exit_cancelled : exit_done;
}

}  // namespace aluframe::cli
