#pragma once

#include <array>
#include <vector>

#include "aluframe/model/section.h"
#include "aluframe/picture/point.h"

namespace aluframe::viewport {

/// A section as flat polygons about its centroid, mm: x is its y axis, y its z axis.
struct SectionMesh {
  using Corner = picture::Point2;

  /// Closed edges: counter-clockwise around material, clockwise around holes.
  std::vector<std::vector<Corner>> edges;
  /// What fills them, counter-clockwise.
  std::vector<std::array<Corner, 3>> triangles;

  /// From the centroid to the farthest corner.
  double reach() const;
};

/// How round edges are drawn.
enum class Rounding { smooth, sharp };

/// Of a section by its properties alone the rectangle around its stress points. The section must
/// have no dimension problem.
SectionMesh section_mesh(const model::Section& section, Rounding rounding = Rounding::smooth);

}  // namespace aluframe::viewport
