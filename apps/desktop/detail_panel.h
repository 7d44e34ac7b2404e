#pragma once

#include <QWidget>

#include "apps/desktop/prepared_input.h"
#include "apps/desktop/workspace.h"

class QTabWidget;

namespace aluframe::desktop {

class CheckList;
class ElementHead;
class StepTree;

/// Everything about one element: what it is, its checks and how they come about, the forces along
/// it, and its section. Of several selected elements it is the one that was picked last.
class DetailPanel : public QWidget {
 public:
  explicit DetailPanel(Workspace& workspace);

  QSize sizeHint() const override;

 private:
  void refresh();

  Workspace& workspace_;
  PreparedInput prepared_;
  ElementHead* head_;
  CheckList* checks_;
  StepTree* steps_;
  QTabWidget* tabs_;
};

}  // namespace aluframe::desktop
