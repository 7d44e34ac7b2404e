#include "aluframe/second_opinion/element_opinion.h"

#include <algorithm>
#include <cmath>

namespace aluframe::second_opinion {

namespace {

/// What an analysis leaves of a force that is 0, against what the section carries of it.
constexpr double noise_share = 1e-6;
/// Below it the engine takes a force for zero.
constexpr double tolerance = 1e-10;
/// A ratio that is larger by less is the same one, computed another way.
constexpr double same = 1e-9;
/// Torsion that raises the stress by less leaves the ratio to bending and shear.
constexpr double worth_a_ratio = 1.01;
/// A moment that the engine takes for positive and that stresses nothing.
constexpr double tiny_moment = 1e-6;

double outermost(const double (&points)[4]) {
  double largest = 0.0;
  for (const double point : points) largest = std::max(largest, std::fabs(point));
  return largest;
}

double ratio_of(const T_RALU_RLT& item) {
  return RaluRatio(item.dDemand, item.dCapacity);
}

bool is_empty(const T_RALU_RLT& item) {
  return RaluIsEmpty(item.dDemand, item.dCapacity);
}

/// Takes the largest ratio; one that is not finite stays.
class Worst {
 public:
  explicit Worst(SafeRatio& out) : out_(out) {}

  void operator()(const Answer& answer) {
    if (!std::isfinite(answer.ratio)) return;
    if (out_.any && !(answer.ratio > out_.safe + same * std::fabs(out_.safe))) return;
    out_.safe = answer.ratio;
    out_.item = answer.item;
    out_.rules = answer.rules;
    out_.any = true;
  }

 private:
  SafeRatio& out_;
};

/// The largest ratio that the checks have; slenderness without a limit proves nothing.
SafeRatio of_checks(const T_RALU_SECT& code) {
  SafeRatio out;
  T_RALU_RLT worst;
  for (int item = 0; item < kResultItems; ++item) {
    const T_RALU_RLT& check = code.aItem[static_cast<std::size_t>(item)];
    if (check.dCapacity == 0.0 && std::isfinite(check.dDemand)) continue;
    if (!RaluGoverns(check.dDemand, check.dCapacity, worst.dDemand, worst.dCapacity)) continue;
    worst = check;
    out.item = item;
    out.any = true;
  }
  if (out.any) out.code = out.safe = std::isfinite(worst.dDemand) ? ratio_of(worst) : worst.dDemand;
  return out;
}

}  // namespace

/// One position's forces with what the questions make of them.
struct ElementOpinion::Position {
  const AluDgnSectForce& force;
  double n, my, mz;
  double k_strength, k_stability;
  bool is_tension, is_compression, is_bent;
  bool is_end;

