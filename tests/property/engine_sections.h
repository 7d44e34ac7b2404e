#pragma once

// Random sections whose area and inertias belong to their plates, without fillets. z goes up from
// the centroid.

#include <rapidcheck.h>

#include <cmath>
#include <numbers>
#include <vector>

#include "tz_alu/records/alu_dgn_data.h"

namespace engine_generators {

/// A multiple of 0.25 in [low, high)/4.
inline double Between(int low, int high) {
  return *rc::gen::inRange(low, high) / 4.0;
}

/// A rectangle: width along y, height along z, both mm, and z of its middle above the lower edge.
struct RECTANGLE {
  double width;
  double height;
  double middle;

  double Area() const { return width * height; }
};

/// Random dimensions, mm: depth 100 to 500, webs 1 to 15, flanges 50 to 300 wide and 1 to 20 thick.
/// Both flanges are alike in half of the cases.
inline void SetAnyPlates(ALU_SECT_DATA& sect) {
  double* size = sect.dSize;
  size[0] = Between(400, 2000);
  size[1] = Between(4, 60);
  size[2] = size[4] = Between(200, 1200);
  size[3] = size[5] = Between(4, 80);
  if (*rc::gen::arbitrary<bool>()) {
    size[4] = Between(200, 1200);
    size[5] = Between(4, 80);
  }
  if (sect.nShape == ALU_SHAPE_B) size[4] = size[2] - size[1];
  if (sect.nShape == ALU_SHAPE_T || sect.nShape == ALU_SHAPE_2C) size[5] = 0.0;
}

/// The plates of a shape that has any; a double channel and a box have two webs.
inline std::vector<RECTANGLE> Plates(const ALU_SECT_DATA& sect) {
  const auto& [H, tw, B1, tf1, B2, tf2, r1, r2] = sect.dSize;
  switch (sect.nShape) {
    case ALU_SHAPE_T:
      return {{B1, tf1, H - tf1 / 2}, {tw, H - tf1, (H - tf1) / 2}};
    case ALU_SHAPE_2C:
      return {{2 * B1, tf1, H - tf1 / 2}, {2 * tw, H - 2 * tf1, H / 2}, {2 * B1, tf1, tf1 / 2}};
    default: {
      const bool box = sect.nShape == ALU_SHAPE_B;
      const double webs = box ? 2 * tw : tw;
      const double hw = H - tf1 - tf2;
      return {{B1, tf1, H - tf1 / 2}, {webs, hw, tf2 + hw / 2}, {box ? B1 : B2, tf2, tf2 / 2}};
    }
  }
}

inline void SetStressPoints(ALU_SECT_DATA& sect, double top, double bottom, double half) {
  for (int i = 0; i < 4; ++i) {
    sect.dPtZ[i] = i < 2 ? top : -bottom;
    sect.dPtY[i] = i % 3 == 0 ? -half : half;
  }
}

/// Area, inertias and stress points of the plates.
inline void SetPlateProperties(ALU_SECT_DATA& sect) {
  const auto plates = Plates(sect);
  double moment = 0.0;
  double half = 0.0;
  for (const RECTANGLE& plate : plates) {
    sect.dArea += plate.Area();
    moment += plate.Area() * plate.middle;
    half = std::fmax(half, plate.width / 2);
  }
  const double centroid = moment / sect.dArea;
  for (const RECTANGLE& plate : plates) {
    const double arm = plate.middle - centroid;
    sect.dIyy += plate.Area() * (plate.height * plate.height / 12 + arm * arm);
    sect.dIzz += plate.Area() * plate.width * plate.width / 12;
  }
  SetStressPoints(sect, sect.dSize[0] - centroid, centroid, half);
}

/// Pipes and solid rounds: outside diameter D1, the wall D2 taken off inside.
inline void SetRoundProperties(ALU_SECT_DATA& sect) {
  const double D = sect.dSize[0] = Between(200, 1200);
  sect.dSize[1] = sect.nShape == ALU_SHAPE_SR ? D : Between(4, 60);
  const double d = std::fmax(D - 2 * sect.dSize[1], 0.0);
  sect.dArea = std::numbers::pi / 4 * (D * D - d * d);
  sect.dIyy = sect.dIzz = std::numbers::pi / 64 * (D * D * D * D - d * d * d * d);
  SetStressPoints(sect, D / 2, D / 2, D / 2);
}

/// A section of the shape; torsion, warping and shear properties are any positive ones.
inline ALU_SECT_DATA AnySection(std::int32_t nShape) {
  ALU_SECT_DATA sect;
  sect.nShape = nShape;
  if (nShape == ALU_SHAPE_P || nShape == ALU_SHAPE_SR) {
    SetRoundProperties(sect);
  } else {
    SetAnyPlates(sect);
    SetPlateProperties(sect);
  }
  sect.dIxx = 1e2 * Between(400, 400000);
  sect.dIw = 1e3 * Between(400, 4000000);
  sect.dQyb = Between(40, 40000);
  sect.dQzb = Between(40, 40000);
  sect.dShearCtr = Between(-400, 400);
  sect.bWelded = *rc::gen::element(0, 1);
  return sect;
}

}  // namespace engine_generators
