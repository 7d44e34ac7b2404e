#include "tz_alu/engine/local_buckling.h"

#include <algorithm>
#include <cmath>

#include "tz_alu/engine/constants.h"
#include "tz_alu/engine/section_geometry.h"
#include "tz_alu/report/aluprint.h"
#include "tz_alu/tolerance.h"

namespace alu_engine {

namespace {

constexpr double kInternalPlate = 4.0;
constexpr double kOutstandPlate = 0.431;

bool IsSlender(double ratio) {
  return ratio - 1.0 > kTolerance;
}

bool IsBox(const CHECK_INPUT& in) {
  return in.Section().nShape == ALU_SHAPE_B;
}

double PlateCoefficient(const CHECK_INPUT& in) {
  return IsBox(in) ? kInternalPlate : kOutstandPlate;
}

// One flange between or beside the webs: of an H a half, less the first corner allowance.
GOVERNING_PLATE OneFlange(const CHECK_INPUT& in, double width, double thickness) {
  const PLATE_DIMS dims = PlateDims(in.Section());
  double b = width - dims.tw - dims.r1;
  if (IsBox(in)) b = width - 2.0 * dims.tw;
  if (in.Section().nShape == ALU_SHAPE_H) b = (width - dims.tw - 2.0 * dims.r1) / 2.0;
  return {PlateCoefficient(in), b, thickness};
}

// kept: the thickness of each flange is paired with the width of the other.
GOVERNING_PLATE BothFlanges(const CHECK_INPUT& in, const PLATE_RATIOS& ratios) {
  const PLATE_DIMS dims = PlateDims(in.Section());
  const bool bottom = ratios.dBottom - ratios.dTop > kTolerance;
  const double width = bottom ? dims.B1 : dims.B2;
  const double b = IsBox(in) ? width - 2.0 * dims.tw : width - dims.tw - dims.r1;
  return {PlateCoefficient(in), b, bottom ? dims.tf2 : dims.tf1};
}

GOVERNING_PLATE PlateInAxialCompression(const CHECK_INPUT& in, const PLATE_RATIOS& ratios) {
  const PLATE_DIMS dims = PlateDims(in.Section());
  if (IsSlender(ratios.dWeb)) {
    return {kInternalPlate, dims.H - dims.tf1 - dims.tf2 - 2.0 * dims.r1, dims.tw};
  }
  if (!IsSlender(ratios.dBottom)) return {};
  if (IsSlender(ratios.dTop)) return BothFlanges(in, ratios);
  return OneFlange(in, dims.B2, dims.tf2);
}

double Clamped(double rho) {
  if (rho < kTolerance) return 0.0;
  return rho - 1.0 > kTolerance ? 1.0 : rho;
}

}  // namespace

REDUCED_PART ReducedPart(const AluDgnSectForce& force) {
  if (CALU_GB50429_07Print::IsPureCompression(force)) return REDUCED_PART::WholeSection;
  return force.dForce[ALU_FORCE_MY] > kTolerance ? REDUCED_PART::TopFlange
                                                 : REDUCED_PART::BottomFlange;
}

GOVERNING_PLATE GoverningPlate(const CHECK_INPUT& in, const PLATE_RATIOS& ratios) {
  const PLATE_DIMS dims = PlateDims(in.Section());
  switch (ReducedPart(in.force)) {
    case REDUCED_PART::WholeSection:
      return PlateInAxialCompression(in, ratios);
    case REDUCED_PART::TopFlange:
      return OneFlange(in, dims.B1, dims.tf1);
    default:
      return OneFlange(in, dims.B2, dims.tf2);
  }
}

double CriticalStress(const GOVERNING_PLATE& plate, double E, double poisson) {
  const double slenderness = plate.b / plate.t;
  return plate.k * E * (kPi * kPi) /
         (12.0 * (1.0 - poisson * poisson) * (slenderness * slenderness));
}

REDUCTION_COEFFICIENTS ReductionCoefficients(bool weakHardening, bool welded, bool ribs) {
  if (weakHardening) {
    if (welded) return {0.9, 0.9};
    return {ribs ? 1.0 : 0.96, 1.0};
  }
  if (welded) return ribs ? REDUCTION_COEFFICIENTS{0.8, 0.7} : REDUCTION_COEFFICIENTS{0.77, 0.68};
  return {0.9, 0.9};
}

double RelativePlateSlenderness(const CHECK_INPUT& in, const GOVERNING_PLATE& plate) {
  const double critical = CriticalStress(plate, in.E(), in.data.code.matl.dPoisson);
  return std::sqrt(ProofStrength(in.data.code) / critical);
}

// Symmetric sections with ribs keep a ρ above 1/λ².
bool IsEffectiveThicknessCapped(const CHECK_INPUT& in) {
  return IsUnsymmetric(in.Section()) || in.Parameters().bRib != 1;
}

double EffectiveThicknessFactor(const CHECK_INPUT& in, const PLATE_RATIOS& ratios) {
  const GOVERNING_PLATE plate = GoverningPlate(in, ratios);
  if (plate.k == 0.0) return 1.0;
  const double lambda = RelativePlateSlenderness(in, plate);
  const auto [c1, c2] = ReductionCoefficients(in.material.IsWeakHardening(),
                                              in.Section().bWelded == 1, in.Parameters().bRib == 1);
  const double square = lambda * lambda;
  const double rho = c1 / lambda - 0.22 * c2 / square;
  return Clamped(IsEffectiveThicknessCapped(in) ? std::min(1.0 / square, rho) : rho);
}

}  // namespace alu_engine
