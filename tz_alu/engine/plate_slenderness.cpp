#include "tz_alu/engine/plate_slenderness.h"

#include <algorithm>
#include <cmath>
#include <cstdlib>

#include "tz_alu/engine/section_geometry.h"
#include "tz_alu/tolerance.h"

namespace alu_engine {

namespace {

// Limits of a kind of plate by alloy class and welds, as factors of √(240/f0.2)·√(η·κ); those of a
// pipe as D/t times f0.2.
struct LIMIT_ROW {
  double dStrong;
  double dStrongWelded;
  double dWeak;
  double dWeakWelded;
};

constexpr LIMIT_ROW kOutstand{5.0, 4.0, 6.0, 5.0};
constexpr LIMIT_ROW kInternal{17.0, 15.0, 21.5, 17.0};
constexpr LIMIT_ROW kPipe{8400.0, 6000.0, 12000.0, 8400.0};

const LIMIT_ROW* LimitRow(std::int32_t nShape, PLATE plate) {
  switch (nShape) {
    case ALU_SHAPE_C:
      return plate == PLATE::Flange ? &kOutstand : nullptr;
    case ALU_SHAPE_H:
      return plate == PLATE::Flange ? &kOutstand : &kInternal;
    case ALU_SHAPE_B:
      return &kInternal;
    case ALU_SHAPE_P:
      return &kPipe;
    default:
      return nullptr;
  }
}

// kept: the plates of a strongly hardening channel or box are welded for any nonzero flag.
bool HasWeldedLimit(const CHECK_INPUT& in) {
  const ALU_SECT_DATA& sect = in.Section();
  const bool anyFlag = sect.nShape == ALU_SHAPE_C || sect.nShape == ALU_SHAPE_B;
  if (anyFlag && !in.material.IsWeakHardening()) return sect.bWelded != 0;
  return sect.bWelded == 1;
}

double LimitValue(const CHECK_INPUT& in, const LIMIT_ROW& row) {
  const bool welded = HasWeldedLimit(in);
  if (in.material.IsWeakHardening()) return welded ? row.dWeakWelded : row.dWeak;
  return welded ? row.dStrongWelded : row.dStrong;
}

bool HasRibs(const CHECK_INPUT& in) {
  return in.Parameters().bRib == 1;
}

double WebStressRatio(const CHECK_INPUT& in) {
  const ALU_SECT_DATA& sect = in.Section();
  const PLATE_DIMS dims = PlateDims(sect);
  const double z1 = sect.dPtZ[0];
  const double z3 = sect.dPtZ[2];
  const double An = in.Parameters().dCoef085 * sect.dArea;
  if (IsZero(z1) || IsZero(z3) || IsZero(sect.dIyy) || IsZero(An)) return 0.0;
  const double axial = -in.N() / An;
  // kept: the top edge takes z1 with its sign.
  const double top = axial + in.My() * (z1 - dims.tf1) / sect.dIyy;
  const double bottom = axial - in.My() * (std::fabs(z3) - dims.tf2) / sect.dIyy;
  const bool topCompressed = in.My() > kTolerance;
  const double divisor = topCompressed ? top : bottom;
  return IsZero(divisor) ? 0.0 : (topCompressed ? bottom : top) / divisor;
}

// A limit of 0 is none: the ratio is not formed.
double Clear(double width, double thickness, double limit) {
  return limit == 0.0 ? 0.0 : width / thickness / limit;
}

PLATE_RATIOS HRatios(const CHECK_INPUT& in) {
  const auto [H, tw, B1, tf1, B2, tf2, r1, r2] = PlateDims(in.Section());
  const double flange = PlateLimit(in, PLATE::Flange);
  PLATE_RATIOS ratios;
  ratios.dTop = Clear(B1 - tw - 2.0 * r1 - 2.0 * r2, tf1, flange);
  ratios.dBottom = Clear(B2 - tw - 2.0 * r1 - 2.0 * r2, tf2, flange);
  ratios.dWeb = Clear(H - tf1 - tf2 - 2.0 * r1, tw, PlateLimit(in, PLATE::Web));
  return ratios;
}

PLATE_RATIOS BoxRatios(const CHECK_INPUT& in) {
  const auto [H, tw, B1, tf1, B2, tf2, r1, r2] = PlateDims(in.Section());
  const double flange = PlateLimit(in, PLATE::Flange);
  PLATE_RATIOS ratios;
  ratios.dTop = Clear(B1 - 2.0 * tw, tf1, flange);
  ratios.dBottom = Clear(B2 - 2.0 * tw, tf2, flange);
  ratios.dWeb = Clear(H - tf1 - tf2, tw, PlateLimit(in, PLATE::Web));
  return ratios;
}

PLATE_RATIOS ChannelRatios(const CHECK_INPUT& in) {
  const auto [H, tw, B1, tf1, B2, tf2, r1, r2] = PlateDims(in.Section());
  const double flange = PlateLimit(in, PLATE::Flange);
  PLATE_RATIOS ratios;
  ratios.dTop = Clear(B1 - tw - r1 - r2, tf1, flange);
  ratios.dBottom = Clear(B2 - tw - r1 - r2, tf2, flange);
  return ratios;
}

PLATE_RATIOS PipeRatio(const CHECK_INPUT& in) {
  const PLATE_DIMS dims = PlateDims(in.Section());
  PLATE_RATIOS ratios;
  ratios.dGoverning = Clear(dims.H, dims.tw, PlateLimit(in, PLATE::Web));
  return ratios;
}

PLATE_RATIOS Governed(PLATE_RATIOS ratios) {
  ratios.dGoverning = std::max(std::max(ratios.dTop, ratios.dBottom), ratios.dWeb);
  return ratios;
}

}  // namespace

double StressRatio(const CHECK_INPUT& in, PLATE plate) {
  return plate == PLATE::Flange ? 1.0 : WebStressRatio(in);
}

double GradientCoefficient(double psi, bool ribs) {
  if (!ribs) {
    return psi > kTolerance ? 0.578 / (psi + 0.34) : 1.7 - 5.0 * psi + 17.1 * psi * psi;
  }
  if (psi < -1.0) return 5.98 * ((1.0 - psi) * (1.0 - psi));
  if (psi < -kTolerance) return 7.81 - 6.29 * psi + 9.78 * psi * psi;
  return 8.2 / (psi + 1.05);
}

double GradientFactor(const CHECK_INPUT& in, PLATE plate) {
  if (in.My() < kTolerance) return 1.0;
  const bool ribs = HasRibs(in);
  return GradientCoefficient(StressRatio(in, plate), ribs) / (ribs ? 4.0 : 0.425);
}

double PlateLimitFactor(const CHECK_INPUT& in, PLATE plate) {
  const LIMIT_ROW* row = LimitRow(in.Section().nShape, plate);
  return row == nullptr ? 0.0 : LimitValue(in, *row);
}

double PlateLimit(const CHECK_INPUT& in, PLATE plate) {
  const LIMIT_ROW* row = LimitRow(in.Section().nShape, plate);
  if (row == nullptr) return 0.0;
  const double value = LimitValue(in, *row);
  const double proof = ProofStrength(in.data.code);
  if (row == &kPipe) return value / proof;
  const double eta = HasRibs(in) ? in.Parameters().dRibRatio : 1.0;
  return value * (std::sqrt(240.0 / proof) * std::sqrt(eta * GradientFactor(in, plate)));
}

PLATE_RATIOS PlateRatios(const CHECK_INPUT& in) {
  switch (in.Section().nShape) {
    case ALU_SHAPE_C:
      return Governed(ChannelRatios(in));
    case ALU_SHAPE_H:
      return Governed(HRatios(in));
    case ALU_SHAPE_B:
      return Governed(BoxRatios(in));
    case ALU_SHAPE_P:
      return PipeRatio(in);
    default:
      return {};
  }
}

}  // namespace alu_engine
