#include "tz_alu/engine/heat_affected_section.h"

#include <algorithm>
#include <cmath>

namespace alu_engine {

namespace {

constexpr HAZ_SHAPE::DIMENSION kB1 = &PLATE_DIMS::B1;
constexpr HAZ_SHAPE::DIMENSION kB2 = &PLATE_DIMS::B2;
constexpr HAZ_SHAPE::DIMENSION kTf1 = &PLATE_DIMS::tf1;
constexpr HAZ_SHAPE::DIMENSION kTf2 = &PLATE_DIMS::tf2;

// kept: the own inertia of a box's bottom strip is formed with half its width, b + tw.
// kept: both flanges of a box take the width B1, both of a double channel the thickness tf1.
// Columns: shape, parts, lost, strip, bottom strip's own, bottom width and thickness, flanges,
// webs.
constexpr HAZ_SHAPE kShapes[] = {
    {ALU_SHAPE_C, 1.0, {1.0, 1.0}, {1.0, 1.0}, {1.0, 1.0}, kB2, kTf2, 2, 1},
    {ALU_SHAPE_H, 1.0, {2.0, 1.0}, {2.0, 1.0}, {2.0, 1.0}, kB2, kTf2, 2, 1},
    {ALU_SHAPE_T, 2.0, {1.0, 1.0}, {2.0, 1.0}, {0.0, 0.0}, kB1, kTf1, 1, 1},
    {ALU_SHAPE_B, 1.0, {2.0, 2.0}, {2.0, 2.0}, {1.0, 1.0}, kB1, kTf2, 2, 2},
    {ALU_SHAPE_2C, 2.0, {1.0, 1.0}, {2.0, 2.0}, {2.0, 2.0}, kB1, kTf1, 2, 2},
};

double Cube(double x) {
  return x * x * x;
}

double ClearWidth(const HAZ_SHAPE& shape, double width, double tw, double b) {
  const double left = width - shape.lost.haz * b - shape.lost.webs * tw;
  return std::max(shape.dParts * left, 0.0);
}

double ClearWebHeight(const HAZ_SHAPE& shape, const PLATE_DIMS& dims, double b) {
  if (shape.nFlanges == 1) return std::max(dims.H - dims.tf1 - 2.0 * b, 0.0);
  // H − 2·tf where both flanges have one thickness.
  if (shape.bottomTf == kTf1) return std::max(dims.H - 2.0 * dims.tf1 - 2.0 * b, 0.0);
  return std::max(dims.H - dims.tf1 - dims.*shape.bottomTf - 2.0 * b, 0.0);
}

HAZ_FLANGE TopFlange(const HAZ_SHAPE& shape, const PLATE_DIMS& dims, double b, double fibre) {
  const double strip = shape.strip.Of(b, dims.tw);
  return {ClearWidth(shape, dims.B1, dims.tw, b), dims.tf1, strip, strip, fibre};
}

HAZ_FLANGE BottomFlange(const HAZ_SHAPE& shape, const PLATE_DIMS& dims, double b, double fibre) {
  if (shape.nFlanges == 1) return {0.0, 0.0, 0.0, 0.0, fibre};
  const double strip = shape.strip.Of(b, dims.tw);
  const double ownStrip = shape.bottomOwn.Of(b, dims.tw);
  return {ClearWidth(shape, dims.*shape.bottomB, dims.tw, b), dims.*shape.bottomTf, strip, ownStrip,
          fibre};
}

}  // namespace

const HAZ_SHAPE* FindHazShape(std::int32_t nShape) {
  const auto* found = std::find_if(std::begin(kShapes), std::end(kShapes),
                                   [nShape](const HAZ_SHAPE& row) { return row.nShape == nShape; });
  return found == std::end(kShapes) ? nullptr : found;
}

bool HasHazPlates(std::int32_t nShape) {
  return FindHazShape(nShape) != nullptr;
}

HAZ_PLATES HazPlates(const ALU_SECT_DATA& sect, double hazWidth) {
  const HAZ_SHAPE& shape = *FindHazShape(sect.nShape);
  const PLATE_DIMS dims = PlateDims(sect);
  return {{TopFlange(shape, dims, hazWidth, std::fabs(sect.dPtZ[0])),
           BottomFlange(shape, dims, hazWidth, std::fabs(sect.dPtZ[2]))},
          shape.nFlanges,
          ClearWebHeight(shape, dims, hazWidth),
          dims.tw,
          shape.nWebs};
}

// kept: the strips' own inertia is b³/3 of a box or double channel, b³/6 of an H or channel, b³/12
// of a tee, times ρ·tw.
double WebStripInertia(const HAZ_PLATES& plates, const HAZ& haz) {
  const double rho = haz.dFactor;
  const double b = haz.dWidth;
  double offsets = 0.0;
  for (int i = 0; i < plates.nFlanges; ++i) {
    const double d = plates.flange[i].fibre - plates.flange[i].tf - b / 2.0;
    offsets += d * d;
  }
  const int strips = plates.nWebs * plates.nFlanges;
  return rho * plates.tw * Cube(b) / (12.0 / strips) + plates.nWebs * rho * plates.tw * b * offsets;
}

double HazFlangeInertia(const HAZ_FLANGE& flange, double rho) {
  const auto& [bf, tf, strip, ownStrip, fibre] = flange;
  const double d = fibre - tf / 2.0;
  return (bf + strip * rho) * tf * (d * d) + bf * Cube(tf) / 12.0 +
         ownStrip * Cube(rho * tf) / 12.0;
}

double ClearWebInertia(const HAZ_PLATES& plates) {
  return Cube(plates.hw) * plates.tw / (12.0 / plates.nWebs);
}

double HeatAffectedInertia(const HAZ_PLATES& plates, const HAZ& haz) {
  double inertia = 0.0;
  for (int i = 0; i < plates.nFlanges; ++i) {
    inertia += HazFlangeInertia(plates.flange[i], haz.dFactor);
  }
  return inertia + ClearWebInertia(plates) + WebStripInertia(plates, haz);
}

double HeatAffectedArea(const HAZ_PLATES& plates, const HAZ& haz) {
  const HAZ_FLANGE& top = plates.flange[0];
  const HAZ_FLANGE& bottom = plates.flange[1];
  const double rho = haz.dFactor;
  const int strips = plates.nWebs * plates.nFlanges;
  return top.bf * top.tf + top.strip * (top.tf + bottom.tf) * rho + bottom.bf * bottom.tf +
         strips * haz.dWidth * plates.tw * rho + plates.nWebs * plates.hw * plates.tw;
}

ALU_CAL_SECTPARA HeatAffectedSection(const ALU_SECT_DATA& sect, const HAZ& haz) {
  const HAZ_PLATES plates = HazPlates(sect, haz.dWidth);
  const double inertia = HeatAffectedInertia(plates, haz);
  ALU_CAL_SECTPARA para;
  para.dA = HeatAffectedArea(plates, haz);
  para.dW1 = inertia / plates.flange[0].fibre;
  para.dW2 = inertia / plates.flange[1].fibre;
  para.dWz = WeakAxisModulus(sect);
  return para;
}

}  // namespace alu_engine
