#pragma once

#include "aluframe/picture/content.h"
#include "aluframe/run/input.h"

namespace aluframe::run {

/// The frame as a load case displaces it by linear analysis: every element as its nodes move its
/// ends and its loads, shear and temperature deform it between them (analysis::DisplacedElement).
Result<std::vector<picture::DisplacedLine>> displaced_lines(const Input& input,
                                                            model::Number load_case);

}  // namespace aluframe::run
