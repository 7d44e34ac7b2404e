#include "apps/desktop/frame_canvas.h"

#include <QPainter>

#include "apps/desktop/frame_view.h"

namespace aluframe::desktop {

namespace {

void let_events_through(QWidget& widget) {
  widget.setAttribute(Qt::WA_TransparentForMouseEvents);
  widget.setFocusPolicy(Qt::NoFocus);
}

class GlCanvas : public QOpenGLWidget, public FrameCanvas {
 public:
  explicit GlCanvas(FrameView& view) : QOpenGLWidget(&view), view_(view) {
    let_events_through(*this);
    QSurfaceFormat format = QSurfaceFormat::defaultFormat();
    format.setDepthBufferSize(24);
    // Lines are smooth without; where the processor draws, solids are rather fast.
    constexpr int smooth = 4;
    format.setSamples(FrameView::draws_in_software() ? 0 : smooth);
    setFormat(format);
  }
  ~GlCanvas() override {
    // Buffers go while their context is current.
    makeCurrent();
    frame_.reset();
    doneCurrent();
  }
  GlCanvas(const GlCanvas&) = delete;
  GlCanvas& operator=(const GlCanvas&) = delete;

  QWidget& widget() override { return *this; }
  bool draws_with_opengl() const override { return true; }
  QImage picture() override { return grabFramebuffer(); }

 protected:
  /// Called again when the widget comes into another window.
  void initializeGL() override {
    frame_ = std::make_unique<GlFrame>();
    is_ready_ = frame_->start();
    changes_ = {true, true, true, true, true};
  }

  void paintGL() override {
    const QColor ground = view_.palette().color(QPalette::Base);
    auto* gl = context()->functions();
    gl->glClearColor(ground.redF(), ground.greenF(), ground.blueF(), 1.0F);
    gl->glClear(GL_COLOR_BUFFER_BIT | GL_DEPTH_BUFFER_BIT);
    if (is_ready_) draw_elements();
    QPainter painter(this);
    if (!is_ready_) view_.paint_lines(painter);
    view_.paint_over(painter);
  }

 private:
  void draw_elements() {
    const FrameContent& content = view_.content();
    if (changes_.lines) frame_->load_lines(content);
    if (changes_.solid) frame_->load_solid(content);
    if (changes_.looks) frame_->load_looks(content);
    if (changes_.shown) frame_->load_shown(content);
    if (changes_.deformed) frame_->load_deformed(content);
    changes_ = {};
    const double scale = devicePixelRatioF();
    const viewport::Size size = view_.view_size();
    frame_->draw(view_.camera(), content,
                 {.size = {scale * size.width, scale * size.height},
                  .scale = scale,
                  .is_solid = !content.solid.first.empty(),
                  .is_quick = view_.is_drawn_quickly(),
                  .deformation = view_.deformation(),
                  .halo = view_.halo()});
  }

  FrameView& view_;
  std::unique_ptr<GlFrame> frame_;
  bool is_ready_ = false;
};

class PlainCanvas : public QWidget, public FrameCanvas {
 public:
  explicit PlainCanvas(FrameView& view) : QWidget(&view), view_(view) { let_events_through(*this); }

  QWidget& widget() override { return *this; }
  bool draws_with_opengl() const override { return false; }
  QImage picture() override { return grab().toImage(); }

 protected:
  void paintEvent(QPaintEvent* /*event*/) override {
    QPainter painter(this);
    painter.fillRect(rect(), view_.palette().color(QPalette::Base));
    view_.paint_lines(painter);
    view_.paint_over(painter);
  }

 private:
  FrameView& view_;
};

}  // namespace

void FrameCanvas::refresh(const FrameChanges& changes) {
  changes_.lines |= changes.lines;
  changes_.looks |= changes.looks;
  changes_.shown |= changes.shown;
  changes_.solid |= changes.solid;
  changes_.deformed |= changes.deformed;
  widget().update();
}

std::unique_ptr<FrameCanvas> create_gl_canvas(FrameView& view) {
  return std::make_unique<GlCanvas>(view);
}

std::unique_ptr<FrameCanvas> create_plain_canvas(FrameView& view) {
  return std::make_unique<PlainCanvas>(view);
}

}  // namespace aluframe::desktop
