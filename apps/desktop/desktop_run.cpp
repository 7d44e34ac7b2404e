#include "apps/desktop/desktop_run.h"

#include <QApplication>
#include <utility>
#include <variant>

#include "aluframe/texts/text.h"
#include "aluframe/toolkit/qt/qt_toolkit.h"
#include "apps/desktop/main_window.h"
#include "apps/desktop/message_boxes.h"
#include "apps/desktop/model_document.h"
#include "apps/exit_status.h"

namespace aluframe::desktop {

namespace {

using services::DialogEnd;
using services::SettingsDialog;

/// Screens in memory have nobody to close a box.
bool is_watched() {
  const QString platform = QGuiApplication::platformName();
  return platform != QStringLiteral("offscreen") && platform != QStringLiteral("minimal");
}

int fail(const std::string& problem, int status) {
  if (is_watched()) {
    show_problem(nullptr, problem);
  } else {
    print_problem(problem);
  }
  return status;
}

DialogEnd open_dialog(model::Model& model, SettingsDialog dialog) {
  toolkit::QtToolkit toolkit;
  services::SessionOptions session;
  session.toolkit = &toolkit;
  session.message_box = show_message_box;
  session.message = print_problem;
  return services::run_settings_dialog(model, dialog, std::move(session));
}

int run_dialog(ModelDocument& document, SettingsDialog dialog) {
  io::AskKeep ask;
  if (is_watched()) {
    ask = [&document](const std::vector<io::Conflict>& conflicts) {
      return ask_whose(nullptr, document.path(), conflicts);
    };
  }
  DialogEnd end;
  SaveEnd saved;
  do {
    end = open_dialog(document.editable(), dialog);
    if (end == DialogEnd::failed)
      return fail(texts::translated("the dialog did not open"), exit_failure);
    // After a conflict that nobody decided the document holds what an earlier OK has changed.
    if (dialog == SettingsDialog::code && end == DialogEnd::closed) return exit_cancelled;
    saved = document.save(ask);
    // A user who wants neither side's values has the dialog again, as it was.
  } while (saved.is_cancelled);
  if (saved.problem) return fail(*saved.problem, exit_failure);
  return exit_done;
}

int run_window(std::optional<ModelDocument> document) {
  MainWindow window;
  // Shown first: a question about the document stands over the window.
  window.show();
  if (document) window.show_document(*std::move(document));
  return QApplication::exec();
}

}  // namespace

bool has_display() {
  return qEnvironmentVariableIsSet("DISPLAY") || qEnvironmentVariableIsSet("WAYLAND_DISPLAY") ||
         qEnvironmentVariableIsSet("QT_QPA_PLATFORM");
}

int run_desktop(const DesktopOptions& options) {
  std::optional<ModelDocument> document;
  if (options.model) {
    auto opened = ModelDocument::open(*options.model);
    if (const auto* problem = std::get_if<std::string>(&opened)) {
      return fail(*problem, exit_input_error);
    }
    document = std::get<ModelDocument>(std::move(opened));
  }
  if (options.dialog && document) return run_dialog(*document, *options.dialog);
  return run_window(std::move(document));
}

}  // namespace aluframe::desktop
