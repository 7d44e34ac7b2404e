#include "tz_alu/engine/section_parameters.h"

#include <cmath>

#include "tz_alu/engine/effective_section.h"
#include "tz_alu/engine/heat_affected_section.h"
#include "tz_alu/engine/plate_slenderness.h"
#include "tz_alu/engine/section_geometry.h"
#include "tz_alu/tolerance.h"

namespace alu_engine {

namespace {

bool IsKnownShape(std::int32_t nShape) {
  return nShape >= ALU_SHAPE_C && nShape <= ALU_SHAPE_SR;
}

// kept: a governing ratio that is not a number stops every shape, also a pipe, whose ratio decides
// nothing else.
bool CanBeFormed(const ALU_SECT_DATA& sect, double governing) {
  return IsKnownShape(sect.nShape) && !std::isnan(governing) && !IsZero(sect.dPtZ[0]) &&
         !IsZero(sect.dPtZ[2]);
}

ALU_CAL_SECTPARA EffectiveSection(const CHECK_INPUT& in, const HAZ& haz,
                                  const PLATE_RATIOS& ratios) {
  const double rho = EffectiveThicknessFactor(in, ratios);
  const REDUCED_PART part = ReducedPart(in.force);
  if (in.Section().bWelded == 1) return WeldedEffectiveSection(in.Section(), haz, part, rho);
  return UnweldedEffectiveSection(in.Section(), part, rho);
}

ALU_CAL_SECTPARA FormSection(const CHECK_INPUT& in, const PLATE_RATIOS& ratios) {
  const ALU_SECT_DATA& sect = in.Section();
  const HAZ haz{in.Parameters().dHazWidth, in.material.HazFactor()};
  // kept: tees, double channels and pipes keep their thickness, however slender.
  if (ratios.dGoverning > 1.0 && HasEffectiveSection(sect.nShape)) {
    return EffectiveSection(in, haz, ratios);
  }
  if (sect.bWelded == 1 && HasHazPlates(sect.nShape)) return HeatAffectedSection(sect, haz);
  return GrossSection(sect);
}

}  // namespace

ALU_CAL_SECTPARA GrossSection(const ALU_SECT_DATA& sect) {
  ALU_CAL_SECTPARA para;
  para.dA = sect.dArea;
  if (IsUnsymmetric(sect)) {
    para.dW1 = sect.dIyy / std::fabs(sect.dPtZ[0]);
    para.dW2 = sect.dIyy / std::fabs(sect.dPtZ[2]);
  } else {
    para.dW1 = para.dW2 = sect.dIyy / OutermostZ(sect);
  }
  para.dWz = WeakAxisModulus(sect);
  return para;
}

ALU_CAL_SECTPARA SectionParameters(const CHECK_INPUT& in) {
  const PLATE_RATIOS ratios = PlateRatios(in);
  ALU_CAL_SECTPARA para;
  if (CanBeFormed(in.Section(), ratios.dGoverning)) para = FormSection(in, ratios);
  para.dR1 = ratios.dTop;
  para.dR2 = ratios.dBottom;
  para.dRw = ratios.dWeb;
  return para;
}

bool AreUsable(const ALU_CAL_SECTPARA& para) {
  return !IsZero(para.dA) && !IsZero(para.dW1) && !IsZero(para.dW2) && !IsZero(para.dWz);
}

}  // namespace alu_engine
