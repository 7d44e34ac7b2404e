#include "tz_alu/engine/section_geometry.h"

#include <cmath>

#include "tz_alu/tolerance.h"

namespace alu_engine {

namespace {

double Outermost(const double (&points)[4]) {
  return GreaterOf(GreaterOf(std::fabs(points[0]), std::fabs(points[1])),
                   GreaterOf(std::fabs(points[2]), std::fabs(points[3])));
}

}  // namespace

bool IsUnsymmetric(const ALU_SECT_DATA& sect) {
  if (sect.nShape == ALU_SHAPE_C || sect.nShape == ALU_SHAPE_T) return true;
  if (sect.nShape != ALU_SHAPE_H) return false;
  const PLATE_DIMS dims = PlateDims(sect);
  return !IsZero(dims.tf1 - dims.tf2) || !IsZero(dims.B1 - dims.B2);
}

double OutermostY(const ALU_SECT_DATA& sect) {
  return Outermost(sect.dPtY);
}

double OutermostZ(const ALU_SECT_DATA& sect) {
  return Outermost(sect.dPtZ);
}

double WeakAxisModulus(const ALU_SECT_DATA& sect) {
  return sect.dIzz / OutermostY(sect);
}

}  // namespace alu_engine
