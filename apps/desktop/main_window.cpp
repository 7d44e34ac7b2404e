#include "apps/desktop/main_window.h"

#include <QCloseEvent>
#include <QDesktopServices>
#include <QDockWidget>
#include <QLabel>
#include <QMessageBox>
#include <QPushButton>
#include <QScrollArea>
#include <QSettings>
#include <QStackedWidget>
#include <QStandardPaths>
#include <QStatusBar>
#include <QTimer>
#include <QUrl>
#include <utility>

#include "aluframe/texts/text.h"
#include "apps/desktop/attribute_panel.h"
#include "apps/desktop/detail_panel.h"
#include "apps/desktop/display_panel.h"
#include "apps/desktop/frame_view.h"
#include "apps/desktop/history_panel.h"
#include "apps/desktop/message_boxes.h"
#include "apps/desktop/model_edit_command.h"
#include "apps/desktop/model_tree.h"
#include "apps/desktop/overview.h"
#include "apps/desktop/result_words.h"
#include "apps/desktop/run_progress.h"
#include "apps/desktop/table_panel.h"
#include "apps/desktop/text_viewer.h"

namespace aluframe::desktop {

namespace {

using texts::translatable;

constexpr int layout_version = 1;

std::filesystem::path autosave_folder() {
  const QString data = QStandardPaths::writableLocation(QStandardPaths::AppLocalDataLocation);
  return std::filesystem::path(data.toStdString()) / "autosave";
}

/// Panels may be taller than their dock.
QScrollArea* scrolled(QWidget* widget) {
  auto* area = new QScrollArea;
  area->setWidget(widget);
  area->setWidgetResizable(true);
  area->setFrameShape(QFrame::NoFrame);
  return area;
}

/// Until the user moves it.
constexpr int tables_height = 190, side_width = 330;

QDockWidget* add_dock(QMainWindow& window, const char* name, const char* title, QWidget* widget,
                      Qt::DockWidgetArea area) {
  auto* dock = new QDockWidget(ui_text(title));
  dock->setObjectName(QString::fromLatin1(name));
  dock->setWidget(widget);
  window.addDockWidget(area, dock);
  return dock;
}

}  // namespace

MainWindow::MainWindow()
    : runner_(workspace_),
      autosave_(workspace_, autosave_folder()),
      toolkit_(this),
      result_watch_(workspace_) {
  pages_ = new QStackedWidget;
  auto* hint = new QLabel(ui_text(translatable("Open a model to see its frame.")));
  hint->setAlignment(Qt::AlignCenter);
  pages_->addWidget(hint);
  view_ = new FrameView(workspace_, display_);
  pages_->addWidget(view_);
  setCentralWidget(pages_);
  create_docks();
  create_menus();
  create_status();
  connect_runner();
  connect(&workspace_, &Workspace::edited, this, [this] { show_state(); });
  connect(&workspace_, &Workspace::typing, this, [this] { show_state(); });
  connect(&workspace_, &Workspace::document_changed, this, [this] { show_state(); });
  connect(&workspace_, &Workspace::results_changed, this, [this] { show_state(); });
  connect(&workspace_, &Workspace::busy_changed, this, [this] {
    show_state();
    // What happened to the file during a run waited for its end.
    if (!workspace_.is_busy()) QTimer::singleShot(0, this, [this] { file_changed(); });
  });
  connect(&workspace_, &Workspace::selection_changed, this, [this] { show_selection(); });
  connect(&watcher_, &QFileSystemWatcher::fileChanged, this, [this] {
    // Programs write a file in several steps.
    constexpr int written_after = 300;
    QTimer::singleShot(written_after, this, [this] { file_changed(); });
  });
  constexpr int looks_again_after = 1000;
  look_again_.setSingleShot(true);
  look_again_.setInterval(looks_again_after);
  look_again_.callOnTimeout(this, [this] { file_changed(); });
  setWindowTitle(QStringLiteral("AluFrame"));
  resize(1360, 860);
  const QSettings settings;
  restoreGeometry(settings.value(QStringLiteral("window/geometry")).toByteArray());
  restoreState(settings.value(QStringLiteral("window/state")).toByteArray(), layout_version);
  show_state();
}

MainWindow::~MainWindow() = default;

void MainWindow::create_docks() {
  setDockNestingEnabled(true);
  setDockOptions(dockOptions() | QMainWindow::AllowTabbedDocks);
  add_dock(*this, "display", translatable("Display"),
           scrolled(new DisplayPanel(workspace_, display_)), Qt::LeftDockWidgetArea);
  QDockWidget* tree = add_dock(*this, "tree", translatable("Model"), new ModelTree(workspace_),
                               Qt::LeftDockWidgetArea);
  overview_ = new Overview;
  QDockWidget* settings = add_dock(*this, "settings", translatable("Design settings"),
                                   scrolled(overview_), Qt::RightDockWidgetArea);
  QDockWidget* design =
      add_dock(*this, "attributes", translatable("Design attributes"),
               scrolled(new AttributePanel(workspace_, undo_)), Qt::RightDockWidgetArea);
  tabifyDockWidget(settings, design);
  QDockWidget* details = add_dock(*this, "details", translatable("Details"),
                                  new DetailPanel(workspace_), Qt::RightDockWidgetArea);
  tabifyDockWidget(design, details);
  QDockWidget* tables = add_dock(*this, "tables", translatable("Tables"),
                                 new TablePanel(workspace_), Qt::BottomDockWidgetArea);
  QDockWidget* history = add_dock(*this, "history", translatable("History"),
                                  new HistoryPanel(workspace_), Qt::BottomDockWidgetArea);
  tabifyDockWidget(tables, history);
  tables->raise();
  details->raise();
  resizeDocks({tables}, {tables_height}, Qt::Vertical);
  resizeDocks({tree, details}, {side_width - 70, side_width + 60}, Qt::Horizontal);
}

void MainWindow::create_status() {
  state_ = new QLabel;
  selection_ = new QLabel;
  progress_ = new RunProgress;
  stop_ = new QPushButton(ui_text(translatable("Cancel")));
  stop_->hide();
  connect(stop_, &QPushButton::clicked, this, [this] { runner_.cancel(); });
  auto* pointed = new QLabel;
  connect(view_, &FrameView::pointed_at, pointed, &QLabel::setText);
  statusBar()->addWidget(pointed, 1);
  statusBar()->addPermanentWidget(progress_);
  statusBar()->addPermanentWidget(stop_);
  statusBar()->addPermanentWidget(state_);
  statusBar()->addPermanentWidget(selection_);
}

void MainWindow::connect_runner() {
  connect(&runner_, &Runner::started, this, [this](const QString& text) {
    progress_->begin();
    stop_->setVisible(runner_.can_be_cancelled());
    state_->setText(text);
  });
  connect(&runner_, &Runner::progressed, this,
          [this](int done, int total) { progress_->advance(done, total); });
  connect(&runner_, &Runner::check_ended, this, [this](const RunEnd& end) { show_check_end(end); });
  connect(&runner_, &Runner::report_ended, this,
          [this](const RunEnd& end, const QString& report, const QString& model) {
            if (end.kind == RunEnd::Kind::failed) {
              show_problem(this, end.text);
              return;
            }
            std::filesystem::path file = model.toStdString();
            file.replace_extension(".txt");
            const QString title = ui_text(translatable("Calculation report"));
            (new TextViewer(this, title, report, path_text(file)))->show();
          });
  connect(&runner_, &Runner::document_ended, this, [this](const RunEnd& end, const QString& file) {
    if (end.kind == RunEnd::Kind::failed) {
      show_problem(this, end.text);
    } else if (end.kind != RunEnd::Kind::cancelled) {
      QDesktopServices::openUrl(QUrl::fromLocalFile(file));
    }
  });
}

void MainWindow::open_settings(services::SettingsDialog dialog) {
  if (workspace_.document() == nullptr || workspace_.is_busy()) return;
  take_typed();
  services::SessionOptions options;
  options.toolkit = &toolkit_;
  options.message_box = show_message_box;
  options.message = print_problem;
  workspace_.set_busy(true);
  const model::Model before = workspace_.model();
  const auto end =
      services::run_settings_dialog(workspace_.document()->editable(), dialog, std::move(options));
  workspace_.set_busy(false);
  EditedParts after = parts_changed(workspace_.model(), before);
  if (!after.empty()) {
    const char* text = dialog == services::SettingsDialog::code ? translatable("design settings")
                                                                : translatable("materials");
    undo_.push(new ModelEditCommand(workspace_, ui_text(text),
                                    parts_changed(before, workspace_.model()), std::move(after)));
  }
  if (end == services::DialogEnd::failed) {
    show_problem(this, ui_text(translatable("The dialog did not open.")).toStdString());
  }
  workspace_.tell_edited();
}

void MainWindow::check(bool selection_only) {
  if (workspace_.document() == nullptr || workspace_.is_busy() || !save_for_run()) return;
  std::vector<model::Number> elements;
  if (selection_only) {
    elements.assign(workspace_.selection().begin(), workspace_.selection().end());
    if (elements.empty()) return;
  }
  const run::ShownResults* results = workspace_.results();
  if (selection_only && results != nullptr && results->coverage.is_whole()) {
    QMessageBox box(
        QMessageBox::Question, QStringLiteral("AluFrame"),
        ui_text(translatable("The results of all elements will be replaced by those of the "
                             "selected ones. Check these alone?")),
        QMessageBox::Yes | QMessageBox::No, this);
    if (box.exec() != QMessageBox::Yes) return;
  }
  runner_.check(std::move(elements));
}

void MainWindow::show_check_end(const RunEnd& end) {
  show_state();
  if (end.kind == RunEnd::Kind::failed) {
    show_problem(this, end.text);
  } else if (end.kind != RunEnd::Kind::cancelled) {
    display_.change([](DisplayState& state) {
      const bool is_plain = state.colour == Colour::plain || state.colour == Colour::section ||
                            state.colour == Colour::material;
      if (is_plain) state.colour = Colour::worst_ratio;
    });
  }
}

void MainWindow::show_state() {
  const ModelDocument* document = workspace_.document();
  const bool is_idle = !workspace_.is_busy();
  for (QAction* action : model_actions_) action->setEnabled(document != nullptr);
  for (QAction* action : idle_actions_) action->setEnabled(document != nullptr && is_idle);
  cancel_->setEnabled(runner_.can_be_cancelled());
  design_->setEnabled(document != nullptr);
  if (is_idle) {
    progress_->end();
    stop_->hide();
  }
  if (document == nullptr) {
    save_->setEnabled(false);
    return;
  }
  overview_->show_model(document->model(), path_text(document->path()));
  setWindowTitle(path_text(document->path().filename()) + QStringLiteral("[*] - AluFrame"));
  const bool has_changes = document->is_modified() || typed_number(focusWidget()) != nullptr;
  setWindowModified(has_changes);
  save_->setEnabled(has_changes);
  if (!is_idle) return;
  if (!workspace_.results_problem().empty()) {
    state_->setText(QString::fromStdString(workspace_.results_problem()));
  } else if (const run::ShownResults* results = workspace_.results()) {
    const bool is_current = results->cautions.empty() && !document->is_modified();
    const QString outcome = outcome_words(*results);
    state_->setText(
        is_current ? outcome
                   : shown(texts::translated("{}, by earlier results", outcome.toStdString())));
  } else {
    state_->setText(ui_text(translatable("not checked yet")));
  }
}

void MainWindow::show_selection() {
  selection_->setText(QString::fromStdString(texts::counted(workspace_.selection().size(),
                                                            translatable("{} element selected"),
                                                            translatable("{} elements selected"))));
}

void MainWindow::closeEvent(QCloseEvent* event) {
  event->setAccepted(settle_changes());
  if (!event->isAccepted()) return;
  QSettings settings;
  settings.setValue(QStringLiteral("window/geometry"), saveGeometry());
  settings.setValue(QStringLiteral("window/state"), saveState(layout_version));
}

}  // namespace aluframe::desktop
