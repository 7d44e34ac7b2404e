#include "aluframe/second_opinion/stability_questions.h"

#include <algorithm>
#include <cmath>

#include "aluframe/second_opinion/beam_column.h"

namespace aluframe::second_opinion {

void ask_lateral(const AskedElement& element, const Position& at, const Take& take) {
  const LateralUnit& unit = lateral_unit(element, at);
  const double my = std::fabs(at.my);
  if (my <= element.my_noise || !std::isfinite(unit.safe)) return;
  const bool is_noise = std::fabs(at.n) < element.axial_noise;
  RuleSet rules = unit.rules;
  if (at.is_tension || at.is_compression) {
    if (!is_noise && at.is_compression) return;
    rules = rules | (is_noise ? Rule::c2 : Rule::c1);
    // No fibre is compressed, so nothing can buckle.
    const ALU_SECT_DATA& sect = element.subject.data.code.sect;
    const double fibre = std::fabs(at.my < 0.0 ? sect.dPtZ[2] : sect.dPtZ[0]);
    if (at.n / element.area >= my * fibre / sect.dIyy) return;
  }
  if (at.my < 0.0) rules = rules | Rule::c3;
  double stress = unit.safe * my;
  if (std::fabs(at.mz) > element.mz_noise) {
    rules = rules | Rule::c4;
    stress += element.units.bending_z * std::fabs(at.mz);
  }
  take(Answer{RALU_STABILITY, at.k_stability * stress / element.units.f, rules});
}

void ask_compression(const AskedElement& element, const Position& at, const T_RALU_SECT& code,
                     const Take& take) {
  const UnitStresses& units = element.units;
  const AxialCoefficients& axial = element.axial;
  const double n = std::fabs(at.n);
  if (units.euler > 0.0) {
    take(Answer{RALU_STABILITY, std::max(1.0, at.k_stability) * n / units.euler, Rule::s2});
  }
  if (at.is_bent) return ask_beam_column(element, element.subject, at, &code, take);
  const bool y = axial.safe_y < axial.safe_z;
  const double phi = y ? axial.safe_y : axial.safe_z;
  if (!axial.formed || !(phi > 0.0)) return;
  take(Answer{RALU_STABILITY, at.k_stability * n / (phi * element.area * units.f),
              y ? axial.rules_y : axial.rules_z});
}

}  // namespace aluframe::second_opinion
