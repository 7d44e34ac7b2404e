#include <algorithm>
#include <cmath>

#include "aluframe/section/section_properties.h"
#include "aluframe/section/shapes.h"
#include "aluframe/texts/text.h"

namespace aluframe::section {

namespace {

using model::Section;
using model::Shape;
using Problem = std::optional<DimensionProblem>;

/// A distance that follows from two others may differ from them by rounding, relative to the width.
constexpr double rounding = 1e-9;

/// The shape must have a dimension of this name.
std::size_t place_of(const Section& section, std::string_view name) {
  const auto names = model::dimension_names(section.shape);
  return static_cast<std::size_t>(std::find(names.begin(), names.end(), name) - names.begin());
}

double value_of(const Section& section, std::string_view name) {
  return section.dimensions[place_of(section, name)];
}

/// A problem of the dimension called `name`: "tw is 60 mm: <why>".
DimensionProblem problem_of(const Section& section, std::string_view name, std::string_view why) {
  const std::size_t place = place_of(section, name);
  return {place, texts::translated("{} is {:.6g} mm: {}", name, section.dimensions[place], why)};
}

/// "(H 200 mm)"
std::string quoted(const Section& section, std::string_view name) {
  return texts::translated("({} {:.6g} mm)", name, value_of(section, name));
}

bool may_be_zero(const Section& section, std::string_view name) {
  return name.starts_with('r') || (name == "C" && section.shape == Shape::double_channel);
}

/// What is wrong with a dimension on its own; empty when nothing is.
std::string fault_of_value(double value, bool may_be_zero) {
  if (!std::isfinite(value)) return texts::translated("must be a finite number");
  if (may_be_zero) {
    if (value < 0.0) return texts::translated("must not be negative");
    return value > largest_dimension
               ? texts::translated("must be at most {:g} mm", largest_dimension)
               : "";
  }
  if (value <= 0.0) return texts::translated("must be more than 0");
  if (value >= smallest_dimension && value <= largest_dimension) return "";
  return texts::translated("must be between {:g} and {:g} mm", smallest_dimension,
                           largest_dimension);
}

/// Every dimension must be a length on its own.
Problem find_bad_value(const Section& section) {
  const auto names = model::dimension_names(section.shape);
  for (std::size_t i = 0; i < names.size(); ++i) {
    const double value = section.dimensions[i];
    const std::string fault = fault_of_value(value, may_be_zero(section, names[i]));
    if (!fault.empty())
      return DimensionProblem{i, texts::translated("{} is {} mm: {}", names[i], value, fault)};
  }
  return std::nullopt;
}

/// The thicker of the two flanges is to blame when both fill the depth.
Problem find_deep_flanges(const Section& section, std::string_view top, std::string_view bottom) {
  const double t1 = value_of(section, top);
  const double t2 = value_of(section, bottom);
  if (t1 + t2 + smallest_dimension <= value_of(section, "H")) return std::nullopt;
  return problem_of(
      section, t2 > t1 ? bottom : top,
      texts::translated("the two flanges are as deep as the section {}", quoted(section, "H")));
}

Problem find_thick_web(const Section& section, std::string_view width) {
  if (value_of(section, "tw") <= value_of(section, width)) return std::nullopt;
  return problem_of(
      section, "tw",
      texts::translated("the web is thicker than the flange is wide {}", quoted(section, width)));
}

/// Radii must find room on the web, on the flanges' inner faces and on their edges.
Problem find_large_radius(const Section& section) {
  const double r1 = value_of(section, "r1");
  const double r2 = value_of(section, "r2");
  const double sides = section.shape == Shape::h_section ? 2.0 : 1.0;
  const auto at_most = [&](std::string_view name, double limit, std::string_view what) {
    return problem_of(section, name,
                      texts::translated("{} leaves room for at most {:.6g} mm", what, limit));
  };
  const double web = (value_of(section, "H") - value_of(section, "tf1") - value_of(section, "tf2"));
  if (r1 > web / 2.0) return at_most("r1", web / 2.0, texts::translated("the web"));
  const double tf = std::min(value_of(section, "tf1"), value_of(section, "tf2"));
  if (r2 > tf) return at_most("r2", tf, texts::translated("the thinner flange"));
  const double width = std::min(value_of(section, "B1"), value_of(section, "B2"));
  const double outstand = (width - value_of(section, "tw")) / sides;
  if (r1 + r2 <= outstand) return std::nullopt;
  return at_most(r1 > r2 ? "r1" : "r2", outstand - std::min(r1, r2),
                 texts::translated("beside the other radius, the narrower flange"));
}

Problem find_problem_of_flanged(const Section& section) {
  if (auto problem = find_deep_flanges(section, "tf1", "tf2")) return problem;
  if (auto problem = find_thick_web(section, "B1")) return problem;
  if (auto problem = find_thick_web(section, "B2")) return problem;
  return find_large_radius(section);
}

Problem find_problem_of_tee(const Section& section) {
  if (value_of(section, "tf") + smallest_dimension > value_of(section, "H")) {
    return problem_of(
        section, "tf",
        texts::translated("the flange is as deep as the section {}", quoted(section, "H")));
  }
  return find_thick_web(section, "B");
}

Problem find_problem_of_box(const Section& section) {
  if (auto problem = find_deep_flanges(section, "tf1", "tf2")) return problem;
  const double b = value_of(section, "B");
  const double tw = value_of(section, "tw");
  const double c = value_of(section, "C");
  if (2.0 * tw >= b) {
    return problem_of(
        section, "tw",
        texts::translated("the two webs are as wide as the section {}", quoted(section, "B")));
  }
  if (c < tw + smallest_dimension) {
    return problem_of(
        section, "C",
        texts::translated("the webs leave no cell between them {}", quoted(section, "tw")));
  }
  if (c > b - tw + rounding * b) {
    return problem_of(
        section, "C",
        texts::translated("the webs stand out over the flanges (at most B − tw = {:.6g} mm)",
                          b - tw));
  }
  return std::nullopt;
}

Problem find_problem_of_pipe(const Section& section) {
  if (value_of(section, "t") <= value_of(section, "D") / 2.0) return std::nullopt;
  return problem_of(
      section, "t",
      texts::translated("the wall is thicker than the radius {}", quoted(section, "D")));
}

Problem find_problem_of_double_channel(const Section& section) {
  if (auto problem = find_deep_flanges(section, "tf", "tf")) return problem;
  return find_thick_web(section, "B");
}

}  // namespace

std::optional<DimensionProblem> find_dimension_problem(const model::Section& section) {
  if (auto problem = find_bad_value(section)) return problem;
  switch (section.shape) {
    case Shape::channel:
    case Shape::h_section:
      return find_problem_of_flanged(section);
    case Shape::tee:
      return find_problem_of_tee(section);
    case Shape::box:
      return find_problem_of_box(section);
    case Shape::pipe:
      return find_problem_of_pipe(section);
    case Shape::double_channel:
      return find_problem_of_double_channel(section);
    case Shape::solid_round:
    case Shape::other:
      break;
  }
  return std::nullopt;
}

}  // namespace aluframe::section
