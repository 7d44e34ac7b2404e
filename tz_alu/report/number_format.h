#pragma once

#include <string>

// How the calculation report prints numbers.

namespace alu_report {

/// Formats a value as the report's tables need it: right-aligned in `width` characters, wider when
/// it does not fit, with the digits that C's printf prints in the C locale, whatever the user's
/// locale.
///
/// With decimals (`precision` > 0): fixed notation, but exponent notation from 10^(width −
/// precision − 1) on and below 10^−precision. Without: a whole number, cut toward zero, but
/// exponent notation from 10^width on and below 1. What is below 1e-21 counts as zero and is never
/// printed with an exponent. Without decimals, a number beyond 32 bits and one that is undefined
/// print as the smallest 32-bit number; an infinite value always prints as "inf".
std::wstring FormatValue(double value, unsigned precision, unsigned width);

/// `name` right-aligned in `width` characters; a longer one is not cut.
std::wstring PadLeft(const std::wstring& name, std::size_t width);

/// A whole number in plain digits, whatever the user's locale.
std::wstring FormatInteger(long long value, std::size_t width = 0);

/// A value in at most six digits, as printf's "%g".
std::wstring FormatGeneral(double value);

/// A value with a number of decimals, as printf's "%.3f".
std::wstring FormatFixed(double value, int decimals);

}  // namespace alu_report
