#pragma once

#include "aluframe/analysis/case_recovery.h"
#include "aluframe/analysis/fixed_end_table.h"

namespace aluframe::analysis {

/// Recovers the forces of every element in every case from the displacements.
/// @param loads of the cases, in the order of the recoveries
void recover_linear(const Frame& frame, std::span<const Geometry> geometry,
                    std::span<const LoadsByElement> loads, const FixedEndTable& fixed_end,
                    std::span<CaseRecovery> recoveries);

/// Magnitude of what the end forces, k·u plus fixed-end forces, are sums of, which their rounding
/// goes by: shear forces and moments count for each other through the length.
/// @param own norms of k(i,i)·u(i)
/// @param fixed_end norms of the fixed-end forces without releases
Norms magnitude_of(const EndForceNorms& own, const EndForceNorms& fixed_end, double length);

}  // namespace aluframe::analysis
