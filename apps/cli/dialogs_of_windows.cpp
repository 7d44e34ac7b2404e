// The dialogs in this program, as windows of the system.

#include <utility>
#include <variant>

#include "aluframe/io/model_file.h"
#include "aluframe/io/model_merge.h"
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

/// What the buttons of a box return.
constexpr int button_yes = 6, button_no = 7;

std::optional<io::Keep> ask_whose(const std::filesystem::path& file,
                                  const std::vector<io::Conflict>& conflicts) {
  constexpr unsigned yes_no_cancel = 3;
  const std::string question = texts::translated("{}: another program has changed the same values:",
                                                 file.filename().string()) +
                               "\n\n" + io::conflicts_text(conflicts) + "\n\n" +
                               texts::translated("Yes keeps mine, No keeps theirs.");
  switch (toolkit::show_message_box(question, yes_no_cancel)) {
    case button_yes:
      return io::Keep::mine;
    case button_no:
      return io::Keep::theirs;
    default:
      return std::nullopt;
  }
}

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
  const auto ask = [&options](const std::vector<io::Conflict>& conflicts) {
    return ask_whose(options.model, conflicts);
  };
  DialogEnd end;
  io::Saved saved;
  do {
    end = open(model, dialog);
    if (end == DialogEnd::failed) {
      print_message(texts::translated("the dialog did not open"));
      return exit_failure;
    }
    // After a conflict that nobody decided the model holds what an earlier OK has changed.
    if (dialog == SettingsDialog::code && end == DialogEnd::closed) return exit_cancelled;
    saved = io::save_merged(options.model, before, model, ask);
    // A user who wants neither side's values has the dialog again, as it was.
  } while (saved.is_cancelled);
  if (saved.problem) {
    print_message(saved.problem->message());
    return exit_failure;
  }
  return exit_done;
}

}  // namespace aluframe::cli
