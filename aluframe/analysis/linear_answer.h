#pragma once

#include "aluframe/analysis/case_recovery.h"

namespace aluframe::analysis {

/// Hands every element's answer to the recovery of every case; `loads` and `recoveries` stand in
/// the order of the cases.
void recover_linear(const Frame& frame, std::span<const Geometry> geometry,
                    std::span<const LoadsByElement> loads, std::span<CaseRecovery> recoveries);

/// Sums of the absolute values that k·u + clamped is made of, before and after condensation; the
/// moments' not less than the shear forces' times the length.
/// @param clamped end forces without releases
Vector12 magnitudes_of(const ElementStiffness& k, const Vector12& u, const Vector12& clamped,
                       double length);

}  // namespace aluframe::analysis
