#include "tz_alu/engine/slenderness.h"

#include <cmath>

#include "tz_alu/engine/section_geometry.h"
#include "tz_alu/report/aluprint.h"
#include "tz_alu/tolerance.h"

namespace alu_engine {

namespace {

bool IsFreeEnd(const std::int32_t (&condition)[2]) {
  return condition[0] == ALU_END_FREE && condition[1] == ALU_END_FREE;
}

// λyz of buckling about z with twist about the shear centre.
double FlexuralTorsional(const ALU_DGN_DATA& data, double iy, double iz, double lambda_z) {
  const double e0 = data.code.sect.dShearCtr;
  const double i0 = PolarRadius(iy, iz, e0);
  const double lambda_w = TorsionalSlenderness(data, i0);
  const double z2 = lambda_z * lambda_z;
  const double w2 = lambda_w * lambda_w;
  const double coupling = 4.0 * (1.0 - e0 * e0 / (i0 * i0)) * z2 * w2;
  return std::sqrt((z2 + w2 + std::sqrt((z2 + w2) * (z2 + w2) - coupling)) / 2.0);
}

// kept: compression pairs the truss with the column, tension the brace.
double CompressionLimit(std::int32_t nMembType) {
  return nMembType == ALU_MEMBER_COLUMN || nMembType == ALU_MEMBER_TRUSS ? 150.0 : 200.0;
}

double TensionLimit(std::int32_t nMembType) {
  return nMembType == ALU_MEMBER_COLUMN || nMembType == ALU_MEMBER_BRACE ? 400.0 : 350.0;
}

}  // namespace

bool IsSlendernessChecked(const ALU_PARA_DATA& para) {
  return !(para.dLimitTension < 0.0);
}

double TorsionalBucklingLength(const ALU_DGN_DATA& data) {
  const bool free = IsFreeEnd(data.nEndCond[0]) || IsFreeEnd(data.nEndCond[1]);
  return free ? 2.0 * data.dMembLength : data.dMembLength;
}

double RadiusOfGyration(double inertia, double area) {
  return std::sqrt(inertia / area);
}

double PolarRadius(double iy, double iz, double e0) {
  return std::sqrt(iy * iy + iz * iz + e0 * e0);
}

double TorsionalSlenderness(const ALU_DGN_DATA& data, double i0) {
  const ALU_SECT_DATA& sect = data.code.sect;
  const double l_w = TorsionalBucklingLength(data);
  return std::sqrt(i0 * i0 * sect.dArea / (sect.dIxx / 25.7 + sect.dIw / (l_w * l_w)));
}

SLENDERNESS MemberSlenderness(const ALU_DGN_DATA& data) {
  const ALU_SECT_DATA& sect = data.code.sect;
  const ALU_PARA_DATA& para = data.code.para;
  const double iy = RadiusOfGyration(sect.dIyy, sect.dArea);
  const double iz = RadiusOfGyration(sect.dIzz, sect.dArea);
  const double lambda_y = para.dKy * data.dMembLength / iy;
  const double lambda_z = para.dKz * data.dMembLength / iz;
  if (!IsUnsymmetric(sect)) return {lambda_y, lambda_z};
  return {lambda_y, FlexuralTorsional(data, iy, iz, lambda_z)};
}

double SlendernessLimit(const ALU_DGN_DATA& data, const AluDgnSectForce& force) {
  const ALU_PARA_DATA& para = data.code.para;
  const bool compression = CALU_GB50429_07Print::IsCompression(force);
  if (para.bUserLimit != 0) return compression ? para.dLimitCompr : para.dLimitTension;
  if (IsZero(force.dForce[ALU_FORCE_N])) return 0.0;
  return compression ? CompressionLimit(data.nMembType) : TensionLimit(data.nMembType);
}

}  // namespace alu_engine
