#pragma once

#include "aluframe/second_opinion/axial_coefficients.h"
#include "aluframe/second_opinion/unit_stresses.h"

namespace aluframe::second_opinion {

/// Below it the engine takes a force for zero.
inline constexpr double zero_force = 1e-10;
/// A moment that the engine takes for positive and that stresses nothing, N·mm.
inline constexpr double tiny_moment = 1e-6;
/// A ratio that differs by less is the same one, computed another way.
inline constexpr double same = 1e-9;

/// An element with what is asked about it once, before any forces: every question starts from it.
struct AskedElement {
  Engine& engine;
  Subject subject;
  UnitStresses units;
  AxialCoefficients axial;
  double area = 0.0;
  /// Forces below which they are noise of an analysis: 1e-6 of what the section carries of each
  /// alone, N and N·mm.
  double axial_noise = 0.0, my_noise = 0.0, mz_noise = 0.0;

  AskedElement(Engine& asked, const ALU_DGN_DATA& data, const ElementFacts& facts);

  /// k of strength and shear checks: γ0, or γRE in a seismic combination.
  double strength_factor(const AluDgnSectForce& force) const;
  /// k of stability checks, by the same rule.
  double stability_factor(const AluDgnSectForce& force) const;
};

bool is_bent(const AluDgnSectForce& force);

/// One position's forces with what the questions make of them.
struct Position {
  const AluDgnSectForce& force;
  double n, my, mz;
  double k_strength, k_stability;
  bool is_tension, is_compression, is_bent;
  bool is_end;

  std::size_t sign() const { return my < 0.0 ? 1 : 0; }
};

/// `force` must outlive what is returned.
Position position_of(const AskedElement& element, const AluDgnSectForce& force);

/// The stresses of a moment My of this sign at such a section.
const LateralUnit& lateral_unit(const AskedElement& element, const Position& at);

/// A check item's ratio.
double ratio_of(const T_RALU_RLT& item);

}  // namespace aluframe::second_opinion
