#pragma once

#include <QOpenGLWidget>
#include <memory>

#include "apps/desktop/gl_frame.h"

namespace aluframe::desktop {

class FrameView;

/// What of the content has changed since it was drawn last.
struct FrameChanges {
  bool lines = false, looks = false, shown = false, solid = false, deformed = false;
};

/// The surface that a view of the frame is drawn on. It lets all events through to the view.
class FrameCanvas {
 public:
  virtual ~FrameCanvas() = default;
  virtual QWidget& widget() = 0;
  virtual bool draws_with_opengl() const = 0;
  virtual QImage picture() = 0;
  /// Draws again soon.
  void refresh(const FrameChanges& changes = {});

 protected:
  FrameChanges changes_{true, true, true, true, true};
};

std::unique_ptr<FrameCanvas> create_gl_canvas(FrameView& view);
/// For a screen without OpenGL.
std::unique_ptr<FrameCanvas> create_plain_canvas(FrameView& view);

}  // namespace aluframe::desktop
