#pragma once

#include <string>
#include <vector>

#include "aluframe/model/material.h"
#include "aluframe/model/settings.h"

// What settings and materials must meet before they are stored from a command: the rules of the
// settings dialogs, and the bounds of a model file.

namespace aluframe::services {

/// A value that cannot be stored.
struct BrokenRule {
  std::string field;  ///< name in model files, such as "gamma_re_strength"
  std::string text;   ///< "found 0, must be between 1e-06 and 1e+30"
};

/// In the order of the fields. Ratios and factors are 1e-6 to 1e30, also where a switch leaves them
/// unused; the safety class is 1, 2 or 3.
std::vector<BrokenRule> broken_rules(const model::DesignSettings& settings);

/// In the order of the fields. E, strengths (N/mm²) and Poisson's ratio are above 0 and at most
/// 1e30, values of the user have a name or a grade to be known by, and a name is one line of plain
/// text. Neither a Poisson's ratio above 0.5 nor a proof strength above the ultimate one is a fault
/// here.
std::vector<BrokenRule> broken_rules(const model::Material& material);

}  // namespace aluframe::services
