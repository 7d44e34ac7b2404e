#include "aluframe/restraints/lateral.h"

#include <cmath>

#include "tz_alu/engine/constants.h"
#include "tz_alu/engine/lateral_torsional.h"
#include "tz_alu/engine/section_parameters.h"

namespace aluframe::restraints {

namespace {

namespace engine = alu_engine;

constexpr engine::CRITICAL_MOMENT_COEFFICIENTS equal_end_moments{1.0, 0.0, 1.0};
/// Hinged at both ends and evenly loaded, as the checks have a beam.
constexpr engine::CRITICAL_MOMENT_COEFFICIENTS evenly_loaded{1.132, 0.459, 0.525};

/// Forces far above what counts as zero: the signs decide which plates are reduced.
constexpr double some_moment = 1e6;
constexpr double some_force = 1e3;

constexpr std::size_t index(Flange flange) {
  return flange == Flange::top ? 0 : 1;
}

double critical_moment(const LateralSection& section, Flange compressed, double length,
                       const engine::CRITICAL_MOMENT_COEFFICIENTS& b) {
  const double beta_y = compressed == Flange::top ? section.beta_y : -section.beta_y;
  const double arm = b.b2 * section.load_height[index(compressed)] + b.b3 * beta_y;
  const double squared = engine::kPiSquared * section.e / (length * length);
  const double twist =
      section.iw / section.izz + engine::kShearModulus * section.it / (squared * section.izz);
  return b.b1 * squared * section.izz * (arm + std::sqrt(arm * arm + twist));
}

/// ∫z·(y² + z²)dA of a flange, with its sign by that of the arm.
double moment_of_flange(const engine::OUTLINE_FLANGE& flange, double arm) {
  const double area = flange.width * flange.thickness;
  return area * arm * (flange.width * flange.width / 12.0 + arm * arm);
}

double fourth(double x) {
  return x * x * (x * x);
}

bool has_unequal_flanges(const ALU_SECT_DATA& sect) {
  return std::fabs(sect.dSize[2] - sect.dSize[4]) > 1e-10 ||
         std::fabs(sect.dSize[3] - sect.dSize[5]) > 1e-10;
}

bool depends_on_length(const ALU_DGN_DATA& data) {
  const ALU_SECT_DATA& sect = data.code.sect;
  switch (sect.nShape) {
    case ALU_SHAPE_C:
      if (has_unequal_flanges(sect)) return false;
      break;
    case ALU_SHAPE_H:
    case ALU_SHAPE_T:
    case ALU_SHAPE_2C:
    case ALU_SHAPE_SR:
      break;
    default:
      return false;
  }
  return data.code.para.bUserPhi == 0 && data.nMembType != ALU_MEMBER_TRUSS;
}

LateralSection section_of(const ALU_DGN_DATA& data, const engine::MATERIAL_CLASS& material) {
  const ALU_SECT_DATA& sect = data.code.sect;
  LateralSection section;
  section.e = static_cast<double>(data.code.matl.nElast);
  section.izz = sect.dIzz;
  section.it = sect.dIxx;
  section.iw = sect.dIw;
  section.beta_y = monosymmetry(sect);
  section.load_height = {sect.dShearCtr - sect.dPtZ[0], -sect.dShearCtr + sect.dPtZ[2]};
  section.f = engine::DesignStrength(data.code, material).dF;
  section.is_weakly_hardening = material.IsWeakHardening();
  return section;
}

}  // namespace

double monosymmetry(const ALU_SECT_DATA& sect) {
  if (!engine::HasFlangedOutline(sect.nShape)) return 0.0;
  const auto [top, bottom, webs] = engine::FlangedOutline(sect);
  // The web ends at the inner faces of the flanges.
  const double above = top.arm - top.thickness / 2.0;
  const double below = bottom.arm - bottom.thickness / 2.0;
  const double third = moment_of_flange(top, top.arm) + moment_of_flange(bottom, -bottom.arm) +
                       webs * (fourth(above) - fourth(below)) / 4.0;
  return sect.dShearCtr - third / (2.0 * sect.dIyy);
}

CriticalMoments critical_moments(const LateralSection& section, Flange compressed, double length) {
  return {critical_moment(section, compressed, length, equal_end_moments),
          critical_moment(section, compressed, length, evenly_loaded)};
}

LateralCoefficient lateral_coefficient(const LateralSection& section, Flange compressed,
                                       double length, double share) {
  LateralCoefficient out;
  out.moments = critical_moments(section, compressed, length);
  out.moments.uniform *= share;
  out.moments.loaded *= share;
  out.slenderness =
      std::sqrt(section.modulus[index(compressed)] * section.f / out.moments.smaller());
  out.phi_b = engine::LateralTorsionalCoefficient(out.slenderness, section.is_weakly_hardening);
  return out;
}

std::optional<UnrestrainedCoefficient> unrestrained_coefficient(const ALU_DGN_DATA& data) {
  if (!depends_on_length(data)) return std::nullopt;
  const engine::MATERIAL_CLASS material = engine::ClassifyMaterial(data.code.matl);
  UnrestrainedCoefficient out{.section = section_of(data, material),
                              .largest_phi_b = 0.0,
                              .is_halved = data.code.para.bMidSupport == 1};
  for (const double n : {0.0, -some_force}) {
    for (const double my : {some_moment, -some_moment}) {
      for (const std::int32_t end : {0, 1}) {
        AluDgnSectForce force;
        force.dForce[ALU_FORCE_N] = n;
        force.dForce[ALU_FORCE_MY] = my;
        force.bEndSect = end;
        const engine::CHECK_INPUT in{data, force, material};
        const ALU_CAL_SECTPARA checked = engine::SectionParameters(in);
        if (!engine::AreUsable(checked)) return std::nullopt;
        const double phi_b = engine::BendingCoefficients(in, checked.dW1, out.section.f).dPhiB;
        if (!std::isfinite(phi_b)) return std::nullopt;
        out.largest_phi_b = std::max(out.largest_phi_b, phi_b);
        out.section.modulus[0] = std::max(out.section.modulus[0], checked.dW1);
        out.section.modulus[1] = std::max(out.section.modulus[1], checked.dW2);
      }
    }
  }
  return out;
}

}  // namespace aluframe::restraints
