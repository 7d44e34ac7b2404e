#pragma once

#include <Eigen/SparseCore>

#include <vector>

#include "aluframe/restraints/lateral.h"
#include "aluframe/restraints/lateral_segments.h"

// Lateral-torsional buckling of a whole member with what holds it here and there: the elastic
// buckling load of the moments that it has, as a bound on what its pieces promise. N, mm.
//
// The second variation of the energy of a thin-walled member of constant cross-section pieces
// (N. S. Trahair, Flexural-Torsional Buckling of Structures, 1993, chapter 2), with u the sideways
// displacement of the shear centre and φ the twist:
//
//   ½∫(E·Izz·u''² + E·Iω·φ''² + G·It·φ'²) + λ·(∫My·u''·φ + ∫βy·My·φ'² − ½ΣP·h·φ²),
//
// by cubic elements. Loads P, which are found from the moments, act at the flange where they make
// the member buckle sooner: h is its distance from the shear centre.

namespace aluframe::restraints {

/// One element of a member. Its moments stand at the places where they are known; between two of
/// them they are taken as straight.
struct BucklingPart {
  ElementMoments moments;
  LateralSection section;
};

/// What holds a member at a place of it.
struct LateralHold {
  double at = 0.0;        ///< mm from the member's start
  bool sideways = false;  ///< of the shear centre
  bool twist = false;
  bool rotation = false;             ///< about the section's z
  bool top = false, bottom = false;  ///< flanges, sideways
};

/// A bent member that may buckle sideways.
class MemberBuckling {
 public:
  /// @param parts in the order of the member, at least one
  MemberBuckling(const std::vector<BucklingPart>& parts, const std::vector<LateralHold>& holds);

  /// Whether the member is stable under `factor` times its moments.
  bool is_stable(double factor) const;

  /// The smallest critical factor of the moments where it is below `bound`, within a thousandth
  /// and never above it; else `bound`. 0 for a member that is a mechanism.
  double factor_below(double bound) const;

 private:
  using Matrix = Eigen::SparseMatrix<double>;

  bool is_held_;  ///< it cannot move without deforming
  Matrix elastic_, geometric_;
};

}  // namespace aluframe::restraints
