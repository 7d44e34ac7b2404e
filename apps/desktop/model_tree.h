#pragma once

#include <QWidget>

#include "apps/desktop/tree_model.h"

class QTreeView;

namespace aluframe::desktop {

class Workspace;

/// What the open model consists of and what its results say, as a tree with counts. A click on a
/// line that stands for elements selects them, with Ctrl adds them; Enter does as a click. Lines
/// whose elements the whole selection is among are bold.
class ModelTree : public QWidget {
 public:
  explicit ModelTree(Workspace& workspace);

  QTreeView& view() { return *view_; }
  const TreeModel& tree() const { return tree_; }
  QSize sizeHint() const override;

 private:
  void grow();
  void select(const QModelIndex& index);
  void mark_holding();

  Workspace& workspace_;
  TreeModel tree_;
  QTreeView* view_;
};

}  // namespace aluframe::desktop
