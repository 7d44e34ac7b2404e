#include "aluframe/second_opinion/element_opinion.h"

#include <algorithm>
#include <cmath>
#include <limits>

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
      subject_(engine, data, facts),
      units_(unit_stresses(engine, subject_)),
      axial_(axial_coefficients(engine, subject_)),
      area_(data.code.sect.dArea) {
  const ALU_SECT_DATA& sect = data.code.sect;
  axial_noise_ = noise_share * units_.f * area_;
  my_noise_ = noise_share * units_.f * sect.dIyy / outermost(sect.dPtZ);
  mz_noise_ = noise_share * units_.f * sect.dIzz / outermost(sect.dPtY);
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

/// C6: both shear forces of a round section meet at one place of its wall.
template <class Take>
void ElementOpinion::ask_resultant_shear(const Position& at, Take& take) const {
  const auto shape = subject_.data.code.sect.nShape;
  if (shape != ALU_SHAPE_P && shape != ALU_SHAPE_SR) return;
  const double fy = at.force.dForce[ALU_FORCE_FY], fz = at.force.dForce[ALU_FORCE_FZ];
  if (fy == 0.0 || fz == 0.0) return;
  const double stress = std::hypot(fy * units_.shear_y, fz * units_.shear_z);
  take(Answer{RALU_SHEAR_Z, at.k_strength * stress / units_.fv, Rule::c6});
}

/// C1, C2, C3, C4, S6, S8: lateral-torsional buckling as if no axial force acted, with |My| and Mz.
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
  if (!subject_.is_unsymmetric) return;
  ask_top_fibre(subject_.data, at.force, at, Rule::f2, take);
  // The compressed bottom flange of a welded H, with the reduction of its top flange (W3).
  if (!subject_.is_welded_slender_h || at.my > tolerance || !subject_.mirrored) return;
  AluDgnSectForce turned = at.force;
  turned.dForce[ALU_FORCE_MY] = std::max(std::fabs(at.my), tiny_moment);
  ask_top_fibre(*subject_.mirrored, turned, at, Rule::f2 | Rule::w3, take);
}

