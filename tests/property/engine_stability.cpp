// Bounds and courses of the coefficients of stability and local buckling.

#include <gtest/gtest.h>
#include <rapidcheck/gtest.h>

#include "tests/property/engine_generators.h"
#include "tz_alu/engine/design_factors.h"
#include "tz_alu/engine/heat_affected_section.h"
#include "tz_alu/engine/lateral_torsional.h"
#include "tz_alu/engine/local_buckling.h"
#include "tz_alu/engine/plate_slenderness.h"
#include "tz_alu/engine/stability_coefficients.h"

namespace {

using namespace alu_engine;
using namespace engine_generators;

// What the engine may leave above 1.
constexpr double kAboveOne = 1.0 + 1e-10;

// A coefficient that cannot be formed is not a number and not above the bound either.
void AssertWithin(const OUTCOME& outcome, ALU_REPORT_SLOT slot, double bound) {
  const double phi = outcome.buffer.report->dValue[slot];
  RC_ASSERT(std::isnan(phi) || (phi >= 0.0 && phi <= bound));
}

// Strips of heat-affected zones are never shortened, so that a small welded section may calculate
// to more than its gross area; φ then exceeds 1 by as much.
void CheckCoefficientsStayBelowOne(std::int32_t shape) {
  const ALU_DGN_DATA data = AnyData(shape);
  const OUTCOME outcome = Check(data, AnyForces());
  const double area = outcome.buffer.sectpara.dA / data.code.sect.dArea;
  RC_ASSERT(data.code.sect.bWelded == 1 || area <= kAboveOne);
  for (const auto slot : {ALU_REPORT_PHI, ALU_REPORT_PHI_Y, ALU_REPORT_PHI_Z}) {
    AssertWithin(outcome, slot, kAboveOne * std::fmax(1.0, area));
  }
  AssertWithin(outcome, ALU_REPORT_PHI_B_BENDING, kAboveOne);
  AssertWithin(outcome, ALU_REPORT_PHI_B, kAboveOne);
}

void CheckEccentricityFactorIsBounded(std::int32_t shape) {
  const ALU_DGN_DATA data = AnyData(shape);
  const AluDgnSectForce force;
  const MATERIAL_CLASS material = ClassifyMaterial(data.code.matl);
  const double eta = EccentricityFactor({data, force, material}, Between(0, 4000), 1.0);
  // λ̄²/((1 + λ̄²)·(1 + λ̄)²) is at most 1/8 (at λ̄ = 1) and e at most 1
  RC_ASSERT(eta <= 1.0 && eta >= 1.0 - (material.IsWeakHardening() ? 0.3 : 0.4) - 1e-12);
}

void CheckThicknessFactorIsBounded(std::int32_t shape) {
  const ALU_DGN_DATA data = AnyData(shape);
  const AluDgnSectForce force = AnyForces();
  const MATERIAL_CLASS material = ClassifyMaterial(data.code.matl);
  const CHECK_INPUT in{data, force, material};
  const double rho = EffectiveThicknessFactor(in, PlateRatios(in));
  RC_ASSERT(rho >= 0.0 && rho <= kAboveOne);
}

// But for a few roundings; two values that are not numbers are the same.
bool IsSame(double actual, double expected) {
  if (std::isnan(expected)) return std::isnan(actual);
  return std::fabs(actual - expected) <= 1e-14 * std::fabs(expected);
}

void CheckStabilityScalesWithImportance(std::int32_t shape) {
  ALU_DGN_DATA data = AnyData(shape);
  data.code.para.bSeismicGammaRE = 0;
  const AluDgnSectForce force = AnyForces();
  data.code.para.dGamma0 = 1.0;
  const OUTCOME one = Check(data, force);
  const double factor = data.code.para.dGamma0 = Between(1, 40);
  const OUTCOME many = Check(data, force);
  for (const auto item : {RALU_STABILITY, RALU_COMBINED_STABILITY}) {
    const double expected = factor * one.result.aItem[item].dDemand;
    const double actual = many.result.aItem[item].dDemand;
    RC_ASSERT(IsSame(actual, expected));
  }
}

RC_GTEST_PROP(StabilityCoefficients, NeverExceedOne, ()) {
  ForEveryShape(CheckCoefficientsStayBelowOne);
}
RC_GTEST_PROP(StabilityCoefficients, EccentricityTakesALimitedShare, ()) {
  for (const auto shape : {ALU_SHAPE_C, ALU_SHAPE_H, ALU_SHAPE_T}) {
    CheckEccentricityFactorIsBounded(shape);
  }
}
RC_GTEST_PROP(StabilityCoefficients, ColumnsLoseWithSlenderness, ()) {
  const double fy = Between(320, 1000);
  const double lambda = Between(0, 1200);
  const double longer = lambda + Between(0, 1200);
  for (const bool weak : {true, false}) {
    RC_ASSERT(ColumnCoefficient(longer, fy, weak) <= ColumnCoefficient(lambda, fy, weak));
  }
  RC_ASSERT(ColumnCoefficient(lambda, fy, false) <= ColumnCoefficient(lambda, fy, true));
}
// Below the elastic curve 1/λb² and falling.
RC_GTEST_PROP(StabilityCoefficients, BeamsLoseWithSlenderness, ()) {
  const double lambda_b = *rc::gen::inRange(1, 10000) / 1000.0;
  const double longer = lambda_b + *rc::gen::inRange(0, 10000) / 1000.0;
  for (const bool weak : {true, false}) {
    const double phi_b = LateralTorsionalCoefficient(longer, weak);
    RC_ASSERT(phi_b <= LateralTorsionalCoefficient(lambda_b, weak) + 1e-12);
    RC_ASSERT(phi_b * longer * longer <= 1.0 + 1e-12 || longer < 1.0);
  }
}
RC_GTEST_PROP(LocalBuckling, ThicknessFactorLiesBetweenZeroAndOne, ()) {
  for (const auto shape : {ALU_SHAPE_C, ALU_SHAPE_H, ALU_SHAPE_B}) {
    CheckThicknessFactorIsBounded(shape);
  }
}
RC_GTEST_PROP(StabilityScaling, StressesAreLinearInTheImportanceFactor, ()) {
  ForEveryShape(CheckStabilityScalesWithImportance);
}

}  // namespace
