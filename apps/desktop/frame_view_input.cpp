// What mouse and keyboard do in the view of the frame.

#include <QContextMenuEvent>
#include <QGuiApplication>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QStyleHints>
#include <cmath>
#include <utility>

#include "aluframe/tables/names.h"
#include "aluframe/texts/text.h"
#include "apps/desktop/frame_view.h"

namespace aluframe::desktop {

namespace {

using viewport::Pixel;

constexpr double reach = 7.0;  ///< pixels from an element that a click picks it
constexpr double degrees_per_pixel = 0.4;
constexpr double key_degrees = 5.0, key_pixels = 40.0;
constexpr double zoom_step = 1.2;

Pixel pixel_of(const QPointF& at) {
  return {at.x(), at.y(), 0.0};
}

Picking picking_of(Qt::KeyboardModifiers modifiers) {
  if (modifiers.testFlag(Qt::ControlModifier)) return Picking::toggle;
  return modifiers.testFlag(Qt::ShiftModifier) ? Picking::add : Picking::replace;
}

}  // namespace

viewport::Sight FrameView::sight() const {
  return {camera_, view_size(), content_.lines,
          [this](model::Number element) { return !workspace_.is_hidden(element); }};
}

std::optional<model::Number> FrameView::element_at(const QPointF& at) const {
  return viewport::pick(sight(), pixel_of(at), reach);
}

void FrameView::pick_at(const QPointF& at, Picking picking) {
  const auto element = element_at(at);
  if (element) {
    workspace_.select({*element}, picking);
  } else if (picking == Picking::replace) {
    workspace_.clear_selection();
  }
}

void FrameView::pick_band(const QPointF& to, Picking picking) {
  const auto kind =
      to.x() >= pressed_.x() ? viewport::BandKind::window : viewport::BandKind::crossing;
  workspace_.select(viewport::pick_in(sight(), {pixel_of(pressed_), pixel_of(to)}, kind), picking);
}

bool FrameView::look_by_cube(const QPointF& at) {
  for (const CubeSide& side :
       cube_sides(camera_.view(), view_size(), QFontMetricsF(font()).height())) {
    if (!side.outline.containsPoint(at, Qt::OddEvenFill)) continue;
    look(side.view);
    return true;
  }
  return false;
}

void FrameView::mousePressEvent(QMouseEvent* event) {
  if (workspace_.document() == nullptr) return;
  pressed_ = last_ = event->position();
  if (event->button() == Qt::LeftButton && look_by_cube(pressed_)) return;
  const bool turns =
      event->button() == Qt::RightButton ||
      (event->button() == Qt::LeftButton && event->modifiers().testFlag(Qt::AltModifier));
  drag_ = turns                                 ? Drag::turn
          : event->button() == Qt::MiddleButton ? Drag::move
          : event->button() == Qt::LeftButton   ? Drag::band
                                                : Drag::none;
}

void FrameView::mouseMoveEvent(QMouseEvent* event) {
  const QPointF at = event->position();
  const QPointF by = at - last_;
  switch (drag_) {
    case Drag::none: {
      if (workspace_.document() == nullptr) return;
      const auto element = element_at(at);
      Q_EMIT pointed_at(element ? text_of(*element) : QString());
      return;
    }
    case Drag::band:
      if ((at - pressed_).manhattanLength() < QGuiApplication::styleHints()->startDragDistance())
        return;
      band_.setGeometry(QRect(pressed_.toPoint(), at.toPoint()).normalized());
      band_.show();
      return;
    case Drag::turn:
      camera_.orbit(-degrees_per_pixel * by.x(), degrees_per_pixel * by.y());
      break;
    case Drag::move:
      camera_.pan(by.x(), by.y(), view_size());
      break;
  }
  last_ = at;
  camera_moved();
}

void FrameView::mouseReleaseEvent(QMouseEvent* event) {
  const Drag drag = std::exchange(drag_, Drag::none);
  if (drag != Drag::band) return;
  const Picking picking = picking_of(event->modifiers());
  if (band_.isVisible()) {
    band_.hide();
    pick_band(event->position(), picking);
  } else {
    pick_at(event->position(), picking);
  }
}

void FrameView::mouseDoubleClickEvent(QMouseEvent* event) {
  if (event->button() == Qt::MiddleButton) fit();
}

void FrameView::wheelEvent(QWheelEvent* event) {
  constexpr double notch = 120.0;
  camera_.zoom(std::pow(zoom_step, event->angleDelta().y() / notch), pixel_of(event->position()),
               view_size());
  camera_moved();
}

void FrameView::keyPressEvent(QKeyEvent* event) {
  const bool moves = event->modifiers().testFlag(Qt::ShiftModifier);
  const Pixel middle{0.5 * width(), 0.5 * height(), 0.0};
  const auto step = [&](double right, double down) {
    if (moves) {
      camera_.pan(key_pixels * right, key_pixels * down, view_size());
    } else {
      camera_.orbit(-key_degrees * right, key_degrees * down);
    }
  };
  switch (event->key()) {
    case Qt::Key_Left:
      step(-1, 0);
      break;
    case Qt::Key_Right:
      step(1, 0);
      break;
    case Qt::Key_Up:
      step(0, -1);
      break;
    case Qt::Key_Down:
      step(0, 1);
      break;
    case Qt::Key_Plus:
    case Qt::Key_Equal:
      camera_.zoom(zoom_step, middle, view_size());
      break;
    case Qt::Key_Minus:
      camera_.zoom(1.0 / zoom_step, middle, view_size());
      break;
    case Qt::Key_F:
      fit();
      return;
    case Qt::Key_Escape:
      workspace_.clear_selection();
      return;
    default:
      QWidget::keyPressEvent(event);
      return;
  }
  camera_moved();
}

void FrameView::leaveEvent(QEvent* event) {
  Q_EMIT pointed_at({});
  QWidget::leaveEvent(event);
}

/// A right drag turns the frame; there is no menu behind it.
void FrameView::contextMenuEvent(QContextMenuEvent* event) {
  event->accept();
}

QString FrameView::text_of(model::Number number) const {
  const model::Model& model = workspace_.model();
  const model::Element& element = *model.elements.find(number);
  const std::string& section = model.sections.find(element.section)->name;
  std::string text = texts::translated("element {}", number);
  if (!element.name.empty()) text += " \"" + element.name + "\"";
  if (!section.empty()) text += ", " + section;
  const run::ShownResults* results = workspace_.results();
  const run::ElementResult* result = results == nullptr ? nullptr : results->find(number);
  if (result != nullptr && run::was_judged(result->worst())) {
    const store::GoverningRow& worst = result->worst();
    text += texts::translated(", ratio {} ({}, combination {})",
                              tables::short_number(worst.governing.Ratio()),
                              texts::translation_of(tables::item_name(worst.item)),
                              tables::number_of_combination(results->info, worst.governing.nLComb));
  } else if (results != nullptr) {
    text += texts::translated(", without a ratio");
  }
  return QString::fromStdString(text);
}

}  // namespace aluframe::desktop
