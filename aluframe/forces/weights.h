#pragma once

#include <array>

namespace aluframe::forces {

/// Weights of a sum of N, My and Mz, such as a stress: 1/A, 1/Wy and 1/Wz. With a weight of Mx the
/// sum is a normal stress σ that torsion and the larger shear stand beside, as `torsion_stress`.
struct Weights {
  double n = 0.0, my = 0.0, mz = 0.0;
  double fy = 0.0, fz = 0.0, mx = 0.0;
  double least_torsion = 0.0;  ///< stress of torsion up to which nobody asks for its peaks, N/mm²

  friend bool operator==(const Weights&, const Weights&) = default;
};

/// Signs that My and Mz take in the sums of one set of weights.
inline constexpr std::array<std::array<double, 2>, 4> sign_pairs{
    {{1.0, 1.0}, {1.0, -1.0}, {-1.0, 1.0}, {-1.0, -1.0}}};

/// Torsion that raises the stress by less leaves the ratio to bending and shear.
inline constexpr double worth_of_torsion = 1.01;

/// √(σ² + 3·τ²) of the forces N, Fy, Fz, Mx, My, Mz, every sum with the signs that make it largest;
/// 0 where torsion raises it by less than the part of `worth_of_torsion`.
double torsion_stress(const Weights& weights, const std::array<double, 6>& forces);
/// The same wherever torsion acts, however little it adds.
double largest_stress(const Weights& weights, const std::array<double, 6>& forces);

}  // namespace aluframe::forces
