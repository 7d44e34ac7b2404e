#pragma once

#include <QColor>
#include <QMatrix4x4>
#include <QOpenGLFunctions>
#include <QVector2D>
#include <array>
#include <cstdint>
#include <vector>

#include "aluframe/picture/point.h"
#include "apps/desktop/frame_content.h"
#include "apps/desktop/gl_buffers.h"

namespace aluframe::desktop {

/// One end of a line: its place and its displacement.
struct LineEnd {
  picture::Point3 at, move;
};

/// What lines are drawn with.
struct LineDrawing {
  QMatrix4x4 matrix;
  QVector2D size;            ///< device pixels
  float scale = 1.0F;        ///< device pixels of one at 100 %
  float deformation = 0.0F;  ///< that displacements are multiplied by
  /// Without smooth edges and hatching, as a large frame turns.
  bool is_plain = false;
};

/// Some of the lines of a buffer.
class GlLineChoice {
 public:
  /// @param looks of all lines of the buffer; those drawn last cover the others
  void load(const std::vector<std::size_t>& lines, const std::vector<ElementLook>& looks);

 private:
  friend class GlLinePrograms;
  /// Lines of one width, one after the other.
  struct Run {
    float width = 1.0F;
    int lines = 0;
  };
  Indices rectangles_, plain_;
  std::vector<Run> runs_;
};

/// Lines in the buffers of a graphics card, as rectangles that face the eye: four corners each.
class GlLines {
 public:
  void load_places(const std::vector<std::array<LineEnd, 2>>& lines);
  void load_looks(const std::vector<ElementLook>& looks);

 private:
  friend class GlLinePrograms;
  QOpenGLBuffer corners_{QOpenGLBuffer::VertexBuffer}, looks_{QOpenGLBuffer::VertexBuffer};
};

/// Draws lines. A context must be current in every call.
class GlLinePrograms : protected QOpenGLFunctions {
 public:
  /// @return false when the shaders do not compile
  bool start();
  void draw(GlLines& lines, GlLineChoice& choice, const LineDrawing& drawing);
  /// A border around lines, beneath them. @param wider pixels at 100 % on either side
  void draw_halo(GlLines& lines, GlLineChoice& choice, const LineDrawing& drawing, float wider,
                 const QColor& colour);

 private:
  void draw(GlLines& lines, GlLineChoice& choice, const LineDrawing& drawing, float wider,
            const QColor* one_colour);
  void draw_smooth(GlLines& lines, GlLineChoice& choice);
  void draw_plain(GlLineChoice& choice, float scale, float wider);

  QOpenGLShaderProgram smooth_, plain_;
};

}  // namespace aluframe::desktop
