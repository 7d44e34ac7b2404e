// Loads of one load case on nodes and elements.

#include <fmt/format.h>

#include <algorithm>
#include <array>
#include <cmath>
#include <map>
#include <numbers>
#include <tuple>
#include <unordered_map>

#include "aluframe/elementary/functions.h"
#include "aluframe/picture/colours.h"
#include "aluframe/picture/drawing.h"
#include "aluframe/texts/text.h"

namespace aluframe::picture {

namespace {

constexpr Style load_style{.stroke = violet, .width = 0.3};
constexpr Style comb_style{.stroke = violet, .width = 0.2, .fill = violet, .opacity = 0.12};
/// Symbols of the largest load of a kind, and the least part of that of any other, mm on paper.
constexpr double longest_arrow = 11.0, tallest_comb = 6.5, least_share = 0.45;

/// How long a symbol is beside that of the largest load of its kind.
double share_of(double value, double largest) {
  return least_share + (1.0 - least_share) * std::abs(value) / largest;
}

/// What an area load puts on an element along an axis, which may be of several pieces: they are
/// drawn to one scale.
using PieceKey = std::tuple<model::Number, std::size_t, std::size_t>;

PieceKey key_of(const model::SpanLoad& load) {
  return {load.elements.numbers.front(), *load.of_area, load.direction.axis};
}

double largest_of(const model::SpanLoad& load) {
  return std::max(std::abs(load.from_value), std::abs(load.to_value));
}

/// Largest magnitudes of the case, by kind.
struct Largest {
  double force = 0.0, span = 0.0;
  std::map<PieceKey, double> pieces;  ///< of what area loads become

  /// That by which a load is drawn.
  double of(const model::SpanLoad& load) const {
    return load.of_area ? pieces.at(key_of(load)) : largest_of(load);
  }
};

Largest largest_of(const model::CaseLoads& loads) {
  Largest out;
  const auto take = [](double& largest, double value) {
    largest = std::max(largest, std::abs(value));
  };
  for (const model::NodalLoad& load : loads.nodal) {
    for (std::size_t i = 0; i < 3; ++i) take(out.force, load.components[i]);
  }
  for (const model::PointLoad& load : loads.points) {
    if (load.kind == model::PointLoad::Kind::force) take(out.force, load.value);
  }
  for (const model::SpanLoad& load : loads.span) {
    take(out.span, largest_of(load));
    if (load.of_area) take(out.pieces[key_of(load)], largest_of(load));
  }
  return out;
}

/// A distributed load square to an element, or slanting. Parts run from where it begins to its end.
struct Comb {
  const SeenElement& element;
  const model::SpanLoad& load;
  Point2 out;              ///< from the element to the tails of the arrows
  double base = 0.0;       ///< where it begins above the element, mm on paper
  double per_value = 0.0;  ///< mm on paper for 1 N/mm

  double value(double part) const {
    return load.from_value + part * (load.to_value - load.from_value);
  }
  double height(double part) const { return per_value * value(part); }
  Place foot(double part) const { return place(part, base); }
  Place top(double part) const { return place(part, base + height(part)); }

 private:
  Place place(double part, double above) const {
    return {element.at(load.from + part * (load.to - load.from)), above * out};
  }
};

class LoadPainter {
 public:
  LoadPainter(Drawing& drawing, const Largest& largest)
      : drawing_(drawing), largest_(largest), model_(drawing.model) {
    for (const SeenElement& one : drawing.elements) elements_.emplace(one.element->number, &one);
  }

  void add(const model::NodalLoad& load) {
    for_each(load.nodes, model_.nodes, [&](model::Number node) {
      for (std::size_t i = 0; i < 6; ++i) {
        const double value = load.components[i];
        const Point3 at = point_of(model_, node);
        if (value == 0.0) continue;
        if (i < 3) {
          add_force(node_subject(node), at, global_axis(i), value);
        } else {
          add_moment(node_subject(node), at, global_axis(i - 3), value);
        }
      }
    });
  }

