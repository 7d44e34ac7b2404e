#pragma once

#include <QWidget>

#include "apps/desktop/workspace.h"

class QFormLayout;
class QLabel;

namespace aluframe::desktop {

/// What the element is that details are shown of, and what must be said before its results are
/// trusted.
class ElementHead : public QWidget {
 public:
  explicit ElementHead(Workspace& workspace);

  void refresh();

 private:
  void show_element(const model::Element& element);
  void show_title(const model::Element& element);
  QStringList notices(const model::Element& element) const;
  void add_fact(const char* name, const QString& value);

  Workspace& workspace_;
  QLabel* title_;
  QFormLayout* facts_;
  QLabel* notices_;
};

}  // namespace aluframe::desktop
