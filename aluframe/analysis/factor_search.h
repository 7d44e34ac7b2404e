#pragma once

#include <variant>

#include "aluframe/analysis/loaded_frame.h"
#include "aluframe/analysis/stiffness_equations.h"
#include "aluframe/analysis/symmetric_product.h"

namespace aluframe::analysis {

/// What the searches for buckling factors of one frame share.
struct SearchSpace {
  const Frame& frame;
  std::span<const Geometry> geometry;
  const Equations& equations;
  LinearSolver& solver;
  Columns trial;  ///< modes of earlier searches; without columns before the first
};

/// A factor, and the scaled displacements of the equations in its mode; without rows where an
/// element buckles while the nodes stand still.
struct FoundFactor {
  double factor = 0.0;
  Eigen::VectorXd shape;
  std::optional<std::size_t> element = std::nullopt;
};

/// Looks for the factors at which a frame in one state of axial forces buckles.
///
/// The stiffness K(λ) is regular up to the smallest own factor of an element, and the smallest
/// factor of the frame is not above that. Trial modes give an upper bound: the factor at which K
/// projected on them is singular. A factorisation without negative pivots gives a lower bound. Its
/// inverse improves the trial modes, until both bounds meet. Factors above the smallest are
/// bracketed by their numbers alone; those of one bracket are the same.
class FactorSearch {
 public:
  /// @param largest factor that is looked for
  FactorSearch(SearchSpace& space, const LoadedFrame& loaded, double largest);

  /// The smallest factors, as many as asked for and found.
  Result<std::vector<FoundFactor>> find(int count);
  /// The smallest, and those up to so many times it, but no more than asked for; others than the
  /// smallest are certain to a share.
  Result<std::vector<FoundFactor>> find_near(double range, int most, double certain_share);
  /// Whether there are more factors in the range than were asked for.
  bool has_passed_over() const { return has_passed_over_; }
  int factorisations() const { return factorisations_; }
  /// What the displacements of modes are scaled with.
  std::span<const double> scale() const { return unloaded_.scale; }

 private:
  using Found = std::optional<Problem>;
  /// How many factors lie below one.
  using Below = std::variant<int, Problem>;

  /// Two factors, and how many factors of the frame lie below the upper one.
  struct Bracket {
    double low = 0.0, high = 0.0;
    int below_high = 0;
  };

  Found factorise_unloaded();
  Found find_trial_modes();
  Found find_first();
  Found find_smallest();
  Found find_next();
  Below factors_below(double& factor);
  Result<bool> bracket_next();
  Result<bool> raise_bracket();
  Found narrow_bracket();
  void take_trial_modes(Eigen::Index more = 0);
  void keep_trial_modes();
  void improve_trial_modes(int steps);
  std::optional<FoundFactor> projected_factor(double known, double share);
  std::optional<std::size_t> own_mode_in_bracket() const;
  Columns modes_in_bracket() const;
  Eigen::VectorXd mode_in_bracket();

  SearchSpace& space_;
  const LoadedFrame& loaded_;
  double largest_;  // that is looked for
  double certain_;  // share to which factors above the smallest are
  OwnFactor own_;
  double small_;              // a factor at which axial forces take little from the stiffness
  ScaledEquations unloaded_;  // at the factor 0
  ScaledEquations base_;      // at the lower bound of the smallest factor
  double lower_ = 0.0;
  LoadedEquations current_;  // factorised last
  Columns trial_;
  std::vector<FoundFactor> found_;
  Bracket bracket_;  // of the last factor found
  int factorisations_ = 0;
  bool has_passed_over_ = false;
};

}  // namespace aluframe::analysis
