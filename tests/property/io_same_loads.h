#pragma once

#include "aluframe/model/model.h"

/// Comparison of loads and supports that went through a file of any units.
namespace aluframe::io {

/// Two units in the last place, relative: dividing by a unit's factor and multiplying again rounds
/// twice, each time by half a unit.
void require_close(double expected, double actual);

/// Values with units are close, and all else is equal.
void require_equal(model::Support expected, const model::Support& actual);
void require_equal(model::LoadCase expected, model::LoadCase actual);

}  // namespace aluframe::io
