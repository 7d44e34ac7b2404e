#pragma once

#include <QDialog>
#include <QUndoStack>
#include <array>
#include <optional>

#include "apps/desktop/workspace.h"

class QCheckBox;
class QComboBox;
class QDialogButtonBox;
class QFormLayout;
class QLabel;
class QLineEdit;

namespace aluframe::desktop {

class SectionSketch;

/// Changes the dimensions of a section, with its drawing beside them. A section by its properties
/// alone has none to change.
class SectionDialog : public QDialog {
 public:
  /// @param shown number of the section that is shown first; it exists
  SectionDialog(QWidget* parent, Workspace& workspace, QUndoStack& undo, model::Number shown);

  /// Makes the change, which can be undone.
  void accept() override;

 private:
  void show_section(model::Number number);
  /// Takes what the edits hold, and shows what is wrong with it.
  void read_edits();
  double millimetres() const;

  Workspace& workspace_;
  QUndoStack& undo_;
  QComboBox* choice_;
  QLabel *shape_, *problem_;
  QFormLayout* form_;
  std::vector<QLineEdit*> edits_;
  QCheckBox* welded_;
  SectionSketch* sketch_;
  QDialogButtonBox* buttons_;
  model::Section section_;  ///< as the edits have it
};

}  // namespace aluframe::desktop
