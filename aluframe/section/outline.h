#pragma once

#include <vector>

#include "aluframe/model/section.h"

namespace aluframe::section {

/// A corner of an outline and the radius that rounds it; 0: sharp. y to the right, z up, mm.
struct OutlineCorner {
  double y;
  double z;
  double radius = 0.0;
};

/// The edges of a section's material: closed lines, counter-clockwise around material and clockwise
/// around holes. Round edges are circles of four corners whose radius is their own. Coordinates
/// from the centroid. The section must have no dimension problem; shape `other` has no outline.
using Outline = std::vector<std::vector<OutlineCorner>>;
Outline outline_of(const model::Section& section);

}  // namespace aluframe::section
