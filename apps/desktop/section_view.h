#pragma once

#include "apps/desktop/detail_part.h"
#include "apps/desktop/workspace.h"

class QBoxLayout;
class QFormLayout;
class QLabel;

namespace aluframe::desktop {

class SectionSketch;

/// The section of the element that details are shown of: its drawing, and beside or below it, where
/// there is room, its dimensions and properties.
class SectionView : public DetailPart {
 public:
  explicit SectionView(Workspace& workspace);

 protected:
  void refresh() override;
  void resizeEvent(QResizeEvent* event) override;

 private:
  void add_value(const QString& name, const QString& value);
  void show_values(const model::Section& section);

  Workspace& workspace_;
  QBoxLayout* parts_;
  QLabel* name_;
  SectionSketch* sketch_;
  QFormLayout* values_;
};

}  // namespace aluframe::desktop
