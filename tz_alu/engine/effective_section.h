#pragma once

#include "tz_alu/engine/heat_affected_section.h"
#include "tz_alu/engine/local_buckling.h"
#include "tz_alu/records/alu_cal.h"

// Effective sections: slender plates count with the thickness ρ·t (GB 50429-2007, chapter 5). Area
// in mm², moduli in mm³: W1 = I/|z1|, W2 = I/|z3|; the weak-axis modulus stays gross. Precondition
// of all: z1 and z3 not zero. Plate slenderness ratios are left 0.

namespace alu_engine {

/// Whether the shape has an effective section: C, H and B.
bool HasEffectiveSection(std::int32_t nShape);

/// Area and strong-axis inertia of an effective section.
struct AREA_AND_INERTIA {
  double dArea;     ///< mm²
  double dInertia;  ///< mm⁴
};

/// Of an unwelded C, H or B.
AREA_AND_INERTIA UnweldedEffectiveArea(const ALU_SECT_DATA& sect, REDUCED_PART part, double rho);

/// Of a welded one.
AREA_AND_INERTIA WeldedEffectiveArea(const ALU_SECT_DATA& sect, const HAZ& haz, REDUCED_PART part,
                                     double rho);

/// Effective section of an unwelded C, H or B: what the plates lose is taken off the gross area and
/// inertia.
ALU_CAL_SECTPARA UnweldedEffectiveSection(const ALU_SECT_DATA& sect, REDUCED_PART part, double rho);

/// Effective section of a welded C, H or B, built up from its plates: the clear parts of reduced
/// plates count with ρ·t, the heat-affected strips always with ρhaz·t.
ALU_CAL_SECTPARA WeldedEffectiveSection(const ALU_SECT_DATA& sect, const HAZ& haz,
                                        REDUCED_PART part, double rho);

}  // namespace alu_engine
