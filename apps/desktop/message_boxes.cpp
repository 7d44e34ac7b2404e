#include "apps/desktop/message_boxes.h"

#include <QApplication>
#include <QMessageBox>
#include <iostream>

namespace aluframe::desktop {

int show_message_box(const std::string& text, UINT type) {
  QMessageBox box(QApplication::activeWindow());
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

}  // namespace aluframe::desktop
