#include <cmath>
#include <numbers>

#include "aluframe/elementary/double_double.h"
#include "aluframe/elementary/functions.h"

namespace aluframe::elementary {

namespace {

/// π/2 in three pieces.
constexpr double half_pi[] = {0x1.921fb54442d18p0, 0x1.1a62633145c07p-54, -0x1.f1976b7ed8fbcp-110};

/// Angles beyond are taken modulo a rounded 2π first: the same everywhere, if not exact.
constexpr double largest_angle = 0x1p20;

/// Terms of a series, of which the next is below the last digit of twice the usual number.
int terms_for(double angle) {
  const double size = std::abs(angle);
  return size < 0x1p-10 ? 5 : size < 0x1p-4 ? 9 : 14;
}

/// An angle less so many quarters of a turn, up to π/4.
struct Reduced {
  DoubleDouble rest;
  int quarters;  ///< modulo 4
};

Reduced reduce(double angle) {
  if (std::abs(angle) > largest_angle) angle = std::remainder(angle, 2.0 * std::numbers::pi);
  const double quarters = std::floor(angle / half_pi[0] + 0.5);
  DoubleDouble rest{angle, 0.0};
  for (const double piece : half_pi) rest = rest - product(quarters, piece);
  return {rest, static_cast<int>(quarters) & 3};
}

/// 1 − z/(a(a+1))·(1 − z/((a+2)(a+3))·(…)), z being the square of an angle.
DoubleDouble series(DoubleDouble square, int first, int terms) {
  DoubleDouble value{1.0, 0.0};
  for (int i = terms - 1; i >= 0; --i) {
    const double a = first + 2 * i;
    value = DoubleDouble{1.0, 0.0} - square * value / (a * (a + 1.0));
  }
  return value;
}

/// Of so many quarters of a turn and a rest: the sine; the cosine is one of a quarter more.
DoubleDouble sine_of(const Reduced& angle, int more_quarters) {
  const DoubleDouble square = angle.rest * angle.rest;
  const int quarters = (angle.quarters + more_quarters) & 3;
  const bool is_odd = (quarters & 1) != 0;
  const int terms = terms_for(angle.rest.high);
  const DoubleDouble value =
      is_odd ? series(square, 1, terms) : angle.rest * series(square, 2, terms);
  return quarters < 2 ? value : -value;
}

}  // namespace

double sine(double angle) {
  if (angle == 0.0) return angle;
  if (!std::isfinite(angle)) return angle - angle;
  return sine_of(reduce(angle), 0).high;
}

double cosine(double angle) {
  if (!std::isfinite(angle)) return angle - angle;
  return sine_of(reduce(angle), 1).high;
}

// The library's angle with one step of Newton's method, by a sine of twice the digits.
double angle_of_sine(double sine) {
  const double near = std::asin(sine);
  if (sine == 0.0 || !(std::abs(sine) < 1.0)) return near;
  const Reduced reduced = reduce(near);
  const DoubleDouble rest = DoubleDouble{sine, 0.0} - sine_of(reduced, 0);
  return near + (rest.high + rest.low) / sine_of(reduced, 1).high;
}

double angle_of(double y, double x) {
  const double near = std::atan2(y, x);
  if (x == 0.0 || y == 0.0 || !std::isfinite(x) || !std::isfinite(y)) return near;
  int exponent = 0;
  std::frexp(std::fmax(std::abs(x), std::abs(y)), &exponent);
  x = std::ldexp(x, -exponent);
  y = std::ldexp(y, -exponent);
  const Reduced reduced = reduce(near);
  const DoubleDouble s = sine_of(reduced, 0), c = sine_of(reduced, 1);
  const DoubleDouble rest = DoubleDouble{y, 0.0} * c - DoubleDouble{x, 0.0} * s;
  return near + (rest.high + rest.low) / (x * c.high + y * s.high);
}

}  // namespace aluframe::elementary
