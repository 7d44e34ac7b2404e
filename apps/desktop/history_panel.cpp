#include "apps/desktop/history_panel.h"

#include <QApplication>
#include <QClipboard>
#include <QFileDialog>
#include <QHBoxLayout>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QTextCursor>
#include <QTime>
#include <QVBoxLayout>

#include "aluframe/files/publication.h"
#include "aluframe/texts/text.h"
#include "apps/desktop/message_boxes.h"
#include "apps/desktop/ui_texts.h"
#include "apps/desktop/workspace.h"
#include "apps/desktop/written_file.h"

namespace aluframe::desktop {

using texts::translatable;

HistoryPanel::HistoryPanel(Workspace& workspace)
    : lines_(new QPlainTextEdit),
      copy_(new QPushButton(ui_text(translatable("Copy")))),
      clear_(new QPushButton(ui_text(translatable("Clear")))),
      save_(new QPushButton(ui_text(translatable("Save as...")))) {
  lines_->setReadOnly(true);
  lines_->setUndoRedoEnabled(false);
  lines_->setMaximumBlockCount(most_lines);
  lines_->setTextInteractionFlags(Qt::TextSelectableByMouse | Qt::TextSelectableByKeyboard);
  lines_->setAccessibleName(ui_text(translatable("History")));
  auto* buttons = new QVBoxLayout;
  for (QPushButton* button : {copy_, clear_, save_}) {
    button->setEnabled(false);
    buttons->addWidget(button);
  }
  buttons->addStretch(1);
  auto* layout = new QHBoxLayout(this);
  layout->addWidget(lines_, 1);
  layout->addLayout(buttons);
  connect(copy_, &QPushButton::clicked, this, [this] { copy(); });
  connect(clear_, &QPushButton::clicked, this, [this] { clear(); });
  connect(save_, &QPushButton::clicked, this, [this] { save(); });
  connect(lines_, &QPlainTextEdit::textChanged, this, [this] {
    const bool has_lines = !lines_->document()->isEmpty();
    for (QPushButton* button : {copy_, clear_, save_}) button->setEnabled(has_lines);
  });
  connect(&workspace, &Workspace::told, this, [this](const QString& line) { add(line); });
}

QSize HistoryPanel::sizeHint() const {
  return {fontMetrics().averageCharWidth() * 90, fontMetrics().height() * 10};
}

void HistoryPanel::add(const QString& line) {
  const QString time = QTime::currentTime().toString(QStringLiteral("HH:mm:ss"));
  const QString below = u'\n' + QString(time.size() + 2, u' ');
  // Lines of one text stand below each other, behind its time.
  lines_->appendPlainText(time + QStringLiteral("  ") +
                          line.trimmed().replace(QStringLiteral("\n"), below));
}

QString HistoryPanel::text() const {
  return lines_->toPlainText();
}

void HistoryPanel::clear() {
  lines_->clear();
}

void HistoryPanel::copy() {
  if (lines_->textCursor().hasSelection()) {
    lines_->copy();
  } else {
    QApplication::clipboard()->setText(text());
  }
}

bool HistoryPanel::save_as(const std::filesystem::path& path) {
  const auto problem = write_chosen_file(translatable("the history"), path, [&] {
    files::publish_text(path, text().toStdString() + "\n");
  });
  if (problem) show_problem(this, *problem);
  return !problem;
}

void HistoryPanel::save() {
  QFileDialog dialog(this, ui_text(translatable("Save the history")));
  dialog.setAcceptMode(QFileDialog::AcceptSave);
  dialog.setNameFilter(ui_text(translatable("Text files (*.txt)")));
  dialog.setDefaultSuffix(QStringLiteral("txt"));
  if (dialog.exec() == QDialog::Accepted) {
    save_as(dialog.selectedFiles().constFirst().toStdString());
  }
}

}  // namespace aluframe::desktop
