// What is drawn in the view of the frame with a painter.

#include <algorithm>

#include "aluframe/texts/text.h"
#include "apps/desktop/frame_canvas.h"
#include "apps/desktop/frame_view.h"
#include "apps/desktop/shown_forces.h"
#include "apps/desktop/ui_texts.h"

namespace aluframe::desktop {

namespace {

using texts::translatable;

/// Symbols of larger frames are left out while they turn.
constexpr std::size_t most_turning = 1500;

bool is_layer_shown(const DisplayState& state, picture::Layer layer) {
  if (layer == picture::Layer::supports) return state.supports;
  if (layer == picture::Layer::releases) return state.releases;
  return true;
}

}  // namespace

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

}  // namespace aluframe::desktop
