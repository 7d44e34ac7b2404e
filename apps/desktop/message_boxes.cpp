#include "apps/desktop/message_boxes.h"

#include <QApplication>
#include <QMessageBox>
#include <QPushButton>
#include <iostream>

#include "aluframe/texts/text.h"
#include "apps/desktop/ui_texts.h"

namespace aluframe::desktop {

using texts::translatable;

int show_message_box(const std::string& text, UINT type) {
  QMessageBox box(QApplication::activeWindow());
  // Without any the window manager would show the program's name.
  box.setWindowTitle(QStringLiteral(" "));
  box.setTextFormat(Qt::PlainText);
  box.setText(QString::fromStdString(text));
  if ((type & MB_ICONEXCLAMATION) != 0) box.setIcon(QMessageBox::Warning);
  box.addButton(QMessageBox::Ok);
  box.exec();
  constexpr int button_ok = 1;
  return button_ok;
}

void print_problem(const std::string& text) {
  std::cerr << "aluframe-desktop: " << text << '\n';
}

void show_problem(QWidget* parent, const std::string& text) {
  print_problem(text);
  QMessageBox box(QMessageBox::Critical, QStringLiteral("AluFrame"), QString::fromStdString(text),
                  QMessageBox::Ok, parent);
  box.setTextFormat(Qt::PlainText);
  box.exec();
}

SaveChoice ask_to_save(QWidget* parent, const QString& file, const QString& question) {
  constexpr auto buttons = QMessageBox::Save | QMessageBox::Discard | QMessageBox::Cancel;
  QMessageBox box(QMessageBox::Question, QStringLiteral("AluFrame"), file + u'\n' + question,
                  buttons, parent);
  box.setTextFormat(Qt::PlainText);
  box.setDefaultButton(QMessageBox::Save);
  switch (box.exec()) {
    case QMessageBox::Save:
      return SaveChoice::save;
    case QMessageBox::Discard:
      return SaveChoice::discard;
    default:
      return SaveChoice::cancel;
  }
}

std::optional<io::Keep> ask_whose(QWidget* parent, const std::filesystem::path& file,
                                  const std::vector<io::Conflict>& conflicts) {
  const std::string question = texts::translated("{}: another program has changed the same values:",
                                                 file.filename().string()) +
                               "\n\n" + io::conflicts_text(conflicts);
  constexpr auto buttons = QMessageBox::Yes | QMessageBox::No | QMessageBox::Cancel;
  QMessageBox box(QMessageBox::Question, QStringLiteral("AluFrame"),
                  QString::fromStdString(question), buttons, parent);
  box.setTextFormat(Qt::PlainText);
  box.button(QMessageBox::Yes)->setText(ui_text(translatable("Keep mine")));
  box.button(QMessageBox::No)->setText(ui_text(translatable("Keep theirs")));
  box.button(QMessageBox::Cancel)->setText(ui_text(translatable("Cancel")));
  box.setDefaultButton(QMessageBox::Cancel);
  switch (box.exec()) {
    case QMessageBox::Yes:
      return io::Keep::mine;
    case QMessageBox::No:
      return io::Keep::theirs;
    default:
      return std::nullopt;
  }
}

}  // namespace aluframe::desktop
