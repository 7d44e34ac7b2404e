#pragma once

#include <QWidget>
#include <filesystem>
#include <optional>
#include <string>

#include "aluframe/run/subject_forces.h"
#include "apps/desktop/shown_table.h"

class QComboBox;
class QLabel;
class QLineEdit;
class QPushButton;
class QStackedWidget;
class QToolButton;

namespace aluframe::desktop {

class TableView;
class Workspace;

/// Tables of the open model and its results: to choose, sort, filter, copy and save. A table is
/// made when it is first seen, and again when what it shows has changed. Rows that stand for
/// elements select these, and are selected when all their elements are.
class TablePanel : public QWidget {
 public:
  explicit TablePanel(Workspace& workspace);

  void show_table(TableKind kind);
  TableKind kind() const { return kind_; }
  /// As if it were typed.
  void filter_by(const QString& text);
  TableView& view() { return *view_; }
  /// Chooses what forces are shown of.
  void choose_subject(const run::Subject& subject);
  /// Computes the forces of the chosen load case or combination, where that takes an analysis.
  void compute_forces();
  /// Saves the rows that are shown. A problem is told in a box.
  /// @return whether the file was written
  bool save_as(const std::filesystem::path& path);
  /// Asks for the file first.
  void save();

  QSize sizeHint() const override;

 protected:
  void showEvent(QShowEvent* event) override;

 private:
  void create_chooser();
  void create_force_line();
  void arrange();
  void listen();
  /// Makes the table again, at once when it can be seen.
  void make_again();
  void make_table();
  ShownTable make_forces();
  void list_subjects();
  std::optional<run::Subject> subject() const;
  /// Null: they are not known.
  const model::Model* model_with_forces_of(const run::Subject& subject) const;
  /// @return what stands in the way
  std::optional<std::string> find_forces_of(const run::Subject& subject);
  void update_buttons();

  std::optional<std::string> write_to(const std::filesystem::path& path) const;

  void select_in_model();
  bool stands_for_selected(std::size_t row) const;
  void mark_selected();
  void update_count();
  void open_menu(const QPoint& at);

  Workspace& workspace_;
  TableKind kind_ = TableKind::overview;
  QComboBox* chooser_ = nullptr;
  QLineEdit* filter_ = nullptr;
  QLabel* count_ = nullptr;
  QToolButton* save_ = nullptr;
  QWidget* force_line_ = nullptr;
  QComboBox* subjects_ = nullptr;
  QPushButton* compute_ = nullptr;
  QStackedWidget* pages_ = nullptr;
  TableView* view_ = nullptr;
  QLabel* message_ = nullptr;  ///< in place of a table without rows

  RowElements elements_;
  bool is_stale_ = true;  ///< the table is to be made again
  bool is_selecting_ = false;
  /// The model with forces, and whether these are of combinations in second order.
  struct KnownForces {
    model::Model model;
    bool of_second_order = false;
  };
  std::optional<KnownForces> forces_;
};

}  // namespace aluframe::desktop
