#include "aluframe/second_opinion/unit_stresses.h"

#include <algorithm>
#include <cmath>
#include <utility>

#include "aluframe/second_opinion/mirrored.h"
#include "aluframe/second_opinion/torsion.h"

namespace aluframe::second_opinion {

namespace {

/// A moment and a force large enough that no tolerance takes them for zero.
constexpr double unit_moment = 1e6;
constexpr double unit_force = 1e3;

double stress_of(Engine& engine, const ALU_DGN_DATA& data, const Forces& forces,
                 RALU_ITEM_TYPE item) {
  return engine.ask(data, forces) ? engine.item(item).dDemand : 0.0;
}

/// Ends in the frame hold the twist: the twisting length is that of the member.
ALU_DGN_DATA with_held_ends(ALU_DGN_DATA data, const std::array<bool, 2>& is_held) {
  for (std::size_t end = 0; end < is_held.size(); ++end) {
    for (std::int32_t& code : data.nEndCond[end]) {
      if (is_held[end] && code == ALU_END_FREE) code = ALU_END_PINNED;
    }
  }
  return data;
}

double lateral_stress(Engine& engine, const ALU_DGN_DATA& data, double my, bool end_section) {
  AluDgnSectForce force;
  force.dForce[ALU_FORCE_MY] = my;
  force.bEndSect = end_section ? 1 : 0;
  const double stress = engine.ask(data, force) ? engine.item(RALU_STABILITY).dDemand : 0.0;
  return std::fabs(stress) / unit_moment;
}

/// Lateral-torsional questions about one element, with k = 1.
class LateralQuestions {
 public:
  LateralQuestions(Engine& engine, const Subject& subject, const ALU_DGN_DATA& plain)
      : engine_(engine), facts_(subject.facts), plain_(plain) {
    if (subject.is_unsymmetric && subject.mirrored) {
      mirrored_ = without_force_factors(*subject.mirrored);
    }
    turns_moment_ = subject.is_welded_slender_h;
  }

  LateralUnit ask(bool end_section, bool is_negative) {
    const double my = is_negative ? -unit_moment : unit_moment;
    LateralUnit unit;
    unit.code = lateral_stress(engine_, plain_, my, end_section);
    unit.safe = unit.code;
    // A negative My compresses the bottom flange: that of an unsymmetric section, or of a welded H
    // with slender plates (W3), is asked for itself, as the top flange of the section upside down.
    const bool turned = is_negative && mirrored_.has_value();
    const ALU_DGN_DATA& asked = turned ? *mirrored_ : plain_;
    const bool reduced = is_negative && turns_moment_ && !turned;
    const double asked_my = turned || reduced ? unit_moment : my;
    if (asked_my != my) unit.safe = lateral_stress(engine_, asked, asked_my, end_section);
    if (reduced) {
      if (unit.safe > unit.code * (1.0 + 1e-9)) unit.rules = Rule::w3;
      unit.safe = std::max(unit.safe, unit.code);
    }
    unit.free_ends = unit.safe;
    const double held =
        lateral_stress(engine_, with_held_ends(asked, facts_.end_is_held), asked_my, end_section);
    if (held > unit.safe * (1.0 + 1e-9)) {
      unit.safe = held;
      unit.rules = unit.rules | Rule::s6;
    }
    take_restraints(asked, asked_my, end_section, unit);
    return unit;
  }

 private:
  /// S9: the member buckles between its restraints, not over half of its length.
  void take_restraints(ALU_DGN_DATA asked, double my, bool end_section, LateralUnit& unit) {
    if (!facts_.restrained_phi_b) return;
    ALU_PARA_DATA& para = asked.code.para;
    para.bUserPhi = 1;
    para.dUserPhi[0] = *facts_.restrained_phi_b;
    para.dUserPhi[1] = 1.0;
    const double between = lateral_stress(engine_, asked, my, end_section);
    if (!(between > unit.safe * (1.0 + 1e-9))) return;
    unit.safe = between;
    unit.rules = unit.rules | Rule::s9;
  }

