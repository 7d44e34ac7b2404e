#include "tz_alu/engine/section_parameters.h"

#include <cmath>

#include "tz_alu/engine/heat_affected_section.h"
#include "tz_alu/engine/plate_slenderness.h"
#include "tz_alu/engine/section_geometry.h"
#include "tz_alu/tolerance.h"

namespace alu_engine {

namespace {

bool IsKnownShape(std::int32_t nShape) {
  return nShape >= ALU_SHAPE_C && nShape <= ALU_SHAPE_SR;
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

ALU_CAL_SECTPARA SectionParameters(const ALU_DGN_DATA_CODE& code, const MATERIAL_CLASS& material) {
  const ALU_SECT_DATA& sect = code.sect;
  const bool fullyEffective = GoverningPlateRatio(sect) <= 1.0;
  if (!fullyEffective || IsZero(sect.dPtZ[0]) || IsZero(sect.dPtZ[2])) return {};
  if (!IsKnownShape(sect.nShape)) return {};
  if (sect.bWelded == 1 && HasHazPlates(sect.nShape)) {
    return HeatAffectedSection(sect, {code.para.dHazWidth, material.HazFactor()});
  }
  return GrossSection(sect);
}

bool AreUsable(const ALU_CAL_SECTPARA& para) {
  return !IsZero(para.dA) && !IsZero(para.dW1) && !IsZero(para.dW2) && !IsZero(para.dWz);
}

}  // namespace alu_engine
