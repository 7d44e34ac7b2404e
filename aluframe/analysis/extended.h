#pragma once

namespace aluframe::analysis {

/// A number of 32 digits: the sum of two doubles, the second of which is below the last digit of
/// the first. It is made of additions and multiplications of doubles alone (Dekker, "A
/// floating-point technique for extending the available precision", Numer. Math. 18, 1971), so it
/// is the same on every machine: wider types and fused multiplications are not. Beyond 1e290, where
/// halves of a number overflow, it is not a number.
///
///     const Extended difference = Extended(end_displacement) - Extended(start_displacement);
///     const double force = (difference * stiffness).value();
struct Extended {
  double high = 0.0, low = 0.0;

  Extended() = default;
  explicit Extended(double value) : high(value) {}
  Extended(double first, double second) : high(first), low(second) {}

  double value() const { return high + low; }
};

/// a + b without rounding.
inline Extended exact_sum(double a, double b) {
  const double sum = a + b, of_b = sum - a;
  return {sum, (a - (sum - of_b)) + (b - of_b)};
}

/// Upper and lower half of the digits of a.
inline Extended halves(double a) {
  const double shifted = 134217729.0 * a;  // 2^27 + 1
  const double upper = shifted - (shifted - a);
  return {upper, a - upper};
}

/// a * b without rounding.
inline Extended exact_product(double a, double b) {
  const double product = a * b;
  const auto [a1, a2] = halves(a);
  const auto [b1, b2] = halves(b);
  return {product, ((a1 * b1 - product) + a1 * b2 + a2 * b1) + a2 * b2};
}

inline Extended operator-(const Extended& a) {
  return {-a.high, -a.low};
}

inline Extended operator+(const Extended& a, const Extended& b) {
  const Extended highs = exact_sum(a.high, b.high), lows = exact_sum(a.low, b.low);
  const Extended sum = exact_sum(highs.high, highs.low + lows.high);
  return exact_sum(sum.high, sum.low + lows.low);
}

inline Extended operator-(const Extended& a, const Extended& b) {
  return a + -b;
}

inline Extended operator*(const Extended& a, const Extended& b) {
  const Extended highs = exact_product(a.high, b.high);
  return exact_sum(highs.high, highs.low + (a.high * b.low + a.low * b.high));
}

inline Extended operator*(const Extended& a, double b) {
  return a * Extended(b);
}

inline Extended operator/(const Extended& a, double b) {
  const double first = a.high / b;
  const Extended rest = a - exact_product(first, b);
  return exact_sum(first, rest.value() / b);
}

inline Extended& operator+=(Extended& a, const Extended& b) {
  return a = a + b;
}

}  // namespace aluframe::analysis
