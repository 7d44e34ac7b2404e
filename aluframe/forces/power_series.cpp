#include "aluframe/forces/power_series.h"

namespace aluframe::forces {

namespace {

/// Whether the first power outgrows all others together as far as `length`.
bool is_monotone(const Series& series, double length) {
  double others = 0.0, power = 1.0;
  for (std::size_t k = 2; k < series.size(); ++k) {
    power *= length;
    others += static_cast<double>(k) * std::abs(series[k]) * power;
  }
  return std::abs(series[1]) >= others;
}

/// @param low, high places with values of different sign
double bisect(const Series& series, double low, double high) {
  const bool rises = value_of(series, high) > 0.0;
  // Beyond 50 halvings doubles have no place between.
  for (int i = 0; i < 50; ++i) {
    const double middle = (low + high) / 2.0;
    ((value_of(series, middle) > 0.0) == rises ? high : low) = middle;
  }
  return (low + high) / 2.0;
}

}  // namespace

SignChanges sign_changes_of(const Series& series, double length) {
  SignChanges turns;
  if (!is_monotone(series, length)) turns = sign_changes_of(derivative_of(series), length);
  turns.at[turns.count++] = length;
  SignChanges out;
  double from = 0.0;
  for (const double to : turns) {
    const double low = value_of(series, from), high = value_of(series, to);
    if ((low > 0.0) != (high > 0.0)) out.at[out.count++] = bisect(series, from, to);
    from = to;
  }
  return out;
}

}  // namespace aluframe::forces
