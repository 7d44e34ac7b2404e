#pragma once

#include <array>
#include <cstdint>
#include <vector>

#include "aluframe/model/model.h"
#include "aluframe/viewport/element_lines.h"
#include "aluframe/viewport/section_mesh.h"

namespace aluframe::viewport {

/// A corner of a triangle, ready for a graphics library.
struct SolidVertex {
  std::array<float, 3> at{};      ///< from the centre of the bounds, mm
  std::array<float, 3> normal{};  ///< of its triangle, outwards, length 1
};

/// The triangles of all elements: their sections drawn along their axes. Those of the i-th element
/// begin at `first[i]`; `first` has one entry more.
struct SolidMesh {
  std::vector<SolidVertex> vertices;  ///< three a triangle
  std::vector<std::size_t> first;
};

/// @param centre that places are relative to
SolidMesh solid_mesh(const model::Model& model, const std::vector<ElementLine>& lines,
                     const Point3& centre);

}  // namespace aluframe::viewport
