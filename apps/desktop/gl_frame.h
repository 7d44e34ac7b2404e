#pragma once

#include <QOpenGLBuffer>
#include <QOpenGLFunctions>
#include <QOpenGLShaderProgram>
#include <memory>

#include "aluframe/viewport/camera.h"
#include "apps/desktop/frame_content.h"

namespace aluframe::desktop {

/// How the elements are drawn now.
struct FrameDrawing {
  viewport::Size size;  ///< device pixels
  double scale = 1.0;   ///< device pixels of one at 100 %
  bool is_solid = false;
  double deformation = 0.0;  ///< that displacements are multiplied by
  QColor halo;               ///< of selected elements
};

/// The elements of a frame in the buffers of a graphics card. A context must be current in every
/// call.
class GlFrame : protected QOpenGLFunctions {
 public:
  /// @return false when the shaders do not compile
  bool start();

  /// Puts what has changed into the buffers.
  void load_lines(const FrameContent& content);
  void load_solid(const FrameContent& content);
  void load_looks(const FrameContent& content);
  void load_shown(const FrameContent& content);
  void load_deformed(const FrameContent& content);

  void draw(const viewport::Camera& camera, const FrameContent& content,
            const FrameDrawing& drawing);

 private:
  struct Indices {
    QOpenGLBuffer buffer{QOpenGLBuffer::IndexBuffer};
    int count = 0;
  };
  /// Lines as rectangles that face the eye: four corners each.
  struct LineBuffers {
    QOpenGLBuffer corners{QOpenGLBuffer::VertexBuffer};
    QOpenGLBuffer looks{QOpenGLBuffer::VertexBuffer};
  };

  void draw_lines(LineBuffers& lines, Indices& indices, float wider, const QColor* one_colour);
  void draw_solid(const viewport::Camera& camera, const FrameDrawing& drawing,
                  const std::array<float, 16>& matrix);

  QOpenGLShaderProgram line_program_, solid_program_;
  LineBuffers elements_, deformed_;
  QOpenGLBuffer solid_{QOpenGLBuffer::VertexBuffer}, solid_looks_{QOpenGLBuffer::VertexBuffer};
  Indices shown_, selected_, shown_solid_, deformed_shown_;
};

}  // namespace aluframe::desktop
