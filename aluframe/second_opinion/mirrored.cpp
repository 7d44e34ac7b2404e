#include "aluframe/second_opinion/mirrored.h"

#include <iterator>
#include <utility>

namespace aluframe::second_opinion {

namespace {

/// Places in ALU_SECT_DATA::dSize.
enum Size { tw = 1, top_width = 2, top_thickness = 3, bottom_width = 4, bottom_thickness = 5 };

/// Plates of any width stay within limits that are multiplied by the square root of this.
constexpr double beyond_any_limit = 1e12;

void turn_points(ALU_SECT_DATA& sect) {
  // Top left, top right, bottom right, bottom left: top and bottom change places.
  for (const auto& [top, bottom] : {std::pair{0, 3}, std::pair{1, 2}}) {
    std::swap(sect.dPtY[top], sect.dPtY[bottom]);
    std::swap(sect.dPtZ[top], sect.dPtZ[bottom]);
  }
  for (double& z : sect.dPtZ) z = -z;
  sect.dShearCtr = -sect.dShearCtr;
}

void turn_tee(ALU_DGN_DATA& data) {
  ALU_SECT_DATA& sect = data.code.sect;
  sect.nShape = ALU_SHAPE_H;
  sect.dSize[bottom_width] = sect.dSize[top_width];
  sect.dSize[bottom_thickness] = sect.dSize[top_thickness];
  sect.dSize[top_width] = sect.dSize[tw];
  data.code.para.bRib = 1;
  data.code.para.dRibRatio = beyond_any_limit;
}

}  // namespace

std::optional<ALU_DGN_DATA> mirrored(const ALU_DGN_DATA& data) {
  ALU_DGN_DATA turned = data;
  ALU_SECT_DATA& sect = turned.code.sect;
  switch (sect.nShape) {
    case ALU_SHAPE_T:
      if (sect.bWelded != 0) return std::nullopt;
      turn_tee(turned);
      break;
    case ALU_SHAPE_C:
    case ALU_SHAPE_H:
      std::swap(sect.dSize[top_width], sect.dSize[bottom_width]);
      std::swap(sect.dSize[top_thickness], sect.dSize[bottom_thickness]);
      break;
    case ALU_SHAPE_B:
      // Both flanges of a box span from edge to edge.
      std::swap(sect.dSize[top_thickness], sect.dSize[bottom_thickness]);
      break;
    default:
      break;
  }
  turn_points(sect);
  return turned;
}

}  // namespace aluframe::second_opinion
