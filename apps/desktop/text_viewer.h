#pragma once

#include <QDialog>
#include <filesystem>

class QLabel;
class QLineEdit;
class QPlainTextEdit;

namespace aluframe::desktop {

/// A text such as a report in a window of its own: to be read, searched, copied, printed, saved.
class TextViewer : public QDialog {
 public:
  /// @param file_name that is offered when the text is saved
  TextViewer(QWidget* parent, const QString& title, const QString& text, QString file_name);

  /// Shows the next place of the text that is looked for. @return false when there is none
  bool find_next(bool backwards = false);
  /// Writes the text to a file, or says why it cannot.
  bool save_as(const std::filesystem::path& path);

 private:
  void save();
  void print();

  QPlainTextEdit* text_;
  QLineEdit* looked_for_;
  QLabel* found_;
  QString file_name_;
};

}  // namespace aluframe::desktop
