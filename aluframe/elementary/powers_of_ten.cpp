#include <charconv>
#include <cmath>
#include <limits>
#include <string>

#include "aluframe/elementary/functions.h"

namespace aluframe::elementary {

// What numbers are written as is exact: the library's pow is not.
double power_of_ten(int exponent) {
  const std::string text = "1e" + std::to_string(exponent);
  double power = 0.0;
  const auto read = std::from_chars(text.data(), text.data() + text.size(), power);
  if (read.ec != std::errc::result_out_of_range) return power;
  return exponent > 0 ? std::numeric_limits<double>::infinity() : 0.0;
}

int exponent_of_ten(double value) {
  int exponent = static_cast<int>(std::floor(std::log10(value)));
  if (power_of_ten(exponent) > value) --exponent;
  if (power_of_ten(exponent + 1) <= value) ++exponent;
  return exponent;
}

}  // namespace aluframe::elementary
