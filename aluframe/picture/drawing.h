#pragma once

#include <array>
#include <string>
#include <vector>

#include "aluframe/model/members.h"
#include "aluframe/picture/content.h"
#include "aluframe/picture/element_axis.h"

// What the parts of a picture share while it is drawn.

namespace aluframe::picture {

/// An element as it is seen.
struct SeenElement : ElementAxis {
  const model::Element* element = nullptr;
  Point2 along = {};  ///< x on paper, length 1
  bool is_end_on = false;

  Point3 at(double fraction) const { return between(start, end, fraction); }
};

struct Drawing {
  const model::Model& model;
  const Content& content;
  Scene& scene;
  std::vector<SeenElement> elements;
  double size = 0.0;      ///< larger extent of the frame as it is seen, mm of the model
  double ordinate = 0.0;  ///< how long the largest ordinate of a diagram is, mm of the model

  Point2 seen(const Point3& direction) const { return project(content.view, direction); }
};

Drawing drawing_of(const model::Model& model, const Content& content, Scene& scene);

/// The unit vector along X, Y or Z.
Point3 global_axis(std::size_t axis);

void draw_elements(Drawing& drawing);
/// The ratios beside elements that exceed 1.
void draw_ratios(Drawing& drawing);
void draw_supports(Drawing& drawing);
void draw_releases(Drawing& drawing);
void draw_local_axes(Drawing& drawing);
void draw_numbers(Drawing& drawing);
void draw_loads(Drawing& drawing, const model::LoadCase& load_case);
/// Names what of the loads has no place in the picture.
void add_load_notes(Drawing& drawing, const model::CaseLoads& loads);
void draw_diagram(Drawing& drawing, const Diagram& diagram);
void draw_deformed(Drawing& drawing, const Deformed& deformed);

/// An arrow on paper whose tip stands at a place. @param along from its tail to the tip, length 1
void add_arrow(Drawing& drawing, Shape shape, const Place& tip, const Point2& along, double length);
/// The head alone, as a filled triangle of the shape's layer, subject and colour.
void add_head(Drawing& drawing, const Shape& like, const Place& tip, const Point2& along);
/// What is seen end-on: a ring with a dot when it points to the eye, with a cross else.
void add_end_on(Drawing& drawing, const Shape& like, const Place& at, bool is_towards_eye);

/// A number with three significant digits, without an exponent where that is short: "0.405".
std::string short_text(double value);
std::string force_text(const model::Units& units, double newtons);
std::string moment_text(const model::Units& units, double newton_millimetres);
std::string line_load_text(const model::Units& units, double newtons_per_millimetre);

}  // namespace aluframe::picture
