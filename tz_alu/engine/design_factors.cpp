#include "tz_alu/engine/design_factors.h"

namespace alu_engine {

namespace {

struct PLASTICITY_ROW {
  PLASTICITY weak;
  PLASTICITY strong;
};

constexpr PLASTICITY kNone{1.0, 1.0, 1.0};

// By shape code. kept: the bottom factor of a solid round is 1.0 in both classes, and it alone has
// factors above 1.0 for a strongly hardening alloy.
constexpr PLASTICITY_ROW kPlasticity[] = {
    {{1.0, 1.05, 1.0}, kNone},             // C
    {{1.0, 1.0, 1.05}, kNone},             // H
    {{1.0, 1.05, 1.05}, kNone},            // T
    {kNone, kNone},                        // B
    {kNone, kNone},                        // P
    {{1.0, 1.0, 1.05}, kNone},             // 2C
    {{1.1, 1.0, 1.1}, {1.05, 1.0, 1.05}},  // SR
};

}  // namespace

double ForceFactor(const ALU_PARA_DATA& para, const AluDgnSectForce& force, FORCE_FACTOR kind) {
  if (force.nSesiType == 0 || para.bSeismicGammaRE == 0) return para.dGamma0;
  return kind == FORCE_FACTOR::Strength ? para.dGammaREStrength : para.dGammaREStability;
}

PLASTICITY PlasticityFactors(std::int32_t nShape, bool weakHardening) {
  const bool known = nShape >= ALU_SHAPE_C && nShape <= ALU_SHAPE_SR;
  const PLASTICITY_ROW& row = kPlasticity[known ? nShape : ALU_SHAPE_SR];
  return weakHardening ? row.weak : row.strong;
}

}  // namespace alu_engine
