#include "aluframe/members/chart_equations.h"

#include <cmath>
#include <numbers>

#include "aluframe/elementary/functions.h"

namespace aluframe::members {

namespace {

constexpr double pi = std::numbers::pi;

/// Where a function that is negative at one end of an interval and not at the other changes its
/// sign. Halved until the interval is below the precision of a double.
template <class Function>
double sign_change(Function function, double negative, double positive) {
  constexpr int halvings = 60;
  for (int i = 0; i < halvings; ++i) {
    const double middle = 0.5 * (negative + positive);
    (function(middle) < 0.0 ? negative : positive) = middle;
  }
  return 0.5 * (negative + positive);
}

/// The coefficients of an equation in GA·GB, GA + GB and 1, all divided by (1 + GA)·(1 + GB), so
/// that they stay finite at hinges.
struct Weights {
  double product, sum, one;
};

Weights weights(double ga, double gb) {
  const auto share = [](double g) { return std::isinf(g) ? 1.0 : g / (1.0 + g); };
  const auto rest = [](double g) { return 1.0 / (1.0 + g); };
  return {.product = share(ga) * share(gb),
          .sum = share(ga) * rest(gb) + share(gb) * rest(ga),
          .one = rest(ga) * rest(gb)};
}

}  // namespace

double non_sway_factor(double ga, double gb) {
  const Weights w = weights(ga, gb);
  if (w.sum == 0.0) return w.product > 0.0 ? 1.0 : 0.5;
  // Times sin u, which takes the poles of the tangents out: tan(u/2)·sin u = 1 − cos u.
  const auto equation = [&w](double u) {
    const double sine = elementary::sine(u);
    const double cosine = elementary::cosine(u);
    return w.product * u * u * sine / 4.0 + w.sum * (sine - u * cosine) / 2.0 +
           w.one * (2.0 * (1.0 - cosine) / u - sine);
  };
  return pi / sign_change(equation, 2.0 * pi, pi);
}

double sway_factor(double ga, double gb) {
  const Weights w = weights(ga, gb);
  // Times 6·(GA + GB)·sin u / u, which takes out the pole at π and the root at 0.
  const auto equation = [&w](double u) {
    return (w.product * u * u - 36.0 * w.one) * elementary::sine(u) / u -
           6.0 * w.sum * elementary::cosine(u);
  };
  const double lowest = pi / largest_factor;
  if (equation(lowest) >= 0.0) return largest_factor;
  if (w.sum == 0.0) return 1.0;
  return pi / sign_change(equation, lowest, pi);
}

}  // namespace aluframe::members
