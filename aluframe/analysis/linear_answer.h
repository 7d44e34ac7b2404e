#pragma once

#include "aluframe/analysis/case_recovery.h"
#include "aluframe/analysis/clamped_elements.h"

namespace aluframe::analysis {

/// Several cases in the same order: their loads, what these exert on clamped elements, and what
/// collects the answers.
struct LoadedCases {
  std::span<const LoadsByElement> loads;
  std::span<const ClampedElements> clamped;
  std::span<CaseRecovery> recoveries;

  /// Those from `first` on, `most` of them or fewer at the end.
  LoadedCases part(std::size_t first, std::size_t most) const;
};

/// Hands every element's answer to the recovery of every case.
void recover_linear(const Frame& frame, std::span<const Geometry> geometry,
                    const LoadedCases& cases);

/// Size of what the end forces k·u + clamped are sums of, which their rounding goes by: shear
/// forces and moments count for each other through the length.
/// @param own sizes of k(i,i)·u(i) and of the clamped end forces without releases, added up
template <class Sizes>
Norms magnitude_of(const Sizes& own, double length) {
  const double axial = std::max(own[0], own[6]);
  const double shear = std::max({own[1], own[2], own[7], own[8]});
  const double moment = std::max({own[3], own[4], own[5], own[9], own[10], own[11]});
  return {std::max({axial, shear, moment / length}), std::max(moment, shear * length)};
}

}  // namespace aluframe::analysis
