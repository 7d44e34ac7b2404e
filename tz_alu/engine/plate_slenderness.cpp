#include "tz_alu/engine/plate_slenderness.h"

#include <cmath>
#include <limits>

#include "tz_alu/engine/section_geometry.h"

namespace alu_engine {

namespace {

bool HasNoExtent(double width, double thickness) {
  return std::isnan(width / thickness);
}

bool HasUnknownPlate(const ALU_SECT_DATA& sect) {
  const auto [H, tw, B1, tf1, B2, tf2, r1, r2] = PlateDims(sect);
  switch (sect.nShape) {
    case ALU_SHAPE_C:
      return HasNoExtent(B1 - tw - r1 - r2, tf1) || HasNoExtent(B2 - tw - r1 - r2, tf2);
    case ALU_SHAPE_H:
      return HasNoExtent(B1 - tw - 2.0 * r1 - 2.0 * r2, tf1) ||
             HasNoExtent(B2 - tw - 2.0 * r1 - 2.0 * r2, tf2) ||
             HasNoExtent(H - tf1 - tf2 - 2.0 * r1, tw);
    case ALU_SHAPE_B:
      return HasNoExtent(B1 - 2.0 * tw, tf1) || HasNoExtent(B2 - 2.0 * tw, tf2) ||
             HasNoExtent(H - tf1 - tf2, tw);
    case ALU_SHAPE_P:
      return HasNoExtent(H, tw);
    default:
      return false;
  }
}

}  // namespace

double GoverningPlateRatio(const ALU_SECT_DATA& sect) {
  return HasUnknownPlate(sect) ? std::numeric_limits<double>::quiet_NaN() : 0.0;
}

}  // namespace alu_engine
