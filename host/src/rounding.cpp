#include <charconv>
#include <cmath>
#include <string>

#include "host/zel_lib/zel_lib.h"

namespace {

// Read from its digits: what functions of libraries give for it differs in the last one.
double PowerOfTen(int exponent) {
  const std::string text = "1e" + std::to_string(exponent);
  double power = 0.0;
  std::from_chars(text.data(), text.data() + text.size(), power);
  return power;
}

}  // namespace

double zel::lib::MMath::Round(double value, int decimals) {
  // From 2^52 on every double is a whole number.
  if (decimals == 0 || std::fabs(value) >= 0x1p52) return std::round(value);
  const double scale = PowerOfTen(decimals);
  return std::round(value * scale) / scale;
}
