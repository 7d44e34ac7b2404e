#pragma once

#include <QColor>
#include <QTransform>
#include <vector>

#include "aluframe/section/dimension_lines.h"

class QPainter;

namespace aluframe::desktop {

/// Draws the dimensions of a section around it, with letters of the painter's font.
class DimensionPainter {
 public:
  DimensionPainter(QPainter& painter, const std::vector<section::DimensionLine>& lines,
                   const QColor& ink);

  /// Where the section stands so that its dimensions have room around it.
  /// @param section mm, z downwards. @return from there to the screen
  QTransform fit(const QRectF& section, const QRectF& room);
  /// After `fit`.
  void draw() const;

 private:
  void draw_across(const section::DimensionLine& line, double level) const;
  void draw_beside(const section::DimensionLine& line) const;
  void draw_thickness(const section::DimensionLine& line) const;
  void draw_wall(const section::DimensionLine& line) const;
  /// An arrow from outside to a face, for what is too thin for arrows within.
  void draw_from_outside(const QPointF& tip, const QPointF& towards) const;
  void draw_arrow(const QPointF& tip, const QPointF& towards) const;
  double widest(section::DimensionLine::Kind kind) const;
  double width_of(const section::DimensionLine& line) const;
  double x(double y_mm) const { return to_screen_.map(QPointF(y_mm, 0.0)).x(); }
  double y(double z_mm) const { return to_screen_.map(QPointF(0.0, -z_mm)).y(); }

  QPainter& painter_;
  const std::vector<section::DimensionLine>& lines_;
  QColor ink_;
  double letters_, row_, arrow_;  ///< heights and lengths on the screen
  QTransform to_screen_;
  QRectF frame_;  ///< the section on the screen
};

}  // namespace aluframe::desktop
