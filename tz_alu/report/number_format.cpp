#include "tz_alu/report/number_format.h"

#include <charconv>
#include <cmath>
#include <cstdint>
#include <limits>
#include <string>

namespace alu_report {

namespace {

// Below it a value is taken for zero: 1e-7 cubed.
constexpr double kZero = 1e-7 * 1e-7 * 1e-7;

// The integer part of a double has at most 309 digits; sign, point and exponent are more than
// enough covered by the rest.
constexpr std::size_t kLongestInteger = 330;

// Read from its digits: what functions of libraries give for it differs in the last one.
double PowerOfTen(int exponent) {
  const std::string text = "1e" + std::to_string(exponent);
  double power = 0.0;
  std::from_chars(text.data(), text.data() + text.size(), power);
  return power;
}

bool NeedsExponent(double magnitude, unsigned precision, unsigned width) {
  if (magnitude < kZero) return false;
  const int p = static_cast<int>(precision);
  const int w = static_cast<int>(width);
  if (p == 0) return magnitude >= PowerOfTen(w) || magnitude < 1.0;
  return magnitude >= PowerOfTen(w - p - 1) || magnitude < PowerOfTen(-p);
}

std::wstring Digits(double value, std::chars_format format, int decimals) {
  std::string text(kLongestInteger + static_cast<std::size_t>(decimals), '\0');
  const auto end = std::to_chars(text.data(), text.data() + text.size(), value, format, decimals);
  text.resize(static_cast<std::size_t>(end.ptr - text.data()));
  return {text.begin(), text.end()};
}

// Cut toward zero; what 32 bits cannot hold becomes the smallest number, as the conversion of the
// processors that the module was made for leaves it.
std::int32_t Truncated(double value) {
  constexpr double kBound = 2147483648.0;
  const bool fits = value > -kBound - 1.0 && value < kBound;
  return fits ? static_cast<std::int32_t>(value) : std::numeric_limits<std::int32_t>::min();
}

}  // namespace

std::wstring FormatValue(double value, unsigned precision, unsigned width) {
  const bool exponent = NeedsExponent(std::fabs(value), precision, width);
  if (precision == 0 && !exponent) return FormatInteger(Truncated(value), width);
  const auto format = exponent ? std::chars_format::scientific : std::chars_format::fixed;
  return PadLeft(Digits(value, format, static_cast<int>(precision)), width);
}

std::wstring PadLeft(const std::wstring& name, std::size_t width) {
  if (name.size() >= width) return name;
  return std::wstring(width - name.size(), L' ') + name;
}

std::wstring FormatInteger(long long value, std::size_t width) {
  return PadLeft(std::to_wstring(value), width);
}

std::wstring FormatGeneral(double value) {
  constexpr int kDigits = 6;
  return Digits(value, std::chars_format::general, kDigits);
}

std::wstring FormatFixed(double value, int decimals) {
  return Digits(value, std::chars_format::fixed, decimals);
}

}  // namespace alu_report
