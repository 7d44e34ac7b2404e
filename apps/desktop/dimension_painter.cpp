#include "apps/desktop/dimension_painter.h"

#include <QFontMetricsF>
#include <QPainter>
#include <algorithm>

#include "apps/desktop/result_words.h"

namespace aluframe::desktop {

using section::DimensionLine;
using Kind = DimensionLine::Kind;

DimensionPainter::DimensionPainter(QPainter& painter, const std::vector<DimensionLine>& lines,
                                   const QColor& ink)
    : painter_(painter),
      lines_(lines),
      ink_(ink),
      letters_(QFontMetricsF(painter.font()).height()),
      row_(0.8 * letters_),
      arrow_(0.4 * letters_) {}

double DimensionPainter::width_of(const DimensionLine& line) const {
  return QFontMetricsF(painter_.font()).horizontalAdvance(shown(line.text));
}

double DimensionPainter::widest(Kind kind) const {
  double width = 0.0;
  for (const DimensionLine& line : lines_) {
    if (line.kind == kind) width = std::max(width, width_of(line));
  }
  return width;
}

QTransform DimensionPainter::fit(const QRectF& section, const QRectF& room) {
  const double edge = 0.3 * letters_;
  const double beside = row_ + letters_ + edge;
  const double right = row_ + arrow_ + std::max(widest(Kind::thickness), letters_) + edge;
  const QRectF inner = room.adjusted(beside, beside, -right, -beside);
  const double scale =
      std::max(1e-6, std::min(inner.width() / section.width(), inner.height() / section.height()));
  const QPointF corner = inner.center() - scale * section.center();
  to_screen_ = QTransform(scale, 0, 0, scale, corner.x(), corner.y());
  frame_ = to_screen_.mapRect(section);
  return to_screen_;
}

void DimensionPainter::draw() const {
  painter_.setPen(QPen(ink_, 1.0));
  for (const DimensionLine& line : lines_) {
    switch (line.kind) {
      case Kind::above:
        draw_across(line, frame_.top() - row_);
        break;
      case Kind::below:
        draw_across(line, frame_.bottom() + row_);
        break;
      case Kind::beside:
        draw_beside(line);
        break;
      case Kind::thickness:
        draw_thickness(line);
        break;
      case Kind::wall:
        draw_wall(line);
        break;
    }
  }
}

void DimensionPainter::draw_across(const DimensionLine& line, double level) const {
  const double from = x(line.from), to = x(line.to), face = y(line.level);
  const double beyond = level < face ? -arrow_ : arrow_;
  for (const double at : {from, to}) painter_.drawLine(QLineF(at, face, at, level + 0.5 * beyond));
  if (to - from > 5.0 * arrow_) {
    painter_.drawLine(QLineF(from, level, to, level));
    draw_arrow({from, level}, {-1, 0});
    draw_arrow({to, level}, {1, 0});
  } else {
    draw_from_outside({from, level}, {1, 0});
    draw_from_outside({to, level}, {-1, 0});
  }
  const double top = level < face ? level - letters_ - 0.1 * letters_ : level + 0.1 * letters_;
  const double width = width_of(line) + 2.0;
  painter_.drawText(QRectF(0.5 * (from + to - width), top, width, letters_), Qt::AlignCenter,
                    shown(line.text));
}

void DimensionPainter::draw_beside(const DimensionLine& line) const {
  const double at = frame_.left() - row_;
  const double from = y(line.from), to = y(line.to);
  for (const double z : {from, to}) {
    painter_.drawLine(QLineF(x(line.level), z, at - 0.5 * arrow_, z));
  }
  painter_.drawLine(QLineF(at, from, at, to));
  draw_arrow({at, from}, {0, 1});
  draw_arrow({at, to}, {0, -1});
  const double width = width_of(line) + 2.0;
  painter_.save();
  painter_.translate(at - 0.6 * letters_, 0.5 * (from + to));
  painter_.rotate(-90.0);
  painter_.drawText(QRectF(-0.5 * width, -0.5 * letters_, width, letters_), Qt::AlignCenter,
                    shown(line.text));
  painter_.restore();
}

void DimensionPainter::draw_thickness(const DimensionLine& line) const {
  const double at = frame_.right() + 0.5 * row_;
  const double from = y(line.from), to = y(line.to);
  for (const double z : {from, to}) {
    painter_.drawLine(QLineF(x(line.level), z, at + 0.5 * arrow_, z));
  }
  draw_from_outside({at, from}, {0, -1});
  draw_from_outside({at, to}, {0, 1});
  painter_.drawText(
      QRectF(at + arrow_, 0.5 * (from + to) - 0.5 * letters_, width_of(line) + 2.0, letters_),
      Qt::AlignLeft | Qt::AlignVCenter, shown(line.text));
}

void DimensionPainter::draw_wall(const DimensionLine& line) const {
  const double level = y(line.level), to = x(line.to);
  draw_from_outside({x(line.from), level}, {1, 0});
  draw_from_outside({to, level}, {-1, 0});
  painter_.drawText(
      QRectF(to + 3.4 * arrow_, level - 0.5 * letters_, width_of(line) + 2.0, letters_),
      Qt::AlignLeft | Qt::AlignVCenter, shown(line.text));
}

void DimensionPainter::draw_from_outside(const QPointF& tip, const QPointF& towards) const {
  painter_.drawLine(QLineF(tip - 3.0 * arrow_ * towards, tip));
  draw_arrow(tip, towards);
}

void DimensionPainter::draw_arrow(const QPointF& tip, const QPointF& towards) const {
  const QPointF back = tip - arrow_ * towards;
  const QPointF aside = 0.3 * arrow_ * QPointF(-towards.y(), towards.x());
  painter_.drawLine(tip, back + aside);
  painter_.drawLine(tip, back - aside);
}

}  // namespace aluframe::desktop
