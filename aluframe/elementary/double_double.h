#pragma once

namespace aluframe::elementary {

/// A number as the sum of two doubles, of which `low` is at most half a unit in the last place of
/// `high`: some 32 decimal digits. Sums and products of doubles are exact this way (T. J. Dekker,
/// "A floating-point technique for extending the available precision", Numerische Mathematik 18,
/// 1971; D. E. Knuth, The Art of Computer Programming 2, 4.2.2).
struct DoubleDouble {
  double high = 0.0, low = 0.0;
};

inline DoubleDouble sum(double a, double b) {
  const double rounded = a + b, part = rounded - a;
  return {rounded, (a - (rounded - part)) + (b - part)};
}

/// The first of a double's halves, of 26 bits. Below 2^996.
inline double upper_half(double a) {
  constexpr double splitter = 0x1p27 + 1.0;
  const double scaled = splitter * a;
  return scaled - (scaled - a);
}

inline DoubleDouble product(double a, double b) {
  const double rounded = a * b;
  const double a1 = upper_half(a), a2 = a - a1, b1 = upper_half(b), b2 = b - b1;
  return {rounded, ((a1 * b1 - rounded) + a1 * b2 + a2 * b1) + a2 * b2};
}

inline DoubleDouble operator+(DoubleDouble a, DoubleDouble b) {
  const DoubleDouble high = sum(a.high, b.high), low = sum(a.low, b.low);
  const DoubleDouble first = sum(high.high, high.low + low.high);
  return sum(first.high, first.low + low.low);
}

inline DoubleDouble operator-(DoubleDouble a) {
  return {-a.high, -a.low};
}

inline DoubleDouble operator-(DoubleDouble a, DoubleDouble b) {
  return a + -b;
}

inline DoubleDouble operator*(DoubleDouble a, DoubleDouble b) {
  const DoubleDouble high = product(a.high, b.high);
  return sum(high.high, high.low + (a.high * b.low + a.low * b.high));
}

inline DoubleDouble operator/(DoubleDouble a, double b) {
  const double quotient = a.high / b;
  const DoubleDouble rest = a - product(quotient, b);
  return sum(quotient, (rest.high + rest.low) / b);
}

}  // namespace aluframe::elementary
