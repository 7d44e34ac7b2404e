#pragma once

#include <string>

#include "aluframe/model/model.h"

namespace aluframe::run {

/// The imperfections of a model in words, lengths in its unit: "sway 0.005 rad along X and Y, bow
/// L/250 about y and z, first buckling mode to 0.02 m"; empty without any.
std::string imperfections_text(const model::Model& model);

}  // namespace aluframe::run
