#include "aluframe/second_opinion/beam_column.h"

#include <algorithm>
#include <cmath>

namespace aluframe::second_opinion {

namespace {

/// The stability of compression with bending at one position: both ratios, and what makes them
/// differ from the checks'.
class BeamColumn {
 public:
  BeamColumn(const AskedElement& element, const Position& at)
      : element_(element), subject_(element.subject), engine_(element.engine), at_(at) {}

  /// Asks unsymmetric sections by the flange that My compresses (S14), welded H sections with
  /// slender plates by their reduced flange (W3). What the checks have is taken where it cannot
  /// differ.
  /// @return false when the section parameters cannot be formed
  bool ask(const Subject& asked, const T_RALU_SECT* code);

  /// B1, B8, S3: the axial coefficients of compression alone; C2 where the moments are noise.
  void take_axial_coefficients();

  /// S6, S8, S9: the critical moment with the ends held against twisting, the same at ends and in
  /// the span, and between restraints.
  void hold_twist();

  Answer about_y() const { return {RALU_STABILITY, y_, rules_y_}; }
  Answer combined() const { return {RALU_COMBINED_STABILITY, z_, rules_z_}; }

 private:
  bool is_w3() const { return subject_.is_welded_slender_h && at_.my <= zero_force; }
  AluDgnSectForce asked_force() const;
  void take_ratios(const T_RALU_SECT& result);
  void take_bottom_modulus(RuleSet rule);
  void add_side_bending();

