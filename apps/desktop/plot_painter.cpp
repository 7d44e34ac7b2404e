#include "apps/desktop/plot_painter.h"

#include <fmt/format.h>

#include <QPainter>
#include <QPainterPath>
#include <algorithm>
#include <cmath>

#include "aluframe/picture/colours.h"
#include "aluframe/picture/drawing.h"
#include "aluframe/services/run_monitor.h"
#include "aluframe/tables/names.h"
#include "aluframe/texts/text.h"
#include "apps/desktop/result_words.h"
#include "apps/desktop/ui_texts.h"

namespace aluframe::desktop {

namespace {

using picture::Ordinate;
using texts::translatable;

QColor colour_of(std::string_view name) {
  return QColor(QString::fromLatin1(name.data(), static_cast<qsizetype>(name.size())));
}

/// Moments are drawn on the tension side, other forces upwards where they are positive.
bool points_down(picture::ForceComponent component) {
  return component == picture::ForceComponent::my || component == picture::ForceComponent::mz;
}

/// Smallest and largest value, 0 among them.
std::pair<double, double> extent_of(const PlottedElement& element) {
  double low = 0.0, high = 0.0;
  for (const auto* line : {&element.force.values, &element.force.minimum}) {
    for (const Ordinate& one : *line) {
      if (!std::isfinite(one.value)) continue;
      low = std::min(low, one.value);
      high = std::max(high, one.value);
    }
  }
  return {low, high};
}

const Ordinate* extreme_of(const PlottedElement& element, double value) {
  for (const auto* line : {&element.force.values, &element.force.minimum}) {
    const auto found = std::ranges::find(*line, value, &Ordinate::value);
    if (found != line->end()) return &*found;
  }
  return nullptr;
}

}  // namespace

PlotFrame PlotFrame::of(const QRect& room, const QFontMetrics& letters, bool has_ratios) {
  const double line = letters.height(), side = 2.2 * line;
  const QRectF inner = QRectF(room).adjusted(side, 0.4 * line, -side, -0.4 * line);
  // Names of the positions and their distances stand between the two parts.
  constexpr double gap = 3.4;  // lines
  const double usable = std::max(2.0, inner.height() - (1.0 + gap) * line);
  const double above = has_ratios ? 0.64 * usable : usable;
  return {
      QRectF(inner.left(), inner.top() + line, inner.width(), above),
      QRectF(inner.left(), inner.top() + above + (1.0 + gap) * line, inner.width(), usable - above),
      QRectF(room)};
}

PlotPainter::PlotPainter(QPainter& painter, const QPalette& palette, const PlotFrame& frame)
    : painter_(painter),
      palette_(palette),
      frame_(frame),
      ink_(palette.color(QPalette::WindowText)),
      faint_(ink_),
      positive_(colour_of(picture::blue)),
      negative_(colour_of(picture::orange)) {
  faint_.setAlphaF(0.35F);
  if (!is_dark()) return;
  positive_ = positive_.lighter(190);
  negative_ = negative_.lighter(150);
}

bool PlotPainter::is_dark() const {
  return palette_.color(QPalette::Window).lightness() < ink_.lightness();
}

void PlotPainter::draw(const PlottedElement& element, double cursor) {
  draw_positions(element);
  draw_force(element);
  if (element.has_ratios()) draw_ratios(element);
  draw_cursor(cursor);
}

void PlotPainter::draw_words(const QPointF& at, Qt::Alignment alignment,
                             const QString& text) const {
  const QSizeF size = QFontMetricsF(painter_.font()).size(0, text) + QSizeF(2.0, 0.0);
  QPointF corner = at - QPointF(0.5 * size.width(), 0.5 * size.height());
  if (alignment.testFlag(Qt::AlignTop)) corner.setY(at.y());
  if (alignment.testFlag(Qt::AlignBottom)) corner.setY(at.y() - size.height());
  if (alignment.testFlag(Qt::AlignLeft)) corner.setX(at.x());
  if (alignment.testFlag(Qt::AlignRight)) corner.setX(at.x() - size.width());
  const double last = frame_.room.right() - size.width() - 1.0;
  corner.setX(std::clamp(corner.x(), 1.0, std::max(1.0, last)));
  painter_.drawText(QRectF(corner, size), Qt::AlignCenter, text);
}

/// The check positions, how far they are from the start, and lines up and down from them.
void PlotPainter::draw_positions(const PlottedElement& element) {
  const double unit = model::millimetres_per(element.units.length);
  const double line = painter_.fontMetrics().height();
  for (int position = 0; position < kCheckPositions; ++position) {
    const double fraction = static_cast<double>(position) / (kCheckPositions - 1);
    const double x = frame_.x(fraction);
    painter_.setPen(QPen(faint_, 1.0, Qt::DotLine));
    painter_.drawLine(QLineF(x, frame_.force.top(), x, frame_.force.bottom()));
    painter_.setPen(ink_);
    std::string far = picture::short_text(fraction * element.length / unit);
    if (position == kCheckPositions - 1)
      far += fmt::format(" {}", model::name_of(element.units.length));
    draw_words({x, frame_.force.bottom() + 1.2 * line}, Qt::AlignTop, position_words(position));
    draw_words({x, frame_.force.bottom() + 2.1 * line}, Qt::AlignTop, shown(far));
  }
}

void PlotPainter::draw_force(const PlottedElement& element) {
  if (element.force.values.empty()) {
    painter_.setPen(ink_);
    return draw_words(frame_.force.center(), Qt::AlignCenter,
                      ui_text(translatable("no forces are known")));
  }
  const auto [low, high] = extent_of(element);
  const bool is_down = points_down(element.component);
  const double span = high > low ? high - low : 1.0;
  const double top = is_down ? low : high;
  const double per_value = (is_down ? 1.0 : -1.0) * frame_.force.height() / span;
  // Without any force its line stands in the middle.
  const double start = high > low ? frame_.force.top() : frame_.force.center().y();
  const Height height = [=](double value) { return start + (value - top) * per_value; };
  draw_curve(element, element.force.values, height);
  if (!element.force.minimum.empty()) draw_curve(element, element.force.minimum, height);
  painter_.setPen(QPen(ink_, 2.0));
  painter_.drawLine(QLineF(frame_.x(0.0), height(0.0), frame_.x(1.0), height(0.0)));
  draw_extremes(element, height);
}

/// The area between the curve and the element, and the curve; dashed where only its ends are known.
void PlotPainter::draw_curve(const PlottedElement& element, const std::vector<Ordinate>& line,
                             const Height& height) {
  QPolygonF curve;
  for (const Ordinate& one : line) {
    if (std::isfinite(one.value)) curve << QPointF(frame_.x(one.fraction), height(one.value));
  }
  if (curve.isEmpty()) return;
  QPolygonF area = curve;
  area << QPointF(curve.back().x(), height(0.0)) << QPointF(curve.front().x(), height(0.0));
  const double zero = height(0.0);
  const bool is_down = points_down(element.component);
  const QRectF all = QRectF(frame_.force).adjusted(-2.0, -2.0, 2.0, 2.0);
  const QRectF above(all.topLeft(), QPointF(all.right(), zero));
  const QRectF below(QPointF(all.left(), zero), all.bottomRight());
  for (const bool is_positive : {true, false}) {
    painter_.save();
    painter_.setClipRect(is_positive == is_down ? below : above);
    QColor colour = is_positive ? positive_ : negative_;
    painter_.setPen(
        QPen(colour, 1.6, element.is_known_at_ends_only() ? Qt::DashLine : Qt::SolidLine));
    painter_.setBrush(Qt::NoBrush);
    painter_.drawPolyline(curve);
    colour.setAlphaF(element.is_known_at_ends_only() ? 0.08F : 0.22F);
    painter_.setPen(Qt::NoPen);
    painter_.setBrush(colour);
    painter_.drawPolygon(area);
    painter_.restore();
  }
}

void PlotPainter::draw_extremes(const PlottedElement& element, const Height& height) {
  const auto [low, high] = extent_of(element);
  if (low == high) {
    painter_.setPen(ink_);
    return draw_words(
        frame_.force.center() + QPointF(0, 4), Qt::AlignTop,
        shown(texts::translated("{} is 0 everywhere", picture::name_of(element.component))));
  }
  constexpr double worth_telling = 0.01;
  for (const double value : {low, high}) {
    if (std::fabs(value) < worth_telling * std::max(-low, high)) continue;
    if (const Ordinate* at = extreme_of(element, value)) draw_value(element, *at, height);
  }
}

void PlotPainter::draw_value(const PlottedElement& element, const Ordinate& at,
                             const Height& height) {
  const std::string text = picture::is_moment(element.component)
                               ? picture::moment_text(element.units, at.value)
                               : picture::force_text(element.units, at.value);
  const bool is_below = height(at.value) > height(0.0);
  painter_.setPen(at.value > 0.0 ? positive_ : negative_);
  const QPointF tip(frame_.x(at.fraction), height(at.value));
  painter_.setBrush(painter_.pen().color());
  painter_.drawEllipse(tip, 2.5, 2.5);
  draw_words(tip + QPointF(0, is_below ? 2.0 : -2.0), is_below ? Qt::AlignTop : Qt::AlignBottom,
             shown(text));
}

/// A bar for every position that has a ratio; one that fails is hatched, and its value bold.
void PlotPainter::draw_ratios(const PlottedElement& element) {
  double largest = 1.0;
  for (const double ratio : element.ratios) {
    if (std::isfinite(ratio)) largest = std::max(largest, ratio);
  }
  const QRectF& room = frame_.ratio;
  const double line = painter_.fontMetrics().height();
  const double full = room.height() - line;
  const auto height = [&](double ratio) {
    const double shown_ratio = std::isfinite(ratio) ? std::max(0.0, ratio) : largest;
    return room.bottom() - full * shown_ratio / largest;
  };
  const double width = std::min(0.12 * room.width(), 2.4 * line);
  for (int position = 0; position < kCheckPositions; ++position) {
    const double ratio = element.ratios.at(static_cast<std::size_t>(position));
    if (std::isnan(ratio)) continue;
    const bool fails = services::exceeds_limit(ratio);
    const QColor colour = fails ? negative_ : positive_;
    const double x = frame_.x(static_cast<double>(position) / (kCheckPositions - 1));
    const QRectF bar(QPointF(x - 0.5 * width, height(ratio)),
                     QPointF(x + 0.5 * width, room.bottom()));
    QColor fill = colour;
    fill.setAlphaF(0.3F);
    painter_.setPen(QPen(colour, fails ? 2.0 : 1.0));
    painter_.setBrush(fails ? QBrush(colour, Qt::BDiagPattern) : QBrush(fill));
    painter_.drawRect(bar);
    const QFont plain = painter_.font();
    QFont font = plain;
    font.setBold(fails);
    painter_.setFont(font);
    painter_.setPen(ink_);
    draw_words({x, bar.top() - 1.0}, Qt::AlignBottom, shown(tables::short_number(ratio)));
    painter_.setFont(plain);
  }
  painter_.setPen(QPen(ink_, 1.4, Qt::DashLine));
  const double limit = height(1.0);
  painter_.drawLine(QLineF(room.left() - line, limit, room.right() + line, limit));
  painter_.setPen(ink_);
  draw_words({room.left() - 1.2 * line, limit}, Qt::AlignRight, QStringLiteral("1"));
  painter_.drawLine(QLineF(room.left() - line, room.bottom(), room.right() + line, room.bottom()));
}

void PlotPainter::draw_cursor(double cursor) {
  painter_.setPen(QPen(palette_.color(QPalette::Highlight), 1.6));
  const double x = frame_.x(cursor);
  painter_.drawLine(QLineF(x, frame_.force.top() - 4.0, x, frame_.force.bottom() + 4.0));
  if (frame_.ratio.height() > 0.0) {
    painter_.drawLine(QLineF(x, frame_.ratio.top(), x, frame_.ratio.bottom()));
  }
}

}  // namespace aluframe::desktop
