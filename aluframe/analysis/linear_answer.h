#pragma once

#include "aluframe/analysis/case_recovery.h"
#include "aluframe/analysis/clamped_elements.h"

namespace aluframe::analysis {

/// Hands every element's answer to the recovery of every case.
/// @param loads of the cases, in the order of the recoveries
void recover_linear(const Frame& frame, std::span<const Geometry> geometry,
                    std::span<const LoadsByElement> loads, const ClampedElements& clamped,
                    std::span<CaseRecovery> recoveries);

/// Size of what the end forces k·u + clamped are sums of, which their rounding goes by: shear
/// forces and moments count for each other through the length.
/// @param own sizes of k(i,i)·u(i)
/// @param clamped sizes of the clamped end forces without releases
Norms magnitude_of(const EndSizes& own, const EndSizes& clamped, double length);

}  // namespace aluframe::analysis
