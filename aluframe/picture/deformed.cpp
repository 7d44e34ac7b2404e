// The displaced frame.

#include <fmt/format.h>

#include <algorithm>
#include <cmath>

#include "aluframe/elementary/functions.h"
#include "aluframe/picture/colours.h"
#include "aluframe/picture/drawing.h"
#include "aluframe/texts/text.h"

namespace aluframe::picture {

namespace {

double magnitude(const Point3& displacement) {
  return std::sqrt(dot(displacement, displacement));
}

struct Largest {
  double displacement = 0.0;  ///< mm
  model::Number element = 0;
  double fraction = 0.0;
};

Largest largest_of(const Deformed& deformed) {
  Largest out;
  for (const DisplacedLine& line : deformed.lines) {
    for (const DisplacedPlace& place : line.places) {
      const double size = magnitude(place.displacement);
      if (size > out.displacement) out = {size, line.element, place.fraction};
    }
  }
  return out;
}

/// The largest of 1, 2 and 5 times a power of ten that is no more.
double round_down(double value) {
  const double power = elementary::power_of_ten(elementary::exponent_of_ten(value));
  for (const double digit : {5.0, 2.0}) {
    if (digit * power <= value) return digit * power;
  }
  return power;
}

/// "3.53 mm at node 7", or where in an element.
std::string largest_text(const model::Model& model, const Largest& largest) {
  const bool is_imperial = model.units.length == model::LengthUnit::foot ||
                           model.units.length == model::LengthUnit::inch;
  const model::LengthUnit unit =
      is_imperial ? model::LengthUnit::inch : model::LengthUnit::millimetre;
  const std::string size =
      fmt::format("{} {}", short_text(largest.displacement / model::millimetres_per(unit)),
                  model::name_of(unit));
  const model::Element& element = *model.elements.find(largest.element);
  if (largest.fraction == 0.0) return texts::translated("{} at node {}", size, element.nodes[0]);
  if (largest.fraction == 1.0) return texts::translated("{} at node {}", size, element.nodes[1]);
  return texts::translated("{} in element {}, at {} of its length", size, largest.element,
                           short_text(largest.fraction));
}

}  // namespace

double displacement_scale(const Deformed& deformed, double frame_size) {
  constexpr double shown_share = 0.08;  // of the frame's size, by the largest displacement
  const double largest = largest_of(deformed).displacement;
  return largest == 0.0 ? 1.0 : round_down(shown_share * frame_size / largest);
}

std::string displacement_note(const model::Model& model, const Deformed& deformed, double scale) {
  const Largest largest = largest_of(deformed);
  if (largest.displacement == 0.0) return texts::translated("no displacements");
  return texts::translated("displacements {} times as large; largest {}", short_text(scale),
                           largest_text(model, largest));
}

void draw_deformed(Drawing& drawing, const Deformed& deformed) {
  const double factor = displacement_scale(deformed, drawing.size);
  drawing.scene.notes.push_back(displacement_note(drawing.model, deformed, factor));
  if (largest_of(deformed).displacement == 0.0) return;
  std::map<model::Number, const DisplacedLine*> lines;
  for (const DisplacedLine& line : deformed.lines) lines.emplace(line.element, &line);
  for (const SeenElement& one : drawing.elements) {
    const auto found = lines.find(one.element->number);
    if (found == lines.end()) continue;
    std::vector<Place> line;
    for (const DisplacedPlace& place : found->second->places) {
      line.push_back({one.at(place.fraction) + factor * place.displacement, {}});
    }
    drawing.scene.shapes.push_back({.layer = Layer::deformed,
                                    .subject = element_subject(one.element->number),
                                    .style = {.stroke = blue, .width = 0.5},
                                    .lines = {std::move(line)},
                                    .told = texts::translated("element {}", one.element->number)});
  }
}

}  // namespace aluframe::picture
