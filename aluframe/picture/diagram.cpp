// Forces along the elements.

#include <algorithm>
#include <cmath>

#include "aluframe/picture/colours.h"
#include "aluframe/picture/drawing.h"
#include "aluframe/texts/text.h"

namespace aluframe::picture {

namespace {

/// A diagram as its ordinates are drawn.
struct Scale {
  double per_value = 0.0;  ///< mm of the model for 1 N or 1 N·mm
  double largest = 0.0;    ///< magnitude of any value
};

template <class Use>
void for_each_side(const ForceLine& line, const Use& use) {
  use(line.values);
  if (!line.minimum.empty()) use(line.minimum);
}

/// An element that can be drawn on, and its part of the diagram.
struct SeenLine {
  const SeenElement* element = nullptr;
  const ForceLine* line = nullptr;
};

/// @param end_on_elements gets the elements that are seen as points
std::vector<SeenLine> seen_lines(const Drawing& drawing, const Diagram& diagram,
                                 std::vector<model::Number>& end_on_elements) {
  std::map<model::Number, const ForceLine*> lines;
  for (const ForceLine& line : diagram.lines) lines.emplace(line.element, &line);
  std::vector<SeenLine> out;
  for (const SeenElement& one : drawing.elements) {
    const auto found = lines.find(one.element->number);
    if (found == lines.end()) continue;
    if (one.is_end_on) {
      end_on_elements.push_back(found->first);
    } else {
      out.push_back({&one, found->second});
    }
  }
  return out;
}

Scale scale_of(const Drawing& drawing, const std::vector<SeenLine>& lines) {
  Scale scale;
  for (const SeenLine& seen : lines) {
    for_each_side(*seen.line, [&](const std::vector<Ordinate>& values) {
      for (const Ordinate& one : values) {
        if (std::isfinite(one.value)) scale.largest = std::max(scale.largest, std::abs(one.value));
      }
    });
  }
  if (scale.largest > 0.0) scale.per_value = drawing.ordinate / scale.largest;
  return scale;
}

/// The local axis of the plane that a force acts in: 1 y, 2 z. Forces without one are drawn in xz.
std::size_t axis_of(ForceComponent component) {
  return component == ForceComponent::vy || component == ForceComponent::mz ? 1 : 2;
}

/// The direction in which a positive value is drawn.
struct Direction {
  Point3 axis;
  bool is_turned = false;  ///< out of its plane, which is seen edge-on
};

/// How much of a line square to the element is seen.
double seen_beside(const Drawing& drawing, const SeenElement& one, const Point3& axis) {
  return std::abs(dot(left_of(one.along), drawing.seen(axis)));
}

Direction direction_of(const Drawing& drawing, const SeenElement& one, ForceComponent component) {
  const std::size_t own = axis_of(component);
  const std::size_t other = 3 - own;
  const bool is_edge_on = seen_beside(drawing, one, one.axes[own]) < end_on;
  const bool turns = is_edge_on && seen_beside(drawing, one, one.axes[other]) >= end_on;
  const bool is_bending = component == ForceComponent::my || component == ForceComponent::mz;
  const bool has_plane = component != ForceComponent::n && component != ForceComponent::t;
  // A positive moment compresses the fibres at +z or +y: tension is on the other side.
  const double sign = is_bending ? -1.0 : 1.0;
  return {sign * one.axes[turns ? other : own], turns && has_plane};
}

/// One piece of a diagram without a change of sign, from the axis of the element and back to it.
struct Piece {
  std::vector<Ordinate> values;
  bool is_positive = true;
};

/// Cuts a line where it changes its sign.
std::vector<Piece> pieces_of(const std::vector<Ordinate>& values) {
  std::vector<Piece> pieces;
  for (std::size_t i = 0; i < values.size(); ++i) {
    const Ordinate& one = values[i];
    const bool is_positive =
        one.value > 0.0 || (one.value == 0.0 && !pieces.empty() && pieces.back().is_positive);
    if (pieces.empty()) {
      pieces.push_back({{}, is_positive});
    } else if (is_positive != pieces.back().is_positive) {
      const Ordinate& before = values[i - 1];
      const double part = before.value / (before.value - one.value);
      const double zero = before.fraction + part * (one.fraction - before.fraction);
      pieces.back().values.push_back({zero, 0.0});
      pieces.push_back({{{zero, 0.0}}, is_positive});
    }
    pieces.back().values.push_back(one);
  }
  return pieces;
}

class DiagramOfElement {
 public:
  DiagramOfElement(Drawing& drawing, const SeenElement& one, const Diagram& diagram, Scale scale)
      : drawing_(drawing),
        one_(one),
        diagram_(diagram),
        scale_(scale),
        direction_(direction_of(drawing, one, diagram.component)) {}

  bool is_turned() const { return direction_.is_turned; }

  void add(const std::vector<Ordinate>& values) {
    for (const Piece& piece : pieces_of(values)) {
      const bool is_zero = std::ranges::all_of(
          piece.values, [](const Ordinate& value) { return value.value == 0.0; });
      if (is_zero || piece.values.size() < 2) continue;
      add_area(piece);
      add_value(piece);
    }
  }

 private:
  Point3 tip_of(const Ordinate& value) const {
    return one_.at(value.fraction) + scale_.per_value * value.value * direction_.axis;
  }

