#include "aluframe/forces/peak_finder.h"

#include <algorithm>
#include <cmath>

namespace aluframe::forces {

namespace {

/// The five positions are in single precision and so are the forces that the others start from.
constexpr double rounding = 1e-6;
/// Components that are zero but for the rounding of axes, against the largest of the element.
constexpr double noise = 1e-9;
/// Parts of the length. Next to a position an extreme differs from the value there by the square of
/// this, of what the load makes over the element.
constexpr double next_to_position = 1e-4;
constexpr double same_place = 1e-9;

constexpr std::array<std::array<double, 2>, 4> sign_pairs{
    {{1.0, 1.0}, {1.0, -1.0}, {-1.0, 1.0}, {-1.0, -1.0}}};

double sum_of(const Weights& w, const std::array<double, 2>& signs,
              const std::array<double, 6>& forces) {
  return w.n * forces[0] + signs[0] * w.my * forces[4] + signs[1] * w.mz * forces[5];
}

/// Calls `use` with the place and the value of each component and weighted sum.
template <class Use>
void for_each_quantity(const std::array<double, 6>& forces, std::span<const Weights> weights,
                       Use use) {
  std::size_t place = 0;
  for (const double force : forces) use(place++, force);
  for (const Weights& w : weights) {
    for (const auto& signs : sign_pairs) use(place++, sum_of(w, signs, forces));
  }
}

std::array<double, 6> in_double(const model::SectionForces& forces) {
  std::array<double, 6> out{};
  std::ranges::copy(forces, out.begin());
  return out;
}

/// What counts as zero of each component.
std::array<double, 6> noise_of(const model::CaseForces& five, double length) {
  double force = 0.0, moment = 0.0;
  for (const model::SectionForces& at : five.at) {
    for (std::size_t i = 0; i < 3; ++i) force = std::max(force, std::abs(double{at[i]}));
    for (std::size_t i = 3; i < 6; ++i) moment = std::max(moment, std::abs(double{at[i]}));
  }
  const double f = noise * force, m = noise * std::max(moment, force * length);
  return {f, f, f, m, m, m};
}

bool is_next_to_position(double fraction, double distance) {
  const double quarters = 4.0 * fraction;
  return std::abs(quarters - std::round(quarters)) <= 4.0 * distance;
}

}  // namespace

void PositionExtremes::set(const model::CaseForces& five, std::span<const Weights> weights,
                           double length) {
  weights_ = weights;
  ranges_.resize(6 + 4 * weights.size());
  for_each_quantity(in_double(five.at[0]), weights,
                    [&](std::size_t place, double value) { ranges_[place] = {value, value}; });
  for (std::size_t i = 1; i < five.at.size(); ++i) {
    for_each_quantity(in_double(five.at[i]), weights, [&](std::size_t place, double value) {
      ranges_[place].low = std::min(ranges_[place].low, value);
      ranges_[place].high = std::max(ranges_[place].high, value);
    });
  }
  const std::array<double, 6> zero = noise_of(five, length);
  for (std::size_t place = 0; place < ranges_.size(); ++place) {
    Range& range = ranges_[place];
    double margin = rounding * std::max(std::abs(range.low), std::abs(range.high));
    margin += place < 6 ? zero[place] : sum_of(weights[(place - 6) / 4], {1.0, 1.0}, zero);
    range = {range.low - margin, range.high + margin};
  }
}

bool PositionExtremes::exceeded_by(const std::array<double, 6>& forces) const {
  bool found = false;
  for_each_quantity(forces, weights_, [&](std::size_t place, double value) {
    found = found || exceeded_by(value, place);
  });
  return found;
}

void PeakFinder::find(double length, const model::CaseForces& five,
                      std::span<const Weights> weights, std::vector<PlaceForces>& out) {
  length_ = length;
  five_ = &five;
  weights_ = weights;
  out_ = &out;
  line_ = SectionLine::from(five.at[0]);
  x_ = 0.0;
  next_ = 0;
  has_extremes_ = false;
  while (next_ < changes.size()) {
    const double piece = changes[next_].change->x - x_;
    if (piece > 0.0) scan_piece(piece);
    line_.advance(piece);
    x_ = changes[next_].change->x;
    apply_changes();
  }
  if (x_ < length) scan_piece(length - x_);
}

/// The extremes of N, Fy and Fz, of the moments and of the sums until the next change.
void PeakFinder::scan_piece(double length) {
  const bool is_loaded =
      line_.rate != std::array<double, 3>{} || line_.slope != std::array<double, 3>{};
  if (!is_loaded) return;  // forces are constant and moments linear
  candidates_.clear();
  const Quadratic n{line_.rate[0], line_.slope[0], 0.0};
  const Quadratic my{line_.forces[2], line_.rate[2], line_.slope[2]};
  const Quadratic mz{line_.forces[1], line_.rate[1], line_.slope[1]};
  scan(n, length);
  scan(my, length);
  scan(mz, length);
  for (const std::size_t i : {1, 2}) scan({line_.rate[i], line_.slope[i], 0.0}, length);
  const int growing = !n.is_zero() + !my.is_zero() + !mz.is_zero();
  for (const Weights& w : weights_) {
    if (growing < 2) break;  // the sums have their extremes where the one component has its own
    for (const auto& signs : sign_pairs) {
      scan(w.n * n + signs[0] * w.my * my + signs[1] * w.mz * mz, length);
    }
  }
  report_candidates();
}

/// Notes where what grows so has its extremes.
void PeakFinder::scan(const Quadratic& growth, double length) {
  for_each_root(growth, length, [&](double distance) {
    if (is_next_to_position((x_ + distance) / length_, next_to_position)) return;
    candidates_.push_back(distance);
  });
}

void PeakFinder::report_candidates() {
  std::ranges::sort(candidates_);
  double last = -length_;
  for (const double distance : candidates_) {
    if (distance - last <= same_place * length_) continue;
    last = distance;
    const std::array<double, 6> forces = line_.forces_after(distance);
    if (exceeds(forces)) report(x_ + distance, forces);
  }
}

/// Takes the line over the place where it stands, with all changes there.
void PeakFinder::apply_changes() {
  const std::array<double, 6> before = line_.forces;
  const std::array<double, 3> rate_before = line_.rate;
  for (; next_ < changes.size() && changes[next_].change->x == x_; ++next_) {
    line_.add(*changes[next_].change, changes[next_].factor);
  }
  const bool is_position = is_next_to_position(x_ / length_, same_place);
  if (line_.forces != before) {
    // At a position the side towards the start is known; beyond the end there is none.
    if (!is_position || x_ >= length_) report(x_, before);
    if (x_ < length_) report(x_, line_.forces);
  } else if (!is_position && is_kink_beyond_positions(rate_before)) {
    report(x_, before);
  }
}

/// Where a distributed load begins or ends, forces have a kink, and so have sums with N. Moments
/// grow on smoothly.
bool PeakFinder::is_kink_beyond_positions(const std::array<double, 3>& rate_before) {
  if (!weights_.empty() && rate_before[0] != line_.rate[0]) return exceeds(line_.forces);
  for (std::size_t i = 0; i < 3; ++i) {
    const bool turns = rate_before[i] * line_.rate[i] <= 0.0;
    if (turns && extremes().exceeded_by(line_.forces[i], i)) return true;
  }
  return false;
}

const PositionExtremes& PeakFinder::extremes() {
  if (!has_extremes_) extremes_.set(*five_, weights_, length_);
  has_extremes_ = true;
  return extremes_;
}

bool PeakFinder::exceeds(const std::array<double, 6>& forces) {
  return extremes().exceeded_by(forces);
}

void PeakFinder::report(double x, const std::array<double, 6>& forces) {
  out_->push_back({x, x / length_, forces});
}

}  // namespace aluframe::forces
