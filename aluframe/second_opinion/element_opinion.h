#pragma once

#include <optional>
#include <vector>

#include "aluframe/second_opinion/axial_coefficients.h"
#include "aluframe/second_opinion/unit_stresses.h"

/// A second opinion beside the ratio of a check: what a careful engineer gets by hand from
/// GB 50429-2007 where a rule of the checks is not on the safe side (docs/behaviour.md has the
/// rules and what is asked about each). The engine of the checks answers it, so that a formula
/// stands once; the ratio itself stays as it is.
namespace aluframe::second_opinion {

/// One question's answer: the ratio of a check item, and the rules that it sets right.
struct Answer {
  int item = 0;  ///< RALU_ITEM_TYPE
  double ratio = 0.0;
  RuleSet rules;
};

/// The worst of a position: its largest ratio in the checks, and with the second opinion.
struct SafeRatio {
  double code = 0.0;  ///< largest ratio of the checks; not finite where one of them is not
  double safe = 0.0;  ///< never below `code`
  int item = 0;       ///< RALU_ITEM_TYPE of the safe ratio
  RuleSet rules;      ///< empty: it is the ratio of the checks
  bool any = false;   ///< false: neither a check nor a question had a ratio
};

/// Asks about one element. Made once an element; forces come position by position.
///
///     ElementOpinion opinion(engine, data, facts);
///     const SafeRatio ratio = opinion.at(force, result_of_the_checks);
class ElementOpinion {
 public:
  ElementOpinion(Engine& engine, const ALU_DGN_DATA& data, const ElementFacts& facts = {});

  /// The position with `force`, of which the checks have made `code`.
  SafeRatio at(const AluDgnSectForce& force, const T_RALU_SECT& code);
  /// A place that the checks do not look at: they are asked here.
  SafeRatio at_unchecked(const AluDgnSectForce& force);
  /// Member stability with the largest forces of the member (C7): N the largest compression, My
  /// (by its sign) and Mz the largest moments. `has_span_moments`: moments grow between the ends of
  /// the member, so that its end moments say nothing of them (S12).
  SafeRatio of_member(const AluDgnSectForce& largest, bool has_span_moments);
  /// Every answer at a position, in no particular order: what `at` takes the largest of.
  std::vector<Answer> answers(const AluDgnSectForce& force, const T_RALU_SECT& code);

  /// √(σ² + 3·τ²)/f at a position where torsion acts: σ of the strength check or of its second
  /// opinion (F1, F2), τ of torsion and the larger shear together. Nothing where torsion adds less
  /// than 1 % to the stress, and where the section cannot be formed.
  std::optional<double> torsion_ratio(const AluDgnSectForce& force, const T_RALU_SECT& code);

  const UnitStresses& units() const { return units_; }
  bool is_unsymmetric() const { return subject_.is_unsymmetric; }
  /// Axial force and moments below which they are noise of an analysis: 1e-6 of what the section
  /// carries alone, N and N·mm.
  double axial_noise() const { return axial_noise_; }
  bool is_bent(const AluDgnSectForce& force) const;
  /// k of strength and shear checks: γ0, or γRE in a seismic combination.
  double strength_factor(const AluDgnSectForce& force) const;
  /// Lateral-torsional buckling as if no axial force acted; 0 where it cannot be, infinite where
  /// the checks have no critical moment (a truss that bends, C9).
  double lateral_ratio(const AluDgnSectForce& force) const;

 private:
  struct Position;
  struct BeamColumn;

  template <class Take>
  void each_answer(const AluDgnSectForce& force, const T_RALU_SECT& code, Take& take);
  double stability_factor(const AluDgnSectForce& force) const;
  Position position_of(const AluDgnSectForce& force) const;

  template <class Take>
  void ask_shear(const Position& at, const T_RALU_SECT& code, Take& take);
  template <class Take>
  void ask_resultant_shear(const Position& at, Take& take) const;
  template <class Take>
  void ask_lateral(const Position& at, Take& take) const;
  template <class Take>
  void ask_strength(const Position& at, Take& take);
  template <class Take>
  void ask_top_fibre(const ALU_DGN_DATA& data, const AluDgnSectForce& force, const Position& at,
                     RuleSet rules, Take& take);
  template <class Take>
  void ask_compression(const Position& at, const T_RALU_SECT* code, Take& take);
  template <class Take>
  void ask_beam_column(const Position& at, const T_RALU_SECT* code, Take& take);
  std::optional<BeamColumn> stability_of(const Position& at, const T_RALU_SECT* code);
  void add_side_bending(const Position& at, BeamColumn& out) const;
  void take_axial_coefficients(const Position& at, BeamColumn& out) const;
  void hold_twist(const Position& at, BeamColumn& out) const;
  void take_bottom_modulus(const Position& at, RuleSet rule, BeamColumn& out) const;
  template <class Take>
  void ask_turned_strength(const Position& at, Take& take);
  template <class Take>
  void ask_bottom_of_box(const Position& at, Take& take);

  Engine& engine_;
  Subject subject_;
  UnitStresses units_;
  AxialCoefficients axial_;
  double area_ = 0.0;
  double axial_noise_ = 0.0, my_noise_ = 0.0, mz_noise_ = 0.0;
  std::optional<Subject> with_full_moments_;  ///< βm = 1 about both axes, once it is asked for
  const Subject* asked_ = nullptr;            ///< the one that questions are about just now
};

}  // namespace aluframe::second_opinion