  void add(const model::PointLoad& load) {
    for_each(load.elements, model_.elements, [&](model::Number number) {
      const SeenElement& one = *elements_.at(number);
      const Point3 axis = axis_of(load.direction, one);
      if (load.kind == model::PointLoad::Kind::force) {
        add_force(element_subject(number), one.at(load.at), axis, load.value);
      } else {
        add_moment(element_subject(number), one.at(load.at), axis, load.value);
      }
    });
  }

  void add(const model::SpanLoad& load) {
    bool is_first = true;
    for_each(load.elements, model_.elements, [&](model::Number number) {
      add_span(*elements_.at(number), load, is_first);
      is_first = false;
    });
  }

 private:
  template <class Table, class Act>
  static void for_each(const model::Targets& targets, const Table& table, const Act& act) {
    if (!targets.all) {
      for (const model::Number number : targets.numbers) act(number);
      return;
    }
    for (const auto& entity : table) act(entity.number);
  }

  static Point3 axis_of(const model::LoadDirection& direction, const SeenElement& one) {
    return direction.axes == model::LoadAxes::local ? one.axes[direction.axis]
                                                    : global_axis(direction.axis);
  }

  bool points_to_eye(const Point3& direction) const {
    return dot(direction, towards_eye(drawing_.content.view)) > 0.0;
  }

  void add_label(const Subject& subject, std::string text, const Place& at, const Point2& towards,
                 double share, bool is_always_shown = false) {
    drawing_.scene.labels.push_back({.layer = Layer::loads,
                                     .subject = subject,
                                     .text = std::move(text),
                                     .at = at,
                                     .towards = towards,
                                     .colour = violet,
                                     .is_always_shown = is_always_shown,
                                     .rank = 4.0 + share});
  }

  /// An arrow whose tip stands at the place, with its value at the tail.
  void add_force(const Subject& subject, const Point3& at, const Point3& axis, double value) {
    const std::string text = force_text(model_.units, std::abs(value));
    const Point3 direction = (value < 0.0 ? -1.0 : 1.0) * axis;
    const Shape like{.layer = Layer::loads,
                     .subject = subject,
                     .style = load_style,
                     .told = texts::translated("load {}", text)};
    const double share = share_of(value, largest_.force);
    if (is_end_on(drawing_.content.view, direction)) {
      add_end_on(drawing_, like, {at, {}}, points_to_eye(direction));
      return add_label(subject, text, {at, {1.2, 0}}, {1, 0}, share);
    }
    const Point2 along = unit_of(drawing_.seen(direction));
    const double length = longest_arrow * share;
    constexpr double gap = 0.5;
    add_arrow(drawing_, like, {at, -gap * along}, along, length);
    add_label(subject, text, {at, -(gap + length) * along}, -1.0 * along, share);
  }

  /// A round arrow for a moment that turns in the plane of the paper, else a double arrow along the
  /// axis that it turns about, right-handed.
  void add_moment(const Subject& subject, const Point3& at, const Point3& axis, double value) {
    const std::string text = moment_text(model_.units, std::abs(value));
    const Point3 direction = (value < 0.0 ? -1.0 : 1.0) * axis;
    const Shape like{.layer = Layer::loads,
                     .subject = subject,
                     .style = load_style,
                     .told = texts::translated("moment {}", text)};
    if (is_end_on(drawing_.content.view, direction)) {
      add_round_arrow(like, at, points_to_eye(direction));
      return add_label(subject, text, {at, {2.9, 2.9}}, {0.7, 0.7}, 0.0);
    }
    const Point2 along = unit_of(drawing_.seen(direction));
    constexpr double length = 9.0, between_heads = 1.5;
    add_arrow(drawing_, like, {at, -0.5 * along}, along, length);
    add_head(drawing_, like, {at, -(0.5 + between_heads) * along}, along);
    add_label(subject, text, {at, -(0.5 + length) * along}, -1.0 * along, 0.0);
  }

