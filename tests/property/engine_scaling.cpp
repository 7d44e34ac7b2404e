// Stresses are linear in the forces as long as the force state stays the same.

#include <gtest/gtest.h>
#include <rapidcheck/gtest.h>

#include "tests/property/engine_generators.h"

namespace {

using namespace engine_generators;

AluDgnSectForce Scaled(AluDgnSectForce force, double scale) {
  for (double& value : force.dForce) value *= scale;
  return force;
}

// Parts of a stress can cancel, so rounding is judged by the sum of their magnitudes: a few
// roundings of 1.1e-16 each.
double RoundingOfStrength(const OUTCOME& outcome, const AluDgnSectForce& force) {
  const ALU_CAL_SECTPARA& para = outcome.buffer.sectpara;
  const double Aen = 0.85 * para.dA;
  const double sum = std::fabs(force.dForce[ALU_FORCE_N]) / Aen +
                     std::fabs(force.dForce[ALU_FORCE_MY]) / std::min(para.dW1, para.dW2) +
                     std::fabs(force.dForce[ALU_FORCE_MZ]) / para.dWz;
  return 1e-14 * sum;
}

void CheckStrengthScales(std::int32_t shape) {
  const ALU_DGN_DATA data = AnyData(shape);
  const AluDgnSectForce force = AnyForces();
  const double scale = Between(1, 4000);
  const OUTCOME one = Check(data, force);
  const OUTCOME many = Check(data, Scaled(force, scale));
  const double expected = scale * one.result.aItem[RALU_STRENGTH].dDemand;
  const double difference = std::fabs(many.result.aItem[RALU_STRENGTH].dDemand - expected);
  RC_ASSERT(difference <= scale * RoundingOfStrength(one, force));
}

void CheckShearScales(std::int32_t shape) {
  ALU_DGN_DATA data = AnyData(shape);
  data.nMembType = ALU_MEMBER_BEAM;
  const AluDgnSectForce force = AnyForces();
  const double scale = Between(1, 4000);
  const OUTCOME one = Check(data, force);
  const OUTCOME many = Check(data, Scaled(force, scale));
  for (const auto item : {RALU_SHEAR_Y, RALU_SHEAR_Z}) {
    const double expected = scale * one.result.aItem[item].dDemand;
    RC_ASSERT(std::fabs(many.result.aItem[item].dDemand - expected) <= 1e-14 * expected);
  }
}

// A power of two changes the exponent only: nothing is rounded.
void CheckScalesExactly(std::int32_t shape) {
  const ALU_DGN_DATA data = AnyData(shape);
  const AluDgnSectForce force = AnyForces();
  const double scale = std::ldexp(1.0, *rc::gen::inRange(-8, 9));
  const OUTCOME one = Check(data, force);
  const OUTCOME many = Check(data, Scaled(force, scale));
  for (const auto item : {RALU_STRENGTH, RALU_SHEAR_Y, RALU_SHEAR_Z}) {
    RC_ASSERT(many.result.aItem[item].dDemand == scale * one.result.aItem[item].dDemand);
  }
}

void CheckSlendernessStays(std::int32_t shape) {
  const ALU_DGN_DATA data = AnyData(shape);
  const AluDgnSectForce force = AnyForces();
  const OUTCOME one = Check(data, force);
  const OUTCOME many = Check(data, Scaled(force, Between(1, 4000)));
  for (const auto item : {RALU_SLENDERNESS_Y, RALU_SLENDERNESS_Z}) {
    RC_ASSERT(many.result.aItem[item].dDemand == one.result.aItem[item].dDemand);
    RC_ASSERT(many.result.aItem[item].dCapacity == one.result.aItem[item].dCapacity);
  }
}

RC_GTEST_PROP(StressScaling, StrengthIsLinearInTheForces, ()) {
  ForEveryShape(CheckStrengthScales);
}
RC_GTEST_PROP(StressScaling, ShearIsLinearInTheForces, ()) {
  ForEveryShape(CheckShearScales);
}
RC_GTEST_PROP(StressScaling, PowersOfTwoScaleWithoutAnyRounding, ()) {
  ForEveryShape(CheckScalesExactly);
}
RC_GTEST_PROP(StressScaling, SlendernessDoesNotDependOnTheSizeOfTheForces, ()) {
  ForEveryShape(CheckSlendernessStays);
}

}  // namespace
