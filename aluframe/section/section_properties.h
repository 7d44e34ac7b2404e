#pragma once

#include <optional>
#include <string>

#include "aluframe/model/section.h"

namespace aluframe::section {

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
model::SectionProperties properties_of(const model::Section& section);

}  // namespace aluframe::section
