#pragma once

#include <array>
#include <optional>

#include "aluframe/model/model.h"

namespace aluframe::model {

/// Direction in global coordinates that the element's orientation gives: its vector, or from the
/// element's start to its node, mm. Nothing without an orientation. All nodes must exist.
std::optional<std::array<double, 3>> reference_direction(const Model& model,
                                                         const Element& element);

/// Sine of the angle between the element's axis and the direction: 0 when the direction is parallel
/// to the axis or has no length. The element's nodes must exist and lie apart.
double sine_to_axis(const Model& model, const Element& element,
                    const std::array<double, 3>& direction);

}  // namespace aluframe::model
