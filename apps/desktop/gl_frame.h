#pragma once

#include <array>

#include "aluframe/viewport/camera.h"
#include "apps/desktop/frame_content.h"
#include "apps/desktop/gl_lines.h"

namespace aluframe::desktop {

/// How the elements are drawn now.
struct FrameDrawing {
  viewport::Size size;  ///< device pixels
  double scale = 1.0;   ///< device pixels of one at 100 %
  bool is_solid = false;
  /// Plain lines alone, as a large frame turns.
  bool is_quick = false;
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
  void draw_solid(const viewport::Camera& camera, const FrameDrawing& drawing,
                  const std::array<float, 16>& matrix);
  void draw_lines(const FrameDrawing& drawing, const std::array<float, 16>& matrix,
                  bool with_elements);

  GlLinePrograms line_programs_;
  QOpenGLShaderProgram solid_program_;
  GlLines elements_, deformed_;
  GlLineChoice shown_, selected_, deformed_shown_;
  QOpenGLBuffer solid_{QOpenGLBuffer::VertexBuffer}, solid_looks_{QOpenGLBuffer::VertexBuffer};
  Indices shown_solid_;
};

}  // namespace aluframe::desktop
