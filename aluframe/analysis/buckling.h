#pragma once

#include <memory>
#include <optional>
#include <span>
#include <string>
#include <vector>

#include "aluframe/analysis/axial_work.h"
#include "aluframe/analysis/load_case.h"
#include "aluframe/analysis/results.h"

namespace aluframe::analysis {

/// A factor of the loads at which the frame buckles, and how.
struct BucklingMode {
  double factor = 0.0;  ///< positive
  /// Per node: displacements and rotations, global axes, of any size; all 0 where an element
  /// buckles while its nodes stand still.
  std::vector<Vector6> shape;
  /// Per element: part of the work that its axial force does in the mode, of all parts of the sign
  /// that buckles the frame; positive for compressed elements.
  std::vector<AxialWork> work;
  std::optional<std::size_t> element = std::nullopt;  ///< that buckles between its nodes
  std::string text;  ///< "nodes 2-3 move along X", "element 7 buckles between its nodes, along Y"
};

struct BucklingResult {
  /// The smallest factors, ascending, up to `largest_buckling_factor`; none without compression.
  std::vector<BucklingMode> modes;
  /// Per element, its largest compression at the factor 1, N; 0 without.
  std::vector<double> compression;
  /// Whether more factors are near the smallest than were looked for.
  bool has_passed_over = false;
  int factorisations = 0;
};

/// How far above the smallest factor others are near it.
inline constexpr double near_factors = 1.5;

/// How many of them are looked for in a frame of so many elements: fewer in large ones, where each
/// takes long.
int most_near_modes(std::size_t elements);

/// Larger factors are those of axial forces that are rounding: the frame does not buckle.
inline constexpr double largest_buckling_factor = 1e6;

/// Linear buckling of a frame: the factors λ at which its stiffness under λ times the axial forces
/// of a state is singular. The axial forces act on the deflection of the elements as in second
/// order, by exact stability functions, so that buckling of an element between its nodes counts and
/// one element a member is enough. Every factor is certain: as many lie below it as the
/// factorisation has negative pivots and the elements have own factors (Wittrick and Williams, Q.
/// J. Mech. Appl. Math. 24 (1971) 263).
///
/// Left out: buckling by torsion and lateral-torsional buckling of elements, displacements before
/// buckling (a shallow frame snaps through earlier), and plasticity. All loads grow with the
/// factor, temperatures and settlements too.
///
///     Buckling buckling(frame);
///     const auto found = buckling.find(loads, axial_forces);
///     if (const auto* problem = std::get_if<Problem>(&found)) return problem->text;
///     const auto& modes = std::get<BucklingResult>(found).modes;
///     const double factor = modes.empty() ? infinity : modes.front().factor;
///
/// States that resemble each other are found faster one after the other: each begins with the
/// modes of those before.
class Buckling {
 public:
  /// The frame must stay where it is.
  explicit Buckling(const Frame& frame);
  ~Buckling();

  /// @param loads of the state: where axial forces change along an element
  /// @param axial_forces per element, at its start, N, positive in tension
  /// @param modes how many factors, at least 1
  /// @return a problem when the frame without axial forces is not held
  Result<BucklingResult> find(const LoadCase& loads, std::span<const double> axial_forces,
                              int modes = 1);

  /// The smallest factor and those near it: up to `near_factors` times it, all but the smallest
  /// within a thousandth.
  Result<BucklingResult> find_near(const LoadCase& loads, std::span<const double> axial_forces);

 private:
  class Search;
  std::unique_ptr<Search> search_;
};

/// The axial forces of a result at the starts of the elements. Those that are rounding against the
/// largest force of the result are 0.
std::vector<double> axial_forces_at_start(const CaseResult& result);

}  // namespace aluframe::analysis
