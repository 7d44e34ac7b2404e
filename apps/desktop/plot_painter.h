#pragma once

#include <QFontMetrics>
#include <QPalette>
#include <QRectF>
#include <functional>
#include <vector>

#include "apps/desktop/force_plot.h"

class QPainter;
class QPolygonF;

namespace aluframe::desktop {

/// Where the parts of a plot stand.
struct PlotFrame {
  QRectF force, ratio;  ///< the diagram above, the ratios below
  QRectF room;          ///< both and what is written beside them

  /// @param has_ratios else the diagram has all the room
  static PlotFrame of(const QRect& room, const QFontMetrics& letters, bool has_ratios);
  double x(double fraction) const { return force.left() + fraction * force.width(); }
  double fraction_at(double x) const { return (x - force.left()) / force.width(); }
};

/// Draws forces and ratios along an element in the colours of the palette.
class PlotPainter {
 public:
  PlotPainter(QPainter& painter, const QPalette& palette, const PlotFrame& frame);

  void draw(const PlottedElement& element, double cursor);

 private:
  /// From a value to the screen.
  using Height = std::function<double(double)>;

  void draw_positions(const PlottedElement& element);
  void draw_force(const PlottedElement& element);
  void draw_curve(const PlottedElement& element, const std::vector<picture::Ordinate>& line,
                  const Height& height);
  void draw_extremes(const PlottedElement& element, const Height& height);
  void draw_value(const PlottedElement& element, const picture::Ordinate& at, const Height& height);
  void draw_ratios(const PlottedElement& element);
  void draw_cursor(double cursor);
  void draw_words(const QPointF& at, Qt::Alignment alignment, const QString& text) const;
  bool is_dark() const;

  QPainter& painter_;
  const QPalette& palette_;
  PlotFrame frame_;
  QColor ink_, faint_, positive_, negative_;
};

}  // namespace aluframe::desktop
