#include "aluframe/second_opinion/element_opinion.h"

#include <algorithm>
#include <cmath>
#include <limits>

#include "aluframe/forces/weights.h"
#include "aluframe/second_opinion/beam_column.h"
#include "aluframe/second_opinion/stability_questions.h"
#include "aluframe/second_opinion/strength_questions.h"

namespace aluframe::second_opinion {

namespace {

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

ElementOpinion::ElementOpinion(Engine& engine, const ALU_DGN_DATA& data, const ElementFacts& facts)
    : element_(engine, data, facts) {}

void ElementOpinion::each_answer(const AluDgnSectForce& force, const T_RALU_SECT& code,
                                 const Take& take) const {
  if (!element_.units.formed) return;
  const Position at = position_of(element_, force);
  ask_shear(element_, at, code, take);
  ask_resultant_shear(element_, at, take);
  if (at.is_bent) {
    ask_lateral(element_, at, take);
    ask_strength(element_, at, take);
  }
  if (at.is_compression) ask_compression(element_, at, code, take);
  if (at.is_bent) ask_bottom_of_box(element_, at, take);
  ask_turned_strength(element_, at, take);
}

SafeRatio ElementOpinion::at(const AluDgnSectForce& force, const T_RALU_SECT& code) {
  SafeRatio out = of_checks(code);
  if (out.any && !std::isfinite(out.code)) return out;
  each_answer(force, code, Worst(out));
  return out;
}

std::vector<Answer> ElementOpinion::answers(const AluDgnSectForce& force, const T_RALU_SECT& code) {
  std::vector<Answer> all;
  each_answer(force, code, [&](const Answer& answer) { all.push_back(answer); });
  return all;
}

T_RALU_SECT ElementOpinion::checks_of(const AluDgnSectForce& force) {
  return element_.engine.ask(element_.subject.data, force) ? element_.engine.result()
                                                           : T_RALU_SECT();
}

const Subject& ElementOpinion::with_full_moments() {
  if (!with_full_moments_) {
    ALU_DGN_DATA full = element_.subject.data;
    full.code.para.bSway[0] = full.code.para.bSway[1] = 1;
    with_full_moments_.emplace(element_.engine, full, element_.subject.facts);
  }
  return *with_full_moments_;
}

/// The checks know the end moments of the member alone, of which a piece may have the larger ones
/// at both of its ends.
void ElementOpinion::ask_pieces(const Position& at, const std::array<double, 2>& piece_factors,
                                const Take& take) const {
  Subject of_pieces = element_.subject;
  bool any = false;
  for (std::size_t axis = 0; axis < piece_factors.size(); ++axis) {
    if (!(piece_factors[axis] > 0.0)) continue;
    any = true;
    for (ALU_DGN_DATA* data :
         {&of_pieces.data, of_pieces.mirrored ? &*of_pieces.mirrored : nullptr}) {
      if (data == nullptr) continue;
      constexpr std::int32_t own_value = 0;
      data->code.para.nBetaMOpt[axis] = own_value;
      data->code.para.dBetaM[axis] = piece_factors[axis];
    }
  }
  if (any) ask_beam_column(element_, of_pieces, at, nullptr, take);
}

SafeRatio ElementOpinion::of_member(const AluDgnSectForce& largest, bool has_span_moments,
                                    const std::array<double, 2>& piece_factors) {
  SafeRatio out;
  const Position at = position_of(element_, largest);
  if (!element_.units.formed || !at.is_compression || !at.is_bent) return out;
  const bool is_free = element_.subject.data.code.para.bUserBetaM == 0;
  const bool s12 = has_span_moments && is_free;
  const RuleSet why = s12 ? Rule::c7 | Rule::s12 : RuleSet(Rule::c7);
  Worst worst(out);
  const Subject& asked = s12 ? with_full_moments() : element_.subject;
  ask_beam_column(element_, asked, at, nullptr, [&](Answer answer) {
    answer.rules = answer.rules | why;
    worst(answer);
  });
  if (s12 || !is_free) return out;
  ask_pieces(at, piece_factors, [&](Answer answer) {
    answer.rules = answer.rules | Rule::c7 | Rule::s12;
    worst(answer);
  });
  return out;
}

double ElementOpinion::lateral_ratio(const AluDgnSectForce& force) const {
  const Position at = position_of(element_, force);
  const double critical = lateral_unit(element_, at).safe;
  if (!std::isfinite(critical) && std::fabs(at.my) > element_.my_noise) {
    return std::numeric_limits<double>::infinity();
  }
  double ratio = 0.0;
  ask_lateral(element_, at, [&](const Answer& answer) { ratio = answer.ratio; });
  return ratio;
}

std::optional<double> ElementOpinion::torsion_ratio(const AluDgnSectForce& force,
                                                    const T_RALU_SECT& code) {
  const UnitStresses& units = element_.units;
  const double mx = std::fabs(force.dForce[ALU_FORCE_MX]);
  if (!units.formed || mx == 0.0 || units.torsion == 0.0) return std::nullopt;
  const double k = strength_factor(force);
  const double shear = std::max(std::fabs(force.dForce[ALU_FORCE_FY]) * units.shear_y,
                                std::fabs(force.dForce[ALU_FORCE_FZ]) * units.shear_z);
  double sigma = code.aItem[RALU_STRENGTH].dDemand;
  const Position at = position_of(element_, force);
  if (at.is_bent) {
    ask_strength(element_, at,
                 [&](const Answer& answer) { sigma = std::max(sigma, answer.ratio * units.f); });
  }
  const auto equivalent = [&](double tau) { return std::sqrt(sigma * sigma + 3.0 * tau * tau); };
  const double with = equivalent(k * (mx * units.torsion + shear));
  if (!(with > forces::worth_of_torsion * equivalent(k * shear))) return std::nullopt;
  return with / units.f;
}

}  // namespace aluframe::second_opinion
