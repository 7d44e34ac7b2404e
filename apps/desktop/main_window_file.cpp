// The window and the file of its model: opened, read again, saved, and changed by others.

#include <QApplication>
#include <QLineEdit>
#include <QMessageBox>
#include <QStackedWidget>
#include <QTimer>
#include <utility>

#include "aluframe/texts/text.h"
#include "apps/desktop/attribute_panel.h"
#include "apps/desktop/frame_view.h"
#include "apps/desktop/main_window.h"
#include "apps/desktop/message_boxes.h"
#include "apps/desktop/model_edit_command.h"
#include "apps/desktop/ui_texts.h"

namespace aluframe::desktop {

namespace {

using texts::translatable;

std::filesystem::file_time_type time_of(const std::filesystem::path& path) {
  std::error_code ignored;
  return std::filesystem::last_write_time(path, ignored);
}

}  // namespace

void MainWindow::show_document(ModelDocument document) {
  known_time_ = time_of(document.path());
  undo_.clear();
  workspace_.show_document(std::move(document));
  if (workspace_.results() != nullptr) {
    display_.change([](DisplayState& state) { state.colour = Colour::worst_ratio; });
  }
  pages_->setCurrentWidget(view_);
  watch_file();
  note_recent(workspace_.document()->path());
  show_state();
  offer_left_changes();
}

void MainWindow::offer_left_changes() {
  auto left = autosave_.left_for(*workspace_.document());
  if (!left) return;
  QMessageBox box(QMessageBox::Question, QStringLiteral("AluFrame"),
                  QString::fromStdString(texts::translated(
                      "{}: an earlier session ended with changes that were not saved, of {}. Put "
                      "them in again?",
                      workspace_.document()->path().filename().string(),
                      QLocale().toString(left->time, QLocale::ShortFormat).toStdString())),
                  QMessageBox::Yes | QMessageBox::No, this);
  box.setTextFormat(Qt::PlainText);
  if (box.exec() == QMessageBox::Yes) {
    undo_.push(new ModelEditCommand(workspace_, ui_text(translatable("earlier changes")),
                                    std::move(left->before), std::move(left->after)));
  } else {
    autosave_.drop();
  }
}

void MainWindow::open(const std::filesystem::path& path) {
  if (!settle_changes()) return;
  const QSignalBlocker unwatched(watcher_);
  QApplication::setOverrideCursor(Qt::WaitCursor);
  auto opened = ModelDocument::open(path);
  QApplication::restoreOverrideCursor();
  if (const auto* problem = std::get_if<std::string>(&opened)) {
    show_problem(this, *problem);
  } else {
    show_document(std::get<ModelDocument>(std::move(opened)));
  }
}

void MainWindow::reload() {
  auto opened = ModelDocument::open(workspace_.document()->path());
  known_time_ = time_of(workspace_.document()->path());
  if (const auto* problem = std::get_if<std::string>(&opened)) {
    workspace_.tell(*problem);
    show_problem(this, *problem);
  } else {
    show_document(std::get<ModelDocument>(std::move(opened)));
  }
}

bool MainWindow::reload_beneath_changes() {
  const ModelDocument& mine = *workspace_.document();
  auto opened = ModelDocument::open(mine.path());
  if (const auto* problem = std::get_if<std::string>(&opened)) {
    known_time_ = time_of(mine.path());
    workspace_.tell(*problem);
    show_problem(this, *problem);
    return true;
  }
  auto& theirs = std::get<ModelDocument>(opened);
  io::Merge merge = mine.merge_into(theirs.model(), io::Keep::theirs);
  if (!merge.conflicts.empty()) {
    const auto keep = ask_keep()(merge.conflicts);
    if (!keep) return false;
    merge = mine.merge_into(theirs.model(), *keep);
  }
  model::Model merged = theirs.model();
  io::apply_changes(merge.changes, merged);
  EditedParts before = parts_changed(theirs.model(), merged);
  EditedParts after = parts_changed(merged, theirs.model());
  workspace_.tell(texts::translated("{}: changed by another program, read again; your changes stay",
                                    mine.path().string()));
  // They are put in again at once, so that there is nothing to offer.
  autosave_.drop();
  show_document(std::move(theirs));
  if (after.empty()) return true;
  undo_.push(new ModelEditCommand(workspace_, ui_text(translatable("earlier changes")),
                                  std::move(before), std::move(after)));
  autosave_.keep();
  return true;
}

void MainWindow::take_typed() {
  if (QLineEdit* line = typed_number(focusWidget())) Q_EMIT line->editingFinished();
}

bool MainWindow::save() {
  take_typed();
  ModelDocument* document = workspace_.document();
  if (document == nullptr) return true;
  const SaveEnd end = document->save(ask_keep());
  if (end.problem) show_problem(this, *end.problem);
  if (!end.is_saved()) return false;
  known_time_ = time_of(document->path());
  watch_file();
  workspace_.refresh_results();
  workspace_.tell_edited();
  // What the other program changed stays in the file and is to be seen here too.
  if (end.was_changed_outside) reload();
  return true;
}

io::AskKeep MainWindow::ask_keep() {
  return [this](const std::vector<io::Conflict>& conflicts) {
    // What happens to the file meanwhile waits for the answer.
    is_asking_ = true;
    const auto answer = ask_whose(this, workspace_.document()->path(), conflicts);
    is_asking_ = false;
    return answer;
  };
}

bool MainWindow::save_as(const std::filesystem::path& path) {
  take_typed();
  ModelDocument* document = workspace_.document();
  // They are kept by the file's name.
  autosave_.drop();
  const SaveEnd end = document->save_as(path, ask_keep());
  if (!end.is_saved()) {
    autosave_.keep();
    if (end.problem) show_problem(this, *end.problem);
    return false;
  }
  known_time_ = time_of(document->path());
  watch_file();
  note_recent(document->path());
  workspace_.refresh_results();
  workspace_.tell_edited();
  if (end.was_changed_outside) reload();
  return true;
}

bool MainWindow::settle_changes() {
  take_typed();
  const ModelDocument* document = workspace_.document();
  if (document == nullptr || !document->is_modified()) return true;
  switch (ask_to_save(this, path_text(document->path().filename()),
                      ui_text(translatable("Save the changes?")))) {
    case SaveChoice::save:
      return save();
    case SaveChoice::discard:
      autosave_.drop();
      return true;
    case SaveChoice::cancel:
      return false;
  }
  return false;
}

bool MainWindow::save_for_run() {
  take_typed();
  if (!workspace_.document()->is_modified()) return true;
  QMessageBox box(QMessageBox::Question, QStringLiteral("AluFrame"),
                  ui_text(translatable("The changes must be saved first.")),
                  QMessageBox::Save | QMessageBox::Cancel, this);
  return box.exec() == QMessageBox::Save && save();
}

void MainWindow::watch_file() {
  if (!watcher_.files().isEmpty()) watcher_.removePaths(watcher_.files());
  watcher_.addPath(path_text(workspace_.document()->path()));
}

void MainWindow::file_changed() {
  const ModelDocument* document = workspace_.document();
  if (document == nullptr || is_asking_) return;
  std::error_code ignored;
  if (!std::filesystem::exists(document->path(), ignored)) {
    if (!is_gone_) {
      workspace_.tell(
          texts::translated("{}: is gone; the window keeps what it held, and saving "
                            "writes it again",
                            document->path().string()));
    }
    is_gone_ = true;
    // A watch ends with its file.
    look_again_.start();
    return;
  }
  is_gone_ = false;
  watch_file();
  const auto time = time_of(document->path());
  if (time == known_time_ || time == refused_time_ || workspace_.is_busy()) return;
  if (typed_number(focusWidget()) != nullptr) {
    // It would be lost, and half of a number is none.
    look_again_.start();
    return;
  }
  if (!document->is_modified()) {
    workspace_.tell(
        texts::translated("{}: changed by another program, read again", document->path().string()));
    reload();
  } else if (!reload_beneath_changes()) {
    refused_time_ = time;
  }
}

}  // namespace aluframe::desktop
