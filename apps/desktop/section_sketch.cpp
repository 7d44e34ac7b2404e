#include "apps/desktop/section_sketch.h"

#include <QPainter>
#include <algorithm>
#include <cmath>
#include <numbers>

#include "aluframe/section/outline.h"
#include "aluframe/section/section_properties.h"
#include "aluframe/texts/text.h"
#include "apps/desktop/dimension_painter.h"
#include "apps/desktop/result_words.h"
#include "apps/desktop/ui_texts.h"

namespace aluframe::desktop {

namespace {

using section::OutlineCorner;

/// Where a corner's arc begins or ends: its radius away from it. z downwards.
QPointF beside(const OutlineCorner& corner, const OutlineCorner& other) {
  const double y = other.y - corner.y, z = other.z - corner.z;
  const double share = corner.radius / std::hypot(y, z);
  return {corner.y + share * y, -(corner.z + share * z)};
}

double degrees(const QPointF& of) {
  return std::atan2(-of.y(), of.x()) * 180.0 / std::numbers::pi;
}

/// A line to the corner, or to where its arc begins, and the arc. Corners with a radius are square.
void add_corner(QPainterPath& path, const OutlineCorner& before, const OutlineCorner& corner,
                const OutlineCorner& after, bool is_first) {
  const QPointF at(corner.y, -corner.z);
  const QPointF from = corner.radius > 0.0 ? beside(corner, before) : at;
  is_first ? path.moveTo(from) : path.lineTo(from);
  if (corner.radius <= 0.0) return;
  const QPointF to = beside(corner, after);
  const QPointF centre = from + to - at;
  const double start = degrees(from - centre);
  const double sweep = std::remainder(degrees(to - centre) - start, 360.0);
  const double size = 2.0 * corner.radius;
  path.arcTo(centre.x() - corner.radius, centre.y() - corner.radius, size, size, start, sweep);
}

QPainterPath path_of(const section::Outline& outline) {
  QPainterPath path;
  path.setFillRule(Qt::OddEvenFill);
  for (const auto& line : outline) {
    const std::size_t n = line.size();
    for (std::size_t i = 0; i < n; ++i) {
      add_corner(path, line[(i + n - 1) % n], line[i], line[(i + 1) % n], i == 0);
    }
    path.closeSubpath();
  }
  return path;
}

QColor blend(const QColor& a, const QColor& b, double share) {
  const auto mix = [share](int of_a, int of_b) {
    return static_cast<int>(std::lround(of_a + share * (of_b - of_a)));
  };
  return {mix(a.red(), b.red()), mix(a.green(), b.green()), mix(a.blue(), b.blue())};
}

}  // namespace

SectionSketch::SectionSketch() {
  setAccessibleName(ui_text(texts::translatable("Drawing of the section")));
  setToolTip(ui_text(texts::translatable("cross: centroid; ring: shear centre")));
  setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Expanding);
}

void SectionSketch::show_section(const model::Section& section) {
  show_nothing();
  setVisible(section.shape != model::Shape::other);
  if (section.shape == model::Shape::other) return;
  const model::SectionProperties properties = section::properties_of(section);
  outline_ = path_of(section::outline_of(section));
  dimensions_ = section::dimension_lines_of(section);
  shear_centre_ = {properties.shear_centre_y, -properties.shear_centre_z};
  QStringList values;
  for (const section::DimensionLine& line : dimensions_) values.push_back(shown(line.text));
  setAccessibleDescription(values.join(QStringLiteral(", ")));
  update();
}

void SectionSketch::show_nothing() {
  outline_ = {};
  dimensions_.clear();
  update();
}

QSize SectionSketch::sizeHint() const {
  return {20 * fontMetrics().height(), 16 * fontMetrics().height()};
}

QSize SectionSketch::minimumSizeHint() const {
  return {14 * fontMetrics().height(), 12 * fontMetrics().height()};
}

void SectionSketch::paintEvent(QPaintEvent* /*event*/) {
  if (outline_.isEmpty()) return;
  QPainter painter(this);
  painter.setRenderHint(QPainter::Antialiasing);
  DimensionPainter dimensions(painter, dimensions_, palette().color(QPalette::WindowText));
  const QRectF whole = outline_.boundingRect().united({shear_centre_, QSizeF(1e-6, 1e-6)});
  const QTransform to_screen = dimensions.fit(whole, rect());
  const QColor ground = palette().color(QPalette::Window);
  const QColor ink = palette().color(QPalette::WindowText);
  painter.setPen(QPen(ink, 0.1 * fontMetrics().lineWidth() + 1.2));
  painter.setBrush(blend(ground, palette().color(QPalette::Highlight), 0.35));
  painter.drawPath(to_screen.map(outline_));
  painter.setBrush(Qt::NoBrush);
  dimensions.draw();
  const double mark = 0.35 * fontMetrics().height();
  const QPointF centroid = to_screen.map(QPointF(0.0, 0.0));
  painter.setPen(QPen(ink, 1.6));
  painter.drawLine(centroid - QPointF(mark, 0), centroid + QPointF(mark, 0));
  painter.drawLine(centroid - QPointF(0, mark), centroid + QPointF(0, mark));
  painter.drawEllipse(to_screen.map(shear_centre_), 0.75 * mark, 0.75 * mark);
}

}  // namespace aluframe::desktop
