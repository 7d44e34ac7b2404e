#include <cmath>
#include <limits>

#include "aluframe/elementary/double_double.h"
#include "aluframe/elementary/functions.h"

namespace aluframe::elementary {

namespace {

/// ln 2 in three pieces.
constexpr double ln_2[] = {0x1.62e42fefa39efp-1, 0x1.abc9e3b39803fp-56, 0x1.7b57a079a1934p-111};

/// A number of twice the digits times a power of two.
struct Scaled {
  DoubleDouble value;
  int exponent;
};

/// e^x. The rest of x by ln 2 is halved eight times, so that few terms of the series do.
Scaled exponential(DoubleDouble x) {
  constexpr int halvings = 8, terms = 10;
  const double twos = std::floor(x.high / ln_2[0] + 0.5);
  for (const double piece : ln_2) x = x - product(twos, piece);
  x = {std::ldexp(x.high, -halvings), std::ldexp(x.low, -halvings)};
  DoubleDouble value{1.0, 0.0};
  for (int i = terms; i > 0; --i) value = DoubleDouble{1.0, 0.0} + x * value / i;
  for (int i = 0; i < halvings; ++i) value = value * value;
  return {value, static_cast<int>(twos)};
}

/// The library's logarithm with one step of Newton's method, by a power of e of twice the digits.
DoubleDouble logarithm(double x) {
  const double near = std::log(x);
  const Scaled inverse = exponential({-near, 0.0});
  // The number in two factors, as its power of two may lie far from the other's.
  int exponent = 0;
  const double fraction = std::frexp(x, &exponent);
  const DoubleDouble one = DoubleDouble{fraction, 0.0} * inverse.value;
  const int twos = exponent + inverse.exponent;
  const DoubleDouble step =
      DoubleDouble{std::ldexp(one.high, twos), std::ldexp(one.low, twos)} - DoubleDouble{1.0, 0.0};
  const double square = step.high * step.high;
  return DoubleDouble{near, 0.0} + (step - DoubleDouble{0.5 * square, 0.0});
}

}  // namespace

double power(double base, double exponent) {
  const bool is_usual = base > 0.0 && std::isfinite(base) && std::isfinite(exponent);
  if (!is_usual || base == 1.0 || exponent == 0.0) return std::pow(base, exponent);
  // Beyond any number there is: more would overflow on the way.
  constexpr double largest = 800.0;
  const DoubleDouble log = logarithm(base);
  const double size = log.high * exponent;
  if (size > largest) return std::numeric_limits<double>::infinity();
  if (size < -largest) return 0.0;
  const Scaled value = exponential(log * DoubleDouble{exponent, 0.0});
  return std::ldexp(value.value.high, value.exponent);
}

}  // namespace aluframe::elementary
