#include "apps/desktop/frame_view.h"

#include <QContextMenuEvent>
#include <QGuiApplication>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QOffscreenSurface>
#include <QOpenGLContext>
#include <QOpenGLFunctions>
#include <QStyleHints>
#include <QVBoxLayout>
#include <algorithm>
#include <cmath>
#include <numbers>
#include <utility>

#include "aluframe/picture/colours.h"
#include "aluframe/picture/view.h"
#include "aluframe/tables/names.h"
#include "aluframe/texts/text.h"
#include "apps/desktop/element_looks.h"
#include "apps/desktop/frame_canvas.h"
#include "apps/desktop/shown_forces.h"
#include "apps/desktop/ui_texts.h"

namespace aluframe::desktop {

namespace {

using texts::translatable;
using viewport::Pixel;

constexpr double reach = 7.0;  ///< pixels from an element that a click picks it
constexpr double degrees_per_pixel = 0.4;
constexpr double key_degrees = 5.0, key_pixels = 40.0;
constexpr double zoom_step = 1.2;
/// Symbols of larger frames are left out while they turn.
constexpr std::size_t most_turning = 1500;
constexpr int settled_after = 200;  ///< ms
constexpr int beat = 33;            ///< ms between pictures of the animation
constexpr double beats_per_round = 60.0;

Pixel pixel_of(const QPointF& at) {
  return {at.x(), at.y(), 0.0};
}

QColor colour_of(const picture::Style& style, const QPalette& palette) {
  return themed(style.stroke, palette);
}

ElementLook look_of(const picture::Style& style, const QPalette& palette) {
  // Lines on a screen are seen from farther away than lines on paper.
  constexpr double pixels_per_mm = 2.6;
  return {colour_of(style, palette), static_cast<float>(std::max(1.3, pixels_per_mm * style.width)),
          !style.dash.empty()};
}

Picking picking_of(Qt::KeyboardModifiers modifiers) {
  if (modifiers.testFlag(Qt::ControlModifier)) return Picking::toggle;
  return modifiers.testFlag(Qt::ShiftModifier) ? Picking::add : Picking::replace;
}

enum class Graphics { none, software, card };

Graphics look_for_graphics() {
  // A switch for machines whose driver is broken.
  if (qEnvironmentVariableIsSet("ALUFRAME_NO_OPENGL")) return Graphics::none;
  QOpenGLContext context;
  if (!context.create()) return Graphics::none;
  QOffscreenSurface surface;
  surface.setFormat(context.format());
  surface.create();
  if (!surface.isValid() || !context.makeCurrent(&surface)) return Graphics::none;
  const auto* name = context.functions()->glGetString(GL_RENDERER);
  const QByteArray renderer(reinterpret_cast<const char*>(name));
  context.doneCurrent();
  const bool is_software = renderer.contains("llvmpipe") || renderer.contains("softpipe");
  return is_software ? Graphics::software : Graphics::card;
}

Graphics screen_graphics() {
  static const Graphics graphics = look_for_graphics();
  return graphics;
}

bool is_layer_shown(const DisplayState& state, picture::Layer layer) {
  if (layer == picture::Layer::supports) return state.supports;
  if (layer == picture::Layer::releases) return state.releases;
  return true;
}

}  // namespace

bool FrameView::has_opengl() {
  return screen_graphics() != Graphics::none;
}

bool FrameView::draws_in_software() {
  return screen_graphics() == Graphics::software;
}

FrameView::FrameView(Workspace& workspace, Display& display)
    : workspace_(workspace),
      display_(display),
      shown_state_(display.state()),
      forces_(new ShownForces(workspace, display)),
      band_(QRubberBand::Rectangle, this) {
  forces_->setParent(this);
  setFocusPolicy(Qt::StrongFocus);
  setMouseTracking(true);
  setAccessibleName(ui_text(translatable("View of the frame")));
  canvas_ = (has_opengl() ? create_gl_canvas(*this) : create_plain_canvas(*this)).release();
  auto* layout = new QVBoxLayout(this);
  layout->setContentsMargins(0, 0, 0, 0);
  layout->addWidget(&canvas_->widget());
  settle_.setSingleShot(true);
  settle_.setInterval(settled_after);
  connect(&settle_, &QTimer::timeout, this, [this] {
    is_turning_ = false;
    canvas_->refresh();
  });
  beat_.setInterval(beat);
  connect(&beat_, &QTimer::timeout, this, [this] {
    phase_ = std::fmod(phase_ + 1.0 / beats_per_round, 1.0);
    canvas_->refresh();
  });
  connect(&workspace_, &Workspace::document_changed, this, [this] { take_model(); });
  connect(&workspace_, &Workspace::edited, this, [this] { take_model(); });
  connect(&workspace_, &Workspace::results_changed, this, [this] { take_looks(); });
  connect(&workspace_, &Workspace::selection_changed, this, [this] { take_shown(); });
  connect(&workspace_, &Workspace::visibility_changed, this, [this] { take_shown(); });
  connect(&display_, &Display::changed, this, [this] { take_display(); });
  connect(forces_, &ShownForces::changed, this, [this] { take_forces(); });
  if (workspace_.document() != nullptr) take_model();
}

FrameView::~FrameView() {
  // The surface draws from what the view holds.
  delete canvas_;
}

bool FrameView::draws_with_opengl() const {
  return canvas_->draws_with_opengl();
}

viewport::Size FrameView::view_size() const {
  return {std::max(1.0, static_cast<double>(width())),
          std::max(1.0, static_cast<double>(height()))};
}

double FrameView::deformation() const {
  const double swing = display_.state().animated ? std::sin(2.0 * std::numbers::pi * phase_) : 1.0;
  return swing * display_.state().deformed_factor * content_.deformed_scale;
}

QColor FrameView::halo() const {
  return {0xE6, 0x00, 0x7E};
}

void FrameView::take_model() {
  content_.lines = viewport::element_lines(workspace_.model());
  const viewport::Bounds before = content_.bounds;
  content_.bounds = viewport::bounds_of(viewport::ends_of(content_.lines));
  content_.solid = {};
  if (display_.state().solid) {
    content_.solid =
        viewport::solid_mesh(workspace_.model(), content_.lines, content_.bounds.centre);
  }
  const bool is_other = length_of(content_.bounds.centre - before.centre) > 1e-6 * before.radius ||
                        content_.bounds.radius != before.radius;
  if (is_other) {
    camera_.look(picture::natural_view(workspace_.model()));
    was_fitted_ = false;
  }
  take_looks();
  take_shown();
  canvas_->refresh({.lines = true, .solid = true});
}

void FrameView::take_looks() {
  if (workspace_.document() == nullptr) return;
  std::string problem;
  ElementColours colours = element_colours(workspace_, display_.state(), problem);
  if (!problem.empty()) workspace_.tell(problem);
  picture::Content content;
  content.colour = colours.by;
  content.ratios = std::move(colours.ratios);
  auto [styles, legend] = picture::element_styles(workspace_.model(), content);
  content_.looks.clear();
  for (const picture::Style& style : styles) content_.looks.push_back(look_of(style, palette()));
  content_.behind = {.colour = themed(picture::grey, palette()), .width = 1.0F};
  legend_ = std::move(legend);
  legend_title_ = colours.title;
  ratios_ = std::move(content.ratios);
  scene_.reset();
  canvas_->refresh({.looks = true, .shown = true, .deformed = true});
}

void FrameView::take_shown() {
  content_.is_shown.clear();
  content_.is_selected.clear();
  for (const viewport::ElementLine& line : content_.lines) {
    content_.is_shown.push_back(!workspace_.is_hidden(line.number));
    content_.is_selected.push_back(workspace_.is_selected(line.number));
  }
  scene_.reset();
  canvas_->refresh({.looks = true, .shown = true, .deformed = true});
}

void FrameView::take_display() {
  const DisplayState before = std::exchange(shown_state_, display_.state());
  const DisplayState& now = shown_state_;
  camera_.set_projection(now.projection);
  if (now.animated && !std::holds_alternative<std::monostate>(now.deformed)) {
    beat_.start();
  } else {
    beat_.stop();
  }
  if (workspace_.document() == nullptr) return;
  if (now.solid != before.solid) {
    content_.solid = {};
    if (now.solid) {
      content_.solid =
          viewport::solid_mesh(workspace_.model(), content_.lines, content_.bounds.centre);
    }
    canvas_->refresh({.looks = true, .shown = true, .solid = true});
  }
  const auto colouring = [](const DisplayState& state) {
    return std::tuple(state.colour, state.item, state.combination);
  };
  if (colouring(now) != colouring(before)) take_looks();
  scene_.reset();
  canvas_->refresh();
}

void FrameView::take_forces() {
  content_.deformed = forces_->deformed();
  if (content_.deformed) {
    content_.deformed_scale =
        picture::displacement_scale(*content_.deformed, 2.0 * content_.bounds.radius);
  }
  take_looks();
  canvas_->refresh({.shown = true, .deformed = true});
}

void FrameView::camera_moved() {
  is_turning_ = true;
  settle_.start();
  scene_.reset();
  canvas_->refresh();
}

void FrameView::look(const picture::View& view) {
  camera_.look(view);
  camera_moved();
  fit();
}

void FrameView::fit(bool selection_only) {
  std::vector<picture::Point3> points;
  const bool are_some_selected = selection_only && !workspace_.selection().empty();
  for (const viewport::ElementLine& line : content_.lines) {
    if (workspace_.is_hidden(line.number)) continue;
    if (are_some_selected && !workspace_.is_selected(line.number)) continue;
    points.push_back(line.start);
    points.push_back(line.end);
  }
  camera_.fit(points, view_size());
  canvas_->refresh();
}

QImage FrameView::picture() {
  return canvas_->picture();
}

picture::Content FrameView::scene_content() const {
  const DisplayState& state = display_.state();
  picture::Content content;
  content.view = camera_.view();
  content.node_numbers.are_shown = state.node_numbers;
  content.element_numbers.are_shown = state.element_numbers;
  content.local_axes = state.local_axes;
  content.loads = state.loads;
  if (content.loads && workspace_.model().load_cases.find(*content.loads) == nullptr) {
    content.loads.reset();
  }
  content.diagram = forces_->diagram();
  if (!ratios_.empty()) {
    content.colour = picture::ColourBy::ratio;
    content.ratios = ratios_;
  }
  return content;
}

const picture::Scene& FrameView::scene() {
  if (scene_) return *scene_;
  scene_ = picture::draw_beside(workspace_.model(), scene_content());
  const auto is_left_out = [this](const auto& item) {
    const bool is_of_hidden = item.subject.kind == picture::Subject::Kind::element &&
                              workspace_.is_hidden(item.subject.number);
    return is_of_hidden || !is_layer_shown(display_.state(), item.layer);
  };
  std::erase_if(scene_->shapes, is_left_out);
  std::erase_if(scene_->markers, is_left_out);
  std::erase_if(scene_->labels, is_left_out);
  return *scene_;
}

QStringList FrameView::notes() const {
  QStringList out;
  if (const run::ShownResults* results = workspace_.results();
      results != nullptr && !legend_title_.isEmpty()) {
    for (const std::string& caution : results->cautions)
      out.push_back(QString::fromStdString(caution));
  }
  if (workspace_.hidden_count() > 0) {
    out.push_back(QString::fromStdString(texts::counted(workspace_.hidden_count(),
                                                        translatable("{} element is hidden"),
                                                        translatable("{} elements are hidden"))));
  }
  out += forces_->notes();
  if (content_.deformed && !forces_->is_mode()) {
    out.push_back(QString::fromStdString(
        picture::displacement_note(workspace_.model(), *content_.deformed,
                                   display_.state().deformed_factor * content_.deformed_scale)));
  }
  if (!draws_with_opengl()) {
    out.push_back(
        ui_text(translatable("There is no OpenGL on this machine: the frame is drawn as lines.")));
  }
  return out;
}

void FrameView::paint_over(QPainter& painter) {
  if (workspace_.document() == nullptr) return;
  const viewport::Size size = view_size();
  const picture::View view = camera_.view();
  QStringList all = notes();
  if (!is_turning_ || content_.lines.size() <= most_turning) {
    paint_scene(painter, scene(), camera_, size, palette());
    for (const std::string& note : scene_->notes) all.push_back(QString::fromStdString(note));
  }
  painter.setRenderHint(QPainter::Antialiasing);
  if (display_.state().legend) paint_legend(painter, legend_title_, legend_, size, palette());
  paint_notes(painter, all, size, palette());
  paint_cube(painter, cube_sides(view, size, QFontMetricsF(painter.font()).height()), palette());
  paint_axes(painter, view, size, palette());
}

void FrameView::paint_lines(QPainter& painter) {
  const viewport::Size size = view_size();
  const auto draw = [&](const picture::Point3& from, const picture::Point3& to) {
    const auto pixels = camera_.pixels_of(from, to, size);
    if (!pixels) return;
    painter.drawLine(QPointF((*pixels)[0].x, (*pixels)[0].y),
                     QPointF((*pixels)[1].x, (*pixels)[1].y));
  };
  for (std::size_t i = 0; i < content_.lines.size(); ++i) {
    if (!content_.is_shown[i]) continue;
    const ElementLook& look = content_.deformed ? content_.behind : content_.looks[i];
    if (content_.is_selected[i]) {
      painter.setPen(QPen(halo(), look.width + 7.0));
      draw(content_.lines[i].start, content_.lines[i].end);
    }
    painter.setPen(QPen(look.colour, look.width, look.is_hatched ? Qt::DashLine : Qt::SolidLine));
    draw(content_.lines[i].start, content_.lines[i].end);
  }
  if (!content_.deformed) return;
  const double factor = deformation();
  for (const picture::DisplacedLine& line : content_.deformed->lines) {
    if (workspace_.is_hidden(line.element)) continue;
    const std::size_t place = workspace_.model().elements.position(line.element);
    const viewport::ElementLine& axis = content_.lines[place];
    painter.setPen(QPen(content_.looks[place].colour, content_.looks[place].width));
    const auto at = [&](const picture::DisplacedPlace& of) {
      return between(axis.start, axis.end, of.fraction) + factor * of.displacement;
    };
    for (std::size_t i = 1; i < line.places.size(); ++i) {
      draw(at(line.places[i - 1]), at(line.places[i]));
    }
  }
}

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

void FrameView::resizeEvent(QResizeEvent* event) {
  QWidget::resizeEvent(event);
  if (was_fitted_ || content_.lines.empty()) return;
  fit();
  was_fitted_ = isVisible();
}

void FrameView::changeEvent(QEvent* event) {
  if (event->type() == QEvent::PaletteChange && canvas_ != nullptr) {
    take_looks();
    canvas_->refresh({.looks = true, .deformed = true});
  }
  QWidget::changeEvent(event);
}

/// A right drag turns the frame; there is no menu behind it.
void FrameView::contextMenuEvent(QContextMenuEvent* event) {
  event->accept();
}

bool FrameView::event(QEvent* event) {
  if (event->type() == QEvent::Show && !was_fitted_ && !content_.lines.empty()) {
    fit();
    was_fitted_ = true;
  }
  return QWidget::event(event);
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
