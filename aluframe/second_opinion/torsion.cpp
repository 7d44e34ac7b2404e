#include "aluframe/second_opinion/torsion.h"

#include <algorithm>

namespace aluframe::second_opinion {

namespace {

/// Places in ALU_SECT_DATA::dSize of the shapes with plates.
enum Size { depth = 0, tw = 1, top_thickness = 3, web_distance = 4, bottom_thickness = 5 };

double of_box(const ALU_SECT_DATA& sect) {
  const double tf1 = sect.dSize[top_thickness];
  const double tf2 = sect.dSize[bottom_thickness];
  const double enclosed = sect.dSize[web_distance] * (sect.dSize[depth] - (tf1 + tf2) / 2.0);
  const double thinnest = std::min({sect.dSize[tw], tf1, tf2});
  const double divisor = 2.0 * enclosed * thinnest;
  return divisor > 0.0 ? 1.0 / divisor : 0.0;
}

}  // namespace

double shear_of_unit_torque(const ALU_SECT_DATA& sect) {
  if (sect.nShape == ALU_SHAPE_B) return of_box(sect);
  if (!(sect.dIxx > 0.0)) return 0.0;
  if (sect.nShape == ALU_SHAPE_P || sect.nShape == ALU_SHAPE_SR) {
    return sect.dSize[depth] / 2.0 / sect.dIxx;
  }
  const double thickest =
      std::max({sect.dSize[tw], sect.dSize[top_thickness], sect.dSize[bottom_thickness]});
  return thickest / sect.dIxx;
}

}  // namespace aluframe::second_opinion
