#pragma once

#include <optional>
#include <string>

#include "aluframe/model/section.h"

namespace aluframe::section {

/// Dimensions of a section lie between these, in mm: no foil is thinner, no profile longer, and the
/// properties keep their digits. So does the depth of a web between flanges and of a cell between
/// webs. Radii and the gap between two channels may be 0.
inline constexpr double smallest_dimension = 1e-3;
inline constexpr double largest_dimension = 1e5;

/// What is wrong with a section's dimensions, such as "tf1 is 120 mm: the two flanges are as deep
/// as the section (H 200 mm)". Nothing when they describe a shape that can be built.
struct DimensionProblem {
  std::size_t dimension = 0;  ///< place in `model::dimension_names`
  std::string text;
};
std::optional<DimensionProblem> find_dimension_problem(const model::Section& section);

/// Properties of a section: computed from its dimensions by closed formulas, then overridden by
/// what the user gave. The section must have no dimension problem; shape `other` must have the
/// properties it requires.
///
/// A warping constant of 0 (T, P, SR and box by theory, or given) becomes 1e-9·Izz·H²: the critical
/// moment divides by it, and its limit for vanishing warping stiffness is the right answer.
///
///     if (const auto problem = find_dimension_problem(section)) return problem->text;
///     const model::SectionProperties properties = properties_of(section);
model::SectionProperties properties_of(const model::Section& section);

}  // namespace aluframe::section
