// Parses the command line and opens the window.

#include <CLI/CLI.hpp>
#include <QApplication>
#include <QIcon>
#include <exception>

#include "aluframe/texts/language.h"
#include "apps/desktop/desktop_run.h"
#include "apps/desktop/message_boxes.h"
#include "apps/desktop/preferences.h"
#include "apps/exit_status.h"

namespace {

using namespace aluframe;

/// An option whose text is read by `parse`, which returns nothing for a text that is not allowed,
/// and goes to `store`.
template <class Parse, class Store>
CLI::Option* add_word(CLI::App& app, const std::string& name, const Parse& parse,
                      const Store& store, const std::string& allowed, const std::string& help) {
  const auto read = [parse, store, name, allowed](const std::string& text) {
    const auto parsed = parse(text);
    if (!parsed) {
      throw CLI::ValidationError(name, "found '" + text + "', must be one of " + allowed);
    }
    store(*parsed);
  };
  return app.add_option_function<std::string>(name, read, help)->type_name("");
}

void add_options(CLI::App& app, desktop::DesktopOptions& options) {
  app.set_version_flag("--version", "aluframe-desktop " ALUFRAME_VERSION);
  CLI::Option* model = app.add_option("MODEL", options.model, "Model file")->type_name("");
  add_word(
      app, "--dialog", services::parse_settings_dialog,
      [&options](services::SettingsDialog dialog) { options.dialog = dialog; }, "code, materials",
      "Only this dialog over MODEL, which is saved at its end: code or materials")
      ->needs(model);
  add_word(app, "--lang", texts::parse_language, texts::use_language, "en, zh",
           "Language: en or zh");
}

int run(int argc, char** argv) {
  QCoreApplication::setOrganizationName(QStringLiteral("AluFrame"));
  QCoreApplication::setApplicationName(QStringLiteral("aluframe-desktop"));
  texts::use_language(desktop::preferred_language().value_or(texts::language_of_environment()));
  CLI::App app("Shows a frame, checks it, and changes what it is designed with.",
               "aluframe-desktop");
  desktop::DesktopOptions options;
  add_options(app, options);
  try {
    app.parse(argc, argv);
  } catch (const CLI::ParseError& error) {
    return app.exit(error) == 0 ? exit_done : exit_input_error;
  }
  if (!desktop::has_display()) {
    desktop::print_problem("there is no display to show windows on");
    return exit_failure;
  }
  const QApplication application(argc, argv);
  // What the installed desktop entry and icon are named, so that the window shows them.
  QGuiApplication::setDesktopFileName(QStringLiteral("aluframe-desktop"));
  QGuiApplication::setWindowIcon(QIcon::fromTheme(QStringLiteral("aluframe")));
  desktop::apply_preferred_theme();
  return desktop::run_desktop(options);
}

}  // namespace

int main(int argc, char** argv) {
  try {
    return run(argc, argv);
  } catch (const std::exception& error) {
    desktop::print_problem(error.what());
    return exit_failure;
  }
}
