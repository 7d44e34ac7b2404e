#pragma once

#include <string>
#include <vector>

namespace aluframe::document {

/// How many of the ratios lie in each tenth up to 1, and above, as SVG with the threshold at 1.
std::string histogram_of(const std::vector<double>& ratios);

}  // namespace aluframe::document