  Engine& engine_;
  const ElementFacts& facts_;
  const ALU_DGN_DATA& plain_;
  std::optional<ALU_DGN_DATA> mirrored_;
  bool turns_moment_ = false;  ///< a negative My is asked about as a positive one
};

void ask_strength(Engine& engine, const Subject& subject, const ALU_DGN_DATA& plain,
                  UnitStresses& out) {
  const auto strength = [&](const Forces& forces) {
    return stress_of(engine, plain, forces, RALU_STRENGTH) / unit_moment;
  };
  out.bending_y = {strength({.my = unit_moment}), strength({.my = -unit_moment})};
  if (subject.is_welded_slender_h) {
    out.bending_y[1] = std::max(out.bending_y[1], out.bending_y[0]);
  }
  out.bending_z = strength({.mz = -unit_moment});
  out.axial = stress_of(engine, plain, {.n = unit_force}, RALU_STRENGTH) / unit_force;
}

void ask_shear(Engine& engine, const ALU_DGN_DATA& plain, UnitStresses& out) {
  if (!engine.ask(plain, Forces{.fy = unit_force, .fz = unit_force, .my = unit_moment})) return;
  out.formed = true;
  out.f = engine.item(RALU_STRENGTH).dCapacity;
  out.fv = engine.item(RALU_SHEAR_Y).dCapacity;
  out.shear_y = engine.item(RALU_SHEAR_Y).dDemand / unit_force;
  out.shear_z = engine.item(RALU_SHEAR_Z).dDemand / unit_force;
}

double smaller_euler_force(Engine& engine, const ALU_DGN_DATA& plain) {
  if (!engine.ask(plain, Forces{.n = -1.0, .my = unit_moment})) return 0.0;
  return std::min(engine.report(ALU_REPORT_N_EY), engine.report(ALU_REPORT_N_EZ));
}

/// S8: the sign of the shear centre's distance is the same at an end and in the span, so the larger
/// stress of the two counts at both.
void take_larger(LateralUnit& inner, LateralUnit& end) {
  const auto raise = [](LateralUnit& unit, const LateralUnit& other) {
    if (!(other.safe > unit.safe * (1.0 + 1e-9))) return;
    unit.safe = other.safe;
    unit.rules = other.rules | Rule::s8;
  };
  const LateralUnit inner_alone = inner;
  raise(inner, end);
  raise(end, inner_alone);
}

/// Whether the checks take an effective section in compression alone, in which every plate is
/// judged as uniformly compressed.
bool has_slender_plate(Engine& engine, const ALU_DGN_DATA& data) {
  const auto shape = data.code.sect.nShape;
  const bool has_effective_section =
      shape == ALU_SHAPE_C || shape == ALU_SHAPE_H || shape == ALU_SHAPE_B;
  if (!has_effective_section || !engine.ask(data, Forces{.n = -unit_force})) return false;
  const ALU_CAL_SECTPARA& section = engine.section();
  return std::max({section.dR1, section.dR2, section.dRw}) > 1.0;
}

}  // namespace

ALU_DGN_DATA without_force_factors(const ALU_DGN_DATA& data) {
  ALU_DGN_DATA plain = data;
  plain.code.para.dGamma0 = 1.0;
  plain.code.para.bSeismicGammaRE = 0;
  return plain;
}

Subject::Subject(Engine& engine, const ALU_DGN_DATA& of, const ElementFacts& known)
    : data(of), is_unsymmetric(CALU_GB50429_07Print::IsMonoSymmetric(of.code.sect)), facts(known) {
  data.bReport = 0;
  data.SetCheckFlagAll(1);
  const ALU_SECT_DATA& sect = of.code.sect;
  const bool unequal_box = sect.nShape == ALU_SHAPE_B && sect.dSize[3] != sect.dSize[5];
  if (is_unsymmetric || unequal_box) mirrored = second_opinion::mirrored(data);
  const bool is_welded = sect.bWelded == 1;
  is_slender = has_slender_plate(engine, data);
  is_welded_slender_h = sect.nShape == ALU_SHAPE_H && is_welded && is_slender;
  is_reduced_unequal_box = unequal_box && (is_welded || is_slender);
}

UnitStresses unit_stresses(Engine& engine, const Subject& subject) {
  const ALU_DGN_DATA plain = without_force_factors(subject.data);
  UnitStresses out;
  out.torsion = shear_of_unit_torque(plain.code.sect);
  ask_shear(engine, plain, out);
  if (!out.formed) return out;
  ask_strength(engine, subject, plain, out);
  out.euler = smaller_euler_force(engine, plain);
  LateralQuestions lateral(engine, subject, plain);
  for (const bool end : {false, true}) {
    for (const bool negative : {false, true}) {
      out.lateral[end ? 1 : 0][negative ? 1 : 0] = lateral.ask(end, negative);
    }
  }
  for (const std::size_t sign : {0U, 1U}) take_larger(out.lateral[0][sign], out.lateral[1][sign]);
  return out;
}

}  // namespace aluframe::second_opinion
