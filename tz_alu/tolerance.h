#pragma once

#include <cmath>

namespace alu_engine {

/// Below this magnitude a force, moment, length or property counts as zero, whatever its unit.
inline constexpr double kTolerance = 1e-10;

/// |x| < 1e-10. False for a value that is not a number, which therefore travels on into the results
/// instead of being taken for zero.
inline bool IsZero(double x) {
  return std::fabs(x) < kTolerance;
}

/// The greater of two values. Not a number when either of them is not, unlike std::max: a broken
/// input must show in the result.
inline double GreaterOf(double a, double b) {
  return a > b || std::isnan(a) ? a : b;
}

}  // namespace alu_engine
