#pragma once

#include <array>
#include <optional>

#include "aluframe/second_opinion/engine.h"
#include "aluframe/second_opinion/rules.h"

namespace aluframe::second_opinion {

/// What an element's design input does not tell and some questions need.
struct ElementFacts {
  /// The shear centre's y from the centroid, mm: beyond the web of a channel, else 0.
  double shear_centre_y = 0.0;
  /// Per end of the member: other members hold it there, also where no support does.
  std::array<bool, 2> end_is_held{};
  /// φb between the restraints of the member, where the checks halve its length for a support
  /// between its ends and so have a larger one; nothing: they do not, or no restraints are given.
  std::optional<double> restrained_phi_b = std::nullopt;
};

/// An element as the questions take it.
struct Subject {
  ALU_DGN_DATA data;                     ///< as the module assembled it
  std::optional<ALU_DGN_DATA> mirrored;  ///< upside down, where that is another section
  bool is_unsymmetric = false;           ///< the checks take top and bottom apart
  bool is_slender = false;               ///< a plate is over its limit in compression alone
  bool is_welded_slender_h = false;      ///< W3: its bottom flange counts in full for My <= 0
  bool is_reduced_unequal_box = false;   ///< F4: the top fibre stands for both
  ElementFacts facts;

  Subject(Engine& engine, const ALU_DGN_DATA& of, const ElementFacts& known);
};

/// Lateral-torsional stress k·My/(φb·W) of a moment of 1 N·mm.
struct LateralUnit {
  double code = 0.0;  ///< as the checks have it; not finite where they have none
  double free_ends =
      0.0;            ///< of the flange that is compressed, with the ends as the checks take them
  double safe = 0.0;  ///< the largest of what the questions give
  RuleSet rules;      ///< what makes the difference
};

/// Stresses of unit forces, asked once an element: whatever is linear in the forces then costs a
/// product a position. All with the factor k = 1 on the forces.
struct UnitStresses {
  bool formed = false;  ///< the checks can form the section's parameters in bending
  double f = 0.0, fv = 0.0;
  double axial = 0.0;                   ///< strength, of N, per N
  std::array<double, 2> bending_y{};    ///< strength, of My > 0 and My < 0, per N·mm
  double bending_z = 0.0;               ///< strength, of Mz, per N·mm
  double shear_y = 0.0, shear_z = 0.0;  ///< per N
  double torsion = 0.0;                 ///< per N·mm of Mx
  /// [inner section, end section of the member][My > 0, My < 0].
  std::array<std::array<LateralUnit, 2>, 2> lateral{};
  double euler = 0.0;  ///< the smaller N_E', N; 0 without one
};

UnitStresses unit_stresses(Engine& engine, const Subject& subject);

/// The design input with k = 1 on the forces.
ALU_DGN_DATA without_force_factors(const ALU_DGN_DATA& data);

}  // namespace aluframe::second_opinion
