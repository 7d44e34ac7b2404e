#include "apps/desktop/gl_frame.h"

#include <QVector3D>
#include <algorithm>
#include <cstdint>
#include <map>
#include <numeric>

namespace aluframe::desktop {

namespace {

using picture::Point3;

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

QMatrix4x4 to_qt(const std::array<float, 16>& columns) {
  QMatrix4x4 out;
  std::ranges::copy(columns, out.data());
  return out;
}

QVector3D to_qt(const Point3& point) {
  const auto [x, y, z] = single(point);
  return {x, y, z};
}

/// Elements beside their displaced shape stand back behind it.
std::vector<ElementLook> looks_of_lines(const FrameContent& content) {
  if (!content.deformed) return content.looks;
  return std::vector<ElementLook>(content.looks.size(), content.behind);
}

/// Lines have no depth: those that matter most, the widest, come last.
std::vector<std::size_t> by_width(const std::vector<ElementLook>& looks) {
  std::vector<std::size_t> order(looks.size());
  std::iota(order.begin(), order.end(), std::size_t{0});
  std::ranges::stable_sort(order, {}, [&](std::size_t i) { return looks[i].width; });
  return order;
}

}  // namespace

bool GlFrame::start() {
  initializeOpenGLFunctions();
  return line_programs_.start() && link(solid_program_, solid_vertices, solid_fragments);
}

void GlFrame::load_lines(const FrameContent& content) {
  std::vector<std::array<LineEnd, 2>> lines;
  lines.reserve(content.lines.size());
  for (const viewport::ElementLine& line : content.lines) {
    lines.push_back({LineEnd{line.start - content.bounds.centre, {}},
                     LineEnd{line.end - content.bounds.centre, {}}});
  }
  elements_.load_places(lines);
}

void GlFrame::load_solid(const FrameContent& content) {
  fill(solid_, content.solid.vertices);
}

void GlFrame::load_looks(const FrameContent& content) {
  elements_.load_looks(looks_of_lines(content));
  if (content.solid.first.empty()) return;
  std::vector<ColourBytes> colours;
  colours.reserve(content.solid.vertices.size());
  for (std::size_t i = 0; i < content.looks.size(); ++i) {
    const ElementLook& look = content.looks[i];
    const QColor picked(0xE6, 0x00, 0x7E);
    colours.insert(colours.end(), content.solid.first[i + 1] - content.solid.first[i],
                   bytes_of(content.is_selected[i] ? picked : look.colour, look.is_hatched));
  }
  fill(solid_looks_, colours);
}

void GlFrame::load_shown(const FrameContent& content) {
  std::vector<std::size_t> shown, selected;
  std::vector<std::uint32_t> solid;
  for (const std::size_t i : by_width(content.looks)) {
    if (!content.is_shown[i]) continue;
    shown.push_back(i);
    if (content.is_selected[i]) selected.push_back(i);
    if (content.solid.first.empty()) continue;
    for (std::size_t k = content.solid.first[i]; k < content.solid.first[i + 1]; ++k) {
      solid.push_back(static_cast<std::uint32_t>(k));
    }
  }
  const std::vector<ElementLook> looks = looks_of_lines(content);
  shown_.load(shown, looks);
  selected_.load(selected, looks);
  fill(shown_solid_, solid);
}

void GlFrame::load_deformed(const FrameContent& content) {
  std::vector<std::array<LineEnd, 2>> lines;
  std::vector<ElementLook> looks;
  std::map<model::Number, std::size_t> places;
  for (std::size_t i = 0; i < content.lines.size(); ++i) places[content.lines[i].number] = i;
  const auto* deformed = content.deformed ? &*content.deformed : nullptr;
  for (std::size_t k = 0; deformed != nullptr && k < deformed->lines.size(); ++k) {
    const picture::DisplacedLine& line = deformed->lines[k];
    const auto found = places.find(line.element);
    if (found == places.end() || !content.is_shown[found->second]) continue;
    const viewport::ElementLine& axis = content.lines[found->second];
    const auto end_at = [&](const picture::DisplacedPlace& place) {
      return LineEnd{between(axis.start, axis.end, place.fraction) - content.bounds.centre,
                     place.displacement};
    };
    for (std::size_t i = 1; i < line.places.size(); ++i) {
      lines.push_back({end_at(line.places[i - 1]), end_at(line.places[i])});
    }
    ElementLook look = content.looks[found->second];
    look.is_hatched = false;
    looks.resize(lines.size(), look);
  }
  deformed_.load_places(lines);
  deformed_.load_looks(looks);
  deformed_shown_.load(by_width(looks), looks);
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
  use<ColourBytes>(solid_program_, solid_looks_, {{"colour", GL_UNSIGNED_BYTE, 0, 4}});
  shown_solid_.buffer.bind();
  glDrawElements(GL_TRIANGLES, shown_solid_.count, GL_UNSIGNED_INT, nullptr);
  shown_solid_.buffer.release();
  leave(solid_program_, {"at", "normal", "colour"});
  solid_program_.release();
}

void GlFrame::draw_lines(const FrameDrawing& drawing, const std::array<float, 16>& matrix,
                         bool with_elements) {
  LineDrawing lines{.matrix = to_qt(matrix),
                    .size = QVector2D(static_cast<float>(drawing.size.width),
                                      static_cast<float>(drawing.size.height)),
                    .scale = static_cast<float>(drawing.scale),
                    .is_plain = drawing.is_quick};
  if (with_elements) {
    line_programs_.draw_halo(elements_, selected_, lines, 3.5F, drawing.halo);
    line_programs_.draw(elements_, shown_, lines);
  }
  lines.deformation = static_cast<float>(drawing.deformation);
  line_programs_.draw(deformed_, deformed_shown_, lines);
}

void GlFrame::draw(const viewport::Camera& camera, const FrameContent& content,
                   const FrameDrawing& drawing) {
  const auto matrix = camera.matrix(drawing.size, content.bounds);
  const bool is_solid = drawing.is_solid && !drawing.is_quick;
  glDisable(GL_CULL_FACE);
  if (is_solid) {
    glEnable(GL_DEPTH_TEST);
    glDepthFunc(GL_LEQUAL);
    draw_solid(camera, drawing, matrix);
    glDisable(GL_DEPTH_TEST);
  }
  if (!drawing.is_quick) {
    glEnable(GL_BLEND);
    glBlendFuncSeparate(GL_SRC_ALPHA, GL_ONE_MINUS_SRC_ALPHA, GL_ONE, GL_ONE_MINUS_SRC_ALPHA);
  }
  draw_lines(drawing, matrix, !is_solid);
  glDisable(GL_BLEND);
}

}  // namespace aluframe::desktop
