#include "tz_alu/engine/lateral_torsional.h"

#include <cmath>

#include "tz_alu/engine/constants.h"
#include "tz_alu/engine/section_geometry.h"
#include "tz_alu/engine/slenderness.h"
#include "tz_alu/tolerance.h"

namespace alu_engine {

namespace {

// Without and with a support between the ends.
struct SPAN_ROW {
  CRITICAL_MOMENT_COEFFICIENTS whole;
  CRITICAL_MOMENT_COEFFICIENTS supported;
};

constexpr SPAN_ROW kBeamWithFixedEnds{{1.285, 1.562, 0.753}, {0.712, 0.652, 1.07}};
constexpr SPAN_ROW kBeamWithRestrainedEnd{{1.132, 0.459, 0.525}, {0.972, 0.304, 0.98}};
constexpr SPAN_ROW kColumnOrBrace{{2.752, 0.0, 0.0}, {3.149, 0.0, 0.0}};
// kept: a truss has no coefficients, so its critical moment is 0 and its φb not finite.
constexpr SPAN_ROW kOther{{0.0, 0.0, 0.0}, {0.0, 0.0, 0.0}};

// Both codes differ from 0, which is fixed.
bool IsRestrained(const std::int32_t (&condition)[2]) {
  return condition[0] != 0 && condition[1] != 0;
}

const SPAN_ROW& SpanRow(const ALU_DGN_DATA& data) {
  switch (data.nMembType) {
    case ALU_MEMBER_COLUMN:
    case ALU_MEMBER_BRACE:
      return kColumnOrBrace;
    case ALU_MEMBER_BEAM:
      return IsRestrained(data.nEndCond[0]) || IsRestrained(data.nEndCond[1])
                 ? kBeamWithRestrainedEnd
                 : kBeamWithFixedEnds;
    default:
      return kOther;
  }
}

bool HasMidSupport(const ALU_DGN_DATA& data) {
  return data.code.para.bMidSupport == 1;
}

double Cube(double x) {
  return x * x * x;
}

double WidthTerm(const OUTLINE_FLANGE& flange) {
  return Cube(flange.width) * flange.thickness * flange.arm;
}

double ArmTerm(const OUTLINE_FLANGE& flange) {
  return flange.width * flange.thickness * Cube(flange.arm);
}

double Fourth(double x) {
  return x * x * (x * x);
}

}  // namespace

CRITICAL_MOMENT_COEFFICIENTS CriticalMomentCoefficients(const ALU_DGN_DATA& data) {
  const SPAN_ROW& row = SpanRow(data);
  return HasMidSupport(data) ? row.supported : row.whole;
}

bool HasFlangedOutline(std::int32_t nShape) {
  return nShape == ALU_SHAPE_C || nShape == ALU_SHAPE_H || nShape == ALU_SHAPE_T ||
         nShape == ALU_SHAPE_B || nShape == ALU_SHAPE_2C;
}

// kept: a tee's lower end is taken at |z3| and has no flange; C, H and T count one web, B and 2C
// two. kept: both flanges of a double channel take its whole width, 2·B + C, and one thickness.
FLANGED_OUTLINE FlangedOutline(const ALU_SECT_DATA& sect) {
  const PLATE_DIMS dims = PlateDims(sect);
  const double a = sect.dPtZ[0] - dims.tf1 / 2.0;
  const double z3 = std::fabs(sect.dPtZ[2]);
  const double whole = 2.0 * dims.B1 + dims.B2;
  switch (sect.nShape) {
    case ALU_SHAPE_T:
      return {{dims.B1, dims.tf1, a}, {0.0, 0.0, z3}, dims.tw};
    case ALU_SHAPE_2C:
      return {{whole, dims.tf1, a}, {whole, dims.tf1, z3 - dims.tf1 / 2.0}, 2.0 * dims.tw};
    default:
      break;
  }
  const double webs = sect.nShape == ALU_SHAPE_B ? 2.0 : 1.0;
  return {{dims.B1, dims.tf1, a}, {dims.B2, dims.tf2, z3 - dims.tf2 / 2.0}, webs * dims.tw};
}

double Monosymmetry(const ALU_SECT_DATA& sect, bool endSection) {
  if (!HasFlangedOutline(sect.nShape)) return 0.0;
  const auto [top, bottom, webs] = FlangedOutline(sect);
  const double I = sect.dIyy;
  const double shape = (WidthTerm(top) - WidthTerm(bottom)) / (24.0 * I) -
                       webs * (Fourth(top.arm) - Fourth(bottom.arm)) / (8.0 * I) -
                       (ArmTerm(top) - ArmTerm(bottom)) / (24.0 * I);
  // kept: at an end of the member the shear centre's distance is subtracted, elsewhere added.
  return endSection ? shape - sect.dShearCtr : shape + sect.dShearCtr;
}

double LateralBucklingLength(const ALU_DGN_DATA& data) {
  return HasMidSupport(data) ? 0.5 * data.dMembLength : data.dMembLength;
}

double CriticalMoment(const CHECK_INPUT& in) {
  const ALU_SECT_DATA& sect = in.Section();
  const auto [b1, b2, b3] = CriticalMomentCoefficients(in.data);
  const double lb = LateralBucklingLength(in.data);
  const double lw = TorsionalBucklingLength(in.data);
  const double a = sect.dShearCtr - sect.dPtZ[0];
  const double load = b2 * a + b3 * Monosymmetry(sect, in.force.bEndSect == 1);
  const double twist =
      1.0 + kShearModulus * sect.dIxx * (lw * lw) / (kPiSquared * in.E() * sect.dIw);
  return b1 * kPiSquared * in.E() * sect.dIzz / (lb * lb) *
         (load + std::sqrt(load * load + sect.dIw / sect.dIzz * twist));
}

double LateralTorsionalSlenderness(const CHECK_INPUT& in, double W1, double f) {
  return std::sqrt(W1 * f / CriticalMoment(in));
}

double LateralTorsionalCoefficient(double lambda_b, bool weakHardening) {
  // α is then −0.072 or −0.075, so that α + 1 never vanishes and 1 is the only outcome.
  if (IsZero(lambda_b)) return 1.0;
  const double alpha = weakHardening ? 0.2 * (lambda_b - 0.36) : 0.25 * (lambda_b - 0.3);
  const double square = lambda_b * lambda_b;
  const double s = (1.0 + alpha + square) / (2.0 * square);
  const double phi_b = s - std::sqrt(s * s - 1.0 / square);
  return phi_b > 1.0 + kTolerance ? 1.0 : phi_b;
}

BENDING_COEFFICIENTS BendingCoefficients(const CHECK_INPUT& in, double W1, double f) {
  const ALU_PARA_DATA& para = in.Parameters();
  if (para.bUserPhi != 0) return {para.dUserPhi[0], para.dUserPhi[1]};
  const std::int32_t nShape = in.Section().nShape;
  if (nShape == ALU_SHAPE_B || nShape == ALU_SHAPE_P) return {1.0, 1.0};
  const double lambda_b = LateralTorsionalSlenderness(in, W1, f);
  return {LateralTorsionalCoefficient(lambda_b, in.material.IsWeakHardening()), 1.0};
}

}  // namespace alu_engine
