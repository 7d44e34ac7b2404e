#include "aluframe/analysis/equilibrium_path.h"

#include <algorithm>
#include <cmath>
#include <utility>

#include "aluframe/analysis/beam_column_stiffness.h"

namespace aluframe::analysis {

namespace {

/// A step counts as long as its corrections are at most this part of it: the path turns by as much.
constexpr double most_correction = 0.25;
/// Then the next step may be longer.
constexpr double small_correction = 0.1;
/// Cosine of the angle by which the path may turn in a step: with the limit of corrections, what
/// keeps a step from ending on another branch of the path.
constexpr double least_cosine = 0.95;
constexpr int most_iterations = 12;
/// Unbalanced share at which a state is in equilibrium; above the second one it is not, though
/// rounding lets it come no nearer.
constexpr double balanced = 1e-12, almost_balanced = 1e-9;
/// What corrections without end leave unbalanced is rounding below it.
constexpr double much_rounding = 1e-2;
/// A critical point lies between two states whose load factors differ by this part.
constexpr double closed_in = 1e-4;
/// Part of the first step below which none is tried, and how many are.
constexpr double shortest = 1e-11;
constexpr int most_steps = 2000;

double mean_length(const CutFrame& cut) {
  double sum = 0.0;
  for (const Geometry& g : cut.geometry) sum += g.length;
  return sum / static_cast<double>(cut.first_piece.size() - 1);
}

}  // namespace

EquilibriumPath::EquilibriumPath(const Frame& frame, const CutFrame& cut, DisplacedFrame& displaced)
    : frame_(frame),
      cut_(cut),
      displaced_(displaced),
      lengths_(lengths_of(frame, element_geometry(frame))) {
  const double lever = mean_length(cut);
  weights_.resize(displaced.equations().count());
  for (int i = 0; i < displaced.equations().count(); ++i) {
    weights_[i] = displaced.equations().dof(i) % 6 < 3 ? 1.0 : lever * lever;
  }
}

double EquilibriumPath::square(const Steps& steps, double factor) const {
  return steps.cwiseAbs2().dot(weights_) + factor_weight_ * factor * factor;
}

/// Length of the path per unit of the load factor.
double EquilibriumPath::speed(const Point& point) const {
  return std::sqrt(square(point.rate, 1.0));
}

double EquilibriumPath::residual_of(const DisplacedFrame::Forces& forces) const {
  Norms largest;
  const Equations& equations = displaced_.equations();
  for (int i = 0; i < equations.count(); ++i) {
    const std::size_t dof = equations.dof(i);
    largest.include(dof, forces.unbalanced[dof]);
  }
  return share(largest, forces.scale, lengths_);
}

std::optional<std::size_t> EquilibriumPath::find_buckled(
    const DisplacedFrame::Forces& forces) const {
  for (std::size_t i = 0; i < frame_.elements.size(); ++i) {
    if (frame_.elements[i].kind != ElementKind::truss) continue;
    const std::size_t piece = cut_.first_piece[i];
    const double carried = truss_buckling_load(frame_.elements[i], cut_.geometry[piece].length);
    if (-forces.axial_forces[piece] > carried) return i;
  }
  return std::nullopt;
}

/// @param way of the step that led there; none: from the undisplaced state, where loads grow
std::optional<EquilibriumPath::Point> EquilibriumPath::point_at(FrameState state,
                                                                const Steps* way) {
  const auto forces = displaced_.forces(state);
  auto tangent = displaced_.factorise(state);
  const auto rate = displaced_.load_rate(state);
  if (!forces || !tangent || !rate) return std::nullopt;
  Point point{.state = std::move(state), .tangent = std::move(*tangent), .rate = {}, .buckled = {}};
  if (point.tangent.factorisation.status != Factorisation::Status::done) return std::nullopt;
  point.rate = displaced_.solve(point.tangent, *rate);
  if (!point.rate.allFinite()) return std::nullopt;
  point.buckled = find_buckled(*forces);
  point.critical = point.tangent.negative_pivots + (point.buckled ? 1 : 0);
  const bool turns = way != nullptr && point.rate.cwiseProduct(weights_).dot(*way) < 0.0;
  if (turns) point.direction = -1.0;
  return point;
}

/// @param change of the load factor that the step begins with, along the tangent
std::optional<FrameState> EquilibriumPath::correct(const Point& from, double change,
                                                   Control control) {
  const Steps first = change * from.rate;
  const double length = std::sqrt(square(first, change));
  FrameState state =
      displaced_.moved(displaced_.under(from.state, from.state.factor + change), first);
  Steps corrections = Steps::Zero(first.size());
  double factor_correction = 0.0, last = std::numeric_limits<double>::infinity();
  for (int i = 0; i <= most_iterations; ++i) {
    const auto forces = displaced_.forces(state);
    if (!forces) return std::nullopt;
    const double residual = residual_of(*forces);
    const bool is_settled = residual <= almost_balanced && residual > last / 2.0;
    if (residual <= balanced || is_settled) {
      way_ = first + corrections;
      correction_ = std::sqrt(square(corrections, factor_correction)) / length;
      return state;
    }
    is_rounding_ = i == most_iterations && residual <= much_rounding;
    if (i == most_iterations || !std::isfinite(residual)) return std::nullopt;
    last = residual;
    ++iterations_;
    const auto tangent = displaced_.factorise(state);
    if (!tangent || tangent->factorisation.status != Factorisation::Status::done) {
      return std::nullopt;
    }
    Steps steps = displaced_.solve(*tangent, forces->unbalanced);
    double factor = 0.0;
    if (control == Control::arc) {
      const auto load_rate = displaced_.load_rate(state);
      if (!load_rate) return std::nullopt;
      const Steps rate = displaced_.solve(*tangent, *load_rate);
      const Steps normal = first.cwiseProduct(weights_);
      factor = -normal.dot(steps) / (normal.dot(rate) + factor_weight_ * change);
      steps += factor * rate;
    }
    corrections += steps;
    factor_correction += factor;
    const double correction = std::sqrt(square(corrections, factor_correction));
    if (!(correction <= most_correction * length)) return std::nullopt;
    state = displaced_.moved(displaced_.under(std::move(state), state.factor + factor), steps);
  }
  return std::nullopt;
}

/// Of the angle between the directions of the path at two points.
double EquilibriumPath::cosine(const Point& a, const Point& b) const {
  const double both = a.rate.cwiseProduct(weights_).dot(b.rate) + factor_weight_;
  return a.direction * b.direction * both / (speed(a) * speed(b));
}

/// One step along the path, or to the target where that is nearer.
std::optional<EquilibriumPath::Point> EquilibriumPath::advance(const Point& from, double length,
                                                               double target) {
  double change = from.direction * length / speed(from);
  const double left = target - from.state.factor;
  bool lands = change >= left * (1.0 - 1e-12);
  auto state = lands ? correct(from, left, Control::load) : correct(from, change, Control::arc);
  if (state && !lands && state->factor > target) {
    lands = true;
    state = correct(from, left, Control::load);
  }
  if (!state) return std::nullopt;
  if (lands) change = left;
  if (!displaced_.deforms_as_foreseen(from.state, change * from.rate, change, *state)) {
    return std::nullopt;
  }
  const Steps way = way_;
  auto point = point_at(*state, &way);
  if (!point || cosine(from, *point) < least_cosine) return std::nullopt;
  if (lands) point->state.factor = target;
  return point;
}

EquilibriumPath::End EquilibriumPath::end_of(PathEnd how, Point&& point, double factor) {
  End end{.how = how, .factor = factor, .state = std::move(point.state)};
  if (const auto forces = displaced_.forces(end.state)) end.residual = residual_of(*forces);
  end.stiffness = std::move(point.tangent.scaled.matrix);
  end.scale = std::move(point.tangent.scaled.scale);
  end.iterations = iterations_;
  return end;
}

EquilibriumPath::End EquilibriumPath::follow(double target) {
  auto first = point_at(displaced_.undisplaced(), nullptr);
  if (!first || first->critical > 0) return {};
  Point point = std::move(*first);
  factor_weight_ = std::max(square(point.rate, 0.0), 1e-300);
  const double whole = target * speed(point);
  double length = whole;
  std::optional<Point> beyond;  // the first state known to lie beyond a critical point
  for (int step = 0; step < most_steps; ++step) {
    auto next = advance(point, length, target);
    if (!next) {
      beyond.reset();  // steps are no longer halves of what holds a critical point
      length /= 2.0;
      if (length < shortest * whole) break;
      continue;
    }
    if (next->critical > 0) {
      beyond = std::move(next);
    } else {
      point = std::move(*next);
      if (point.state.factor == target) return end_of(PathEnd::reached, std::move(point), target);
      if (!beyond && correction_ < small_correction) length *= 2.0;
    }
    if (!beyond) continue;
    length /= 2.0;
    const double uncertain = 2.0 * length / speed(point);
    const double larger = std::max(point.state.factor, beyond->state.factor);
    if (uncertain > closed_in * point.state.factor) continue;
    const auto element = point.buckled ? point.buckled : beyond->buckled;
    const bool is_own = element && beyond->tangent.negative_pivots == 0;
    const PathEnd how = is_own                    ? PathEnd::element_buckling
                        : beyond->direction < 0.0 ? PathEnd::limit_point
                                                  : PathEnd::bifurcation;
    const double factor =
        how == PathEnd::limit_point ? larger : (point.state.factor + beyond->state.factor) / 2.0;
    End end = end_of(how, std::move(point), factor);
    if (is_own) {
      end.element = element;
    } else {
      end.beyond = std::move(beyond->tangent.scaled.matrix);
    }
    return end;
  }
  const double factor = std::max(point.state.factor, 0.0);
  return end_of(is_rounding_ ? PathEnd::rounding : PathEnd::lost, std::move(point), factor);
}

}  // namespace aluframe::analysis
