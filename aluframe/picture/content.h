#pragma once

#include <map>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "aluframe/model/model.h"
#include "aluframe/model/number_ranges.h"
#include "aluframe/picture/scene.h"

/// What a picture of a frame shows beside its lines. Forces, displacements and ratios are computed
/// elsewhere and come as numbers, N, mm.
namespace aluframe::picture {

enum class ForceComponent { n, vy, vz, t, my, mz };
std::optional<ForceComponent> parse_component(std::string_view name);
/// "My"
std::string_view name_of(ForceComponent component);
/// "bending moment My"
std::string_view heading_of(ForceComponent component);
/// "N, Vy, Vz, T, My, Mz", for messages.
std::string_view component_names();
/// What a sign of it means, in which colour and on which side it is drawn.
std::string convention_of(ForceComponent component);
inline bool is_moment(ForceComponent component) {
  return component >= ForceComponent::t;
}

/// A force of a section at a place, a part of the element's length from its start.
struct Ordinate {
  double fraction = 0.0;
  double value = 0.0;  ///< N or N·mm
};

/// One element's part of a diagram.
struct ForceLine {
  model::Number element = 0;
  std::vector<Ordinate> values;   ///< rising; two at a place where it jumps
  std::vector<Ordinate> minimum;  ///< of what has two sides; `values` is then the maximum
};

/// A force along the elements. Moments are drawn on the tension side, other forces towards +z or +y
/// where they are positive.
struct Diagram {
  ForceComponent component = ForceComponent::my;
  std::string of;  ///< "load case 2 \"WIND\", linear analysis"
  std::vector<ForceLine> lines;
};

/// How a place of an element is displaced, mm, global axes.
struct DisplacedPlace {
  double fraction = 0.0;
  Point3 displacement;
};
struct DisplacedLine {
  model::Number element = 0;
  std::vector<DisplacedPlace> places;  ///< from the start to the end
};

/// A displaced frame.
struct Deformed {
  std::string of;
  std::vector<DisplacedLine> lines;
};

enum class ColourBy { nothing, ratio, deflection, section, material };
std::optional<ColourBy> parse_colour(std::string_view name);
/// By a stored check or what stands beside it: elements have ratios then.
constexpr bool is_by_ratio(ColourBy colour) {
  return colour == ColourBy::ratio || colour == ColourBy::deflection;
}
/// "ratio, deflection, section, material", for messages.
std::string_view colour_names();

/// Governing ratios of elements, of a stored check, or deflections over what they are limited to;
/// an element without one is not in it.
using Ratios = std::map<model::Number, double>;

/// Which nodes or elements are numbered.
struct Numbers {
  bool are_shown = false;
  model::NumberRanges only;  ///< empty: all
};

struct Content {
  View view = View::iso;
  Numbers node_numbers, element_numbers;
  bool local_axes = false;
  std::optional<model::Number> loads;  ///< the load case whose loads are drawn; it exists
  std::optional<Diagram> diagram;
  std::optional<Deformed> deformed;
  ColourBy colour = ColourBy::nothing;
  Ratios ratios;                   ///< where `is_by_ratio`
  std::vector<std::string> notes;  ///< what must be said of all that
};

/// Adds "elements 1, 3-5: text" to notes, where there are any elements.
void add_note(std::vector<std::string>& notes, std::vector<model::Number> elements,
              const std::string& text);

/// The picture. The model must be consistent, as its reader leaves it, and have an element.
///
///     picture::Content content;
///     content.view = picture::natural_view(model);
///     const std::string svg = picture::svg_of(picture::draw(model, content));
Scene draw(const model::Model& model, const Content& content);
/// The same without the elements and what colours them, for a window that draws these itself.
Scene draw_beside(const model::Model& model, const Content& content);

/// How elements are drawn, in the order of the model, and the legend that goes with it.
struct ElementStyles {
  std::vector<Style> styles;
  std::vector<LegendEntry> legend;
};
ElementStyles element_styles(const model::Model& model, const Content& content);

/// How many times displacements are shown as large as they are, so that the largest is readable
/// beside a frame of this size, mm: 1, 2 or 5 times a power of ten; 1 without displacements.
double displacement_scale(const Deformed& deformed, double frame_size);
/// "displacements 50 times as large; largest 3.53 mm at node 7"
std::string displacement_note(const model::Model& model, const Deformed& deformed, double scale);

}  // namespace aluframe::picture