/// F2: k·(|N/Aen − My/(γy1·W1)| + |Mz|/(γz·Wz)) with the section that the checks have for it.
template <class Take>
void ElementOpinion::ask_top_fibre(const ALU_DGN_DATA& data, const AluDgnSectForce& force,
                                   const Position& at, RuleSet rules, Take& take) {
  if (!engine_.ask(data, force)) return;
  const double axial = at.n / engine_.report(ALU_REPORT_AEN);
  const double top =
      force.dForce[ALU_FORCE_MY] / (engine_.report(ALU_REPORT_GAMMA_Y) * engine_.section().dW1);
  const double side = at.mz / (engine_.report(ALU_REPORT_GAMMA_Z) * engine_.section().dWz);
  const double stress = std::fabs(axial - top) + std::fabs(side);
  take(Answer{RALU_STRENGTH, at.k_strength * stress / units_.f, rules});
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

/// Asks the stability of compression with bending: unsymmetric sections by the flange that My
/// compresses (S14), welded H sections with slender plates by their reduced flange (W3). What the
/// checks have is taken where it cannot differ.
std::optional<ElementOpinion::BeamColumn> ElementOpinion::stability_of(const Position& at,
                                                                       const T_RALU_SECT* code) {
  const bool unsymmetric = subject_.is_unsymmetric;
  const bool w3 = subject_.is_welded_slender_h && at.my <= tolerance;
  BeamColumn out;
  out.is_turned = asked_->mirrored && ((unsymmetric && at.my < 0.0) || (unsymmetric && w3));
  const bool asks =
      code == nullptr || unsymmetric || subject_.is_slender || subject_.is_reduced_unequal_box;
  AluDgnSectForce force = at.force;
  double& my = force.dForce[ALU_FORCE_MY];
  if (unsymmetric || w3) my = std::fabs(at.my);
  if (w3) my = std::max(my, tiny_moment);
  if (asks && !engine_.ask(out.is_turned ? *asked_->mirrored : asked_->data, force)) {
    return std::nullopt;
  }
  const T_RALU_SECT& result = asks ? engine_.result() : *code;
  out.y = ratio_of(result.aItem[RALU_STABILITY]);
  out.z = ratio_of(result.aItem[RALU_COMBINED_STABILITY]);
  out.phi_y = asks ? engine_.report(ALU_REPORT_PHI_Y) : axial_.code_y;
  out.phi_z = asks ? engine_.report(ALU_REPORT_PHI_Z) : axial_.code_z;
  if (w3) out.rules_y = out.rules_z = Rule::w3;
  if (unsymmetric && at.my < 0.0) out.rules_y = out.rules_z = Rule::s14;
  const bool stem_compressed = unsymmetric && at.my < 0.0 && !out.is_turned;
  if (stem_compressed) {
    out.y = engine_.report(ALU_REPORT_RMAX211) / units_.f;
    take_bottom_modulus(at, RuleSet(Rule::s14), out);
  }
  if (subject_.is_reduced_unequal_box) take_bottom_modulus(at, RuleSet(Rule::f4), out);
  if (unsymmetric && std::fabs(at.mz) > mz_noise_) add_side_bending(at, out);
  return out;
}

/// Bending stresses of the bottom fibre in place of the top fibre, with W1 and W2 of the question
/// just asked: of a box whose flanges differ (F4), and of the stem of a welded tee (S14).
void ElementOpinion::take_bottom_modulus(const Position& at, RuleSet rule, BeamColumn& out) const {
  const ALU_CAL_SECTPARA& section = engine_.section();
  if (!(section.dW2 < section.dW1)) return;
  const double more = section.dW1 / section.dW2 - 1.0;
  const double k = at.k_stability / units_.f;
  const double side = engine_.report(ALU_REPORT_ETA) * std::fabs(at.mz) /
                      (engine_.report(ALU_REPORT_PHI_BZ) * section.dWz);
  const double in_plane =
      out.y - k * (std::fabs(at.n) / (out.phi_y * area_) + (subject_.is_unsymmetric ? 0.0 : side));
  const double out_of_plane = k * engine_.report(ALU_REPORT_ETA) * std::fabs(at.my) /
                              (engine_.report(ALU_REPORT_PHI_B) * section.dW1);
  out.y += std::max(0.0, in_plane) * more;
  out.z += out_of_plane * more;
  out.rules_y = out.rules_y | rule;
  out.rules_z = out.rules_z | rule;
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

/// S6, S8: the critical moment with the ends held against twisting, the same at ends and in the
/// span.
void ElementOpinion::hold_twist(const Position& at, BeamColumn& out) const {
  const LateralUnit& unit = units_.lateral[at.is_end ? 1 : 0][at.sign()];
  if (!unit.rules.contains(Rule::s6) && !unit.rules.contains(Rule::s8)) return;
  const double free_ends = out.is_turned ? unit.free_ends : unit.code;
  out.z += at.k_stability * std::fabs(at.my) * (unit.safe - free_ends) / units_.f;
  out.rules_z = out.rules_z | unit.rules;
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

/// W3: strength with the reduction of the top flange, for the bottom flange.
template <class Take>
void ElementOpinion::ask_turned_strength(const Position& at, Take& take) {
  if (!subject_.is_welded_slender_h || at.my > tolerance) return;
  if (!(at.is_tension || at.is_bent)) return;
  AluDgnSectForce force = at.force;
  force.dForce[ALU_FORCE_MY] = std::max(std::fabs(at.my), tiny_moment);
  if (!engine_.ask(subject_.mirrored ? *subject_.mirrored : subject_.data, force)) return;
  take(Answer{RALU_STRENGTH, ratio_of(engine_.item(RALU_STRENGTH)), Rule::w3});
}

/// F4: strength at the bottom fibre of a box, with the section that the checks have just then.
template <class Take>
void ElementOpinion::ask_bottom_of_box(const Position& at, Take& take) {
  if (!subject_.is_reduced_unequal_box || !engine_.ask(subject_.data, at.force)) return;
  const ALU_CAL_SECTPARA& section = engine_.section();
  if (!(section.dW2 < section.dW1)) return;
  double stress = std::fabs(at.my) / section.dW2 + std::fabs(at.mz) / section.dWz;
  if (at.is_tension || at.is_compression) {
    stress += std::fabs(at.n) / engine_.report(ALU_REPORT_AEN);
  }
  take(Answer{RALU_STRENGTH, at.k_strength * stress / units_.f, Rule::f4});
}

template <class Take>
void ElementOpinion::each_answer(const AluDgnSectForce& force, const T_RALU_SECT& code,
                                 Take& take) {
  if (!units_.formed) return;
  const Position at = position_of(force);
  ask_shear(at, code, take);
  ask_resultant_shear(at, take);
  if (at.is_bent) {
    ask_lateral(at, take);
    ask_strength(at, take);
  }
  if (at.is_compression) ask_compression(at, &code, take);
  if (at.is_bent) ask_bottom_of_box(at, take);
  ask_turned_strength(at, take);
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
    with_full_moments_.emplace(engine_, full, subject_.facts);
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
  const Position at = position_of(force);
  const LateralUnit& unit = units_.lateral[at.is_end ? 1 : 0][at.sign()];
  if (!std::isfinite(unit.safe) && std::fabs(at.my) > my_noise_) {
    return std::numeric_limits<double>::infinity();
  }
  double ratio = 0.0;
  auto take = [&](const Answer& answer) { ratio = answer.ratio; };
  ask_lateral(at, take);
  return ratio;
}

std::optional<double> ElementOpinion::torsion_ratio(const AluDgnSectForce& force,
                                                    const T_RALU_SECT& code) {
  const double mx = std::fabs(force.dForce[ALU_FORCE_MX]);
  if (!units_.formed || mx == 0.0 || units_.torsion == 0.0) return std::nullopt;
  const double k = strength_factor(force);
  const double shear = std::max(std::fabs(force.dForce[ALU_FORCE_FY]) * units_.shear_y,
                                std::fabs(force.dForce[ALU_FORCE_FZ]) * units_.shear_z);
  double sigma = code.aItem[RALU_STRENGTH].dDemand;
  auto take = [&](const Answer& answer) { sigma = std::max(sigma, answer.ratio * units_.f); };
  const Position at = position_of(force);
  if (at.is_bent) ask_strength(at, take);
  const auto equivalent = [&](double tau) { return std::sqrt(sigma * sigma + 3.0 * tau * tau); };
  const double with = equivalent(k * (mx * units_.torsion + shear));
  if (!(with > worth_a_ratio * equivalent(k * shear))) return std::nullopt;
  return with / units_.f;
}

}  // namespace aluframe::second_opinion
