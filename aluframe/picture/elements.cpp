// Elements with their releases, axes and numbers.

#include <fmt/format.h>

#include <array>
#include <string_view>

#include "aluframe/picture/colours.h"
#include "aluframe/picture/drawing.h"
#include "aluframe/texts/text.h"

namespace aluframe::picture {

namespace {

constexpr std::array<std::string_view, 6> released_forces{"N", "Fy", "Fz", "Mx", "My", "Mz"};

std::string element_text(const model::Model& model, const model::Element& element) {
  const model::Section& section = *model.sections.find(element.section);
  std::string text = texts::translated("element {}", element.number);
  if (!element.name.empty()) text += fmt::format(" \"{}\"", element.name);
  if (!section.name.empty()) text += ", " + section.name;
  if (element.kind == model::ElementKind::truss) text += texts::translated(", truss");
  return text;
}

/// "My Mz" of what is released at an end (0 start, 1 end).
std::string released_at(const model::Element& element, std::size_t end) {
  std::string text;
  for (std::size_t i = 0; i < released_forces.size(); ++i) {
    if (!element.released[6 * end + i]) continue;
    text += (text.empty() ? "" : " ") + std::string(released_forces[i]);
  }
  return text;
}

void draw_release(Drawing& drawing, const SeenElement& one, std::size_t end) {
  const std::string released = released_at(*one.element, end);
  if (released.empty()) return;
  constexpr double from_node = 2.2, radius = 0.75;
  const double sign = end == 0 ? 1.0 : -1.0;
  const Point2 offset = one.is_end_on ? Point2{} : sign * from_node * one.along;
  drawing.scene.markers.push_back(
      {.layer = Layer::releases,
       .subject = element_subject(one.element->number),
       .style = {.stroke = ink, .width = 0.3, .fill = white},
       .centre = {end == 0 ? one.start : one.end, offset},
       .radius = radius,
       .told = texts::translated("element {}, {}: {} released", one.element->number,
                                 end == 0 ? "start" : "end", released)});
}

void draw_axis(Drawing& drawing, const SeenElement& one, std::size_t axis) {
  constexpr std::array<std::string_view, 3> names{"x", "y", "z"};
  constexpr std::array<std::string_view, 3> colours{orange, green, blue};
  constexpr double longest = 7.0;
  const Point2 direction = drawing.seen(one.axes[axis]);
  const double length = longest * length_of(direction);
  const Subject subject = element_subject(one.element->number);
  const Shape like{
      .layer = Layer::local_axes,
      .subject = subject,
      .style = {.stroke = colours[axis], .width = 0.35},
      .told = texts::translated("element {}: local {}", one.element->number, names[axis])};
  const Place middle{one.at(0.5), {}};
  if (is_end_on(drawing.content.view, one.axes[axis])) {
    const bool is_towards = dot(one.axes[axis], towards_eye(drawing.content.view)) > 0.0;
    add_end_on(drawing, like, middle, is_towards);
  } else {
    add_arrow(drawing, like, {middle.at, longest * direction}, unit_of(direction), length);
  }
  drawing.scene.labels.push_back({.layer = Layer::local_axes,
                                  .subject = subject,
                                  .text = std::string(names[axis]),
                                  .at = {middle.at, longest * direction},
                                  .towards = unit_of(direction, {-0.7, -0.7}),
                                  .colour = colours[axis],
                                  .is_always_shown = false,
                                  .rank = 1.0});
}

template <class Table>
bool shows(const Numbers& numbers, const Table& entity) {
  return numbers.are_shown && (numbers.only.empty() || numbers.only.contains(entity.number));
}

}  // namespace

void draw_elements(Drawing& drawing) {
  auto [styles, legend] = element_styles(drawing.model, drawing.content);
  drawing.scene.legend = std::move(legend);
  for (std::size_t i = 0; i < drawing.elements.size(); ++i) {
    const SeenElement& one = drawing.elements[i];
    drawing.scene.shapes.push_back({.layer = Layer::frame,
                                    .subject = element_subject(one.element->number),
                                    .style = styles[i],
                                    .lines = {{{one.start, {}}, {one.end, {}}}},
                                    .told = element_text(drawing.model, *one.element)});
  }
}

void draw_ratios(Drawing& drawing) {
  if (!is_by_ratio(drawing.content.colour)) return;
  for (const SeenElement& one : drawing.elements) {
    const auto found = drawing.content.ratios.find(one.element->number);
    if (found == drawing.content.ratios.end() || &class_of(found->second) != &over_one) continue;
    drawing.scene.labels.push_back({.layer = Layer::values,
                                    .subject = element_subject(one.element->number),
                                    .text = fmt::format("{:.2f}", found->second),
                                    .at = {one.at(0.5), {}},
                                    .towards = -1.0 * left_of(one.along),
                                    .colour = orange,
                                    .is_always_shown = false,
                                    .rank = 10.0 + found->second});
  }
}

void draw_releases(Drawing& drawing) {
  for (const SeenElement& one : drawing.elements) {
    for (const std::size_t end : {std::size_t{0}, std::size_t{1}}) draw_release(drawing, one, end);
  }
}

void draw_local_axes(Drawing& drawing) {
  for (const SeenElement& one : drawing.elements) {
    for (std::size_t axis = 0; axis < 3; ++axis) draw_axis(drawing, one, axis);
  }
  drawing.scene.notes.emplace_back(
      texts::translated("local axes of the elements: x orange, y green, z blue"));
}

void draw_numbers(Drawing& drawing) {
  const Content& content = drawing.content;
  for (const model::Node& node : drawing.model.nodes) {
    if (!shows(content.node_numbers, node)) continue;
    drawing.scene.labels.push_back({.layer = Layer::numbers,
                                    .subject = node_subject(node.number),
                                    .text = std::to_string(node.number),
                                    .at = {point_of(drawing.model, node.number), {}},
                                    .towards = {0.7, 0.7},
                                    .colour = blue,
                                    .rank = 3.0});
  }
  for (const SeenElement& one : drawing.elements) {
    if (!shows(content.element_numbers, *one.element)) continue;
    drawing.scene.labels.push_back({.layer = Layer::numbers,
                                    .subject = element_subject(one.element->number),
                                    .text = std::to_string(one.element->number),
                                    .at = {one.at(0.5), {}},
                                    .towards = left_of(one.along),
                                    .colour = green,
                                    .is_framed = true,
                                    .rank = 2.0});
  }
}

}  // namespace aluframe::picture