  std::size_t sign() const { return my < 0.0 ? 1 : 0; }
};

ElementOpinion::ElementOpinion(Engine& engine, const ALU_DGN_DATA& data, const ElementFacts& facts)
    : engine_(engine),
      subject_(data, facts),
      units_(unit_stresses(engine, subject_)),
      axial_(axial_coefficients(engine, subject_)),
      area_(data.code.sect.dArea) {
  const ALU_SECT_DATA& sect = data.code.sect;
  axial_noise_ = noise_share * units_.f * area_;
  my_noise_ = noise_share * units_.f * sect.dIyy / outermost(sect.dPtZ);
  mz_noise_ = noise_share * units_.f * sect.dIzz / outermost(sect.dPtY);
  const bool is_welded = sect.bWelded == 1;
  is_welded_slender_h_ = sect.nShape == ALU_SHAPE_H && is_welded && axial_.is_slender;
  is_reducible_unequal_box_ =
      sect.nShape == ALU_SHAPE_B && subject_.mirrored && (is_welded || axial_.is_slender);
  asked_ = &subject_;
}

double ElementOpinion::strength_factor(const AluDgnSectForce& force) const {
  const ALU_PARA_DATA& para = subject_.data.code.para;
  const bool seismic = force.nSesiType != 0 && para.bSeismicGammaRE != 0;
  return seismic ? para.dGammaREStrength : para.dGamma0;
}

double ElementOpinion::stability_factor(const AluDgnSectForce& force) const {
  const ALU_PARA_DATA& para = subject_.data.code.para;
  const bool seismic = force.nSesiType != 0 && para.bSeismicGammaRE != 0;
  return seismic ? para.dGammaREStability : para.dGamma0;
}

bool ElementOpinion::is_bent(const AluDgnSectForce& force) const {
  return std::fabs(force.dForce[ALU_FORCE_MY]) >= tolerance ||
         std::fabs(force.dForce[ALU_FORCE_MZ]) >= tolerance;
}

ElementOpinion::Position ElementOpinion::position_of(const AluDgnSectForce& force) const {
  const double n = force.dForce[ALU_FORCE_N];
  return {.force = force,
          .n = n,
          .my = force.dForce[ALU_FORCE_MY],
          .mz = force.dForce[ALU_FORCE_MZ],
          .k_strength = strength_factor(force),
          .k_stability = stability_factor(force),
          .is_tension = n > tolerance,
          .is_compression = n < -tolerance,
          .is_bent = is_bent(force),
          .is_end = force.bEndSect == 1};
}

/// C5: shear where the checks leave it out.
template <class Take>
void ElementOpinion::ask_shear(const Position& at, const T_RALU_SECT& code, Take& take) {
  const auto ask = [&](RALU_ITEM_TYPE item, double force, double unit) {
    if (force == 0.0 || !is_empty(code.aItem[static_cast<std::size_t>(item)])) return;
    take(Answer{item, at.k_strength * std::fabs(force) * unit / units_.fv, Rule::c5});
  };
  ask(RALU_SHEAR_Y, at.force.dForce[ALU_FORCE_FY], units_.shear_y);
  ask(RALU_SHEAR_Z, at.force.dForce[ALU_FORCE_FZ], units_.shear_z);
}

/// C1, C2, C3, C4, S6: lateral-torsional buckling as if no axial force acted, with |My| and Mz.
template <class Take>
void ElementOpinion::ask_lateral(const Position& at, Take& take) const {
  const LateralUnit& unit = units_.lateral[at.is_end ? 1 : 0][at.sign()];
  const double my = std::fabs(at.my);
  if (my <= my_noise_ || !std::isfinite(unit.safe)) return;
  const bool is_noise = std::fabs(at.n) < axial_noise_;
  RuleSet rules = unit.rules;
  if (at.is_tension || at.is_compression) {
    if (!is_noise && at.is_compression) return;
    rules = rules | (is_noise ? Rule::c2 : Rule::c1);
    // No fibre is compressed, so nothing can buckle.
    const auto& z = subject_.data.code.sect.dPtZ;
    const double fibre = std::fabs(at.my < 0.0 ? z[2] : z[0]);
    if (at.n / area_ >= my * fibre / subject_.data.code.sect.dIyy) return;
  }
  if (at.my < 0.0) rules = rules | Rule::c3;
  double stress = unit.safe * my;
  if (std::fabs(at.mz) > mz_noise_) {
    rules = rules | Rule::c4;
    stress += units_.bending_z * std::fabs(at.mz);
  }
  take(Answer{RALU_STABILITY, at.k_stability * stress / units_.f, rules});
}

/// F1: the sum that acts at a corner; F2: the top fibre of an unsymmetric section.
template <class Take>
void ElementOpinion::ask_strength(const Position& at, Take& take) {
  const bool has_axial = at.is_tension || at.is_compression;
  if (!has_axial) {
    if (subject_.is_unsymmetric || !(at.mz > 0.0) || at.my == 0.0) return;
    const double stress = units_.bending_y[at.sign()] * std::fabs(at.my) + units_.bending_z * at.mz;
    take(Answer{RALU_STRENGTH, at.k_strength * stress / units_.f, Rule::f1});
    return;
  }
  if (!subject_.is_unsymmetric || !engine_.ask(subject_.data, at.force)) return;
  const double axial = at.n / engine_.report(ALU_REPORT_AEN);
  const double top = at.my / (engine_.report(ALU_REPORT_GAMMA_Y) * engine_.section().dW1);
  const double side = at.mz / (engine_.report(ALU_REPORT_GAMMA_Z) * engine_.section().dWz);
  const double stress = std::fabs(axial - top) + std::fabs(side);
  take(Answer{RALU_STRENGTH, at.k_strength * stress / units_.f, Rule::f2});
}

/// S2, and the axial coefficients of compression alone (B1, B8, S3).
template <class Take>
void ElementOpinion::ask_compression(const Position& at, const T_RALU_SECT* code, Take& take) {
  const double n = std::fabs(at.n);
  if (units_.euler > 0.0) {
    take(Answer{RALU_STABILITY, std::max(1.0, at.k_stability) * n / units_.euler, Rule::s2});
  }
  if (!at.is_bent) {
    const bool y = axial_.safe_y < axial_.safe_z;
    const double phi = y ? axial_.safe_y : axial_.safe_z;
    if (!axial_.formed || !(phi > 0.0)) return;
    take(Answer{RALU_STABILITY, at.k_stability * n / (phi * area_ * units_.f),
                y ? axial_.rules_y : axial_.rules_z});
    return;
  }
  ask_beam_column(at, code, take);
}

/// Both stability ratios of compression with bending, and what makes them differ from the checks'.
struct ElementOpinion::BeamColumn {
  double y = 0.0, z = 0.0;  ///< stability about y, combined stability about z
  RuleSet rules_y, rules_z;
  double phi_y = 0.0, phi_z = 0.0;  ///< axial coefficients that these ratios have
  bool is_turned = false;           ///< asked upside down
};

/// Asks the stability of compression with bending, unsymmetric sections by the flange that My
/// compresses (S14). What the checks have is taken where it cannot differ.
std::optional<ElementOpinion::BeamColumn> ElementOpinion::stability_of(const Position& at,
                                                                       const T_RALU_SECT* code) {
  const bool unsymmetric = subject_.is_unsymmetric;
  BeamColumn out;
  out.is_turned = unsymmetric && at.my < 0.0 && asked_->mirrored.has_value();
  const bool asks = code == nullptr || unsymmetric || axial_.is_slender;
  AluDgnSectForce force = at.force;
  if (unsymmetric) force.dForce[ALU_FORCE_MY] = std::fabs(at.my);
  const ALU_DGN_DATA& data = out.is_turned ? *asked_->mirrored : asked_->data;
  if (asks && !engine_.ask(data, force)) return std::nullopt;
  const T_RALU_SECT& result = asks ? engine_.result() : *code;
  out.y = ratio_of(result.aItem[RALU_STABILITY]);
  out.z = ratio_of(result.aItem[RALU_COMBINED_STABILITY]);
  out.phi_y = asks ? engine_.report(ALU_REPORT_PHI_Y) : axial_.code_y;
  out.phi_z = asks ? engine_.report(ALU_REPORT_PHI_Z) : axial_.code_z;
  if (unsymmetric && at.my < 0.0) out.rules_y = out.rules_z = Rule::s14;
  if (unsymmetric && std::fabs(at.mz) > mz_noise_) add_side_bending(at, out);
  return out;
}

/// S14: the terms of Mz, which the checks leave out of unsymmetric sections. With the coefficients
/// of the question just asked.
void ElementOpinion::add_side_bending(const Position& at, BeamColumn& out) const {
  const double side = at.k_stability * std::fabs(at.mz) / (engine_.section().dWz * units_.f);
  const double rest =
      1.0 - engine_.report(ALU_REPORT_ETA1) * std::fabs(at.n) / engine_.report(ALU_REPORT_N_EZ);
  out.y += side / engine_.report(ALU_REPORT_PHI_BZ);
  // Beyond the Euler load there is no equilibrium (S2), and nothing to add.
  if (rest > 0.0) {
    out.z +=
        engine_.report(ALU_REPORT_BETA_MZ) * side / (engine_.report(ALU_REPORT_GAMMA_Z) * rest);
  }
  out.rules_y = out.rules_z = Rule::s14;
}

/// B1, B8, S3: the axial coefficients of compression alone; C2 where the moments are noise.
void ElementOpinion::take_axial_coefficients(const Position& at, BeamColumn& out) const {
  if (!axial_.formed) return;
  const bool is_noise = std::fabs(at.my) < my_noise_ && std::fabs(at.mz) < mz_noise_;
  const auto correct = [&](double safe, double code, RuleSet why, double& ratio, RuleSet& rules) {
    if (!(safe > 0.0) || !(safe < code * (1.0 - same))) return;
    ratio += at.k_stability * std::fabs(at.n) / (area_ * units_.f) * (1.0 / safe - 1.0 / code);
    rules = rules | (why.empty() ? RuleSet(Rule::b1) : why);
    if (is_noise) rules = rules | Rule::c2;
  };
  correct(axial_.safe_y, out.phi_y, axial_.rules_y, out.y, out.rules_y);
  correct(axial_.safe_z, out.phi_z, axial_.rules_z, out.z, out.rules_z);
}

/// S6: the critical moment with the ends held against twisting.
void ElementOpinion::hold_twist(const Position& at, BeamColumn& out) const {
  const LateralUnit& unit = units_.lateral[at.is_end ? 1 : 0][at.sign()];
  if (!unit.rules.contains(Rule::s6)) return;
  const double free_ends = out.is_turned ? unit.free_ends : unit.code;
  out.z += at.k_stability * std::fabs(at.my) * (unit.safe - free_ends) / units_.f;
  out.rules_z = out.rules_z | Rule::s6;
}

template <class Take>
void ElementOpinion::ask_beam_column(const Position& at, const T_RALU_SECT* code, Take& take) {
  auto stability = stability_of(at, code);
  if (!stability) return;
  take_axial_coefficients(at, *stability);
  hold_twist(at, *stability);
  take(Answer{RALU_STABILITY, stability->y, stability->rules_y});
  take(Answer{RALU_COMBINED_STABILITY, stability->z, stability->rules_z});
}

/// F4: the bottom flange of a box whose flanges differ; W3: the bottom flange of a slender welded
/// H.
template <class Take>
void ElementOpinion::ask_upside_down(const Position& at, Take& take) {
  const bool w3 = is_welded_slender_h_ && at.my <= tolerance && (at.is_tension || at.is_bent);
  if (!w3 && !is_reducible_unequal_box_) return;
  AluDgnSectForce force = at.force;
  double& my = force.dForce[ALU_FORCE_MY];
  my = is_reducible_unequal_box_ ? -at.my : std::max(std::fabs(at.my), tiny_moment);
  if (!engine_.ask(subject_.mirrored ? *subject_.mirrored : subject_.data, force)) return;
  const T_RALU_SECT result = engine_.result();
  for (const RALU_ITEM_TYPE item : {RALU_STRENGTH, RALU_STABILITY, RALU_COMBINED_STABILITY}) {
    const T_RALU_RLT& check = result.aItem[item];
    if (is_empty(check)) continue;
    take(Answer{item, ratio_of(check), w3 ? Rule::w3 : Rule::f4});
  }
}

template <class Take>
void ElementOpinion::each_answer(const AluDgnSectForce& force, const T_RALU_SECT& code,
                                 Take& take) {
  if (!units_.formed) return;
  const Position at = position_of(force);
  ask_shear(at, code, take);
  if (at.is_bent) {
    ask_lateral(at, take);
    ask_strength(at, take);
  }
  if (at.is_compression) ask_compression(at, &code, take);
  ask_upside_down(at, take);
}

SafeRatio ElementOpinion::at(const AluDgnSectForce& force, const T_RALU_SECT& code) {
  SafeRatio out = of_checks(code);
  if (out.any && !std::isfinite(out.code)) return out;
  Worst worst(out);
  each_answer(force, code, worst);
  return out;
}

std::vector<Answer> ElementOpinion::answers(const AluDgnSectForce& force, const T_RALU_SECT& code) {
  std::vector<Answer> all;
  auto take = [&](const Answer& answer) { all.push_back(answer); };
  each_answer(force, code, take);
  return all;
}

SafeRatio ElementOpinion::at_unchecked(const AluDgnSectForce& force) {
  if (!engine_.ask(subject_.data, force)) return {};
  const T_RALU_SECT code = engine_.result();
  return at(force, code);
}

SafeRatio ElementOpinion::of_member(const AluDgnSectForce& largest, bool has_span_moments) {
  SafeRatio out;
  const Position at = position_of(largest);
  if (!units_.formed || !at.is_compression || !at.is_bent) return out;
  const ALU_PARA_DATA& para = subject_.data.code.para;
  const bool s12 = has_span_moments && para.bUserBetaM == 0;
  if (s12 && !with_full_moments_) {
    ALU_DGN_DATA full = subject_.data;
    full.code.para.bSway[0] = full.code.para.bSway[1] = 1;
    with_full_moments_.emplace(full, subject_.facts);
  }
  asked_ = s12 ? &*with_full_moments_ : &subject_;
  const RuleSet why = s12 ? Rule::c7 | Rule::s12 : RuleSet(Rule::c7);
  Worst worst(out);
  auto take = [&](Answer answer) {
    answer.rules = answer.rules | why;
    worst(answer);
  };
  ask_beam_column(at, nullptr, take);
  asked_ = &subject_;
  return out;
}

double ElementOpinion::lateral_ratio(const AluDgnSectForce& force) const {
  double ratio = 0.0;
  auto take = [&](const Answer& answer) { ratio = answer.ratio; };
  ask_lateral(position_of(force), take);
  return ratio;
}

std::optional<double> ElementOpinion::torsion_ratio(const AluDgnSectForce& force,
                                                    const T_RALU_SECT& code) const {
  const double mx = std::fabs(force.dForce[ALU_FORCE_MX]);
  if (!units_.formed || mx == 0.0 || units_.torsion == 0.0) return std::nullopt;
  const double k = strength_factor(force);
  const double shear = std::max(std::fabs(force.dForce[ALU_FORCE_FY]) * units_.shear_y,
                                std::fabs(force.dForce[ALU_FORCE_FZ]) * units_.shear_z);
  const double sigma = code.aItem[RALU_STRENGTH].dDemand;
  const auto equivalent = [&](double tau) { return std::sqrt(sigma * sigma + 3.0 * tau * tau); };
  const double with = equivalent(k * (mx * units_.torsion + shear));
  if (!(with > worth_a_ratio * equivalent(k * shear))) return std::nullopt;
  return with / units_.f;
}

}  // namespace aluframe::second_opinion
