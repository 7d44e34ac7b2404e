#pragma once

#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "aluframe/explain/step.h"
#include "apps/desktop/detail_part.h"
#include "apps/desktop/prepared_input.h"
#include "apps/desktop/workspace.h"

class QComboBox;
class QLabel;
class QTextBrowser;
class QTreeWidget;
class QTreeWidgetItem;

namespace aluframe::desktop {

/// How a check of the element that details are shown of comes about: its ratio as the root of a
/// tree, under each quantity those that it follows from, and below the tree the chosen quantity
/// with its formula, the numbers put in, its clause and its reason.
///
/// The steps are those of the module's own functions, which one run, dialog or explanation at a
/// time can use: they are made when they are looked at, and not while anything else is going on.
class StepTree : public DetailPart {
 public:
  StepTree(Workspace& workspace, PreparedInput& prepared);

  /// @param item RALU_ITEM_TYPE
  void choose(int item);

 protected:
  void refresh() override;

 private:
  /// A check of the element, and its steps or why there are none.
  struct Explained {
    int item = 0;
    explain::StepPointer root;
    QString heading;
    std::string problem;
  };

  /// Of the element that details are shown of; null: it has none.
  const run::ElementResult* current_result() const;
  /// Why there is nothing to be shown now; empty: there is.
  QString obstacle();
  void fill_items(const run::ElementResult& result);
  void explain_all(const run::ElementResult& result);
  void show_chosen();
  void show_step(const QTreeWidgetItem* item);
  void clear(const QString& said);

  Workspace& workspace_;
  PreparedInput& prepared_;
  QComboBox* item_;
  QLabel* said_;
  QTreeWidget* tree_;
  QTextBrowser* step_;
  std::shared_ptr<const run::Input> explained_input_;
  std::optional<model::Number> listed_;  ///< the element whose checks can be chosen
  std::optional<model::Number> explained_element_;
  std::vector<Explained> explained_;
};

}  // namespace aluframe::desktop
