#include "tz_alu/engine/strength.h"

#include <cmath>

#include "tz_alu/tolerance.h"

namespace alu_engine {

namespace {

double N(const STRENGTH_INPUT& in) {
  return in.force.dForce[ALU_FORCE_N];
}
double My(const STRENGTH_INPUT& in) {
  return in.force.dForce[ALU_FORCE_MY];
}
double Mz(const STRENGTH_INPUT& in) {
  return in.force.dForce[ALU_FORCE_MZ];
}

// γ·W: the moduli that plasticity adapts.
double TopModulus(const STRENGTH_INPUT& in) {
  return in.gamma.dGammaY1 * in.section.dW1;
}
double BottomModulus(const STRENGTH_INPUT& in) {
  return in.gamma.dGammaY2 * in.section.dW2;
}
double WeakModulus(const STRENGTH_INPUT& in) {
  return in.gamma.dGammaZ * in.section.dWz;
}

bool LacksModulus(const STRENGTH_INPUT& in) {
  return IsZero(TopModulus(in)) || IsZero(WeakModulus(in));
}

// Stress of the bottom fibre from My, without the force factor.
double BottomStress(const STRENGTH_INPUT& in) {
  return IsZero(BottomModulus(in)) ? 0.0 : My(in) / BottomModulus(in);
}

BENDING_STRESS UnsymmetricBending(const STRENGTH_INPUT& in) {
  const double k = in.dFactor;
  const double a = k * My(in) / TopModulus(in);
  const double b = k * Mz(in) / WeakModulus(in);
  const double c = BottomStress(in);
  const double r1 = GreaterOf(std::fabs(a + b), std::fabs(a - b));
  const double r2 = GreaterOf(std::fabs(k * c - b), std::fabs(k * c + b));
  const double demand = GreaterOf(r1, r2);
  return {demand, demand == r1 ? in.gamma.dGammaY1 : in.gamma.dGammaY2};
}

// kept: Mz enters with its sign, My by its magnitude.
BENDING_STRESS SymmetricBending(const STRENGTH_INPUT& in) {
  const double k = in.dFactor;
  const double demand =
      std::fabs(k * std::fabs(My(in)) / TopModulus(in) - k * Mz(in) / WeakModulus(in));
  return {demand, in.gamma.dGammaY1};
}

// kept: the top fibre does not take part.
double UnsymmetricCombined(const STRENGTH_INPUT& in, double Aen) {
  const double k = in.dFactor;
  const double axial = N(in) / Aen;
  const double c = BottomStress(in);
  const double weak = Mz(in) / WeakModulus(in);
  return GreaterOf(std::fabs(k * (axial + c + weak)), std::fabs(k * (axial + c - weak)));
}

double SymmetricCombined(const STRENGTH_INPUT& in, double Aen) {
  return in.dFactor * (std::fabs(N(in)) / Aen + std::fabs(My(in)) / TopModulus(in) +
                       std::fabs(Mz(in)) / WeakModulus(in));
}

}  // namespace

double AdjustedArea(const ALU_CAL_SECTPARA& section, const ALU_PARA_DATA& para) {
  return section.dA * para.dCoef085;
}

double AxialStress(const STRENGTH_INPUT& in, double Aen) {
  return IsZero(Aen) ? 0.0 : in.dFactor * std::fabs(N(in)) / Aen;
}

BENDING_STRESS BendingStress(const STRENGTH_INPUT& in) {
  if (LacksModulus(in)) return {};
  return in.bUnsymmetric ? UnsymmetricBending(in) : SymmetricBending(in);
}

double CombinedStress(const STRENGTH_INPUT& in, double Aen) {
  if (IsZero(Aen) || LacksModulus(in)) return 0.0;
  return in.bUnsymmetric ? UnsymmetricCombined(in, Aen) : SymmetricCombined(in, Aen);
}

}  // namespace alu_engine
