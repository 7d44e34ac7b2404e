#pragma once

#include <optional>

#include "apps/desktop/detail_part.h"
#include "apps/desktop/workspace.h"

class QLabel;
class QTableWidget;

namespace aluframe::desktop {

/// What the results say of the element that details are shown of: its governing checks, the worst
/// one chosen; its second opinion, what of it was not checked, and remarks on it.
class CheckList : public DetailPart {
  Q_OBJECT

 public:
  explicit CheckList(Workspace& workspace);

 Q_SIGNALS:
  /// The user wants to follow a check. @param item RALU_ITEM_TYPE
  void wanted(int item);

 protected:
  void refresh() override;
  void resizeEvent(QResizeEvent* event) override;

 private:
  void show_checks(const run::ElementResult& result, const store::RunInfo& info);
  void fill_width();
  QStringList said_of(model::Number element) const;

  Workspace& workspace_;
  QTableWidget* checks_;
  QLabel* said_;
};

}  // namespace aluframe::desktop
