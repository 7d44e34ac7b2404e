#include <cmath>

#include "host/zel_lib/zel_lib.h"

double zel::lib::MMath::Round(double value, int decimals) {
  // From 2^52 on every double is a whole number.
  if (decimals == 0 || std::fabs(value) >= 0x1p52) return std::round(value);
  const double scale = std::pow(10.0, decimals);
  return std::round(value * scale) / scale;
}
