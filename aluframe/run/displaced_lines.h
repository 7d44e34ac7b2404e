#pragma once

#include "aluframe/picture/content.h"
#include "aluframe/run/input.h"

namespace aluframe::run {

/// The frame as a load case displaces it by linear analysis: nodes as they move, and between them
/// the deflection that the forces of each element bend it to, its shear and temperature included.
Result<std::vector<picture::DisplacedLine>> displaced_lines(const Input& input,
                                                            model::Number load_case);

}  // namespace aluframe::run
