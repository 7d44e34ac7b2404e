#include "apps/desktop/force_plot.h"

#include <fmt/format.h>

#include <QKeyEvent>
#include <QMouseEvent>
#include <QPainter>
#include <algorithm>
#include <cmath>

#include "aluframe/picture/drawing.h"
#include "aluframe/tables/names.h"
#include "aluframe/texts/text.h"
#include "apps/desktop/plot_painter.h"
#include "apps/desktop/result_words.h"
#include "apps/desktop/ui_texts.h"

namespace aluframe::desktop {

namespace {

using texts::translatable;

std::string text_of(const PlottedElement& element, double value) {
  return picture::is_moment(element.component) ? picture::moment_text(element.units, value)
                                               : picture::force_text(element.units, value);
}

/// "3.2 kN", or where it jumps "3.2 kN | −1 kN".
std::string side_text(const PlottedElement& element, const std::vector<picture::Ordinate>& line,
                      double fraction) {
  std::string text;
  for (const double value : values_at(line, fraction)) {
    text += (text.empty() ? "" : " | ") + text_of(element, value);
  }
  return text;
}

/// The check position at a place, or nothing.
std::optional<int> position_at(double fraction) {
  const double place = fraction * (kCheckPositions - 1);
  const double nearest = std::round(place);
  if (std::fabs(place - nearest) > 1e-6) return std::nullopt;
  return static_cast<int>(nearest);
}

QString force_words(const PlottedElement& element, double cursor) {
  const std::string name(picture::name_of(element.component));
  const bool is_unknown = element.is_known_at_ends_only() && cursor > 0.0 && cursor < 1.0;
  const std::string high = side_text(element, element.force.values, cursor);
  if (high.empty() || is_unknown) return shown(texts::translated("{} is not known", name));
  if (element.force.minimum.empty()) return shown(fmt::format("{} {}", name, high));
  const std::string low = side_text(element, element.force.minimum, cursor);
  return shown(texts::translated("{} largest {}, smallest {}", name, high, low));
}

/// Of the nearest check position: nothing is known of the ratio between two.
QString ratio_words(const PlottedElement& element, double cursor) {
  const double nearest = std::round(cursor * (kCheckPositions - 1));
  const auto position = static_cast<std::size_t>(nearest);
  const double ratio = element.ratios.at(position);
  if (std::isnan(ratio)) return {};
  return shown(texts::translated("largest ratio at {}: {}",
                                 position_words(static_cast<int>(position)).toStdString(),
                                 tables::short_number(ratio)));
}

}  // namespace

bool PlottedElement::is_known_at_ends_only() const {
  return !force.values.empty() &&
         std::ranges::all_of(force.values, [](const picture::Ordinate& value) {
           return value.fraction == 0.0 || value.fraction == 1.0;
         });
}

bool PlottedElement::has_ratios() const {
  return std::ranges::any_of(ratios, [](double ratio) { return !std::isnan(ratio); });
}

std::vector<double> values_at(const std::vector<picture::Ordinate>& line, double fraction) {
  using picture::Ordinate;
  constexpr double close = 1e-9;
  std::vector<double> values;
  for (const Ordinate& one : line) {
    const bool is_here = std::fabs(one.fraction - fraction) < close;
    if (is_here && (values.empty() || values.back() != one.value)) values.push_back(one.value);
  }
  if (values.size() > 2) values = {values.front(), values.back()};
  if (!values.empty()) return values;
  const auto behind = std::ranges::lower_bound(line, fraction, {}, &Ordinate::fraction);
  if (behind == line.begin() || behind == line.end()) return {};
  const Ordinate& before = *(behind - 1);
  const double share = (fraction - before.fraction) / (behind->fraction - before.fraction);
  return {before.value + share * (behind->value - before.value)};
}

ForcePlot::ForcePlot() {
  setMouseTracking(true);
  setFocusPolicy(Qt::StrongFocus);
  setAccessibleName(ui_text(translatable("Forces along the element")));
  setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Expanding);
}

void ForcePlot::show_element(PlottedElement element) {
  element_ = std::move(element);
  set_cursor(cursor_);
}

void ForcePlot::show_nothing() {
  element_.reset();
  set_cursor(cursor_);
}

void ForcePlot::set_cursor(double fraction) {
  cursor_ = std::clamp(fraction, 0.0, 1.0);
  setAccessibleDescription(cursor_text());
  update();
  Q_EMIT cursor_moved();
}

QString ForcePlot::cursor_text() const {
  if (!element_) return {};
  const double unit = model::millimetres_per(element_->units.length);
  std::string place =
      fmt::format("x = {} {}", picture::short_text(cursor_ * element_->length / unit),
                  model::name_of(element_->units.length));
  if (const auto position = position_at(cursor_)) {
    place += fmt::format(" ({})", position_words(*position).toStdString());
  }
  QStringList parts{shown(place), force_words(*element_, cursor_)};
  if (const QString ratio = ratio_words(*element_, cursor_); !ratio.isEmpty())
    parts.push_back(ratio);
  return parts.join(QStringLiteral("  ·  "));
}

QSize ForcePlot::sizeHint() const {
  return {26 * fontMetrics().height(), 18 * fontMetrics().height()};
}

QSize ForcePlot::minimumSizeHint() const {
  return {16 * fontMetrics().height(), 13 * fontMetrics().height()};
}

void ForcePlot::paintEvent(QPaintEvent* /*event*/) {
  if (!element_) return;
  QPainter painter(this);
  painter.setRenderHint(QPainter::Antialiasing);
  const PlotFrame frame = PlotFrame::of(rect(), fontMetrics(), element_->has_ratios());
  PlotPainter(painter, palette(), frame).draw(*element_, cursor_);
  if (!hasFocus()) return;
  painter.setPen(QPen(palette().color(QPalette::Highlight), 1.0));
  painter.setBrush(Qt::NoBrush);
  painter.drawRect(QRectF(rect()).adjusted(0.5, 0.5, -0.5, -0.5));
}

void ForcePlot::mouseMoveEvent(QMouseEvent* event) {
  const bool has_ratios = element_ && element_->has_ratios();
  const PlotFrame frame = PlotFrame::of(rect(), fontMetrics(), has_ratios);
  set_cursor(frame.fraction_at(event->position().x()));
}

/// Arrows by a hundredth of the length, Page Up and Down by a check position, Home and End.
void ForcePlot::keyPressEvent(QKeyEvent* event) {
  constexpr double step = 0.01, quarter = 1.0 / (kCheckPositions - 1), slack = 1e-6;
  const double hundredths = std::round(cursor_ / step) * step;
  switch (event->key()) {
    case Qt::Key_Left:
      return set_cursor(hundredths - step);
    case Qt::Key_Right:
      return set_cursor(hundredths + step);
    case Qt::Key_PageUp:
      return set_cursor(quarter * std::floor((cursor_ + quarter + slack) / quarter));
    case Qt::Key_PageDown:
      return set_cursor(quarter * std::ceil((cursor_ - quarter - slack) / quarter));
    case Qt::Key_Home:
      return set_cursor(0.0);
    case Qt::Key_End:
      return set_cursor(1.0);
    default:
      QWidget::keyPressEvent(event);
  }
}

}  // namespace aluframe::desktop
