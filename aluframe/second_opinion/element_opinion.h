#pragma once

#include <array>
#include <optional>
#include <vector>

#include "aluframe/second_opinion/answer.h"
#include "aluframe/second_opinion/asked_element.h"

/// A second opinion beside the ratio of a check: what a careful engineer gets by hand from
/// GB 50429-2007 where a rule of the checks is not on the safe side (docs/behaviour.md has the
/// rules and what is asked about each). The engine of the checks answers it, so that a formula
/// stands once; the ratio itself stays as it is.
namespace aluframe::second_opinion {

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
  /// What the checks make of a place that they do not look at; empty where they make nothing.
  T_RALU_SECT checks_of(const AluDgnSectForce& force);
  /// Member stability with the largest forces of the member (C7): N the largest compression, My
  /// (by its sign) and Mz the largest moments. `has_span_moments`: moments grow between the ends of
  /// the member, so that its end moments say nothing of them (S12). `piece_factors`: the least
  /// equivalent moment factors about y and z of pieces between restraints, whose lengths the checks
  /// have (S12); 0 asks nothing.
  SafeRatio of_member(const AluDgnSectForce& largest, bool has_span_moments,
                      const std::array<double, 2>& piece_factors = {});
  /// Every answer at a position, in no particular order: what `at` takes the largest of.
  std::vector<Answer> answers(const AluDgnSectForce& force, const T_RALU_SECT& code);

  /// √(σ² + 3·τ²)/f at a position where torsion acts: σ of the strength check or of its second
  /// opinion (F1, F2), τ of torsion and the larger shear together. Nothing where torsion adds less
  /// than 1 % to the stress, and where the section cannot be formed.
  std::optional<double> torsion_ratio(const AluDgnSectForce& force, const T_RALU_SECT& code);
  /// Stress of unit stresses (forces/weights.h) below which no ratio of torsion under the forces'
  /// combination reaches this one: a section whose effective parts depend on the forces may have a
  /// quarter more.
  double least_torsion_stress(const AluDgnSectForce& force, double ratio) const {
    return 0.8 * ratio * element_.units.f / strength_factor(force);
  }

  const UnitStresses& units() const { return element_.units; }
  bool is_unsymmetric() const { return element_.subject.is_unsymmetric; }
  /// Axial force below which it is noise of an analysis, N.
  double axial_noise() const { return element_.axial_noise; }
  /// k of strength and shear checks: γ0, or γRE in a seismic combination.
  double strength_factor(const AluDgnSectForce& force) const {
    return element_.strength_factor(force);
  }
  /// Lateral-torsional buckling as if no axial force acted; 0 where it cannot be, infinite where
  /// the checks have no critical moment (a truss that bends, C9).
  double lateral_ratio(const AluDgnSectForce& force) const;

 private:
  void each_answer(const AluDgnSectForce& force, const T_RALU_SECT& code, const Take& take) const;
  const Subject& with_full_moments();
  void ask_pieces(const Position& at, const std::array<double, 2>& piece_factors,
                  const Take& take) const;

  AskedElement element_;
  std::optional<Subject> with_full_moments_;  ///< βm = 1 about both axes, once it is asked for
};

}  // namespace aluframe::second_opinion
