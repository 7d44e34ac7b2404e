#include "tz_alu/engine/member_stability.h"

#include <algorithm>
#include <cmath>

#include "tz_alu/engine/section_geometry.h"
#include "tz_alu/tolerance.h"

namespace alu_engine {

namespace {

// 1 − η·|N|/N_E': 0 or negative when the axial force reaches N_E'/η.
double Amplification(double eta, double N, double N_E) {
  return 1.0 - eta * std::fabs(N) / N_E;
}

double TopModulus(const BEAM_COLUMN& column) {
  return column.gamma.dGammaY1 * column.section.dW1 *
         Amplification(column.eta.dEta1, column.in.N(), column.dNEy);
}

double AxialPart(const BEAM_COLUMN& column, double phi) {
  return -column.in.N() / (phi * column.in.Section().dArea);
}

double CompressionSide(const BEAM_COLUMN& column, double My) {
  return column.dFactor *
         (AxialPart(column, column.phi.dPhiY) + column.beta.dBetaY * My / TopModulus(column));
}

double TensionSide(const BEAM_COLUMN& column) {
  const double modulus = column.gamma.dGammaY2 * column.section.dW2 *
                         Amplification(column.eta.dEta2, column.in.N(), column.dNEy);
  const double t = IsZero(modulus) ? 0.0 : column.in.My() / modulus;
  return std::fabs(column.dFactor *
                   (std::fabs(column.in.N()) / column.section.dA - column.beta.dBetaY * t));
}

double SymmetricInPlane(const BEAM_COLUMN& column) {
  const CHECK_INPUT& in = column.in;
  return column.dFactor *
         (AxialPart(column, column.phi.dPhiY) +
          column.beta.dBetaY * std::fabs(in.My()) / TopModulus(column) +
          column.eta.dEta * std::fabs(in.Mz()) / (column.phi_b.dPhiBz * column.section.dWz));
}

double SymmetricOutOfPlane(const BEAM_COLUMN& column) {
  const CHECK_INPUT& in = column.in;
  const double weak = column.gamma.dGammaZ * column.section.dWz *
                      Amplification(column.eta.dEta1, in.N(), column.dNEz);
  return column.dFactor *
         (AxialPart(column, column.phi.dPhiZ) + column.beta.dBetaZ * std::fabs(in.Mz()) / weak +
          column.eta.dEta * std::fabs(in.My()) / (column.phi_b.dPhiB * column.section.dW1));
}

}  // namespace

double AxialStabilityStress(const CHECK_INPUT& in, double phi, double k) {
  return IsZero(phi) ? 0.0 : k * std::fabs(in.N()) / (in.Section().dArea * phi);
}

double BendingStabilityStress(const CHECK_INPUT& in, const ALU_CAL_SECTPARA& section, double phi_b,
                              double k) {
  const double top = phi_b * section.dW1;
  const double bottom = phi_b * section.dW2;
  if (IsZero(top) || IsZero(bottom)) return 0.0;
  // kept: My keeps its sign, so that a negative moment gives a negative stress.
  return k * in.My() / (in.My() < -kTolerance ? bottom : top);
}

BEAM_COLUMN PrepareBeamColumn(const CHECK_INPUT& in, const ALU_CAL_SECTPARA& section,
                              const SLENDERNESS& lambda, double f) {
  const ALU_SECT_DATA& sect = in.Section();
  const bool weak = in.material.IsWeakHardening();
  return {in,
          section,
          IsUnsymmetric(sect),
          ForceFactor(in.Parameters(), in.force, FORCE_FACTOR::Stability),
          PlasticityFactors(sect.nShape, weak),
          AxialCoefficients(in, section, lambda),
          BendingCoefficients(in, section.dW1, f),
          MomentFactors(in),
          InteractionFactors(sect.nShape, weak),
          EulerTypeForce(in.E(), sect.dArea, lambda.dLambdaY),
          EulerTypeForce(in.E(), sect.dArea, lambda.dLambdaZ)};
}

IN_PLANE_STRESS InPlaneStress(const BEAM_COLUMN& column) {
  if (!column.bUnsymmetric) return {SymmetricInPlane(column)};
  // kept: an unsymmetric section has no term of Mz.
  const double compression = CompressionSide(column, column.in.My());
  if (!(column.in.My() > kTolerance)) return {compression};
  const double tension = TensionSide(column);
  return {std::max(compression, tension), true, compression, tension};
}

double OutOfPlaneStress(const BEAM_COLUMN& column) {
  if (!column.bUnsymmetric) return SymmetricOutOfPlane(column);
  // kept: an unsymmetric section has no term of Mz and takes W1 for both signs of My.
  const double bending =
      column.eta.dEta * column.in.My() / (column.phi_b.dPhiB * column.section.dW1);
  return column.dFactor * (AxialPart(column, column.phi.dPhiZ) + bending);
}

}  // namespace alu_engine
