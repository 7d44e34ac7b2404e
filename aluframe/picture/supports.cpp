// Supports and springs.

#include <fmt/format.h>

#include <algorithm>
#include <array>
#include <cmath>
#include <numbers>
#include <string_view>

#include "aluframe/elementary/functions.h"
#include "aluframe/picture/colours.h"
#include "aluframe/picture/drawing.h"
#include "aluframe/texts/text.h"

namespace aluframe::picture {

namespace {

constexpr std::array<std::string_view, 6> directions{"Dx", "Dy", "Dz", "Rx", "Ry", "Rz"};
constexpr std::array<std::size_t, 3> axes{0, 1, 2};
constexpr Style line{.stroke = ink, .width = 0.3, .fill = white};
constexpr Style solid{.stroke = ink, .width = 0.3, .fill = ink};

/// A symbol at a node: `out` leads from the node to the ground, on paper.
struct Symbol {
  Drawing& drawing;
  Subject subject;
  Point3 node;
  Point2 out;
  std::string told;

  Place at(double outwards, double aside) const {
    return {node, outwards * out + aside * left_of(out)};
  }
  void add(std::vector<std::vector<Place>> lines, bool is_closed, const Style& style) const {
    drawing.scene.shapes.push_back({.layer = Layer::supports,
                                    .subject = subject,
                                    .style = style,
                                    .lines = std::move(lines),
                                    .is_closed = is_closed,
                                    .told = told});
  }
  void add_ring(double outwards, double aside, double radius, const Style& style = line) const {
    drawing.scene.markers.push_back(
        {Layer::supports, subject, style, at(outwards, aside), radius, told});
  }
  /// A line with hatching behind it.
  void add_ground(double outwards, double half_width) const {
    std::vector<std::vector<Place>> lines{{at(outwards, -half_width), at(outwards, half_width)}};
    constexpr int strokes = 5;
    const double step = 2.0 * half_width / strokes;
    for (int i = 0; i < strokes; ++i) {
      const double aside = -half_width + step * (i + 1);
      lines.push_back({at(outwards, aside), at(outwards + 1.1, aside - step)});
    }
    add(std::move(lines), false, {.stroke = ink, .width = 0.25});
  }
};

void add_fixed(const Symbol& symbol) {
  constexpr double depth = 1.3, half_width = 2.6;
  symbol.add({{symbol.at(0, -half_width), symbol.at(depth, -half_width),
               symbol.at(depth, half_width), symbol.at(0, half_width)}},
             true, solid);
  symbol.add_ground(depth, half_width);
}

void add_pinned(const Symbol& symbol) {
  constexpr double depth = 3.4, half_width = 1.9;
  symbol.add({{symbol.at(0, 0), symbol.at(depth, -half_width), symbol.at(depth, half_width)}}, true,
             line);
  symbol.add_ground(depth, 2.6);
}

void add_roller(const Symbol& symbol) {
  constexpr double depth = 2.6, half_width = 1.6, radius = 0.55;
  symbol.add({{symbol.at(0, 0), symbol.at(depth, -half_width), symbol.at(depth, half_width)}}, true,
             line);
  for (const double side : {-1.0, 1.0}) symbol.add_ring(depth + radius, side, radius);
  symbol.add_ground(depth + 2.0 * radius, 2.3);
}

/// Restrained against turning, or, open, only in what the view does not show.
void add_square(const Symbol& symbol, const Style& style) {
  constexpr double half = 1.1;
  symbol.add({{symbol.at(-half, -half), symbol.at(-half, half), symbol.at(half, half),
               symbol.at(half, -half)}},
             true, style);
}

void add_spring(const Symbol& symbol) {
  constexpr double lead = 1.0, step = 0.7, half_width = 1.1;
  constexpr int turns = 6;
  std::vector<Place> zigzag{symbol.at(0, 0), symbol.at(lead, 0)};
  for (int i = 0; i < turns; ++i) {
    const double aside = i % 2 == 0 ? half_width : -half_width;
    zigzag.push_back(symbol.at(lead + step * (i + 0.5), aside));
  }
  const double end = lead + step * turns;
  zigzag.push_back(symbol.at(end, 0));
  zigzag.push_back(symbol.at(end + lead, 0));
  symbol.add({std::move(zigzag)}, false, {.stroke = ink, .width = 0.3});
  symbol.add_ground(end + lead, 1.8);
}

/// A spiral around the node.
void add_rotation_spring(const Symbol& symbol) {
  constexpr int points = 40;
  constexpr double turns = 2.25, largest = 2.4;
  std::vector<Place> spiral;
  for (int i = 0; i <= points; ++i) {
    const double part = static_cast<double>(i) / points;
    const double angle = 2.0 * std::numbers::pi * turns * part;
    spiral.push_back(symbol.at(largest * part * elementary::cosine(angle),
                               largest * part * elementary::sine(angle)));
  }
  symbol.add({std::move(spiral)}, false, {.stroke = ink, .width = 0.3});
}

/// What of a support is seen: in a view along an axis what happens in its plane.
struct Seen {
  std::vector<std::size_t> translations;  ///< restrained, among those that the view shows
  std::size_t shown_translations = 3;
  bool is_turning_restrained = false;  ///< of all rotations that the view shows
  bool is_anything = false;            ///< restrained, seen or not
};

Seen seen_of(const model::Support& support, const View& view) {
  Seen out;
  out.is_turning_restrained = true;
  out.is_anything = std::ranges::any_of(support.restrained, std::identity());
  const bool shows_all = std::ranges::none_of(
      axes, [&](std::size_t axis) { return is_end_on(view, global_axis(axis)); });
  out.shown_translations = shows_all ? 3 : 2;
  for (std::size_t i = 0; i < 3; ++i) {
    // The rotation in the plane is about the axis that is seen end-on.
    const bool end_on_axis = is_end_on(view, global_axis(i));
    if (!end_on_axis && support.restrained[i]) out.translations.push_back(i);
    const bool is_shown_rotation = shows_all || end_on_axis;
    if (is_shown_rotation && !support.restrained[3 + i]) out.is_turning_restrained = false;
  }
  return out;
}

/// The directions of the elements at a node, each of length 1 and away from it.
std::vector<Point3> elements_from(model::Number node,
                                  const std::vector<const SeenElement*>& at_node) {
  std::vector<Point3> out;
  for (const SeenElement* one : at_node) {
    const double sign = one->element->nodes[0] == node ? 1.0 : -1.0;
    out.push_back(sign * one->axes[0]);
  }
  return out;
}

/// Whether one of the directions is nearly this one.
bool has_near(const std::vector<Point3>& all, const Point3& direction) {
  constexpr double nearly = 0.9;
  return std::ranges::any_of(all, [&](const Point3& one) { return dot(one, direction) > nearly; });
}

/// Where the ground is that holds a node along an axis: against the axis, unless an element leaves
/// the node there and none on the other side.
Point2 ground_along(const Drawing& drawing, const std::vector<Point3>& elements, std::size_t axis) {
  if (is_end_on(drawing.content.view, global_axis(axis))) return {0, -1};
  const Point3 against = -1.0 * global_axis(axis);
  const bool turns = has_near(elements, against) && !has_near(elements, -1.0 * against);
  return unit_of(drawing.seen(turns ? -1.0 * against : against));
}

/// The axis that points up in the view.
std::size_t upright_axis(const View& view) {
  return is_end_on(view, global_axis(2)) ? 1 : 2;
}

std::string restrained_text(const model::Support& support) {
  std::string text;
  for (std::size_t i = 0; i < directions.size(); ++i) {
    if (support.restrained[i]) text += fmt::format(" {}", directions[i]);
  }
  return text;
}

/// Draws what restrains a node. @return false when the view shows none of it
bool draw_restraints(Drawing& drawing, const model::Support& support,
                     const std::vector<Point3>& elements) {
  const Seen seen = seen_of(support, drawing.content.view);
  if (!seen.is_anything) return true;
  Symbol symbol{drawing, node_subject(support.node), point_of(drawing.model, support.node),
                ground_along(drawing, elements, upright_axis(drawing.content.view)),
                texts::translated("node {}:{} restrained", support.node, restrained_text(support))};
  if (seen.translations.size() == seen.shown_translations) {
    if (!seen.is_turning_restrained) {
      add_pinned(symbol);
      return true;
    }
    const bool is_seen = elements.size() == 1 && !is_end_on(drawing.content.view, elements.front());
    if (is_seen) symbol.out = -1.0 * unit_of(drawing.seen(elements.front()));
    add_fixed(symbol);
    return true;
  }
  if (seen.translations.empty()) {
    add_square(symbol, seen.is_turning_restrained ? solid : line);
    return seen.is_turning_restrained;
  }
  const bool holds_z = std::ranges::count(seen.translations, std::size_t{2}) > 0;
  symbol.out = ground_along(drawing, elements, holds_z ? 2 : seen.translations.front());
  add_roller(symbol);
  if (seen.is_turning_restrained) add_square(symbol, solid);
  return true;
}

std::string spring_text(const model::Units& units, const model::Support& support,
                        std::size_t direction) {
  const double force = model::newtons_per(units.force);
  const double length = model::millimetres_per(units.length);
  const bool is_rotation = direction >= 3;
  const double one = is_rotation ? force * length : force / length;
  return texts::translated("node {}: spring {} {} {}{}{}", support.node, directions[direction],
                           short_text(support.springs[direction] / one),
                           model::name_of(units.force), is_rotation ? "·" : "/",
                           model::name_of(units.length)) +
         (is_rotation ? "/rad" : "");
}

void draw_springs(Drawing& drawing, const model::Support& support,
                  const std::vector<Point3>& elements) {
  for (std::size_t i = 0; i < directions.size(); ++i) {
    if (support.springs[i] == 0.0) continue;
    const bool is_rotation = i >= 3;
    const Symbol symbol{drawing, node_subject(support.node), point_of(drawing.model, support.node),
                        ground_along(drawing, elements, i % 3),
                        spring_text(drawing.model.units, support, i)};
    if (is_rotation) {
      add_rotation_spring(symbol);
    } else if (is_end_on(drawing.content.view, global_axis(i))) {
      symbol.add_ring(0, 0, 1.3);
    } else {
      add_spring(symbol);
    }
  }
}

}  // namespace

void draw_supports(Drawing& drawing) {
  std::map<model::Number, std::vector<const SeenElement*>> at_node;
  for (const SeenElement& one : drawing.elements) {
    for (const model::Number node : one.element->nodes) at_node[node].push_back(&one);
  }
  bool are_all_seen = true;
  for (const model::Support& support : drawing.model.supports) {
    const auto elements = elements_from(support.node, at_node[support.node]);
    are_all_seen = draw_restraints(drawing, support, elements) && are_all_seen;
    draw_springs(drawing, support, elements);
  }
  if (are_all_seen) return;
  drawing.scene.notes.emplace_back(texts::translated(
      "open squares: nodes that are restrained only in what this view does not show"));
}

}  // namespace aluframe::picture
