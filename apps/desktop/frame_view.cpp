#include "apps/desktop/frame_view.h"

#include <QEvent>
#include <QOffscreenSurface>
#include <QOpenGLContext>
#include <QOpenGLFunctions>
#include <QVBoxLayout>
#include <algorithm>
#include <cmath>
#include <numbers>
#include <utility>

#include "aluframe/picture/colours.h"
#include "aluframe/picture/view.h"
#include "aluframe/texts/text.h"
#include "apps/desktop/element_looks.h"
#include "apps/desktop/frame_canvas.h"
#include "apps/desktop/shown_forces.h"
#include "apps/desktop/ui_texts.h"

namespace aluframe::desktop {

namespace {

using texts::translatable;

constexpr int settled_after = 200;  ///< ms
constexpr int beat = 33;            ///< ms between pictures of the animation
constexpr double beats_per_round = 60.0;

QColor colour_of(const picture::Style& style, const QPalette& palette) {
  return themed(style.stroke, palette);
}

ElementLook look_of(const picture::Style& style, const QPalette& palette) {
  // Lines on a screen are seen from farther away than lines on paper.
  constexpr double pixels_per_mm = 2.6;
  return {colour_of(style, palette), static_cast<float>(std::max(1.3, pixels_per_mm * style.width)),
          !style.dash.empty()};
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

bool FrameView::is_drawn_quickly() const {
  constexpr std::size_t most_lines = 4000, most_corners = 100'000;
  const bool is_large =
      content_.lines.size() > most_lines || content_.solid.vertices.size() > most_corners;
  return is_turning_ && is_large && draws_in_software();
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
    is_fitted_ = true;
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
  keep_fitted();
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
  is_fitted_ = false;
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
  fit_beside_legend(points);
  is_fitted_ = !are_some_selected;
  scene_.reset();
  canvas_->refresh();
}

void FrameView::fit_in(const QRectF& area, const std::vector<picture::Point3>& points) {
  const viewport::Size size = view_size();
  camera_.fit(points, {area.width(), area.height()});
  const QPointF middle(0.5 * size.width, 0.5 * size.height);
  camera_.zoom(area.height() / size.height, {middle.x(), middle.y(), 0.0}, size);
  const QPointF aside = area.center() - middle;
  camera_.pan(aside.x(), aside.y(), size);
}

/// Where the legend would lie over elements, the frame goes beside or below it: whichever shows it
/// larger.
void FrameView::fit_beside_legend(const std::vector<picture::Point3>& points) {
  const viewport::Size size = view_size();
  // Diagrams stand out from their elements.
  constexpr double share_of_diagrams = 0.07;
  const double border = forces_->diagram() ? share_of_diagrams : 0.0;
  const QRectF all = QRectF(border * size.width, border * size.height,
                            (1.0 - 2.0 * border) * size.width, (1.0 - 2.0 * border) * size.height);
  fit_in(all, points);
  if (!display_.state().legend || points.empty()) return;
  const QRectF legend = legend_box(font(), legend_title_, legend_, size);
  const auto corner = [](const QPointF& at) { return viewport::Pixel{at.x(), at.y(), 0.0}; };
  if (legend.isEmpty() ||
      viewport::pick_in(sight(), {corner(legend.topLeft()), corner(legend.bottomRight())},
                        viewport::BandKind::crossing)
          .empty())
    return;
  const viewport::Camera over = camera_;
  QRectF beside = all, below = all;
  beside.setLeft(std::max(all.left(), legend.right()));
  below.setTop(std::max(all.top(), legend.bottom()));
  const auto fitted = [&](const QRectF& area) {
    camera_ = over;
    constexpr double least = 50.0;  // pixels
    if (area.width() < least || area.height() < least) return std::pair(0.0, camera_);
    fit_in(area, points);
    return std::pair(camera_.pixels_per_mm(points.front(), size), camera_);
  };
  const auto [beside_scale, beside_camera] = fitted(beside);
  const auto [below_scale, below_camera] = fitted(below);
  camera_ = beside_scale > below_scale ? beside_camera : below_camera;
}

/// What is shown whole stays so in another size, and beside another legend.
void FrameView::keep_fitted() {
  if (is_fitted_ && isVisible() && !content_.lines.empty()) fit();
}

QImage FrameView::picture() {
  return canvas_->picture();
}

void FrameView::resizeEvent(QResizeEvent* event) {
  QWidget::resizeEvent(event);
  keep_fitted();
}

void FrameView::changeEvent(QEvent* event) {
  if (event->type() == QEvent::PaletteChange && canvas_ != nullptr) {
    take_looks();
    canvas_->refresh({.looks = true, .deformed = true});
  }
  QWidget::changeEvent(event);
}

bool FrameView::event(QEvent* event) {
  const bool is_handled = QWidget::event(event);
  if (event->type() == QEvent::Show) keep_fitted();
  return is_handled;
}

}  // namespace aluframe::desktop
