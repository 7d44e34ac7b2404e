#pragma once

#include <string>

namespace aluframe::explain {

/// Significant digits of a result.
inline constexpr int result_digits = 6;

/// A number with so many significant digits, without zeros at its end: "0.735", "-51234.5",
/// "1.23457e7". The whole part of a number below 10 million is never cut. "inf", "-inf", "nan".
std::string number_text(double value, int digits);

/// The number that such a text stands for, whatever the locale.
double number_of(const std::string& text);

/// The shortest text that stands for this very number.
std::string exact_text(double value);

}  // namespace aluframe::explain
