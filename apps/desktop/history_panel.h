#pragma once

#include <QWidget>
#include <filesystem>

class QPlainTextEdit;
class QPushButton;

namespace aluframe::desktop {

class Workspace;

/// What has happened, a line each with its time of day; the last ones, when there are very many.
class HistoryPanel : public QWidget {
 public:
  /// So many lines are kept.
  static constexpr int most_lines = 10000;

  explicit HistoryPanel(Workspace& workspace);

  QString text() const;
  void clear();
  /// Of all lines, or of what is selected in them.
  void copy();
  /// A problem is told in a box. @return whether the file was written
  bool save_as(const std::filesystem::path& path);
  QSize sizeHint() const override;

 private:
  void add(const QString& line);
  void save();

  QPlainTextEdit* lines_;
  QPushButton* copy_;
  QPushButton* clear_;
  QPushButton* save_;
};

}  // namespace aluframe::desktop
