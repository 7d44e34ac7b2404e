#pragma once

#include <algorithm>
#include <array>
#include <cmath>
#include <span>
#include <utility>

#include "aluframe/forces/span_changes.h"
#include "aluframe/forces/weights.h"

namespace aluframe::forces {

/// Value, first and second derivative of a quadratic function at the start of a piece.
struct Quadratic {
  double value = 0.0, first = 0.0, second = 0.0;

  friend Quadratic operator*(double factor, const Quadratic& q) {
    return {factor * q.value, factor * q.first, factor * q.second};
  }
  friend Quadratic operator+(const Quadratic& a, const Quadratic& b) {
    return {a.value + b.value, a.first + b.first, a.second + b.second};
  }
  bool is_zero() const { return value == 0.0 && first == 0.0 && second == 0.0; }
};

/// Calls `found` with the roots that lie between 0 and `length`, the ends excluded.
template <class Found>
void for_each_root(const Quadratic& q, double length, Found found) {
  const auto keep = [&](double root) {
    if (root > 0.0 && root < length) found(root);  // false for what is not a number
  };
  if (q.second == 0.0) {
    if (q.first != 0.0) keep(-q.value / q.first);
    return;
  }
  const double discriminant = q.first * q.first - 2.0 * q.second * q.value;
  if (discriminant < 0.0) return;
  // Without the difference of nearly equal numbers.
  const double sum = -(q.first + std::copysign(std::sqrt(discriminant), q.first));
  keep(sum / q.second);
  if (discriminant > 0.0) keep(2.0 * q.value / sum);
}

/// A change of the loads of a case, and the factor of the case.
struct FactoredChange {
  const SpanChange* change = nullptr;
  double factor = 1.0;
};

/// Forces of the section at one place and how the loads behind it make them grow: between two
/// changes N, Fy and Fz are quadratic in x and the moments cubic, so that everything about them has
/// a closed form.
struct SectionLine {
  std::array<double, 6> forces{};  ///< N, Fy, Fz, Mx, My, Mz
  std::array<double, 3> rate{};    ///< per mm, of N, Fy, Fz
  std::array<double, 3> slope{};   ///< per mm², of the rate

  /// Forces without loads behind them.
  static SectionLine from(const model::SectionForces& at) {
    SectionLine line;
    std::ranges::copy(at, line.forces.begin());
    return line;
  }

  void add(const SpanChange& change, double factor) {
    for (std::size_t i = 0; i < 6; ++i) forces[i] += factor * change.jump[i];
    for (std::size_t i = 0; i < 3; ++i) rate[i] += factor * change.rate[i];
    for (std::size_t i = 0; i < 3; ++i) slope[i] += factor * change.slope[i];
  }

  /// The forces `distance` further on, no change between.
  std::array<double, 6> forces_after(double distance) const {
    std::array<double, 6> out = forces;
    const double half = distance * distance / 2.0;
    for (std::size_t i = 0; i < 3; ++i) out[i] += distance * rate[i] + half * slope[i];
    // My grows by Fz and Mz by Fy.
    for (const auto& [moment, shear] : {std::pair<std::size_t, std::size_t>{4, 2}, {5, 1}}) {
      out[moment] +=
          distance * forces[shear] + half * (rate[shear] + distance / 3.0 * slope[shear]);
    }
    return out;
  }

  /// What no force exceeds up to `distance`: the larger of both ends, and how far the curve may
  /// stand off the straight line between them, by its largest second derivative.
  std::array<double, 6> largest_within(double distance) const {
    std::array<double, 6> out = forces_after(distance);
    for (std::size_t i = 0; i < 6; ++i) out[i] = std::max(std::abs(out[i]), std::abs(forces[i]));
    const double eighth = distance * distance / 8.0;
    for (std::size_t i = 0; i < 3; ++i) out[i] += eighth * std::abs(slope[i]);
    for (const auto& [moment, shear] : {std::pair<std::size_t, std::size_t>{4, 2}, {5, 1}}) {
      out[moment] +=
          eighth * std::max(std::abs(rate[shear]), std::abs(rate[shear] + distance * slope[shear]));
    }
    return out;
  }

  void advance(double distance) {
    forces = forces_after(distance);
    for (std::size_t i = 0; i < 3; ++i) rate[i] += distance * slope[i];
  }

  /// How far it holds, up to `length`.
  static double longest_piece(double length) { return length; }

  /// Calls `found` with the distances up to `length` where a component or a weighted sum has an
  /// extreme.
  template <class Found>
  void for_each_extreme(double length, std::span<const Weights> weights, Found found) const {
    const bool is_loaded = rate != std::array<double, 3>{} || slope != std::array<double, 3>{};
    if (!is_loaded) return;  // forces are constant and moments linear
    const Quadratic n{rate[0], slope[0], 0.0};
    const Quadratic my{forces[2], rate[2], slope[2]};
    const Quadratic mz{forces[1], rate[1], slope[1]};
    for_each_root(n, length, found);
    for_each_root(my, length, found);
    for_each_root(mz, length, found);
    for (const std::size_t i : {1, 2}) for_each_root({rate[i], slope[i], 0.0}, length, found);
    const int growing = !n.is_zero() + !my.is_zero() + !mz.is_zero();
    if (growing < 2) return;  // a sum has its extremes where its one part has its own
    for (const Weights& w : weights) {
      for (const auto& [y, z] : sign_pairs) {
        for_each_root(w.n * n + y * w.my * my + z * w.mz * mz, length, found);
      }
    }
  }
};

}  // namespace aluframe::forces
