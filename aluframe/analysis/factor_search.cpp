#include "aluframe/analysis/factor_search.h"

#include <Eigen/Eigenvalues>
#include <algorithm>
#include <cmath>
#include <limits>
#include <numeric>

#include "aluframe/analysis/mechanism.h"
#include "aluframe/texts/text.h"

namespace aluframe::analysis {

namespace {

/// Bounds of a factor that are certain to this share of it have met.
constexpr double certain = 1e-6;
/// How near a factor is first looked at from below: near enough for a few steps of inverse
/// iteration, far enough for an upper bound that is not good yet.
constexpr double near_share = 1e-2;
constexpr Eigen::Index trial_modes = 6;
constexpr int steps_of_inverse_iteration = 3;
constexpr int most_trials = 80;

/// The part of the smallest own factor at which the stiffness shows what axial forces take from it
/// where the factor is small.
constexpr double small_share = 1e-2;

SymmetricMatrix difference(const SymmetricMatrix& a, const SymmetricMatrix& b) {
  SymmetricMatrix out = a;
  for (std::size_t i = 0; i < out.values.size(); ++i) out.values[i] -= b.values[i];
  return out;
}

/// Largest ν and its vector, of B·y = ν·A·y with A positive definite.
struct LargestRatio {
  double value = 0.0;
  Eigen::VectorXd vector;
  Columns all;  ///< vectors of all ratios, the largest first
};

std::optional<LargestRatio> largest_ratio(const Columns& b, const Columns& a) {
  const Eigen::LLT<Columns> cholesky(a);
  if (cholesky.info() != Eigen::Success) return std::nullopt;
  Columns inner = cholesky.matrixL().solve(b);
  inner = cholesky.matrixL().solve(inner.transpose().eval());
  const Eigen::SelfAdjointEigenSolver<Columns> eigen((inner + inner.transpose()) / 2.0);
  if (eigen.info() != Eigen::Success) return std::nullopt;
  const Columns vectors = cholesky.matrixU().solve(eigen.eigenvectors()).rowwise().reverse();
  return LargestRatio{eigen.eigenvalues().reverse()[0], vectors.col(0), vectors};
}

Problem not_narrowed() {
  return {Problem::Kind::solver,
          texts::translatable("the factor at which the frame buckles could not be found"),
          std::nullopt, std::nullopt};
}

}  // namespace

FactorSearch::FactorSearch(SearchSpace& space, const LoadedFrame& loaded, double largest)
    : space_(space),
      loaded_(loaded),
      largest_(largest),
      certain_(certain),
      own_(loaded.smallest_own_factor(largest)),
      small_(small_share * (std::isfinite(own_.factor) ? own_.factor : 1.0)) {}

/// @param factor smaller afterwards where the equations are singular: a hair, or more where their
///               rounding makes them so around it
FactorSearch::Below FactorSearch::factors_below(double& factor) {
  using Status = Factorisation::Status;
  constexpr int most_tries = 5;
  double step = certain / 100.0;
  for (int tries = 0; tries < most_tries; ++tries, factor *= 1.0 - step, step *= 10.0) {
    auto equations = loaded_.at(factor);
    if (!equations) continue;
    current_ = std::move(*equations);
    if (current_.scaled.scale.empty()) return current_.own_factors;
    ++factorisations_;
    const Factorisation done = space_.solver.factorise(current_.scaled.matrix);
    if (done.status == Status::zero_pivot && factor > 0.0) continue;
    if (auto problem = find_problem(done, space_.frame, space_.equations, current_.scaled)) {
      return std::move(*problem);
    }
    return done.negative_pivots + current_.own_factors;
  }
  return not_narrowed();
}

/// Modes of earlier searches, and others so that no kind of motion is left out.
/// @param more trial modes than usual
void FactorSearch::take_trial_modes(Eigen::Index more) {
  const auto size = static_cast<Eigen::Index>(unloaded_.scale.size());
  const Eigen::Index others = space_.trial.cols() > 0 ? 1 : trial_modes;
  const Eigen::Index count = std::min(others + more + space_.trial.cols(), size);
  const std::vector<double> any = probing_load(static_cast<int>(size * count));
  trial_ = Eigen::Map<const Columns>(any.data(), size, count);
  const Eigen::Index kept = std::min(space_.trial.cols(), count);
  if (kept > 0) trial_.leftCols(kept) = space_.trial.leftCols(kept);
  trial_ = orthonormal(trial_);
}

/// The trial modes in the end, those near the factor found, stand first in the next search.
void FactorSearch::keep_trial_modes() {
  if (trial_.cols() > 0) space_.trial = trial_.leftCols(std::min(trial_.cols(), trial_modes));
}

/// Factorises the stiffness of the frame without axial forces, which must resist every motion.
FactorSearch::Found FactorSearch::factorise_unloaded() {
  double none = 0.0;
  const Below below = factors_below(none);
  if (const auto* problem = std::get_if<Problem>(&below)) return *problem;
  const std::vector<double> load = probing_load(current_.scaled.matrix.size);
  std::vector<double> solution = load;
  space_.solver.solve(solution);
  if (std::get<int>(below) == 0 && softness(load, solution) >= least_softness) return std::nullopt;
  return explain_mechanism(space_.frame, space_.equations, current_.scaled);
}

/// Subspace iteration with the stiffness of the frame without axial forces.
FactorSearch::Found FactorSearch::find_trial_modes() {
  if (auto problem = factorise_unloaded()) return problem;
  const auto slightly = loaded_.at(small_);
  if (!slightly) return not_narrowed();
  const SymmetricMatrix taken = difference(unloaded_.matrix, slightly->scaled.matrix);
  constexpr int most_steps = 12;
  constexpr double settled = 0.01;
  double before = 0.0;
  Columns taken_by_trial = times(taken, trial_);
  for (int step = 0; step < most_steps; ++step) {
    trial_ = taken_by_trial;
    space_.solver.solve({trial_.data(), static_cast<std::size_t>(trial_.size())});
    trial_ = orthonormal(trial_);
    taken_by_trial = times(taken, trial_);
    const auto ratio = largest_ratio(trial_.transpose() * taken_by_trial,
                                     trial_.transpose() * times(unloaded_.matrix, trial_));
    if (!ratio) return std::nullopt;
    if (ratio->value > 0.0 && std::abs(ratio->value - before) <= settled * ratio->value) break;
    before = ratio->value;
  }
  return std::nullopt;
}

/// Inverse iteration with what was factorised last.
void FactorSearch::improve_trial_modes(int steps) {
  const SymmetricMatrix taken = difference(unloaded_.matrix, current_.scaled.matrix);
  for (int step = 0; step < steps; ++step) {
    trial_ = times(taken, trial_);
    space_.solver.solve({trial_.data(), static_cast<std::size_t>(trial_.size())});
    if (!trial_.allFinite()) return take_trial_modes();
    trial_ = orthonormal(trial_);
  }
}

/// The smallest factor at which the stiffness, projected on the trial modes, is singular: secants
/// from the lower bound, where it is positive definite, and then from nearer such factors.
/// @param known a factor that it is not far above
/// @param share of the factor that may stay uncertain
std::optional<FoundFactor> FactorSearch::projected_factor(double known, double share) {
  const auto projected = [&](const ScaledEquations& equations) -> Columns {
    return trial_.transpose() * times(equations.matrix, trial_);
  };
  const double limit = std::min(own_.factor, largest_) * (1.0 - certain);
  double low = lower_;
  Columns at_low = projected(base_);
  double factor = lower_ > 0.0 ? std::min(lower_ * (1.0 + near_share), known) : small_;
  constexpr int most_secants = 20;
  for (int i = 0; i < most_secants; ++i) {
    factor = std::min(factor, limit);
    if (!(factor > low)) return std::nullopt;  // the lower bound is all but the limit
    const auto there = loaded_.at(factor);
    if (!there) return std::nullopt;
    Columns at_factor = projected(there->scaled);
    const auto ratio = largest_ratio(at_low - at_factor, at_low);
    if (!ratio || !(ratio->value > 0.0)) return std::nullopt;
    const double next = low + (factor - low) / ratio->value;
    if (std::abs(next - factor) <= share * next) {
      return FoundFactor{next, trial_ * ratio->vector, std::nullopt};
    }
    if (next >= limit && factor >= limit) return std::nullopt;
    if (next > factor) {
      low = factor;
      at_low = std::move(at_factor);
    }
    factor = next;
  }
  return std::nullopt;
}

/// Finds none when it is above the largest that is looked for.
FactorSearch::Found FactorSearch::find_smallest() {
  FoundFactor best{own_.factor, {}, own_.element};
  if (!(own_.factor <= largest_)) best = {largest_, {}, std::nullopt};
  const auto take = [&](std::optional<FoundFactor> found) {
    if (!found || !(found->factor < best.factor)) return false;
    best = std::move(*found);
    return true;
  };
  bool has_searched = space_.trial.cols() == 0;
  take_trial_modes();
  if (has_searched) {
    if (auto problem = find_trial_modes()) return problem;
  }
  const auto first = projected_factor(best.factor, near_share);
  double trial = (first ? first->factor : best.factor) * (1.0 - near_share);
  bool is_close = false;  // so that one step of inverse iteration leaves nothing else
  for (int i = 0; i < most_trials; ++i) {
    const double aim = trial;
    const Below below = factors_below(trial);
    if (const auto* problem = std::get_if<Problem>(&below)) return *problem;
    improve_trial_modes(is_close ? 1 : steps_of_inverse_iteration);
    const bool is_below = std::get<int>(below) == 0;
    if (is_below) {
      lower_ = trial;
      base_ = current_.scaled;
      take(projected_factor(best.factor, certain / 1000.0));
      // Singular from here to where it was aimed at: as near as rounding lets it come.
      const bool is_singular = trial < aim * (1.0 - certain);
      if (best.factor * (1.0 - certain) <= trial || is_singular) {
        const bool is_mode = best.element || best.shape.size() > 0;
        if (is_mode) found_.push_back(std::move(best));
        return std::nullopt;
      }
      is_close = best.factor * (1.0 - 2.0 * near_share) <= trial;
      trial = best.factor * (1.0 - (is_close ? certain / 2.0 : near_share));
      continue;
    }
    is_close = false;
    if (!has_searched) {
      has_searched = true;
      take_trial_modes();
      if (auto problem = find_trial_modes()) return problem;
    }
    const double refuted = trial;
    best = {refuted, trial_.col(0), std::nullopt};
    const bool is_better = take(projected_factor(best.factor, certain / 1000.0));
    trial = is_better ? best.factor * (1.0 - near_share)
                      : (lower_ > 0.0 ? std::sqrt(lower_ * refuted) : refuted / 4.0);
    if (trial <= lower_) trial = std::sqrt(lower_ * best.factor);
  }
  return not_narrowed();
}

/// Raises the bracket of the last factor, which holds no more than those found, by steps until it
/// holds more. @return false when the largest factor is reached
Result<bool> FactorSearch::raise_bracket() {
  constexpr double step = 1.5;
  const int count = static_cast<int>(found_.size());
  const double largest = std::min(largest_, loaded_.largest_carried_factor());
  while (bracket_.high < largest) {
    const double low = bracket_.high;
    double high = std::min(low * step, largest);
    const Below below = factors_below(high);
    if (const auto* problem = std::get_if<Problem>(&below)) return *problem;
    if (high <= low) break;  // singular from there to the largest
    bracket_ = {low, high, std::get<int>(below)};
    if (bracket_.below_high > count) return true;
  }
  return false;
}

FactorSearch::Found FactorSearch::narrow_bracket() {
  const int count = static_cast<int>(found_.size());
  auto& [low, high, below_high] = bracket_;
  for (int i = 0; high - low > certain_ / 2.0 * high; ++i) {
    if (i == most_trials) return not_narrowed();
    double middle = (low + high) / 2.0;
    const Below below = factors_below(middle);
    if (const auto* problem = std::get_if<Problem>(&below)) return *problem;
    if (middle <= low) break;  // singular all over
    if (std::get<int>(below) > count) {
      high = middle;
      below_high = std::get<int>(below);
    } else {
      low = middle;
    }
  }
  return std::nullopt;
}

/// The first factor that is not found yet lies in the bracket afterwards.
/// @return false when the largest factor is reached
Result<bool> FactorSearch::bracket_next() {
  const int count = static_cast<int>(found_.size());
  if (count == 1) {
    const double factor = found_.front().factor;
    bracket_ = {factor * (1.0 - certain), factor * (1.0 + certain), 0};
    const Below below = factors_below(bracket_.high);
    if (const auto* problem = std::get_if<Problem>(&below)) return *problem;
    bracket_.below_high = std::get<int>(below);
  }
  if (bracket_.below_high > count) return true;
  auto raised = raise_bracket();
  if (const auto* is_raised = std::get_if<bool>(&raised); !is_raised || !*is_raised) return raised;
  if (auto problem = narrow_bracket()) return std::move(*problem);
  return true;
}

/// An element with an own factor in the bracket that is not found yet.
std::optional<std::size_t> FactorSearch::own_mode_in_bracket() const {
  auto elements = loaded_.elements_with_own_factor(bracket_.low, bracket_.high);
  for (const FoundFactor& other : found_) {
    if (!other.element || other.factor < bracket_.low) continue;
    const auto same = std::ranges::find(elements, *other.element);
    if (same != elements.end()) elements.erase(same);
  }
  if (elements.empty()) return std::nullopt;
  return elements.front();
}

/// Modes that are found already in the bracket, square to each other.
Columns FactorSearch::modes_in_bracket() const {
  Columns modes(static_cast<Eigen::Index>(unloaded_.scale.size()), 0);
  for (const FoundFactor& other : found_) {
    if (other.shape.size() == 0 || other.factor < bracket_.low * (1.0 - 4.0 * certain)) continue;
    modes.conservativeResize(Eigen::NoChange, modes.cols() + 1);
    modes.rightCols<1>() = other.shape;
  }
  return modes.cols() == 0 ? modes : orthonormal(modes);
}

/// The mode whose factor lies in the bracket: of several with the same factor, one square to those
/// that are found already. The stiffness factorised last is that of the upper end.
Eigen::VectorXd FactorSearch::mode_in_bracket() {
  const Columns others = modes_in_bracket();
  take_trial_modes(others.cols());
  improve_trial_modes(2 * steps_of_inverse_iteration);
  const Columns projected = trial_.transpose() * times(current_.scaled.matrix, trial_);
  const Eigen::SelfAdjointEigenSolver<Columns> eigen(projected);
  const Eigen::VectorXd distances = eigen.eigenvalues().cwiseAbs();
  std::vector<Eigen::Index> nearest(static_cast<std::size_t>(distances.size()));
  std::iota(nearest.begin(), nearest.end(), Eigen::Index{0});
  std::ranges::sort(nearest, {}, [&](Eigen::Index i) { return distances[i]; });
  nearest.resize(std::min(nearest.size(), static_cast<std::size_t>(others.cols()) + 1));
  Eigen::VectorXd found;
  for (const Eigen::Index i : nearest) {
    Eigen::VectorXd shape = trial_ * eigen.eigenvectors().col(i);
    shape -= others * (others.transpose() * shape);
    if (found.size() == 0 || shape.norm() > found.norm()) found = shape;
  }
  return found;
}

/// Finds none when the largest factor is reached.
FactorSearch::Found FactorSearch::find_next() {
  const auto bracketed = bracket_next();
  if (const auto* problem = std::get_if<Problem>(&bracketed)) return *problem;
  if (!std::get<bool>(bracketed)) return std::nullopt;
  const double last = found_.back().factor;
  FoundFactor next{last >= bracket_.low ? last : (bracket_.low + bracket_.high) / 2.0, {}, {}};
  next.element = own_mode_in_bracket();
  if (!next.element) {
    double high = bracket_.high;
    const Below below = factors_below(high);
    if (const auto* problem = std::get_if<Problem>(&below)) return *problem;
    next.shape = mode_in_bracket();
  }
  found_.push_back(std::move(next));
  return std::nullopt;
}

FactorSearch::Found FactorSearch::find_first() {
  auto unloaded = loaded_.at(0.0);
  if (!unloaded) return not_narrowed();
  unloaded_ = std::move(unloaded->scaled);
  base_ = unloaded_;
  if (!unloaded_.scale.empty()) {
    if (auto problem = find_smallest()) return problem;
    keep_trial_modes();
  } else if (own_.factor <= largest_) {
    found_.push_back({own_.factor, {}, own_.element});
  }
  return std::nullopt;
}

Result<std::vector<FoundFactor>> FactorSearch::find(int count) {
  if (found_.empty()) {
    if (auto problem = find_first()) return std::move(*problem);
  }
  while (!found_.empty() && static_cast<int>(found_.size()) < count) {
    const std::size_t before = found_.size();
    if (auto problem = find_next()) return std::move(*problem);
    if (found_.size() == before) break;
  }
  return std::move(found_);
}

Result<std::vector<FoundFactor>> FactorSearch::find_near(double range, int most,
                                                         double certain_share) {
  if (auto problem = find_first()) return std::move(*problem);
  if (found_.empty()) return std::move(found_);
  largest_ = std::min(largest_, range * found_.front().factor);
  certain_ = certain_share;
  auto found = find(most);
  const auto* near = std::get_if<std::vector<FoundFactor>>(&found);
  if (near == nullptr || static_cast<int>(near->size()) < most) return found;
  double end = std::min(largest_, loaded_.largest_carried_factor());
  const Below below = factors_below(end);
  if (const auto* problem = std::get_if<Problem>(&below)) return *problem;
  has_passed_over_ = std::get<int>(below) > most;
  return found;
}

}  // namespace aluframe::analysis
