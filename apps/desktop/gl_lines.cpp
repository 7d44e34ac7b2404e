#include "apps/desktop/gl_lines.h"

#include <algorithm>
#include <cmath>
#include <cstddef>

namespace aluframe::desktop {

namespace {

/// A corner of a line's rectangle.
struct Corner {
  std::array<float, 3> at{}, other{};         ///< this end of the line and the other one
  std::array<float, 3> move{}, other_move{};  ///< their displacements
  float side = 0.0F;                          ///< -1 or 1: across the line
  float end = 0.0F;                           ///< 0 at the start, 1 at the end
};
constexpr std::uint32_t corners_per_line = 4;

struct Look {
  ColourBytes colour{};
  float width = 1.0F;
};

constexpr const char* smooth_vertices = R"(
attribute highp vec3 at;
attribute highp vec3 other;
attribute highp vec3 move;
attribute highp vec3 otherMove;
attribute highp vec2 sideEnd;
attribute lowp vec4 colour;
attribute mediump float width;
uniform highp mat4 matrix;
uniform highp vec2 size;
uniform highp float factor;
uniform mediump float pixels;
uniform mediump float wider;
varying lowp vec4 itsColour;
varying mediump float across;
varying mediump float halfWidth;
varying highp float along;
void main() {
  highp vec4 here = matrix * vec4(at + factor * move, 1.0);
  highp vec4 there = matrix * vec4(other + factor * otherMove, 1.0);
  const highp float nearest = 1e-3;
  highp float tooNear = nearest * max(abs(here.w), abs(there.w));
  if (here.w < tooNear && there.w > tooNear)
    here = mix(here, there, (tooNear - here.w) / (there.w - here.w));
  if (there.w < tooNear && here.w > tooNear)
    there = mix(there, here, (tooNear - there.w) / (here.w - there.w));
  highp vec2 from = here.xy / here.w * size * 0.5;
  highp vec2 to = there.xy / there.w * size * 0.5;
  highp vec2 direction = to - from;
  highp float extent = length(direction);
  direction = extent > 1e-4 ? direction / extent : vec2(1.0, 0.0);
  highp vec2 normal = vec2(-direction.y, direction.x);
  if (sideEnd.y > 0.5) normal = -normal;
  halfWidth = 0.5 * width * pixels + wider;
  mediump float reach = halfWidth + 1.0;
  highp vec2 place = from + normal * sideEnd.x * reach - direction * 0.5 * halfWidth;
  across = sideEnd.x * reach;
  along = sideEnd.y > 0.5 ? extent : 0.0;
  itsColour = colour;
  gl_Position = vec4(place / size * 2.0 * here.w, here.z, here.w);
}
)";

constexpr const char* smooth_fragments = R"(
varying lowp vec4 itsColour;
varying mediump float across;
varying mediump float halfWidth;
varying highp float along;
uniform mediump float pixels;
void main() {
  lowp float cover = clamp(halfWidth + 0.5 - abs(across), 0.0, 1.0);
  if (itsColour.a < 0.75 && mod(along, 9.0 * pixels) > 5.5 * pixels) discard;
  gl_FragColor = vec4(itsColour.rgb, cover);
}
)";

constexpr const char* plain_vertices = R"(
attribute highp vec3 at;
attribute highp vec3 move;
attribute lowp vec4 colour;
uniform highp mat4 matrix;
uniform highp float factor;
varying lowp vec4 itsColour;
void main() {
  itsColour = colour;
  gl_Position = matrix * vec4(at + factor * move, 1.0);
}
)";

constexpr const char* plain_fragments = R"(
varying lowp vec4 itsColour;
void main() {
  gl_FragColor = vec4(itsColour.rgb, 1.0);
}
)";

void add_end(std::vector<Corner>& corners, const LineEnd& here, const LineEnd& there, float end) {
  for (const float side : {-1.0F, 1.0F}) {
    corners.push_back(
        {single(here.at), single(there.at), single(here.move), single(there.move), side, end});
  }
}

void use_looks(QOpenGLShaderProgram& program, QOpenGLBuffer& looks, const QColor* one_colour) {
  if (one_colour == nullptr) {
    use<Look>(program, looks, {{"colour", GL_UNSIGNED_BYTE, offsetof(Look, colour), 4}});
  } else {
    program.setAttributeValue("colour", *one_colour);
  }
}

}  // namespace

