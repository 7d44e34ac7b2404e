#include "aluframe/second_opinion/strength_questions.h"

#include <algorithm>
#include <cmath>

#include "aluframe/elementary/functions.h"

namespace aluframe::second_opinion {

namespace {

/// F2: k·(|N/Aen − My/(γy1·W1)| + |Mz|/(γz·Wz)) with the section that the checks have for it.
void ask_top_fibre(const AskedElement& element, const ALU_DGN_DATA& data,
                   const AluDgnSectForce& force, const Position& at, const Take& take) {
  Engine& engine = element.engine;
  if (!engine.ask(data, force)) return;
  const double axial = at.n / engine.report(ALU_REPORT_AEN);
  const double top =
      force.dForce[ALU_FORCE_MY] / (engine.report(ALU_REPORT_GAMMA_Y) * engine.section().dW1);
  const double side = at.mz / (engine.report(ALU_REPORT_GAMMA_Z) * engine.section().dWz);
  const double stress = std::fabs(axial - top) + std::fabs(side);
  take(Answer{RALU_STRENGTH, at.k_strength * stress / element.units.f, Rule::f2});
}

/// The same forces with My compressing the top flange.
AluDgnSectForce with_positive_my(const Position& at) {
  AluDgnSectForce turned = at.force;
  turned.dForce[ALU_FORCE_MY] = std::max(std::fabs(at.my), tiny_moment);
  return turned;
}

}  // namespace

void ask_shear(const AskedElement& element, const Position& at, const T_RALU_SECT& code,
               const Take& take) {
  const UnitStresses& units = element.units;
  const auto ask = [&](RALU_ITEM_TYPE item, double force, double unit) {
    const T_RALU_RLT& check = code.aItem[static_cast<std::size_t>(item)];
    if (force == 0.0 || !RaluIsEmpty(check.dDemand, check.dCapacity)) return;
    take(Answer{item, at.k_strength * std::fabs(force) * unit / units.fv, Rule::c5});
  };
  ask(RALU_SHEAR_Y, at.force.dForce[ALU_FORCE_FY], units.shear_y);
  ask(RALU_SHEAR_Z, at.force.dForce[ALU_FORCE_FZ], units.shear_z);
}

void ask_resultant_shear(const AskedElement& element, const Position& at, const Take& take) {
  const auto shape = element.subject.data.code.sect.nShape;
  if (shape != ALU_SHAPE_P && shape != ALU_SHAPE_SR) return;
  const UnitStresses& units = element.units;
  const double fy = at.force.dForce[ALU_FORCE_FY], fz = at.force.dForce[ALU_FORCE_FZ];
  if (fy == 0.0 || fz == 0.0) return;
  const double stress = elementary::hypotenuse(fy * units.shear_y, fz * units.shear_z);
  take(Answer{RALU_SHEAR_Z, at.k_strength * stress / units.fv, Rule::c6});
}

void ask_strength(const AskedElement& element, const Position& at, const Take& take) {
  const Subject& subject = element.subject;
  const UnitStresses& units = element.units;
  const bool has_axial = at.is_tension || at.is_compression;
  if (!has_axial) {
    if (subject.is_unsymmetric || !(at.mz > 0.0) || at.my == 0.0) return;
    const double stress = units.bending_y[at.sign()] * std::fabs(at.my) + units.bending_z * at.mz;
    take(Answer{RALU_STRENGTH, at.k_strength * stress / units.f, Rule::f1});
    return;
  }
  if (!subject.is_unsymmetric) return;
  ask_top_fibre(element, subject.data, at.force, at, take);
  // The compressed bottom flange of a welded H, with the reduction of its top flange (W3).
  if (!subject.is_welded_slender_h || at.my > zero_force || !subject.mirrored) return;
  ask_top_fibre(element, *subject.mirrored, with_positive_my(at), at, take);
}

void ask_turned_strength(const AskedElement& element, const Position& at, const Take& take) {
  const Subject& subject = element.subject;
  if (!subject.is_welded_slender_h || at.my > zero_force) return;
  if (!(at.is_tension || at.is_bent)) return;
  const ALU_DGN_DATA& turned = subject.mirrored ? *subject.mirrored : subject.data;
  if (!element.engine.ask(turned, with_positive_my(at))) return;
  take(Answer{RALU_STRENGTH, ratio_of(element.engine.item(RALU_STRENGTH)), Rule::w3});
}

void ask_bottom_of_box(const AskedElement& element, const Position& at, const Take& take) {
  Engine& engine = element.engine;
  if (!element.subject.is_reduced_unequal_box) return;
  if (!engine.ask(element.subject.data, at.force)) return;
  const ALU_CAL_SECTPARA& section = engine.section();
  if (!(section.dW2 < section.dW1)) return;
  double stress = std::fabs(at.my) / section.dW2 + std::fabs(at.mz) / section.dWz;
  if (at.is_tension || at.is_compression) {
    stress += std::fabs(at.n) / engine.report(ALU_REPORT_AEN);
  }
  take(Answer{RALU_STRENGTH, at.k_strength * stress / element.units.f, Rule::f4});
}

}  // namespace aluframe::second_opinion
