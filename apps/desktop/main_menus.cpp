// The menus of the window, and what their smaller commands do.

#include <QActionGroup>
#include <QApplication>
#include <QDesktopServices>
#include <QDockWidget>
#include <QFileDialog>
#include <QInputDialog>
#include <QLabel>
#include <QMenu>
#include <QMenuBar>
#include <QMessageBox>
#include <QRegularExpression>
#include <QSettings>
#include <QToolBar>
#include <QUrl>
#include <utility>

#include "aluframe/files/error_text.h"
#include "aluframe/texts/language.h"
#include "aluframe/texts/text.h"
#include "apps/desktop/frame_view.h"
#include "apps/desktop/main_window.h"
#include "apps/desktop/message_boxes.h"
#include "apps/desktop/picture_file.h"
#include "apps/desktop/preferences.h"
#include "apps/desktop/result_words.h"
#include "apps/desktop/section_dialog.h"

namespace aluframe::desktop {

namespace {

using texts::translatable;

constexpr int most_recent = 10;

QString recent_key() {
  return QStringLiteral("files/recent");
}

/// A menu's text without its accelerator and dots, as a tool bar shows it.
QString plain_name(QString text) {
  static const QRegularExpression accelerator(QStringLiteral("\\(&.\\)|&|\\.\\.\\."));
  return text.remove(accelerator);
}

/// A menu of which one entry holds.
class Choice {
 public:
  Choice(QWidget& window, QMenu& above, const char* name)
      : menu_(*above.addMenu(ui_text(name))), group_(*new QActionGroup(&window)) {}

  void add(const QString& name, bool is_chosen, const std::function<void()>& choose) {
    QAction* action = menu_.addAction(name, &group_, choose);
    action->setCheckable(true);
    action->setChecked(is_chosen);
    group_.addAction(action);
  }

