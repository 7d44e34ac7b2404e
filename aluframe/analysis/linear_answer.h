#pragma once

#include "aluframe/analysis/case_recovery.h"

namespace aluframe::analysis {

/// Hands every element's answer to the recovery of every case; `loads` and `recoveries` stand in
/// the order of the cases.
void recover_linear(const Frame& frame, std::span<const Geometry> geometry,
                    std::span<const LoadsByElement> loads, std::span<CaseRecovery> recoveries);

/// Size of what the end forces k·u + clamped are sums of, which their rounding goes by: shear
/// forces and moments count for each other through the length.
/// @param clamped end forces without releases
Norms magnitude_of(const ElementStiffness& k, const Vector12& u, const Vector12& clamped,
                   double length);

}  // namespace aluframe::analysis
