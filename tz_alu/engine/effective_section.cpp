#include "tz_alu/engine/effective_section.h"

#include <cmath>

#include "tz_alu/engine/section_geometry.h"

namespace alu_engine {

namespace {

double Square(double x) {
  return x * x;
}

double Cube(double x) {
  return x * x * x;
}

ALU_CAL_SECTPARA Parameters(const ALU_SECT_DATA& sect, const AREA_AND_INERTIA& values) {
  ALU_CAL_SECTPARA para;
  para.dA = values.dArea;
  para.dW1 = values.dInertia / std::fabs(sect.dPtZ[0]);
  para.dW2 = values.dInertia / std::fabs(sect.dPtZ[2]);
  para.dWz = WeakAxisModulus(sect);
  return para;
}

// The webs of a box lose twice the area and twice the inertia.
AREA_AND_INERTIA AllPlatesReduced(const ALU_SECT_DATA& sect, double delta) {
  const PLATE_DIMS dims = PlateDims(sect);
  const double webs = sect.nShape == ALU_SHAPE_B ? 2.0 : 1.0;
  const double hw = dims.H - dims.tf1 - dims.tf2;
  const double top = delta * dims.tf1 * dims.B1;
  const double bottom = delta * dims.tf2 * dims.B2;
  const double inertia = sect.dIyy - dims.B1 * Cube(delta * dims.tf1) / 12.0 -
                         dims.B2 * Cube(delta * dims.tf2) / 12.0 -
                         top * Square(std::fabs(sect.dPtZ[0]) - dims.tf1 / 2.0) -
                         bottom * Square(std::fabs(sect.dPtZ[2]) - dims.tf2 / 2.0) -
                         Cube(delta * dims.tw) * hw / (12.0 / webs);
  return {sect.dArea - top - bottom - webs * delta * dims.tw * hw, inertia};
}

// kept: z1 enters with its sign.
AREA_AND_INERTIA TopFlangeReduced(const ALU_SECT_DATA& sect, double delta) {
  const PLATE_DIMS dims = PlateDims(sect);
  const double lost = dims.B1 * delta * dims.tf1;
  return {sect.dArea - lost, sect.dIyy - lost * Square(sect.dPtZ[0] - dims.tf1 / 2.0)};
}

AREA_AND_INERTIA BottomFlangeReduced(const ALU_SECT_DATA& sect, double delta) {
  const PLATE_DIMS dims = PlateDims(sect);
  const double lost = dims.B2 * delta * dims.tf2;
  return {sect.dArea - lost, sect.dIyy - lost * Square(std::fabs(sect.dPtZ[2]) - dims.tf2 / 2.0)};
}

// How much of their thickness the clear parts keep.
struct CLEAR_FACTORS {
  double top;
  double bottom;
  double web;
};

double Arm(const HAZ_FLANGE& flange) {
  return flange.fibre - flange.tf / 2.0;
}

double ClearInertia(const HAZ_FLANGE& flange, double c) {
  return flange.bf * c * flange.tf * Square(Arm(flange)) + flange.bf * Cube(c * flange.tf) / 12.0;
}

double StripTransfer(const HAZ_FLANGE& flange, double rho) {
  return flange.strip * rho * flange.tf * Square(Arm(flange));
}

double StripOwn(const HAZ_FLANGE& flange, double rho) {
  return flange.strip * Cube(rho * flange.tf) / 12.0;
}

double FlangeInertia(const HAZ_FLANGE& flange, double c, double rho) {
  return ClearInertia(flange, c) + StripTransfer(flange, rho) + StripOwn(flange, rho);
}

double WebInertia(const HAZ_PLATES& plates, const HAZ& haz, double c) {
  return c * plates.tw * Cube(plates.hw) / (12.0 / plates.nWebs) + WebStripInertia(plates, haz);
}

double WebStripArea(const HAZ_PLATES& plates, const HAZ& haz) {
  return 2.0 * plates.nWebs * haz.dWidth * plates.tw * haz.dFactor;
}

double Area(const HAZ_PLATES& plates, const HAZ& haz, const CLEAR_FACTORS& c) {
  const auto& [top, bottom] = plates.flange;
  return top.bf * c.top * top.tf + top.strip * (top.tf + bottom.tf) * haz.dFactor +
         bottom.bf * c.bottom * bottom.tf + WebStripArea(plates, haz) +
         plates.nWebs * c.web * plates.hw * plates.tw;
}

AREA_AND_INERTIA Built(const HAZ_PLATES& plates, const HAZ& haz, const CLEAR_FACTORS& c) {
  return {Area(plates, haz, c), FlangeInertia(plates.flange[0], c.top, haz.dFactor) +
                                    FlangeInertia(plates.flange[1], c.bottom, haz.dFactor) +
                                    WebInertia(plates, haz, c.web)};
}

// kept: the bottom flange counts in full, B2·tf2; ρ acts on the top flange's own inertia alone.
AREA_AND_INERTIA WeldedHBottom(const ALU_SECT_DATA& sect, const HAZ_PLATES& plates, const HAZ& haz,
                               double rho) {
  const auto& [top, bottom] = plates.flange;
  const double B2 = PlateDims(sect).B2;
  const double inertia = top.bf * top.tf * Square(Arm(top)) + top.bf * Cube(rho * top.tf) / 12.0 +
                         StripTransfer(top, haz.dFactor) + StripOwn(top, haz.dFactor) +
                         B2 * bottom.tf * Square(Arm(bottom)) + B2 * Cube(bottom.tf) / 12.0 +
                         WebInertia(plates, haz, 1.0);
  const double area = top.bf * top.tf + top.strip * top.tf * haz.dFactor + B2 * bottom.tf +
                      WebStripArea(plates, haz) + plates.hw * plates.tw;
  return {area, inertia};
}

// kept: the own inertia of the bottom strip takes the square of its thickness.
double BottomReducedInertia(const HAZ_PLATES& plates, const HAZ& haz, double rho) {
  const auto& [top, bottom] = plates.flange;
  return FlangeInertia(top, 1.0, haz.dFactor) + ClearInertia(bottom, rho) +
         StripTransfer(bottom, haz.dFactor) +
         bottom.strip * Square(haz.dFactor * bottom.tf) / 12.0 + WebInertia(plates, haz, 1.0);
}

// kept: half the flange strips, half the web strips and one web.
double WeldedBoxBottomArea(const HAZ_PLATES& plates, const HAZ& haz, double rho) {
  const auto& [top, bottom] = plates.flange;
  return top.bf * top.tf + (top.tf + bottom.tf) * haz.dFactor * (haz.dWidth + plates.tw) +
         rho * bottom.bf * bottom.tf + 2.0 * haz.dWidth * plates.tw * haz.dFactor +
         plates.hw * plates.tw;
}

AREA_AND_INERTIA WeldedBottom(const ALU_SECT_DATA& sect, const HAZ_PLATES& plates, const HAZ& haz,
                              double rho) {
  if (sect.nShape == ALU_SHAPE_H) return WeldedHBottom(sect, plates, haz, rho);
  const double inertia = BottomReducedInertia(plates, haz, rho);
  if (sect.nShape == ALU_SHAPE_B) return {WeldedBoxBottomArea(plates, haz, rho), inertia};
  return {Area(plates, haz, {1.0, rho, 1.0}), inertia};
}

}  // namespace

bool HasEffectiveSection(std::int32_t nShape) {
  return nShape == ALU_SHAPE_C || nShape == ALU_SHAPE_H || nShape == ALU_SHAPE_B;
}

AREA_AND_INERTIA UnweldedEffectiveArea(const ALU_SECT_DATA& sect, REDUCED_PART part, double rho) {
  const double delta = 1.0 - rho;
  switch (part) {
    case REDUCED_PART::WholeSection:
      return AllPlatesReduced(sect, delta);
    case REDUCED_PART::TopFlange:
      return TopFlangeReduced(sect, delta);
    default:
      return BottomFlangeReduced(sect, delta);
  }
}

AREA_AND_INERTIA WeldedEffectiveArea(const ALU_SECT_DATA& sect, const HAZ& haz, REDUCED_PART part,
                                     double rho) {
  const HAZ_PLATES plates = HazPlates(sect, haz.dWidth);
  switch (part) {
    case REDUCED_PART::WholeSection:
      return Built(plates, haz, {rho, rho, rho});
    case REDUCED_PART::TopFlange:
      return Built(plates, haz, {rho, 1.0, 1.0});
    default:
      return WeldedBottom(sect, plates, haz, rho);
  }
}

ALU_CAL_SECTPARA UnweldedEffectiveSection(const ALU_SECT_DATA& sect, REDUCED_PART part,
                                          double rho) {
  return Parameters(sect, UnweldedEffectiveArea(sect, part, rho));
}

ALU_CAL_SECTPARA WeldedEffectiveSection(const ALU_SECT_DATA& sect, const HAZ& haz,
                                        REDUCED_PART part, double rho) {
  return Parameters(sect, WeldedEffectiveArea(sect, haz, part, rho));
}

}  // namespace alu_engine
