#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "aluframe/model/table.h"
#include "aluframe/picture/view.h"

/// What is drawn, without a toolkit: a file writer or a window puts it on its own surface. Places
/// are those of the model; symbols and letters have their size on paper.
namespace aluframe::picture {

/// What an item belongs to, in the order in which items cover each other.
enum class Layer {
  diagram,
  frame,
  deformed,
  supports,
  releases,
  loads,
  local_axes,
  values,
  numbers
};
/// "frame", for groups of a file.
std::string_view name_of(Layer layer);

/// The node or element that an item stands for.
struct Subject {
  enum class Kind { none, node, element };
  Kind kind = Kind::none;
  model::Number number = 0;
};
inline Subject node_subject(model::Number number) {
  return {Subject::Kind::node, number};
}
inline Subject element_subject(model::Number number) {
  return {Subject::Kind::element, number};
}

/// A point of the model, mm, and how far from it on paper, mm there.
struct Place {
  Point3 at;
  Point2 paper;
};

inline constexpr std::string_view no_colour = "none";

/// Colours as "#rrggbb", lengths in mm on paper.
struct Style {
  std::string_view stroke = no_colour;
  double width = 0.25;
  std::string_view dash = {};  ///< lengths of dashes and gaps; empty: a full line
  std::string_view fill = no_colour;
  double opacity = 1.0;  ///< of the fill
};

/// One or several lines, open or closed, filled where the style says so.
struct Shape {
  Layer layer = Layer::frame;
  Subject subject = {};
  Style style = {};
  std::vector<std::vector<Place>> lines = {};
  bool is_closed = false;
  std::string told = {};  ///< what it is, for who points at it; may be empty
};

/// A circle of a size on paper.
struct Marker {
  Layer layer = Layer::frame;
  Subject subject = {};
  Style style = {};
  Place centre = {};
  double radius = 0.8;
  std::string told = {};
};

/// A text beside a place. Where several are wanted and there is no room, the one with the larger
/// rank stands, and those that are not `always` shown are left out.
struct Label {
  Layer layer = Layer::numbers;
  Subject subject = {};
  std::string text = {};
  Place at = {};
  Point2 towards = {};  ///< where it stands first, seen from the place; others are tried
  std::string_view colour = "#000000";
  bool is_framed = false;
  bool is_always_shown = true;
  double rank = 0.0;
};

/// A line of the legend.
struct LegendEntry {
  Style style;
  std::string text;
};

/// A whole picture.
struct Scene {
  View view = View::iso;
  std::string title;     ///< the model
  std::string subtitle;  ///< what is shown of it
  std::vector<LegendEntry> legend;
  std::vector<std::string> notes;  ///< what must be said below the picture
  std::vector<Shape> shapes;
  std::vector<Marker> markers;
  std::vector<Label> labels;
  model::LengthUnit length_unit = model::LengthUnit::metre;  ///< of the scale
};

}  // namespace aluframe::picture
