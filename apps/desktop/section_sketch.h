#pragma once

#include <QPainterPath>
#include <QWidget>
#include <optional>
#include <vector>

#include "aluframe/model/section.h"
#include "aluframe/section/dimension_lines.h"

namespace aluframe::desktop {

/// A drawing of a section as large as there is room: its material with fillets, its dimensions, its
/// centroid as a cross and its shear centre as a ring.
class SectionSketch : public QWidget {
 public:
  SectionSketch();

  /// Of shape `other` there is nothing to draw.
  void show_section(const model::Section& section);
  void show_nothing();

  QSize sizeHint() const override;
  QSize minimumSizeHint() const override;

 protected:
  void paintEvent(QPaintEvent* event) override;

 private:
  QPainterPath outline_;  ///< mm, y to the right, z downwards
  std::vector<section::DimensionLine> dimensions_;
  QPointF shear_centre_;
};

}  // namespace aluframe::desktop
