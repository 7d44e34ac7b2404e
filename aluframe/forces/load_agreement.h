#pragma once

#include <span>

#include "aluframe/forces/span_changes.h"

namespace aluframe::forces {

/// Whether the forces of an element in a load case follow by statics from those at its start and
/// the loads between its ends, at every position that they are given for. Without changes: whether
/// they are in equilibrium without any load between the ends.
///
/// Numbers typed with three digits are within half a per cent of what they stand for; what is below
/// a millionth of the largest force is left over from another program's arithmetic.
bool follow_from_loads(const model::CaseForces& forces, std::span<const SpanChange> changes,
                       double length);

}  // namespace aluframe::forces
