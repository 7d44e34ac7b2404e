#include "aluframe/explain/number_text.h"

#include <fmt/format.h>

#include <algorithm>
#include <charconv>
#include <cmath>

#include "aluframe/elementary/functions.h"

namespace aluframe::explain {

namespace {

constexpr double least_plain = 1e-4;
constexpr double least_scientific = 1e7;

std::string without_end_zeros(std::string text) {
  if (text.find('.') == std::string::npos) return text;
  text.erase(text.find_last_not_of('0') + 1);
  if (text.back() == '.') text.pop_back();
  return text;
}

/// "1.2345e+07" as "1.2345e7".
std::string scientific(const std::string& text) {
  const std::size_t e = text.find('e');
  return fmt::format("{}e{}", without_end_zeros(text.substr(0, e)), std::stoi(text.substr(e + 1)));
}

}  // namespace

std::string number_text(double value, int digits) {
  if (std::isnan(value)) return "nan";  // of either sign
  if (std::isinf(value)) return value < 0.0 ? "-inf" : "inf";
  if (value == 0.0) return "0";
  const double size = std::fabs(value);
  if (size < least_plain || size >= least_scientific) {
    return scientific(fmt::format("{:.{}e}", value, digits - 1));
  }
  const int decimals = digits - 1 - elementary::exponent_of_ten(size);
  return without_end_zeros(fmt::format("{:.{}f}", value, std::max(decimals, 0)));
}

double number_of(const std::string& text) {
  double value = 0.0;
  std::from_chars(text.data(), text.data() + text.size(), value);
  return value;
}

std::string exact_text(double value) {
  constexpr int enough = 17;
  for (int digits = 1; digits < enough; ++digits) {
    std::string text = number_text(value, digits);
    if (!std::isfinite(value) || number_of(text) == value) return text;
  }
  return number_text(value, enough);
}

}  // namespace aluframe::explain
