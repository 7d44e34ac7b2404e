#pragma once

#include <array>

namespace aluframe::forces {

/// Weights of a sum of N, My and Mz, such as a stress: 1/A, 1/Wy and 1/Wz.
struct Weights {
  double n = 0.0, my = 0.0, mz = 0.0;
};

/// Signs that My and Mz take in the sums of one set of weights.
inline constexpr std::array<std::array<double, 2>, 4> sign_pairs{
    {{1.0, 1.0}, {1.0, -1.0}, {-1.0, 1.0}, {-1.0, -1.0}}};

}  // namespace aluframe::forces