  const AskedElement& element_;
  const Subject& subject_;
  Engine& engine_;
  const Position& at_;
  double y_ = 0.0, z_ = 0.0;  ///< stability about y, combined stability about z
  RuleSet rules_y_, rules_z_;
  double phi_y_ = 0.0, phi_z_ = 0.0;  ///< axial coefficients that these ratios have
  bool is_turned_ = false;            ///< asked upside down
};

bool BeamColumn::ask(const Subject& asked, const T_RALU_SECT* code) {
  const bool unsymmetric = subject_.is_unsymmetric;
  is_turned_ = asked.mirrored && unsymmetric && (at_.my < 0.0 || is_w3());
  const bool asks =
      code == nullptr || unsymmetric || subject_.is_slender || subject_.is_reduced_unequal_box;
  if (asks && !engine_.ask(is_turned_ ? *asked.mirrored : asked.data, asked_force())) return false;
  take_ratios(asks ? engine_.result() : *code);
  phi_y_ = asks ? engine_.report(ALU_REPORT_PHI_Y) : element_.axial.code_y;
  phi_z_ = asks ? engine_.report(ALU_REPORT_PHI_Z) : element_.axial.code_z;
  const bool stem_compressed = unsymmetric && at_.my < 0.0 && !is_turned_;
  if (stem_compressed) {
    y_ = engine_.report(ALU_REPORT_RMAX211) / element_.units.f;
    take_bottom_modulus(Rule::s14);
  }
  if (subject_.is_reduced_unequal_box) take_bottom_modulus(Rule::f4);
  if (unsymmetric && std::fabs(at_.mz) > element_.mz_noise) add_side_bending();
  return true;
}

AluDgnSectForce BeamColumn::asked_force() const {
  AluDgnSectForce force = at_.force;
  double& my = force.dForce[ALU_FORCE_MY];
  if (subject_.is_unsymmetric || is_w3()) my = std::fabs(at_.my);
  if (is_w3()) my = std::max(my, tiny_moment);
  return force;
}

void BeamColumn::take_ratios(const T_RALU_SECT& result) {
  y_ = ratio_of(result.aItem[RALU_STABILITY]);
  z_ = ratio_of(result.aItem[RALU_COMBINED_STABILITY]);
  if (is_w3()) rules_y_ = rules_z_ = Rule::w3;
  if (subject_.is_unsymmetric && at_.my < 0.0) rules_y_ = rules_z_ = Rule::s14;
}

/// Bending stresses of the bottom fibre in place of the top fibre, with W1 and W2 of the question
/// just asked: of a box whose flanges differ (F4), and of the stem of a welded tee (S14).
void BeamColumn::take_bottom_modulus(RuleSet rule) {
  const ALU_CAL_SECTPARA& section = engine_.section();
  if (!(section.dW2 < section.dW1)) return;
  const double more = section.dW1 / section.dW2 - 1.0;
  const double k = at_.k_stability / element_.units.f;
  const double eta = engine_.report(ALU_REPORT_ETA);
  const double side = eta * std::fabs(at_.mz) / (engine_.report(ALU_REPORT_PHI_BZ) * section.dWz);
  const double in_plane = y_ - k * (std::fabs(at_.n) / (phi_y_ * element_.area) +
                                    (subject_.is_unsymmetric ? 0.0 : side));
  const double out_of_plane =
      k * eta * std::fabs(at_.my) / (engine_.report(ALU_REPORT_PHI_B) * section.dW1);
  y_ += std::max(0.0, in_plane) * more;
  z_ += out_of_plane * more;
  rules_y_ = rules_y_ | rule;
  rules_z_ = rules_z_ | rule;
}

/// S14: the terms of Mz, which the checks leave out of unsymmetric sections. With the coefficients
/// of the question just asked.
void BeamColumn::add_side_bending() {
  const double side =
      at_.k_stability * std::fabs(at_.mz) / (engine_.section().dWz * element_.units.f);
  const double rest =
      1.0 - engine_.report(ALU_REPORT_ETA1) * std::fabs(at_.n) / engine_.report(ALU_REPORT_N_EZ);
  y_ += side / engine_.report(ALU_REPORT_PHI_BZ);
  // Beyond the Euler load there is no equilibrium (S2), and nothing to add.
  if (rest > 0.0) {
    z_ += engine_.report(ALU_REPORT_BETA_MZ) * side / (engine_.report(ALU_REPORT_GAMMA_Z) * rest);
  }
  rules_y_ = rules_z_ = Rule::s14;
}

void BeamColumn::take_axial_coefficients() {
  const AxialCoefficients& axial = element_.axial;
  if (!axial.formed) return;
  const bool is_noise =
      std::fabs(at_.my) < element_.my_noise && std::fabs(at_.mz) < element_.mz_noise;
  const auto correct = [&](double safe, double code, RuleSet why, double& ratio, RuleSet& rules) {
    if (!(safe > 0.0) || !(safe < code * (1.0 - same))) return;
    ratio += at_.k_stability * std::fabs(at_.n) / (element_.area * element_.units.f) *
             (1.0 / safe - 1.0 / code);
    rules = rules | (why.empty() ? RuleSet(Rule::b1) : why);
    if (is_noise) rules = rules | Rule::c2;
  };
  correct(axial.safe_y, phi_y_, axial.rules_y, y_, rules_y_);
  correct(axial.safe_z, phi_z_, axial.rules_z, z_, rules_z_);
}

void BeamColumn::hold_twist() {
  const LateralUnit& unit = lateral_unit(element_, at_);
  const bool differs = unit.rules.contains(Rule::s6) || unit.rules.contains(Rule::s8) ||
                       unit.rules.contains(Rule::s9);
  if (!differs) return;
  const double free_ends = is_turned_ ? unit.free_ends : unit.code;
  z_ += at_.k_stability * std::fabs(at_.my) * (unit.safe - free_ends) / element_.units.f;
  rules_z_ = rules_z_ | unit.rules;
}

}  // namespace

void ask_beam_column(const AskedElement& element, const Subject& asked, const Position& at,
                     const T_RALU_SECT* code, const Take& take) {
  BeamColumn stability(element, at);
  if (!stability.ask(asked, code)) return;
  stability.take_axial_coefficients();
  stability.hold_twist();
  take(stability.about_y());
  take(stability.combined());
}

}  // namespace aluframe::second_opinion
