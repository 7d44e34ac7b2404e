#pragma once

#include <array>
#include <limits>
#include <span>

#include "aluframe/forces/power_series.h"
#include "aluframe/forces/section_line.h"

namespace aluframe::forces {

/// One bending plane of an element whose axial force acts on its deflection.
struct BowedPlane {
  double ei = 0.0;         ///< bending stiffness, N·mm²
  double gas = 0.0;        ///< shear stiffness, N; 0: rigid in shear
  double curvature = 0.0;  ///< 1/mm, by temperature
  /// Curvature before it is loaded, a polynomial as in model::InitialCurvatures; empty: straight.
  std::span<const float> initial = {};
};

/// Forces along an element in second order. Fy, Fz and N follow from the loads, across and along
/// the undisplaced axis; a moment grows by its shear force and by the axial force times the slope
/// of the deflected axis:
///     θ' = M/EI + κ,   M' = V + N·w',   w' = θ - M'/GAs
/// where κ, w and θ include what the element is bowed by before it is loaded, and how it leans, w'
/// and θ (with shear, the axial force acts on the slope of the axis, as in the analysis). Solved by
/// power series, which are exact for loads and axial forces that are linear in x.
class BowedLine : public SectionLine {
 public:
  /// Planes of My, then of Mz.
  using Planes = std::array<BowedPlane, 2>;

  BowedLine() = default;
  /// Along an element of this length whose moments at the five positions are known.
  BowedLine(const Planes& planes, double length, const model::CaseForces& five,
            std::span<const FactoredChange> changes);

  /// How far to go at most, up to `length`, for the series to be exact.
  double longest_piece(double length) const;
  std::array<double, 6> forces_after(double distance) const;
  void advance(double distance);

  /// Without a bound on the deflection there is none on the moments.
  std::array<double, 6> largest_within(double /*distance*/) const {
    constexpr double any = std::numeric_limits<double>::infinity();
    return {any, any, any, any, any, any};
  }

  /// Calls `found` with the distances up to `length` where a component or a weighted sum has an
  /// extreme.
  template <class Found>
  void for_each_extreme(double length, std::span<const Weights> weights, Found found) const {
    const Quadratic n{rate[0], slope[0], 0.0};
    for_each_root(n, length, found);
    for (const std::size_t i : {1, 2}) for_each_root({rate[i], slope[i], 0.0}, length, found);
    const Series my = derivative_of(bow_of(0).moment), mz = derivative_of(bow_of(1).moment);
    for (const double x : sign_changes_of(my, length)) found(x);
    for (const double x : sign_changes_of(mz, length)) found(x);
    const int growing = !n.is_zero() + (my != Series{}) + (mz != Series{});
    if (growing < 2) return;  // a sum has its extremes where its one part has its own
    for (const Weights& w : weights) {
      for (const auto& [y, z] : sign_pairs) {
        Series sum{w.n * rate[0], w.n * slope[0]};
        for (std::size_t k = 0; k < sum.size(); ++k) sum[k] += y * w.my * my[k] + z * w.mz * mz[k];
        for (const double x : sign_changes_of(sum, length)) found(x);
      }
    }
  }

 private:
  struct Bow {
    Series rotation{}, moment{};
  };

  Bow bow_of(std::size_t plane) const;
  Series initial_curvature(std::size_t plane) const;
  double longest_series(double length) const;
  void move(double distance);
  void add_here(std::span<const FactoredChange> changes, std::size_t& next);
  void go_to(double x, std::span<const FactoredChange> changes, std::size_t& next);
  void find_rotations(const model::CaseForces& five, std::span<const FactoredChange> changes);

  Planes planes_;
  double quarter_ = 0.0;  ///< of the length
  double x_ = 0.0;
  std::array<double, 2> rotations_{};                             ///< here
  std::array<std::array<double, 2>, 4> rotations_of_quarters_{};  ///< at their starts
};

}  // namespace aluframe::forces
