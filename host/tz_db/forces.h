#pragma once

#include <array>

#include "host/framework/types.h"

inline constexpr int kCheckPositions = 5;

/// Internal forces of one element for one load combination, in single precision, in the host's
/// current units. N > 0 is tension.
struct T_ALU_FORCE_D {
  /// Per position (0 start .. 4 end, at quarters of the length): N, Fy, Fz, Mx, My, Mz and three
  /// values that aluminium design does not read.
  std::array<std::array<float, 9>, kCheckPositions> aForce{};
  UINT nLComb = 0;  ///< combination key
  int bInner = 0;   ///< nonzero when positions 1, 2 and 3 carry forces
  int nReserved = 0;
};