  void add_round_arrow(Shape like, const Point3& at, bool is_towards_eye) {
    constexpr double radius = 3.2;
    constexpr int points = 24;
    constexpr double from = -60.0, to = 210.0;  // degrees, against the clock
    std::vector<Place> arc;
    for (int i = 0; i <= points; ++i) {
      const double part = static_cast<double>(is_towards_eye ? i : points - i) / points;
      const double angle = (from + (to - from) * part) * std::numbers::pi / 180.0;
      arc.push_back({at, radius * Point2{elementary::cosine(angle), elementary::sine(angle)}});
    }
    const Place tip = arc.back();
    add_head(drawing_, like, tip, unit_of(tip.paper - arc[arc.size() - 4].paper));
    like.lines = {std::move(arc)};
    drawing_.scene.shapes.push_back(std::move(like));
  }

  std::string span_text(const model::SpanLoad& load, double value) const {
    return line_load_text(model_.units, std::abs(value)) +
           (load.direction.axes == model::LoadAxes::projected ? texts::translated(" proj.") : "");
  }

  /// Loads between two places of an element: arrows under a line, as tall as the load is large.
  void add_span(const SeenElement& one, const model::SpanLoad& load, bool is_first) {
    if (largest_of(load) == 0.0) return;
    const double largest = largest_.of(load);
    const Point3 axis = axis_of(load.direction, one);
    const bool is_along = !one.is_end_on && is_parallel(one, axis);
    if (is_end_on(drawing_.content.view, axis) || one.is_end_on || is_along) {
      add_row(one, load, axis, is_along, is_first);
    } else {
      add_comb(one, load, unit_of(drawing_.seen(axis)), largest, is_first);
    }
  }

  bool is_parallel(const SeenElement& one, const Point3& axis) const {
    const Point2 seen = drawing_.seen(axis);
    return length_of(seen) >= end_on && std::abs(dot(left_of(one.along), unit_of(seen))) < end_on;
  }

  /// How many arrows a load has over a part of an element.
  int arrows_over(const SeenElement& one, const model::SpanLoad& load) const {
    const double length = length_of(drawing_.seen(one.end - one.start)) * (load.to - load.from);
    return std::clamp(static_cast<int>(std::lround(40.0 * length / drawing_.size)), 2, 14);
  }

  /// Where a comb begins above what stands on its part of the element on that side already.
  double stack(const SeenElement& one, const model::SpanLoad& load, const Point2& towards,
               double height) {
    constexpr double gap = 0.7, same_side = 0.7;
    double base = gap;
    auto& stacked = stacks_[one.element->number];
    for (const auto& [side, top, from, to] : stacked) {
      if (load.from < to && from < load.to && dot(side, towards) > same_side)
        base = std::max(base, top + gap);
    }
    stacked.push_back({towards, base + height, load.from, load.to});
    return base;
  }

  void add_comb(const SeenElement& one, const model::SpanLoad& load, const Point2& axis,
                double largest, bool is_first) {
    const double sign = load.from_value + load.to_value < 0.0 ? -1.0 : 1.0;
    Comb comb{one, load, -sign * axis};
    const double height = tallest_comb * share_of(largest, largest_.span);
    comb.base = stack(one, load, comb.out, height);
    comb.per_value = sign * height / largest;
    const Subject subject = element_subject(one.element->number);
    drawing_.scene.shapes.push_back(
        {.layer = Layer::loads,
         .subject = subject,
         .style = comb_style,
         .lines = {{comb.foot(0), comb.top(0), comb.top(1), comb.foot(1)}},
         .is_closed = true,
         .told = texts::translated("load {}", span_text(load, largest_of(load)))});
    add_teeth(comb, subject);
    const double share = largest / largest_.span;
    if (load.from_value == load.to_value) {
      return add_label(subject, span_text(load, load.from_value), comb.top(0.5), comb.out, share,
                       is_first);
    }
    for (const double part : {0.0, 1.0}) {
      if (comb.value(part) == 0.0) continue;
      // Of several pieces one value is enough: where they are largest, told by the first of two.
      if (load.of_area && (std::abs(comb.value(part)) < (1.0 - 1e-9) * largest ||
                           (part == 0.0 && load.from > 0.0))) {
        continue;
      }
      add_label(subject, span_text(load, comb.value(part)), comb.top(part), comb.out, share);
    }
  }

