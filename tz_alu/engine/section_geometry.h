#pragma once

#include "tz_alu/records/alu_dgn_data.h"

namespace alu_engine {

/// Plate dimensions of a section by name, mm. Which of them a shape uses is told beside
/// `ALU_SECT_DATA::dSize`; what it does not use is 0.
struct PLATE_DIMS {
  double H;    ///< depth; outside diameter of a pipe
  double tw;   ///< web thickness; wall of a pipe
  double B1;   ///< top flange width
  double tf1;  ///< top flange thickness
  double B2;   ///< bottom flange width; of a box the web distance, of a double channel the gap
  double tf2;  ///< bottom flange thickness
  double r1;   ///< corner allowances
  double r2;
};

inline PLATE_DIMS PlateDims(const ALU_SECT_DATA& sect) {
  const double* size = sect.dSize;
  return {size[0], size[1], size[2], size[3], size[4], size[5], size[6], size[7]};
}

/// Whether top and bottom fibre need moduli of their own: channels and tees always, an H with
/// flanges of different width or thickness (by 1e-10 or more); no other shape.
bool IsUnsymmetric(const ALU_SECT_DATA& sect);

/// Distance of the outermost stress point from the z axis, max|y|, mm.
double OutermostY(const ALU_SECT_DATA& sect);

/// Distance of the outermost stress point from the y axis, max|z|, mm.
double OutermostZ(const ALU_SECT_DATA& sect);

/// Elastic modulus about the weak axis, Wz = Izz / max|y|, mm³. Infinite or not a number when all
/// stress points lie on the z axis.
double WeakAxisModulus(const ALU_SECT_DATA& sect);

}  // namespace alu_engine
