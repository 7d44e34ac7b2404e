#include "apps/desktop/gl_frame.h"

#include <QVector2D>
#include <QVector3D>
#include <algorithm>
#include <array>
#include <cstdint>
#include <map>
#include <numeric>

namespace aluframe::desktop {

namespace {

using picture::Point3;

/// A corner of a line's rectangle.
struct LineCorner {
  std::array<float, 3> at{}, other{};         ///< this end of the line and the other one
  std::array<float, 3> move{}, other_move{};  ///< their displacements
  float side = 0.0F;                          ///< -1 or 1: across the line
  float end = 0.0F;                           ///< 0 at the start, 1 at the end
};

struct Look {
  std::array<std::uint8_t, 4> colour{};  ///< an alpha of 128 stands for hatching
  float width = 1.0F;
};

constexpr const char* line_vertices = R"(
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

constexpr const char* line_fragments = R"(
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

constexpr const char* solid_vertices = R"(
attribute highp vec3 at;
attribute mediump vec3 normal;
attribute lowp vec4 colour;
uniform highp mat4 matrix;
uniform mediump vec3 eye;
uniform mediump vec3 lamp;
varying lowp vec4 itsColour;
void main() {
  mediump float light = 0.42 + 0.38 * abs(dot(normal, eye)) + 0.20 * max(dot(normal, lamp), 0.0);
  itsColour = vec4(colour.rgb * light, colour.a);
  gl_Position = matrix * vec4(at, 1.0);
}
)";

constexpr const char* solid_fragments = R"(
varying lowp vec4 itsColour;
uniform mediump float pixels;
void main() {
  lowp vec3 colour = itsColour.rgb;
  if (itsColour.a < 0.75 && mod(gl_FragCoord.x + gl_FragCoord.y, 8.0 * pixels) < 3.0 * pixels)
    colour = mix(colour, vec3(1.0), 0.6);
  gl_FragColor = vec4(colour, 1.0);
}
)";

std::array<float, 3> single(const Point3& point) {
  return {static_cast<float>(point.x), static_cast<float>(point.y), static_cast<float>(point.z)};
}

Look look_of(const QColor& colour, float width, bool is_hatched) {
  constexpr std::uint8_t full = 255, hatched = 128;
  return {{static_cast<std::uint8_t>(colour.red()), static_cast<std::uint8_t>(colour.green()),
           static_cast<std::uint8_t>(colour.blue()), is_hatched ? hatched : full},
          width};
}

/// One end of a line: its place and its displacement.
struct End {
  Point3 at, move;
};

void add_line(std::vector<LineCorner>& corners, const End& start, const End& end) {
  for (const float side : {-1.0F, 1.0F}) {
    corners.push_back(
        {single(start.at), single(end.at), single(start.move), single(end.move), side, 0.0F});
  }
  for (const float side : {-1.0F, 1.0F}) {
    corners.push_back(
        {single(end.at), single(start.at), single(end.move), single(start.move), side, 1.0F});
  }
}

/// The two triangles of the n-th line.
void add_indices(std::vector<std::uint32_t>& indices, std::size_t line) {
  const auto first = static_cast<std::uint32_t>(4 * line);
  for (const std::uint32_t corner : {0U, 1U, 2U, 2U, 1U, 3U}) indices.push_back(first + corner);
}

template <class Item>
void fill(QOpenGLBuffer& buffer, const std::vector<Item>& items) {
  if (!buffer.isCreated()) buffer.create();
  buffer.bind();
  buffer.allocate(items.data(), static_cast<int>(items.size() * sizeof(Item)));
  buffer.release();
}

/// Where a vertex attribute stands in the items of a buffer.
struct Attribute {
  const char* name;
  GLenum type;
  int offset, values;
};

template <class Item>
void use(QOpenGLShaderProgram& program, QOpenGLBuffer& buffer,
         std::initializer_list<Attribute> attributes) {
  buffer.bind();
  for (const Attribute& one : attributes) {
    program.enableAttributeArray(one.name);
    program.setAttributeBuffer(one.name, one.type, one.offset, one.values, sizeof(Item));
  }
  buffer.release();
}

/// Painters that draw on the same surface expect none of them.
void leave(QOpenGLShaderProgram& program, std::initializer_list<const char*> attributes) {
  for (const char* name : attributes) program.disableAttributeArray(name);
}