  /// The arrows, but where the load is too small for one.
  void add_teeth(const Comb& comb, const Subject& subject) {
    constexpr double shortest = 2.0;
    const int arrows = arrows_over(comb.element, comb.load);
    Shape teeth{.layer = Layer::loads, .subject = subject, .style = load_style};
    teeth.style.width = 0.2;
    for (int i = 0; i <= arrows; ++i) {
      const double part = static_cast<double>(i) / arrows;
      if (std::abs(comb.height(part)) < shortest) continue;
      teeth.lines.push_back({comb.top(part), comb.foot(part)});
      const double towards_element = comb.height(part) > 0.0 ? -1.0 : 1.0;
      add_head(drawing_, teeth, comb.foot(part), towards_element * comb.out);
    }
    drawing_.scene.shapes.push_back(std::move(teeth));
  }

  /// Loads along the element, or seen end-on: a row of marks on it.
  void add_row(const SeenElement& one, const model::SpanLoad& load, const Point3& axis,
               bool is_along, bool is_first) {
    const double value = load.from_value + load.to_value;
    const Point3 direction = (value < 0.0 ? -1.0 : 1.0) * axis;
    const Subject subject = element_subject(one.element->number);
    const std::string text = load.from_value == load.to_value
                                 ? span_text(load, load.from_value)
                                 : texts::translated("{} to {}", span_text(load, load.from_value),
                                                     span_text(load, load.to_value));
    const Shape like{.layer = Layer::loads,
                     .subject = subject,
                     .style = load_style,
                     .told = texts::translated("load {}", text)};
    const int marks = std::max(2, arrows_over(one, load) / 2);
    constexpr double beside = 1.3, length = 4.0;
    const Point2 side = beside * left_of(one.along);
    for (int i = 0; i < marks; ++i) {
      const Point3 at = one.at(load.from + (i + 0.5) / marks * (load.to - load.from));
      if (is_along) {
        const Point2 along = unit_of(drawing_.seen(direction));
        add_arrow(drawing_, like, {at, side + 0.5 * length * along}, along, length);
      } else {
        add_end_on(drawing_, like, {at, {}}, points_to_eye(direction));
      }
    }
    const Point3 middle = one.at(0.5 * (load.from + load.to));
    add_label(subject, text, {middle, side}, left_of(one.along), 0.5, is_first);
  }

  Drawing& drawing_;
  Largest largest_;
  const model::Model& model_;
  std::unordered_map<model::Number, const SeenElement*> elements_;
  /// What stands on a part of an element already: on which side, and how high.
  struct Stacked {
    Point2 side;
    double top = 0.0, from = 0.0, to = 1.0;
  };
  std::unordered_map<model::Number, std::vector<Stacked>> stacks_;
};

}  // namespace

void draw_loads(Drawing& drawing, const model::LoadCase& load_case) {
  const model::CaseLoads& loads = load_case.loads;
  LoadPainter painter(drawing, largest_of(loads));
  for (const model::SpanLoad& load : loads.span) painter.add(load);
  for (const model::PointLoad& load : loads.points) painter.add(load);
  for (const model::NodalLoad& load : loads.nodal) painter.add(load);
  add_load_notes(drawing, loads);
}

}  // namespace aluframe::picture
