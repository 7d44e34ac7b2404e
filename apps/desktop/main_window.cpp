#include "apps/desktop/main_window.h"

#include <QApplication>
#include <QCloseEvent>
#include <QFileDialog>
#include <QLabel>
#include <QMenu>
#include <QMenuBar>
#include <utility>

#include "aluframe/texts/text.h"
#include "apps/desktop/message_boxes.h"
#include "apps/desktop/overview.h"

namespace aluframe::desktop {

namespace {

using texts::translatable;

QString to_qt(const std::filesystem::path& path) {
  return QString::fromStdString(path.string());
}

}  // namespace

MainWindow::MainWindow() : toolkit_(this) {
  create_menus();
  auto* hint = new QLabel(ui_text(translatable("Open a model to see its settings and materials.")));
  hint->setAlignment(Qt::AlignCenter);
  setCentralWidget(hint);
  setWindowTitle(QStringLiteral("AluFrame"));
  resize(sizeHint().expandedTo({760, 520}));
}

void MainWindow::create_menus() {
  using services::SettingsDialog;
  QMenu* file = menuBar()->addMenu(ui_text(translatable("&File")));
  QAction* open =
      file->addAction(ui_text(translatable("&Open...")), this, [this] { choose_model(); });
  open->setShortcut(QKeySequence::Open);
  save_ = file->addAction(ui_text(translatable("&Save")), this, [this] { save(); });
  save_->setShortcut(QKeySequence::Save);
  save_->setEnabled(false);
  file->addSeparator();
  QAction* quit = file->addAction(ui_text(translatable("&Quit")), this, [this] { close(); });
  quit->setShortcut(QKeySequence::Quit);
  design_ = menuBar()->addMenu(ui_text(translatable("&Design")));
  design_->addAction(ui_text(translatable("Design &code...")), this,
                     [this] { open_settings(SettingsDialog::code); });
  design_->addAction(ui_text(translatable("&Materials...")), this,
                     [this] { open_settings(SettingsDialog::materials); });
  design_->setEnabled(false);
}

void MainWindow::show_document(ModelDocument document) {
  if (overview_ == nullptr) {
    overview_ = new Overview;
    setCentralWidget(overview_);
    design_->setEnabled(true);
  }
  show_state_of(document_.emplace(std::move(document)));
}

void MainWindow::open(const std::filesystem::path& path) {
  if (!settle_changes()) return;
  auto opened = ModelDocument::open(path);
  if (const auto* problem = std::get_if<std::string>(&opened)) {
    show_problem(this, *problem);
  } else {
    show_document(std::get<ModelDocument>(std::move(opened)));
  }
}

void MainWindow::choose_model() {
  const QString path =
      QFileDialog::getOpenFileName(this, ui_text(translatable("Open a model")), {},
                                   ui_text(translatable("Model files (*.json);;All files (*)")));
  if (!path.isEmpty()) open(path.toStdString());
}

bool MainWindow::save() {
  if (!document_) return true;
  const auto problem = document_->save();
  if (problem) show_problem(this, *problem);
  show_state_of(*document_);
  return !problem;
}

bool MainWindow::settle_changes() {
  if (!document_ || !document_->is_modified()) return true;
  switch (ask_to_save(this, to_qt(document_->path().filename()),
                      ui_text(translatable("Save the changes?")))) {
    case SaveChoice::save:
      return save();
    case SaveChoice::discard:
      return true;
    case SaveChoice::cancel:
      return false;
  }
  return false;
}

void MainWindow::open_settings(services::SettingsDialog dialog) {
  if (!document_) return;
  services::SessionOptions options;
  options.toolkit = &toolkit_;
  options.message_box = show_message_box;
  options.message = print_problem;
  const auto end = services::run_settings_dialog(document_->editable(), dialog, std::move(options));
  if (end == services::DialogEnd::failed) {
    show_problem(this, ui_text(translatable("The dialog did not open.")).toStdString());
  }
  show_state_of(*document_);
}

void MainWindow::show_state_of(const ModelDocument& document) {
  overview_->show_model(document.model(), to_qt(document.path()));
  setWindowTitle(to_qt(document.path().filename()) + QStringLiteral("[*] - AluFrame"));
  setWindowModified(document.is_modified());
  save_->setEnabled(document.is_modified());
}

void MainWindow::closeEvent(QCloseEvent* event) {
  event->setAccepted(settle_changes());
}

}  // namespace aluframe::desktop