void GlLineChoice::load(const std::vector<std::size_t>& lines,
                        const std::vector<ElementLook>& looks) {
  std::vector<std::uint32_t> rectangles, plain;
  runs_.clear();
  for (const std::size_t line : lines) {
    const auto first = static_cast<std::uint32_t>(corners_per_line * line);
    // The two triangles of the rectangle; one corner of either end.
    for (const std::uint32_t corner : {0U, 1U, 2U, 2U, 1U, 3U})
      rectangles.push_back(first + corner);
    for (const std::uint32_t corner : {0U, 2U}) plain.push_back(first + corner);
    const float width = looks[line].width;
    if (runs_.empty() || runs_.back().width != width) runs_.push_back({width, 0});
    ++runs_.back().lines;
  }
  fill(rectangles_, rectangles);
  fill(plain_, plain);
}

void GlLines::load_places(const std::vector<std::array<LineEnd, 2>>& lines) {
  std::vector<Corner> corners;
  corners.reserve(corners_per_line * lines.size());
  for (const auto& [start, end] : lines) {
    add_end(corners, start, end, 0.0F);
    add_end(corners, end, start, 1.0F);
  }
  fill(corners_, corners);
}

void GlLines::load_looks(const std::vector<ElementLook>& looks) {
  std::vector<Look> of_corners;
  of_corners.reserve(corners_per_line * looks.size());
  for (const ElementLook& look : looks) {
    of_corners.insert(of_corners.end(), corners_per_line,
                      Look{bytes_of(look.colour, look.is_hatched), look.width});
  }
  fill(looks_, of_corners);
}

bool GlLinePrograms::start() {
  initializeOpenGLFunctions();
  return link(smooth_, smooth_vertices, smooth_fragments) &&
         link(plain_, plain_vertices, plain_fragments);
}

void GlLinePrograms::draw(GlLines& lines, GlLineChoice& choice, const LineDrawing& drawing) {
  draw(lines, choice, drawing, 0.0F, nullptr);
}

void GlLinePrograms::draw_halo(GlLines& lines, GlLineChoice& choice, const LineDrawing& drawing,
                               float wider, const QColor& colour) {
  draw(lines, choice, drawing, wider * drawing.scale, &colour);
}

void GlLinePrograms::draw(GlLines& lines, GlLineChoice& choice, const LineDrawing& drawing,
                          float wider, const QColor* one_colour) {
  if (choice.rectangles_.count == 0) return;
  QOpenGLShaderProgram& program = drawing.is_plain ? plain_ : smooth_;
  program.bind();
  program.setUniformValue("matrix", drawing.matrix);
  program.setUniformValue("factor", drawing.deformation);
  use<Corner>(
      program, lines.corners_,
      {{"at", GL_FLOAT, offsetof(Corner, at), 3}, {"move", GL_FLOAT, offsetof(Corner, move), 3}});
  use_looks(program, lines.looks_, one_colour);
  if (drawing.is_plain) {
    draw_plain(choice, drawing.scale, wider);
  } else {
    program.setUniformValue("size", drawing.size);
    program.setUniformValue("pixels", drawing.scale);
    program.setUniformValue("wider", wider);
    draw_smooth(lines, choice);
  }
  leave(program, {"at", "move", "colour"});
  program.release();
}

void GlLinePrograms::draw_smooth(GlLines& lines, GlLineChoice& choice) {
  use<Corner>(smooth_, lines.corners_,
              {{"other", GL_FLOAT, offsetof(Corner, other), 3},
               {"otherMove", GL_FLOAT, offsetof(Corner, other_move), 3},
               {"sideEnd", GL_FLOAT, offsetof(Corner, side), 2}});
  use<Look>(smooth_, lines.looks_, {{"width", GL_FLOAT, offsetof(Look, width), 1}});
  choice.rectangles_.buffer.bind();
  glDrawElements(GL_TRIANGLES, choice.rectangles_.count, GL_UNSIGNED_INT, nullptr);
  choice.rectangles_.buffer.release();
  leave(smooth_, {"other", "otherMove", "sideEnd", "width"});
}

void GlLinePrograms::draw_plain(GlLineChoice& choice, float scale, float wider) {
  choice.plain_.buffer.bind();
  std::size_t first = 0;
  for (const GlLineChoice::Run& run : choice.runs_) {
    glLineWidth(std::max(1.0F, std::round(run.width * scale + 2.0F * wider)));
    const int ends = 2 * run.lines;
    glDrawElements(GL_LINES, ends, GL_UNSIGNED_INT,
                   reinterpret_cast<const void*>(first * sizeof(std::uint32_t)));
    first += static_cast<std::size_t>(ends);
  }
  glLineWidth(1.0F);
  choice.plain_.buffer.release();
}

}  // namespace aluframe::desktop
