#include "aluframe/second_opinion/asked_element.h"

#include <algorithm>
#include <cmath>

namespace aluframe::second_opinion {

namespace {

/// What an analysis leaves of a force that is 0, against what the section carries of it.
constexpr double noise_share = 1e-6;

double outermost(const double (&points)[4]) {
  double largest = 0.0;
  for (const double point : points) largest = std::max(largest, std::fabs(point));
  return largest;
}

bool takes_seismic_factors(const ALU_PARA_DATA& para, const AluDgnSectForce& force) {
  return force.nSesiType != 0 && para.bSeismicGammaRE != 0;
}

}  // namespace

AskedElement::AskedElement(Engine& asked, const ALU_DGN_DATA& data, const ElementFacts& facts)
    : engine(asked),
      subject(asked, data, facts),
      units(unit_stresses(asked, subject)),
      axial(axial_coefficients(asked, subject)),
      area(data.code.sect.dArea) {
  const ALU_SECT_DATA& sect = data.code.sect;
  axial_noise = noise_share * units.f * area;
  my_noise = noise_share * units.f * sect.dIyy / outermost(sect.dPtZ);
  mz_noise = noise_share * units.f * sect.dIzz / outermost(sect.dPtY);
}

double AskedElement::strength_factor(const AluDgnSectForce& force) const {
  const ALU_PARA_DATA& para = subject.data.code.para;
  return takes_seismic_factors(para, force) ? para.dGammaREStrength : para.dGamma0;
}

double AskedElement::stability_factor(const AluDgnSectForce& force) const {
  const ALU_PARA_DATA& para = subject.data.code.para;
  return takes_seismic_factors(para, force) ? para.dGammaREStability : para.dGamma0;
}

bool is_bent(const AluDgnSectForce& force) {
  return std::fabs(force.dForce[ALU_FORCE_MY]) >= zero_force ||
         std::fabs(force.dForce[ALU_FORCE_MZ]) >= zero_force;
}

Position position_of(const AskedElement& element, const AluDgnSectForce& force) {
  const double n = force.dForce[ALU_FORCE_N];
  return {.force = force,
          .n = n,
          .my = force.dForce[ALU_FORCE_MY],
          .mz = force.dForce[ALU_FORCE_MZ],
          .k_strength = element.strength_factor(force),
          .k_stability = element.stability_factor(force),
          .is_tension = n > zero_force,
          .is_compression = n < -zero_force,
          .is_bent = is_bent(force),
          .is_end = force.bEndSect == 1};
}

const LateralUnit& lateral_unit(const AskedElement& element, const Position& at) {
  return element.units.lateral[at.is_end ? 1 : 0][at.sign()];
}

double ratio_of(const T_RALU_RLT& item) {
  return RaluRatio(item.dDemand, item.dCapacity);
}

}  // namespace aluframe::second_opinion