bool link(QOpenGLShaderProgram& program, const char* vertices, const char* fragments) {
  return program.addShaderFromSourceCode(QOpenGLShader::Vertex, vertices) &&
         program.addShaderFromSourceCode(QOpenGLShader::Fragment, fragments) && program.link();
}

QMatrix4x4 to_qt(const std::array<float, 16>& columns) {
  QMatrix4x4 out;
  std::ranges::copy(columns, out.data());
  return out;
}

QVector3D to_qt(const Point3& point) {
  const auto [x, y, z] = single(point);
  return {x, y, z};
}

}  // namespace

bool GlFrame::start() {
  initializeOpenGLFunctions();
  return link(line_program_, line_vertices, line_fragments) &&
         link(solid_program_, solid_vertices, solid_fragments);
}

void GlFrame::load_lines(const FrameContent& content) {
  std::vector<LineCorner> corners;
  corners.reserve(4 * content.lines.size());
  for (const viewport::ElementLine& line : content.lines) {
    add_line(corners, {line.start - content.bounds.centre, {}},
             {line.end - content.bounds.centre, {}});
  }
  fill(elements_.corners, corners);
}

void GlFrame::load_solid(const FrameContent& content) {
  fill(solid_, content.solid.vertices);
}

void GlFrame::load_looks(const FrameContent& content) {
  std::vector<Look> looks;
  for (const ElementLook& its : content.looks) {
    const ElementLook& look = content.deformed ? content.behind : its;
    looks.insert(looks.end(), 4, look_of(look.colour, look.width, look.is_hatched));
  }
  fill(elements_.looks, looks);
  if (content.solid.first.empty()) return;
  std::vector<std::array<std::uint8_t, 4>> colours;
  colours.reserve(content.solid.vertices.size());
  for (std::size_t i = 0; i < content.looks.size(); ++i) {
    const ElementLook& look = content.looks[i];
    const QColor picked(0xE6, 0x00, 0x7E);
    const Look its = look_of(content.is_selected[i] ? picked : look.colour, 0.0F, look.is_hatched);
    colours.insert(colours.end(), content.solid.first[i + 1] - content.solid.first[i], its.colour);
  }
  fill(solid_looks_, colours);
}

void GlFrame::load_shown(const FrameContent& content) {
  // Lines have no depth: those that matter most, the widest, come last.
  std::vector<std::size_t> order(content.lines.size());
  std::iota(order.begin(), order.end(), std::size_t{0});
  std::ranges::stable_sort(order, {}, [&](std::size_t i) { return content.looks[i].width; });
  std::vector<std::uint32_t> shown, selected, solid;
  for (const std::size_t i : order) {
    if (!content.is_shown[i]) continue;
    add_indices(shown, i);
    if (content.is_selected[i]) add_indices(selected, i);
    if (content.solid.first.empty()) continue;
    for (std::size_t k = content.solid.first[i]; k < content.solid.first[i + 1]; ++k) {
      solid.push_back(static_cast<std::uint32_t>(k));
    }
  }
  const auto load = [](Indices& indices, const std::vector<std::uint32_t>& values) {
    fill(indices.buffer, values);
    indices.count = static_cast<int>(values.size());
  };
  load(shown_, shown);
  load(selected_, selected);
  load(shown_solid_, solid);
}

void GlFrame::load_deformed(const FrameContent& content) {
  std::vector<LineCorner> corners;
  std::vector<Look> looks;
  std::vector<std::uint32_t> indices;
  std::map<model::Number, std::size_t> places;
  for (std::size_t i = 0; i < content.lines.size(); ++i) places[content.lines[i].number] = i;
  const auto* deformed = content.deformed ? &*content.deformed : nullptr;
  for (std::size_t k = 0; deformed != nullptr && k < deformed->lines.size(); ++k) {
    const picture::DisplacedLine& line = deformed->lines[k];
    const auto found = places.find(line.element);
    if (found == places.end() || !content.is_shown[found->second]) continue;
    const viewport::ElementLine& axis = content.lines[found->second];
    const auto end_at = [&](const picture::DisplacedPlace& place) {
      return End{between(axis.start, axis.end, place.fraction) - content.bounds.centre,
                 place.displacement};
    };
    for (std::size_t i = 1; i < line.places.size(); ++i) {
      add_indices(indices, corners.size() / 4);
      add_line(corners, end_at(line.places[i - 1]), end_at(line.places[i]));
    }
    const ElementLook& look = content.looks[found->second];
    looks.resize(corners.size(), look_of(look.colour, look.width, false));
  }
  fill(deformed_.corners, corners);
  fill(deformed_.looks, looks);
  fill(deformed_shown_.buffer, indices);
  deformed_shown_.count = static_cast<int>(indices.size());
}