  void add_area(const Piece& piece) {
    std::vector<Place> line{{one_.at(piece.values.front().fraction), {}}};
    for (const Ordinate& value : piece.values) line.push_back({tip_of(value), {}});
    line.push_back({one_.at(piece.values.back().fraction), {}});
    const std::string_view colour = piece.is_positive ? blue : orange;
    drawing_.scene.shapes.push_back(
        {.layer = Layer::diagram,
         .subject = element_subject(one_.element->number),
         .style = {.stroke = colour, .width = 0.2, .fill = colour, .opacity = 0.22},
         .lines = {std::move(line)},
         .is_closed = true,
         .told = texts::translated("element {}: {} {}", one_.element->number,
                                   name_of(diagram_.component), text_of(largest_of(piece).value))});
  }

  static const Ordinate& largest_of(const Piece& piece) {
    return *std::ranges::max_element(piece.values, {},
                                     [](const Ordinate& value) { return std::abs(value.value); });
  }

  /// Where the extreme value is written: at its place, or in the middle where all are about the
  /// same.
  static Ordinate place_of(const Piece& piece, const Ordinate& extreme) {
    constexpr double about = 0.9;
    const bool is_even = std::ranges::all_of(piece.values, [&](const Ordinate& value) {
      return std::abs(value.value) > about * std::abs(extreme.value);
    });
    if (!is_even) return extreme;
    const double middle = 0.5 * (piece.values.front().fraction + piece.values.back().fraction);
    return {middle, extreme.value};
  }

  std::string text_of(double value) const {
    return is_moment(diagram_.component) ? moment_text(drawing_.model.units, value)
                                         : force_text(drawing_.model.units, value);
  }

  /// The extreme value of the piece; its unit is in the title.
  void add_value(const Piece& piece) {
    const Ordinate& value = largest_of(piece);
    constexpr double worth_telling = 0.01;
    if (std::abs(value.value) < worth_telling * scale_.largest) return;
    std::string text = text_of(value.value);
    text.resize(text.find(' '));
    const Point2 out = drawing_.seen(value.value * direction_.axis);
    drawing_.scene.labels.push_back({.layer = Layer::values,
                                     .subject = element_subject(one_.element->number),
                                     .text = std::move(text),
                                     .at = {tip_of(place_of(piece, value)), {}},
                                     .towards = unit_of(out, {0, 1}),
                                     .colour = piece.is_positive ? blue : orange,
                                     .is_always_shown = false,
                                     .rank = 4.0 + std::abs(value.value) / scale_.largest});
  }

  Drawing& drawing_;
  const SeenElement& one_;
  const Diagram& diagram_;
  Scale scale_;
  Direction direction_;
};

/// "largest 10 kN·m (element 3), smallest −2 kN·m (element 5)"
std::string extremes_text(const Drawing& drawing, const Diagram& diagram) {
  double largest = 0.0, smallest = 0.0;
  model::Number of_largest = 0, of_smallest = 0;
  for (const ForceLine& line : diagram.lines) {
    for_each_side(line, [&](const std::vector<Ordinate>& values) {
      for (const Ordinate& one : values) {
        if (one.value > largest) largest = one.value, of_largest = line.element;
        if (one.value < smallest) smallest = one.value, of_smallest = line.element;
      }
    });
  }
  const auto text = [&](double value) {
    return is_moment(diagram.component) ? moment_text(drawing.model.units, value)
                                        : force_text(drawing.model.units, value);
  };
  const std::string_view name = name_of(diagram.component);
  if (of_largest == 0 && of_smallest == 0) return texts::translated("{} is 0 everywhere", name);
  if (of_smallest == 0) {
    return texts::translated("{} largest {} (element {})", name, text(largest), of_largest);
  }
  if (of_largest == 0) {
    return texts::translated("{} smallest {} (element {})", name, text(smallest), of_smallest);
  }
  return texts::translated("{} largest {} (element {}), smallest {} (element {})", name,
                           text(largest), of_largest, text(smallest), of_smallest);
}

}  // namespace

std::string convention_of(ForceComponent component) {
  switch (component) {
    case ForceComponent::n:
      return texts::translated("blue: tension, positive; orange: compression");
    case ForceComponent::my:
      return texts::translated(
          "drawn on the tension side; blue: positive, tension at −z; orange: negative");
    case ForceComponent::mz:
      return texts::translated(
          "drawn on the tension side; blue: positive, tension at −y; orange: negative");
    case ForceComponent::vy:
      return texts::translated("blue: positive, towards +y; orange: negative");
    default:
      return texts::translated("blue: positive, towards +z; orange: negative");
  }
}

void draw_diagram(Drawing& drawing, const Diagram& diagram) {
  std::vector<model::Number> end_on_elements, turned;
  const std::vector<SeenLine> lines = seen_lines(drawing, diagram, end_on_elements);
  const Scale scale = scale_of(drawing, lines);
  for (const SeenLine& seen : lines) {
    DiagramOfElement part(drawing, *seen.element, diagram, scale);
    if (part.is_turned()) turned.push_back(seen.line->element);
    for_each_side(*seen.line, [&](const auto& values) { part.add(values); });
  }
  std::vector<std::string>& notes = drawing.scene.notes;
  notes.push_back(extremes_text(drawing, diagram) + "; " + convention_of(diagram.component));
  add_note(
      notes, turned,
      texts::translated("the plane of {} is seen edge-on: the diagram is turned by 90° about the "
                        "element",
                        name_of(diagram.component)));
  add_note(notes, end_on_elements,
           texts::translated("seen end-on, without a diagram in this view"));
}

}  // namespace aluframe::picture
