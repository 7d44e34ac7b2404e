#pragma once

#include <QUndoStack>
#include <QWidget>
#include <functional>
#include <vector>

#include "apps/desktop/workspace.h"

class QLabel;
class QLineEdit;
class QVBoxLayout;

namespace aluframe::desktop {

class AttributeGroup;

/// The design attributes of the selected elements, edited for all of them at once: each attribute
/// is given, or comes from the member, the settings or the program, which the panel says. Where
/// elements differ it says so too. Every change can be undone.
class AttributePanel : public QWidget {
 public:
  AttributePanel(Workspace& workspace, QUndoStack& undo);
  ~AttributePanel() override;

 private:
  void refresh();
  /// Changes the selected elements that the change makes different, in one step.
  void edit(const QString& text, const std::function<void(model::Element&)>& change);

  Workspace& workspace_;
  QUndoStack& undo_;
  QLabel* heading_;
  std::vector<AttributeGroup*> groups_;
};

/// Where a number of the panel is being typed that has not been taken up yet, if the focus is
/// there.
QLineEdit* typed_number(QWidget* focus);

}  // namespace aluframe::desktop
