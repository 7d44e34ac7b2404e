#include "tz_alu/engine/stability_coefficients.h"

#include <algorithm>
#include <cmath>

#include "tz_alu/engine/constants.h"
#include "tz_alu/engine/effective_section.h"
#include "tz_alu/engine/section_geometry.h"

namespace alu_engine {

namespace {

AXIAL_COEFFICIENTS SymmetricCoefficients(const CHECK_INPUT& in, double X,
                                         const SLENDERNESS& lambda) {
  const double fy = ProofStrength(in.data.code);
  const bool weak = in.material.IsWeakHardening();
  const double factor = X * WeldFactor(in);
  return {factor * ColumnCoefficient(lambda.dLambdaY, fy, weak),
          factor * ColumnCoefficient(lambda.dLambdaZ, fy, weak)};
}

AXIAL_COEFFICIENTS UnsymmetricCoefficients(const CHECK_INPUT& in, double X,
                                           const SLENDERNESS& lambda) {
  const double fy = ProofStrength(in.data.code);
  const bool weak = in.material.IsWeakHardening();
  return {
      X * EccentricityFactor(in, lambda.dLambdaY, X) * ColumnCoefficient(lambda.dLambdaY, fy, weak),
      X * EccentricityFactor(in, lambda.dLambdaZ, X) *
          ColumnCoefficient(lambda.dLambdaZ, fy, weak)};
}

}  // namespace

double EffectiveAreaFactor(const ALU_SECT_DATA& sect, const ALU_CAL_SECTPARA& section) {
  const double R = std::max(std::max(section.dR1, section.dR2), section.dRw);
  return R > 1.0 && HasEffectiveSection(sect.nShape) ? section.dA / sect.dArea : 1.0;
}

double WeldFactor(const CHECK_INPUT& in) {
  return in.Section().bWelded == 1 ? in.material.HazFactor() : 1.0;
}

double RelativeEccentricity(const ALU_SECT_DATA& sect) {
  return std::fabs(sect.dPtZ[0] + sect.dPtZ[2]) / PlateDims(sect).H;
}

double RelativeSlenderness(const CHECK_INPUT& in, double lambda, double X) {
  return lambda / kPi * std::sqrt(X * ProofStrength(in.data.code) / in.E());
}

double EccentricityFactor(const CHECK_INPUT& in, double lambda, double X) {
  const double e = RelativeEccentricity(in.Section());
  const double relative = RelativeSlenderness(in, lambda, X);
  const double square = relative * relative;
  const double c = in.material.IsWeakHardening() ? 2.4 : 3.2;
  return 1.0 - c * (e * e) * square / ((1.0 + square) * ((1.0 + relative) * (1.0 + relative)));
}

AXIAL_COEFFICIENTS AxialCoefficients(const CHECK_INPUT& in, const ALU_CAL_SECTPARA& section,
                                     const SLENDERNESS& lambda) {
  const double X = EffectiveAreaFactor(in.Section(), section);
  return IsUnsymmetric(in.Section()) ? UnsymmetricCoefficients(in, X, lambda)
                                     : SymmetricCoefficients(in, X, lambda);
}

double EulerTypeForce(double E, double area, double lambda) {
  return kPiSquared * E * area / (1.2 * (lambda * lambda));
}

INTERACTION_FACTORS InteractionFactors(std::int32_t nShape, bool weakHardening) {
  const bool closed = nShape == ALU_SHAPE_B || nShape == ALU_SHAPE_P;
  return {closed ? 0.7 : 1.0, weakHardening ? 0.75 : 0.9, weakHardening ? 1.15 : 1.25};
}

}  // namespace alu_engine
