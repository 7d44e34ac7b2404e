// Arrows, marks and numbers that several parts of a picture use.

#include <fmt/format.h>

#include <cmath>

#include "aluframe/picture/colours.h"
#include "aluframe/picture/drawing.h"

namespace aluframe::picture {

void add_head(Drawing& drawing, const Shape& like, const Place& tip, const Point2& along) {
  constexpr double length = 1.9, half_width = 0.65;
  Shape head = like;
  head.told.clear();
  head.is_closed = true;
  head.style.fill = like.style.stroke;
  head.style.stroke = no_colour;
  const Point2 back = tip.paper - length * along;
  const Point2 side = half_width * left_of(along);
  head.lines = {{tip, {tip.at, back + side}, {tip.at, back - side}}};
  drawing.scene.shapes.push_back(std::move(head));
}

void add_arrow(Drawing& drawing, Shape shape, const Place& tip, const Point2& along,
               double length) {
  constexpr double inside_the_head = 1.0;
  shape.lines.push_back(
      {{tip.at, tip.paper - length * along}, {tip.at, tip.paper - inside_the_head * along}});
  add_head(drawing, shape, tip, along);
  drawing.scene.shapes.push_back(std::move(shape));
}

void add_end_on(Drawing& drawing, const Shape& like, const Place& at, bool is_towards_eye) {
  constexpr double radius = 1.2;
  Style ring = like.style;
  ring.fill = white;
  drawing.scene.markers.push_back({like.layer, like.subject, ring, at, radius, like.told});
  if (is_towards_eye) {
    Style dot = like.style;
    dot.fill = like.style.stroke;
    drawing.scene.markers.push_back({like.layer, like.subject, dot, at, radius / 3.0, {}});
    return;
  }
  Shape cross = like;
  cross.told.clear();
  const double a = radius * std::sqrt(0.5);
  cross.lines = {{{at.at, at.paper + Point2{-a, -a}}, {at.at, at.paper + Point2{a, a}}},
                 {{at.at, at.paper + Point2{-a, a}}, {at.at, at.paper + Point2{a, -a}}}};
  drawing.scene.shapes.push_back(std::move(cross));
}

std::string short_text(double value) {
  if (value == 0.0 || !std::isfinite(value)) return fmt::format("{:g}", value + 0.0);
  // Whole numbers keep all their digits: 1234 is shorter than 1.23e+03.
  const double size = std::abs(value);
  std::string text =
      size >= 1000.0 && size < 1e6 ? fmt::format("{:.0f}", value) : fmt::format("{:.3g}", value);
  if (text.starts_with('-')) text.replace(0, 1, "−");
  return text;
}

std::string force_text(const model::Units& units, double newtons) {
  return fmt::format("{} {}", short_text(newtons / model::newtons_per(units.force)),
                     model::name_of(units.force));
}

std::string moment_text(const model::Units& units, double newton_millimetres) {
  const double one = model::newtons_per(units.force) * model::millimetres_per(units.length);
  return fmt::format("{} {}·{}", short_text(newton_millimetres / one), model::name_of(units.force),
                     model::name_of(units.length));
}

std::string line_load_text(const model::Units& units, double newtons_per_millimetre) {
  const double one = model::newtons_per(units.force) / model::millimetres_per(units.length);
  return fmt::format("{} {}/{}", short_text(newtons_per_millimetre / one),
                     model::name_of(units.force), model::name_of(units.length));
}

}  // namespace aluframe::picture