void GlFrame::draw_lines(LineBuffers& lines, Indices& indices, float wider,
                         const QColor* one_colour) {
  if (indices.count == 0) return;
  use<LineCorner>(line_program_, lines.corners,
                  {{"at", GL_FLOAT, offsetof(LineCorner, at), 3},
                   {"other", GL_FLOAT, offsetof(LineCorner, other), 3},
                   {"move", GL_FLOAT, offsetof(LineCorner, move), 3},
                   {"otherMove", GL_FLOAT, offsetof(LineCorner, other_move), 3},
                   {"sideEnd", GL_FLOAT, offsetof(LineCorner, side), 2}});
  use<Look>(line_program_, lines.looks,
            {{"colour", GL_UNSIGNED_BYTE, offsetof(Look, colour), 4},
             {"width", GL_FLOAT, offsetof(Look, width), 1}});
  if (one_colour != nullptr) {
    line_program_.disableAttributeArray("colour");
    line_program_.setAttributeValue("colour", *one_colour);
  }
  line_program_.setUniformValue("wider", wider);
  indices.buffer.bind();
  glDrawElements(GL_TRIANGLES, indices.count, GL_UNSIGNED_INT, nullptr);
  indices.buffer.release();
  leave(line_program_, {"at", "other", "move", "otherMove", "sideEnd", "colour", "width"});
}

void GlFrame::draw_solid(const viewport::Camera& camera, const FrameDrawing& drawing,
                         const std::array<float, 16>& matrix) {
  if (shown_solid_.count == 0) return;
  const picture::View view = camera.view();
  const Point3 eye = picture::towards_eye(view);
  const Point3 lamp = 0.6 * view.up + 0.35 * eye + -0.7 * view.right;
  solid_program_.bind();
  solid_program_.setUniformValue("matrix", to_qt(matrix));
  solid_program_.setUniformValue("eye", to_qt(eye));
  solid_program_.setUniformValue("lamp", to_qt(lamp));
  solid_program_.setUniformValue("pixels", static_cast<float>(drawing.scale));
  use<viewport::SolidVertex>(solid_program_, solid_,
                             {{"at", GL_FLOAT, offsetof(viewport::SolidVertex, at), 3},
                              {"normal", GL_FLOAT, offsetof(viewport::SolidVertex, normal), 3}});
  use<std::array<std::uint8_t, 4>>(solid_program_, solid_looks_,
                                   {{"colour", GL_UNSIGNED_BYTE, 0, 4}});
  shown_solid_.buffer.bind();
  glDrawElements(GL_TRIANGLES, shown_solid_.count, GL_UNSIGNED_INT, nullptr);
  shown_solid_.buffer.release();
  leave(solid_program_, {"at", "normal", "colour"});
  solid_program_.release();
}

void GlFrame::draw(const viewport::Camera& camera, const FrameContent& content,
                   const FrameDrawing& drawing) {
  const auto matrix = camera.matrix(drawing.size, content.bounds);
  glDisable(GL_CULL_FACE);
  if (drawing.is_solid) {
    glEnable(GL_DEPTH_TEST);
    glDepthFunc(GL_LEQUAL);
    draw_solid(camera, drawing, matrix);
    glDisable(GL_DEPTH_TEST);
  }
  glEnable(GL_BLEND);
  glBlendFuncSeparate(GL_SRC_ALPHA, GL_ONE_MINUS_SRC_ALPHA, GL_ONE, GL_ONE_MINUS_SRC_ALPHA);
  line_program_.bind();
  line_program_.setUniformValue("matrix", to_qt(matrix));
  line_program_.setUniformValue("size", QVector2D(static_cast<float>(drawing.size.width),
                                                  static_cast<float>(drawing.size.height)));
  line_program_.setUniformValue("pixels", static_cast<float>(drawing.scale));
  line_program_.setUniformValue("factor", 0.0F);
  if (!drawing.is_solid) {
    draw_lines(elements_, selected_, static_cast<float>(3.5 * drawing.scale), &drawing.halo);
    draw_lines(elements_, shown_, 0.0F, nullptr);
  }
  line_program_.setUniformValue("factor", static_cast<float>(drawing.deformation));
  draw_lines(deformed_, deformed_shown_, 0.0F, nullptr);
  line_program_.release();
  glDisable(GL_BLEND);
}

}  // namespace aluframe::desktop
