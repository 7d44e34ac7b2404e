#pragma once

#include <array>
#include <vector>

#include "aluframe/model/section.h"

namespace aluframe::section {

/// A section cut into curved quadrilaterals of nine points each: corners, middles of the sides, and
/// centre, in rows of three. y to the right, z up, in mm; the origin is mid-depth, at the left edge
/// or the axis of symmetry.
struct SectionMesh {
  struct Point {
    double y;
    double z;
  };
  using Cell = std::array<std::size_t, 9>;

  std::vector<Point> points;
  std::vector<Cell> cells;
};

/// Mesh of a shape given by its dimensions. Cells are small at corners, where the shear stress of
/// torsion changes fast, and grow away from them. Of a double channel: of the right channel.
/// The section must have no dimension problem and not be of shape `other`.
/// @param across cells across the thinnest plate, or from the inner to the outer radius
SectionMesh mesh_of(const model::Section& section, int across = 4);

}  // namespace aluframe::section
