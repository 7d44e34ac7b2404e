#include "apps/desktop/text_viewer.h"

#include <QDialogButtonBox>
#include <QFileDialog>
#include <QFontDatabase>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QPrintDialog>
#include <QPrinter>
#include <QPushButton>
#include <QShortcut>
#include <QTextDocument>
#include <QVBoxLayout>
#include <utility>

#include "aluframe/files/publication.h"
#include "aluframe/texts/text.h"
#include "apps/desktop/message_boxes.h"
#include "apps/desktop/ui_texts.h"
#include "apps/desktop/written_file.h"

namespace aluframe::desktop {

using texts::translatable;

TextViewer::TextViewer(QWidget* parent, const QString& title, const QString& text,
                       QString file_name)
    : QDialog(parent),
      text_(new QPlainTextEdit),
      looked_for_(new QLineEdit),
      found_(new QLabel),
      file_name_(std::move(file_name)) {
  setWindowTitle(title);
  setAttribute(Qt::WA_DeleteOnClose);
  setWindowFlag(Qt::WindowMaximizeButtonHint);
  text_->setAccessibleName(title);
  text_->setReadOnly(true);
  text_->setLineWrapMode(QPlainTextEdit::NoWrap);
  text_->setFont(QFontDatabase::systemFont(QFontDatabase::FixedFont));
  text_->setPlainText(text);
  text_->setTextInteractionFlags(Qt::TextSelectableByMouse | Qt::TextSelectableByKeyboard);
  looked_for_->setPlaceholderText(ui_text(translatable("Find")));
  looked_for_->setAccessibleName(looked_for_->placeholderText());
  looked_for_->setClearButtonEnabled(true);
  auto* bar = new QHBoxLayout;
  bar->addWidget(looked_for_, 1);
  bar->addWidget(found_);
  const auto add_button = [bar](const char* name, auto action) {
    auto* button = new QPushButton(ui_text(name));
    button->setAutoDefault(false);
    QObject::connect(button, &QPushButton::clicked, button, action);
    bar->addWidget(button);
  };
  add_button(translatable("Previous"), [this] { find_next(true); });
  add_button(translatable("Next"), [this] { find_next(); });
  add_button(translatable("Copy all"), [this] {
    text_->selectAll();
    text_->copy();
  });
  add_button(translatable("Print..."), [this] { print(); });
  add_button(translatable("Save as..."), [this] { save(); });
  auto* layout = new QVBoxLayout(this);
  layout->addLayout(bar);
  layout->addWidget(text_);
  connect(looked_for_, &QLineEdit::returnPressed, this, [this] { find_next(); });
  auto* find = new QShortcut(QKeySequence::Find, this);
  connect(find, &QShortcut::activated, looked_for_, [this] {
    looked_for_->setFocus();
    looked_for_->selectAll();
  });
  auto* next = new QShortcut(QKeySequence::FindNext, this);
  connect(next, &QShortcut::activated, this, [this] { find_next(); });
  const QFontMetrics metrics(text_->font());
  constexpr int columns = 96, lines = 40;
  resize(columns * metrics.averageCharWidth(), lines * metrics.height());
}

bool TextViewer::find_next(bool backwards) {
  const QString wanted = looked_for_->text();
  found_->clear();
  if (wanted.isEmpty()) return false;
  const auto flags = backwards ? QTextDocument::FindBackward : QTextDocument::FindFlags();
  if (text_->find(wanted, flags)) return true;
  // Once more from the other end.
  const QTextCursor here = text_->textCursor();
  text_->moveCursor(backwards ? QTextCursor::End : QTextCursor::Start);
  if (text_->find(wanted, flags)) return true;
  text_->setTextCursor(here);
  found_->setText(ui_text(translatable("not found")));
  return false;
}

bool TextViewer::save_as(const std::filesystem::path& path) {
  const auto problem = write_chosen_file(translatable("the text"), path, [&] {
    files::publish_text(path, text_->toPlainText().toStdString());
  });
  if (problem) show_problem(this, *problem);
  return !problem;
}

void TextViewer::save() {
  QFileDialog dialog(this, windowTitle());
  dialog.setAcceptMode(QFileDialog::AcceptSave);
  dialog.setNameFilter(ui_text(translatable("Text files (*.txt)")));
  dialog.setDefaultSuffix(QStringLiteral("txt"));
  dialog.selectFile(file_name_);
  if (dialog.exec() == QDialog::Accepted) {
    save_as(dialog.selectedFiles().constFirst().toStdString());
  }
}

void TextViewer::print() {
  QPrinter printer(QPrinter::HighResolution);
  QPrintDialog dialog(&printer, this);
  if (dialog.exec() == QDialog::Accepted) text_->print(&printer);
}

}  // namespace aluframe::desktop
