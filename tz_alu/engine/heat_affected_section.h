#pragma once

#include "tz_alu/engine/section_geometry.h"
#include "tz_alu/records/alu_cal.h"
#include "tz_alu/records/alu_dgn_data.h"

// Sections of welded members. Beside every weld a strip of each plate is softened by the heat;
// GB 50429-2007 lets it count with a reduced thickness ρhaz·t.

namespace alu_engine {

/// The heat-affected zones of a member.
struct HAZ {
  double dWidth;   ///< b_haz: extent on each side of a weld, mm, ≥ 0
  double dFactor;  ///< ρhaz, 0 < ρhaz ≤ 1
};

/// A flange of a welded section: a clear part of full thickness and a heat-affected strip.
struct HAZ_FLANGE {
  double bf;        ///< clear width, ≥ 0, mm
  double tf;        ///< thickness, mm
  double strip;     ///< width of the heat-affected strip, mm
  double ownStrip;  ///< width that the strip's own inertia is formed with, mm
  double fibre;     ///< distance of the outer fibre from the y axis, |z1| or |z3|, mm
};

/// The plates of a welded section.
struct HAZ_PLATES {
  HAZ_FLANGE flange[2];  ///< top, bottom
  int nFlanges;          ///< 1 for a tee, which has no bottom flange
  double hw;             ///< clear web height between the strips, ≥ 0, mm
  double tw;             ///< thickness of one web, mm
  int nWebs;             ///< 2 for a box and a double channel
};

/// How the welds cut up a shape.
struct HAZ_SHAPE {
  using DIMENSION = double PLATE_DIMS::*;

  /// A width made up of zone widths and webs: haz·b + webs·tw.
  struct WIDTH {
    double haz;
    double webs;

    double Of(double b, double tw) const { return haz * b + webs * tw; }
  };

  std::int32_t nShape;
  double dParts;       ///< clear flange width: parts·(B − lost)
  WIDTH lost;          ///< what a part of the flange loses
  WIDTH strip;         ///< heat-affected strip of a flange
  WIDTH bottomOwn;     ///< width of the bottom strip's own inertia
  DIMENSION bottomB;   ///< what gives the bottom flange its width
  DIMENSION bottomTf;  ///< what gives the bottom flange its thickness
  int nFlanges;
  int nWebs;
};

/// Null for pipes and solid rounds.
const HAZ_SHAPE* FindHazShape(std::int32_t nShape);

/// Whether welds reduce the shape: pipes and solid rounds keep their gross section.
bool HasHazPlates(std::int32_t nShape);

/// Splits the section into clear parts and strips. A clear width is 0 when the strips cover the
/// plate; strips are never shortened. Only for shapes with `HasHazPlates`.
HAZ_PLATES HazPlates(const ALU_SECT_DATA& sect, double hazWidth);

/// Strong-axis inertia of the heat-affected strips of the webs, mm⁴: their own, and by their
/// distance from the y axis.
double WebStripInertia(const HAZ_PLATES& plates, const HAZ& haz);

/// Strong-axis inertia of a flange with its strips reduced, mm⁴.
double HazFlangeInertia(const HAZ_FLANGE& flange, double rho);

/// That of the clear parts of the webs about their own middle, mm⁴.
double ClearWebInertia(const HAZ_PLATES& plates);

/// That of the whole section, mm⁴.
double HeatAffectedInertia(const HAZ_PLATES& plates, const HAZ& haz);

/// Area with the strips reduced, mm².
double HeatAffectedArea(const HAZ_PLATES& plates, const HAZ& haz);

/// Area and strong-axis moduli with the strips reduced, W1 = I/|z1| and W2 = I/|z3|; the weak-axis
/// modulus stays that of the gross section. Plate slenderness ratios stay 0.
/// Precondition: `HasHazPlates`; |z1| and |z3| not zero.
ALU_CAL_SECTPARA HeatAffectedSection(const ALU_SECT_DATA& sect, const HAZ& haz);

}  // namespace alu_engine