 private:
  QMenu& menu_;
  QActionGroup& group_;
};

}  // namespace

QAction* MainWindow::add_action(QMenu* menu, const char* text, const QKeySequence& keys,
                                const std::function<void()>& action) {
  QAction* added = menu->addAction(ui_text(text), this, action);
  added->setShortcut(keys);
  added->setIconText(plain_name(added->text()));
  return added;
}

QAction* MainWindow::add_model_action(QMenu* menu, const char* text, const QKeySequence& keys,
                                      const std::function<void()>& action) {
  QAction* added = add_action(menu, text, keys, action);
  model_actions_.push_back(added);
  return added;
}

void MainWindow::create_menus() {
  create_file_menu();
  create_edit_menu();
  create_view_menu();
  create_design_menu();
  create_report_menu();
  create_options_menu();
}

void MainWindow::create_file_menu() {
  QMenu* file = menuBar()->addMenu(ui_text(translatable("&File")));
  QAction* open =
      add_action(file, translatable("&Open..."), QKeySequence::Open, [this] { choose_model(); });
  recent_ = file->addMenu(ui_text(translatable("Open &recent")));
  connect(recent_, &QMenu::aboutToShow, this, [this] { show_recent(); });
  idle_actions_.push_back(add_action(file, translatable("Re&load"), QKeySequence::Refresh, [this] {
    if (settle_changes()) reload();
  }));
  add_model_action(file, translatable("&Edit file"), {}, [this] { edit_file(); });
  file->addSeparator();
  save_ = add_action(file, translatable("&Save"), QKeySequence::Save, [this] { save(); });
  idle_actions_.push_back(add_action(file, translatable("Save &as..."), QKeySequence::SaveAs,
                                     [this] { choose_save_as(); }));
  add_model_action(file, translatable("&Picture to file..."), {}, [this] { save_picture(); });
  file->addSeparator();
  add_action(file, translatable("&Quit"), QKeySequence::Quit, [this] { close(); });
  QToolBar* bar = addToolBar(ui_text(translatable("Main")));
  bar->setObjectName(QStringLiteral("main"));
  bar->addAction(open);
  bar->addAction(save_);
  bar->addSeparator();
}

void MainWindow::create_edit_menu() {
  QMenu* edit = menuBar()->addMenu(ui_text(translatable("&Edit")));
  QAction* undo = undo_.createUndoAction(this, ui_text(translatable("Undo")));
  undo->setShortcut(QKeySequence::Undo);
  edit->addAction(undo);
  QAction* redo = undo_.createRedoAction(this, ui_text(translatable("Redo")));
  redo->setShortcuts({QKeySequence(QKeySequence::Redo), QKeySequence(QStringLiteral("Ctrl+Y"))});
  edit->addAction(redo);
  edit->addSeparator();
  add_model_action(edit, translatable("Select &all"), QKeySequence::SelectAll,
                   [this] { workspace_.select_all(); });
  add_model_action(edit, translatable("Select &nothing"), {},
                   [this] { workspace_.clear_selection(); });
  add_model_action(edit, translatable("Select what &fails"),
                   QKeySequence(QStringLiteral("Ctrl+Shift+F")), [this] { select_failing(); });
  edit->addSeparator();
  add_model_action(edit, translatable("&Hide selected"), QKeySequence(QStringLiteral("Ctrl+H")),
                   [this] { workspace_.hide_selected(); });
  add_model_action(edit, translatable("&Isolate selected"), QKeySequence(QStringLiteral("Ctrl+I")),
                   [this] { workspace_.isolate_selected(); });
  add_model_action(edit, translatable("&Show all"), QKeySequence(QStringLiteral("Ctrl+Shift+H")),
                   [this] { workspace_.show_all(); });
}

void MainWindow::create_view_menu() {
  using picture::View;
  QMenu* view = menuBar()->addMenu(ui_text(translatable("&View")));
  const auto add_view = [&](const char* text, const char* keys, const View& from) {
    return add_model_action(view, text, QKeySequence(QString::fromLatin1(keys)),
                            [this, from] { view_->look(from); });
  };
  auto* bar = findChild<QToolBar*>(QStringLiteral("main"));
  bar->addAction(add_view(translatable("&Axonometric"), "Ctrl+1", View::iso));
  bar->addAction(add_view(translatable("&Front (XZ)"), "Ctrl+2", View::xz));
  bar->addAction(add_view(translatable("&Right (YZ)"), "Ctrl+3", View::yz));
  bar->addAction(add_view(translatable("&Top (XY)"), "Ctrl+4", View::xy));
  bar->addAction(add_model_action(view, translatable("F&it"),
                                  QKeySequence(QStringLiteral("Ctrl+0")),
                                  [this] { view_->fit(); }));
  add_model_action(view, translatable("Fit &selected"), QKeySequence(QStringLiteral("Ctrl+9")),
                   [this] { view_->fit(true); });
  view->addSeparator();
  for (QDockWidget* dock : findChildren<QDockWidget*>()) view->addAction(dock->toggleViewAction());
}

void MainWindow::create_design_menu() {
  using services::SettingsDialog;
  design_ = menuBar()->addMenu(ui_text(translatable("&Design")));
  idle_actions_.push_back(add_action(design_, translatable("Design &code..."), {},
                                     [this] { open_settings(SettingsDialog::code); }));
  idle_actions_.push_back(add_action(design_, translatable("&Materials..."), {},
                                     [this] { open_settings(SettingsDialog::materials); }));
  idle_actions_.push_back(
      add_action(design_, translatable("&Sections..."), {}, [this] { edit_sections(); }));
  design_->addSeparator();
  QAction* check_all = add_action(design_, translatable("Check &all"),
                                  QKeySequence(QStringLiteral("F9")), [this] { check(false); });
  idle_actions_.push_back(check_all);
  idle_actions_.push_back(add_action(design_, translatable("Check &selected"),
                                     QKeySequence(QStringLiteral("Shift+F9")),
                                     [this] { check(true); }));
  cancel_ = add_action(design_, translatable("Cancel the &run"), {}, [this] { runner_.cancel(); });
  auto* bar = findChild<QToolBar*>(QStringLiteral("main"));
  bar->addSeparator();
  bar->addAction(check_all);
}

void MainWindow::create_report_menu() {
  QMenu* report = menuBar()->addMenu(ui_text(translatable("&Report")));
  QAction* text = add_action(report, translatable("Calculation &report"), {}, [this] {
    if (save_for_run()) runner_.make_report(preferred_report_units());
  });
  QAction* html = add_action(report, translatable("Calculation &document (HTML)..."), {},
                             [this] { write_document(); });
  idle_actions_.push_back(text);
  idle_actions_.push_back(html);
  auto* bar = findChild<QToolBar*>(QStringLiteral("main"));
  bar->addAction(text);
}

void MainWindow::create_options_menu() {
  QMenu* options = menuBar()->addMenu(ui_text(translatable("&Options")));
  Choice languages(*this, *options, translatable("&Language"));
  const auto add_language = [&](const QString& name, texts::Language language) {
    languages.add(name, texts::language_in_use() == language, [this, language] {
      prefer_language(language);
      QMessageBox::information(
          this, QStringLiteral("AluFrame"),
          ui_text(translatable("The language changes when the program is started again.")));
    });
  };
  add_language(QStringLiteral("English"), texts::Language::english);
  add_language(QString::fromUtf8("\u4E2D\u6587"), texts::Language::chinese);
  Choice themes(*this, *options, translatable("&Colours"));
  for (const auto& [theme, name] : {std::pair(Theme::system, translatable("as the system")),
                                    std::pair(Theme::light, translatable("light")),
                                    std::pair(Theme::dark, translatable("dark"))}) {
    themes.add(ui_text(name), preferred_theme() == theme, [theme = theme] { prefer_theme(theme); });
  }
  Choice units(*this, *options, translatable("&Units of the report"));
  for (const ReportUnits& pair :
       {ReportUnits{model::ForceUnit::newton, model::LengthUnit::millimetre},
        ReportUnits{model::ForceUnit::kilonewton, model::LengthUnit::millimetre},
        ReportUnits{model::ForceUnit::kilonewton, model::LengthUnit::metre}}) {
    const std::string name =
        std::string(model::name_of(pair.first)) + ", " + std::string(model::name_of(pair.second));
    units.add(QString::fromStdString(name), preferred_report_units() == pair,
              [pair] { prefer_report_units(pair); });
  }
}

void MainWindow::choose_model() {
  const QString path =
      QFileDialog::getOpenFileName(this, ui_text(translatable("Open a model")), {},
                                   ui_text(translatable("Model files (*.json);;All files (*)")));
  if (!path.isEmpty()) open(path.toStdString());
}

void MainWindow::show_recent() {
  recent_->clear();
  const QStringList files = QSettings().value(recent_key()).toStringList();
  for (const QString& file : files) {
    QString name = file;
    name.replace(u'&', QStringLiteral("&&"));
    recent_->addAction(name, this, [this, file] { open(file.toStdString()); });
  }
  if (files.isEmpty()) recent_->addAction(ui_text(translatable("none")))->setEnabled(false);
}

void MainWindow::note_recent(const std::filesystem::path& path) {
  const QString file = path_text(std::filesystem::absolute(path).lexically_normal());
  QSettings settings;
  QStringList files = settings.value(recent_key()).toStringList();
  files.removeAll(file);
  files.prepend(file);
  settings.setValue(recent_key(), QStringList(files.mid(0, most_recent)));
}

void MainWindow::choose_save_as() {
  const QString path = QFileDialog::getSaveFileName(
      this, ui_text(translatable("Save the model as")), path_text(workspace_.document()->path()),
      ui_text(translatable("Model files (*.json);;All files (*)")));
  if (!path.isEmpty()) save_as(path.toStdString());
}

QStringList MainWindow::picture_caption() const {
  QStringList lines{path_text(workspace_.document()->path().filename())};
  if (!workspace_.model().title.empty()) {
    lines[0] += QStringLiteral(" \u2013 ") + QString::fromStdString(workspace_.model().title);
  }
  lines.push_back(state_->text());
  if (const run::ShownResults* results = workspace_.results()) {
    for (const std::string& caution : results->cautions) lines.push_back(shown(caution));
  }
  return lines;
}

void MainWindow::save_picture() {
  std::filesystem::path file = workspace_.document()->path();
  file.replace_extension(".png");
  const auto path = choose_picture_file(this, path_text(file));
  if (!path) return;
  const QImage picture = captioned(view_->picture(), picture_caption());
  if (const auto problem = write_picture_file(picture, *path)) {
    show_problem(this, *problem);
  }
}

void MainWindow::write_document() {
  if (!save_for_run()) return;
  std::filesystem::path file = workspace_.document()->path();
  file.replace_extension(".html");
  const QString path =
      QFileDialog::getSaveFileName(this, ui_text(translatable("Calculation document")),
                                   path_text(file), ui_text(translatable("Web pages (*.html)")));
  if (path.isEmpty()) return;
  const QStringList details{ui_text(translatable("summary, without derivations")),
                            ui_text(translatable("derivation of the governing checks")),
                            ui_text(translatable("derivation of all checks"))};
  bool is_chosen = false;
  const QString detail =
      QInputDialog::getItem(this, ui_text(translatable("Calculation document")),
                            ui_text(translatable("Detail")), details, 1, false, &is_chosen);
  if (!is_chosen) return;
  const auto wanted = static_cast<document::DocumentDetail>(details.indexOf(detail));
  runner_.write_document(path.toStdString(), wanted);
}

void MainWindow::edit_file() {
  if (!QDesktopServices::openUrl(QUrl::fromLocalFile(path_text(workspace_.document()->path())))) {
    show_problem(this, texts::translated("{}: no program opened the file",
                                         workspace_.document()->path().string()));
  }
}

void MainWindow::edit_sections() {
  const model::Model& model = workspace_.model();
  if (model.sections.empty()) return;
  const auto current = workspace_.current();
  const model::Number shown =
      current ? model.elements.find(*current)->section : model.sections[0].number;
  SectionDialog(this, workspace_, undo_, shown).exec();
}

void MainWindow::select_failing() {
  std::vector<model::Number> failing;
  if (const run::ShownResults* results = workspace_.results()) {
    for (const auto& [number, element] : results->elements) {
      if (run::fails(element.worst())) failing.push_back(number);
    }
  }
  workspace_.select(failing);
}

}  // namespace aluframe::desktop
